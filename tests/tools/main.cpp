#include <QApplication>

#include "tests/tools/tests.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    int failed = 0;
    failed |= hotel::RunPrintScriptTests(argc, argv);
    failed |= hotel::RunPrintJobTests(argc, argv);
    failed |= hotel::RunPrintGridTests(argc, argv);
    return failed;
}
