#include <QTemporaryDir>
#include <QTest>

#include "link/serv_api.h"
#include "record/record_text.h"
#include "tests/hotel_test.h"
#include "tests/link/scripted_peer.h"

using namespace hotel;

namespace {

QByteArray Content(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

void Write(const QString& path, const QByteArray& content) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("The test can't write its file.");
}

QString Download(const QString& content, const QString& length, const QString& sum) {
    return u"<文件内容>%1</文件内容>\r\n<文件长度>%2</文件长度>\r\n<文件校验和>%3</文件校验和>"_s
        .arg(content, length, sum);
}

} // namespace

class TestFileTransfer : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void download_data() {
        QTest::addColumn<QString>("answer");
        QTest::addColumn<int>("result");
        QTest::addColumn<QByteArray>("content");
        const QByteArray before("before");
        QTest::newRow("good") << Download(u"00FF0A41"_s, u"4"_s, u"14A"_s) << 0
                              << QByteArray("\x00\xFF\x0A\x41", 4);
        QTest::newRow("lower-case content")
            << Download(u"00ff0a41"_s, u"4"_s, u"14A"_s) << 0 << QByteArray("\x00\xFF\x0A\x41", 4);
        QTest::newRow("half a byte behind")
            << Download(u"41425"_s, u"2"_s, u"83"_s) << 0 << QByteArray("AB");
        QTest::newRow("wrong sum") << Download(u"00FF0A41"_s, u"4"_s, u"14B"_s) << -1 << before;
        QTest::newRow("sum with a leading zero")
            << Download(u"00FF0A41"_s, u"4"_s, u"014A"_s) << -1 << before;
        QTest::newRow("lower-case sum")
            << Download(u"00FF0A41"_s, u"4"_s, u"14a"_s) << -1 << before;
        QTest::newRow("wrong length") << Download(u"00FF0A41"_s, u"5"_s, u"14A"_s) << -1 << before;
        QTest::newRow("no length") << Download(u"00FF0A41"_s, u""_s, u"14A"_s) << -1 << before;
        QTest::newRow("empty file") << Download(u""_s, u"0"_s, u"0"_s) << -1 << before;
        QTest::newRow("refused") << u"<ERROR>没有该文件</ERROR>"_s << -1 << before;
    }
    void download() {
        QFETCH(QString, answer);
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"照片.jpg"_s);
        Write(path, "before");
        ScriptedDesk desk;
        QVERIFY(desk.open());
        desk.peer.answerAll(answer);
        QTEST(DbDownloadFile(u"照片\\8101.jpg", path), "result");
        QTEST(Content(path), "content");
        QCOMPARE(desk.peer.requests,
                 QStringList{u"<命令>下载文件</命令>\r\n<文件名>照片\\8101.jpg</文件名>\r\n"_s});
    }

    void downloadToNowhere() {
        const QTemporaryDir folder;
        ScriptedDesk desk;
        QVERIFY(desk.open());
        desk.peer.answerAll(Download(u"41"_s, u"1"_s, u"41"_s));
        QCOMPARE(DbDownloadFile(u"a", folder.filePath(u"none/a"_s)), -1);
    }

    void upload_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("sum");
        QTest::addColumn<QString>("answer");
        QTest::addColumn<bool>("done");
        const QString yes = u"<SUCCESS>"_s;
        QTest::newRow("empty") << QByteArray() << u"0"_s << yes << true;
        QTest::newRow("all bytes") << QByteArray("\x00\x0F\xFF\x7F", 4) << u"18D"_s << yes << true;
        QTest::newRow("one block") << QByteArray(8192, '\xFF') << u"1FE000"_s << yes << true;
        QTest::newRow("one byte more") << QByteArray(8193, '\x01') << u"2001"_s << yes << true;
        QTest::newRow("refused") << QByteArray("A") << u"41"_s << u"<ERROR>没有登录</ERROR>"_s
                                 << false;
    }
    void upload() {
        QFETCH(QByteArray, content);
        QFETCH(QString, sum);
        QFETCH(QString, answer);
        QFETCH(bool, done);
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"a.jpg"_s);
        Write(path, content);
        ScriptedDesk desk;
        QVERIFY(desk.open());
        desk.peer.answerAll(answer);
        QCOMPARE(DbUploadFile(path, u"照片\\a.jpg") == 0, done);
        const QString request =
            u"<命令>上传文件</命令>\r\n<文件名>照片\\a.jpg</文件名>\r\n<文件内容>%1</文件内容>\r\n"
            "<文件长度>%2</文件长度>\r\n<文件校验和>%3</文件校验和>\r\n"_s
                .arg(QString::fromLatin1(content.toHex().toUpper()))
                .arg(content.size())
                .arg(sum);
        QCOMPARE(desk.peer.requests, QStringList{request});
    }

    void uploadOfNothing() {
        ScriptedDesk desk;
        QVERIFY(desk.open());
        QVERIFY(DbUploadFile(u"/no such file"_s, u"a") != 0);
        QCOMPARE(desk.peer.requests, QStringList{});
    }
};

HOTEL_TEST(TestFileTransfer)

#include "test_file_transfer.moc"
