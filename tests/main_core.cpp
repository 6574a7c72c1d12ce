#include <QCoreApplication>

#include "tests/hotel_test.h"

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    return hotel::RunTests(argc, argv);
}
