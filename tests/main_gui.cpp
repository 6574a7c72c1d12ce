#include <QApplication>

#include "screen/theme.h"
#include "tests/hotel_test.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    hotel::ApplyTheme(application);
    return hotel::RunTests(argc, argv);
}
