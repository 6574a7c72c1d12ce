#include <QFileInfo>
#include <QTemporaryDir>

#include "platform/work_folder.h"
#include "record/literals.h"
#include "tests/hotel_test.h"

using namespace hotel;

class WorkFolderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theProgramsOwnFolderComesFirst() {
        const QTemporaryDir program;
        QCOMPARE(PictureFolder(program.path()), program.path());
        QCOMPARE(ListFolder(program.path()), program.path());
    }

    // The pictures of a folder are removed at the end: it may not be one that holds the user's own.
    void elseTheUsersFolders() {
        const QTemporaryDir home;
        qputenv("HOME", home.path().toLocal8Bit());
        const QString lists = ListFolder(u"/nowhere"_s);
        const QString pictures = PictureFolder(u"/nowhere"_s);
        QVERIFY(QFileInfo(lists).isWritable());
        QVERIFY(QFileInfo(pictures).isWritable());
        QVERIFY(pictures.startsWith(home.path()));
        QVERIFY(pictures.endsWith(u"test_platform"));
        QVERIFY(!lists.startsWith(pictures));
        QVERIFY(lists.startsWith(home.path()));
    }
};

HOTEL_TEST(WorkFolderTest)

#include "test_work_folder.moc"
