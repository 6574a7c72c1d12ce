#include <QApplication>

#include "tests/tools/tests.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    int failed = 0;
    failed |= hotel::RunCalculatorTests(argc, argv);
    failed |= hotel::RunCategoriesTests(argc, argv);
    failed |= hotel::RunDeliveredTablesTests(argc, argv);
    failed |= hotel::RunIdentityNumberTests(argc, argv);
    failed |= hotel::RunPinyinTests(argc, argv);
    return failed;
}
