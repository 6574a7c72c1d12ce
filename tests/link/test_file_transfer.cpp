#include "link/serv_api.h"
#include "tests/hotel_test.h"
#include "tests/link/scripted_peer.h"
#include "tests/test_files.h"

using namespace hotel;

namespace {

QString Download(const QString& content, const QString& length, const QString& sum) {
    return u"<文件内容>%1</文件内容>\r\n<文件长度>%2</文件长度>\r\n<文件校验和>%3</文件校验和>"_s
        .arg(content, length, sum);
}

} // namespace

class TestFileTransfer : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void download() {
        const auto row = [](const char* name, const QString& answer, int result,
                            const QByteArray& content) {
            const QTemporaryDir folder;
            const QString path = folder.filePath(u"照片.jpg"_s);
            WriteBytes(path, "before");
            ScriptedDesk desk;
            desk.peer.answerAll(answer);
            Check(name, DbDownloadFile(u"照片\\8101.jpg", path), result);
            Check(name, FileBytes(path), content);
            QCOMPARE(
                desk.peer.requests,
                QStringList{u"<命令>下载文件</命令>\r\n<文件名>照片\\8101.jpg</文件名>\r\n"_s});
        };
        const QByteArray before("before");
        row("good", Download(u"00FF0A41"_s, u"4"_s, u"14A"_s), 0,
            QByteArray("\x00\xFF\x0A\x41", 4));
        row("lower-case content", Download(u"00ff0a41"_s, u"4"_s, u"14A"_s), 0,
            QByteArray("\x00\xFF\x0A\x41", 4));
        row("half a byte behind", Download(u"41425"_s, u"2"_s, u"83"_s), 0, QByteArray("AB"));
        row("wrong sum", Download(u"00FF0A41"_s, u"4"_s, u"14B"_s), -1, before);
        row("sum with a leading zero", Download(u"00FF0A41"_s, u"4"_s, u"014A"_s), -1, before);
        row("lower-case sum", Download(u"00FF0A41"_s, u"4"_s, u"14a"_s), -1, before);
        row("wrong length", Download(u"00FF0A41"_s, u"5"_s, u"14A"_s), -1, before);
        row("no length", Download(u"00FF0A41"_s, u""_s, u"14A"_s), -1, before);
        row("empty file", Download(u""_s, u"0"_s, u"0"_s), -1, before);
        row("refused", u"<ERROR>没有该文件</ERROR>"_s, -1, before);
    }

    void downloadToNowhere() {
        const QTemporaryDir folder;
        ScriptedDesk desk;
        desk.peer.answerAll(Download(u"41"_s, u"1"_s, u"41"_s));
        QCOMPARE(DbDownloadFile(u"a", folder.filePath(u"none/a"_s)), -1);
    }

    void upload() {
        const auto row = [](const char* name, const QByteArray& content, const QString& sum,
                            const QString& answer, bool done) {
            const QTemporaryDir folder;
            const QString path = folder.filePath(u"a.jpg"_s);
            WriteBytes(path, content);
            ScriptedDesk desk;
            desk.peer.answerAll(answer);
            Check(name, DbUploadFile(path, u"照片\\a.jpg") == 0, done);
            const QString request = u"<命令>上传文件</命令>\r\n<文件名>照片\\a.jpg</"
                                    u"文件名>\r\n<文件内容>%1</文件内容>\r\n"
                                    "<文件长度>%2</文件长度>\r\n<文件校验和>%3</文件校验和>\r\n"_s
                                        .arg(QString::fromLatin1(content.toHex().toUpper()))
                                        .arg(content.size())
                                        .arg(sum);
            Check(name, desk.peer.requests, QStringList{request});
        };
        const QString yes = u"<SUCCESS>"_s;
        row("empty", {}, u"0"_s, yes, true);
        row("all bytes", QByteArray("\x00\x0F\xFF\x7F", 4), u"18D"_s, yes, true);
        row("one block", QByteArray(8192, '\xFF'), u"1FE000"_s, yes, true);
        row("one byte more", QByteArray(8193, '\x01'), u"2001"_s, yes, true);
        row("refused", QByteArray("A"), u"41"_s, u"<ERROR>没有登录</ERROR>"_s, false);
    }

    void uploadOfNothing() {
        ScriptedDesk desk;
        QVERIFY(DbUploadFile(u"/no such file"_s, u"a") != 0);
        QCOMPARE(desk.peer.requests, QStringList{});
    }
};

HOTEL_TEST(TestFileTransfer)

#include "test_file_transfer.moc"
