#include <memory>

#include <QCoreApplication>
#include <QTest>

QObject* NewTestClock();

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    std::unique_ptr<QObject> clock(NewTestClock());
    return QTest::qExec(clock.get(), argc, argv);
}
