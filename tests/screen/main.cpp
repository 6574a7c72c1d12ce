#include <QApplication>

#include "screen/theme.h"

int TestScreen(int argc, char** argv);
int TestOpenScreen(int argc, char** argv);
int TestMessages(int argc, char** argv);
int TestGridView(int argc, char** argv);
int TestGridTyping(int argc, char** argv);
int TestFieldForm(int argc, char** argv);
int TestTyping(int argc, char** argv);

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    app.setQuitOnLastWindowClosed(false);
    hotel::ApplyTheme(app);
    int failures = 0;
    for (const auto test : {TestTyping, TestScreen, TestOpenScreen, TestMessages, TestGridView,
                            TestGridTyping, TestFieldForm})
        failures += test(argc, argv);
    return failures != 0;
}
