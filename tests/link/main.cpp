#include <memory>

#include <QCoreApplication>
#include <QTest>

QObject* NewTestAddresses();
QObject* NewTestResponseRing();
QObject* NewTestOpening();
QObject* NewTestWaiting();
QObject* NewTestCommands();
QObject* NewTestLists();
QObject* NewTestReadCaches();
QObject* NewTestFileTransfer();

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    int failures = 0;
    for (auto newTest : {NewTestAddresses, NewTestResponseRing, NewTestOpening, NewTestWaiting,
                         NewTestCommands, NewTestLists, NewTestReadCaches, NewTestFileTransfer}) {
        std::unique_ptr<QObject> test(newTest());
        failures += QTest::qExec(test.get(), argc, argv);
    }
    return failures == 0 ? 0 : 1;
}
