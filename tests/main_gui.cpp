#include <QApplication>
#include <QTimer>

#include "screen/screen.h"
#include "screen/theme.h"
#include "tests/hotel_test.h"

namespace {

// A check that fails in the answer to a question leaves it unanswered, and the test would wait for ever: then
// the question goes.
void EndQuestionsOfFailedTests(QTimer& watch) {
    QObject::connect(&watch, &QTimer::timeout, [] {
        auto* question = qobject_cast<hotel::Screen*>(QApplication::activeModalWidget());
        if (!question || !QTest::currentTestFailed())
            return;
        question->close();
        if (question->isVisible()) // it asks back
            question->deleteLater();
    });
    watch.start(200);
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    hotel::ApplyTheme(application);
    QTimer watch;
    EndQuestionsOfFailedTests(watch);
    return hotel::RunTests(argc, argv);
}
