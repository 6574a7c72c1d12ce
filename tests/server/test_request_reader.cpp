#include "server/request_reader.h"

#include "record/code_page.h"
#include "tests/hotel_test.h"
#include "tests/server/wire_client.h"

using namespace hotel;

namespace {

// Everything that the reader gives for `stream`, cut into the pieces: number, command and value a
// line each.
QStringList Read(RequestReader& reader, const QList<QByteArray>& pieces) {
    QStringList read;
    for (const QByteArray& piece : pieces) {
        reader.feed(piece);
        while (const std::optional<Request> request = reader.next())
            read += QString::fromLatin1(request->number()) + u' ' + request->command().toString() +
                    u' ' + request->field(u"记录值").toString();
    }
    return read;
}

// A request of exactly `size` bytes.
QByteArray RequestOfSize(qsizetype size) {
    const qsizetype frame = RequestBytes(u"修改记录"_s, {{u"记录值"_s, u""_s}}, 1).size();
    return RequestBytes(u"修改记录"_s, {{u"记录值"_s, QString(size - frame, u'x')}}, 1);
}

} // namespace

class RequestReaderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cutsDontMatter() {
        const QByteArray stream =
            RequestBytes(u"修改记录"_s,
                         {{u"项目名"_s, u"账"_s}, {u"记录值"_s, u"<金额>1</金额>\r\n"_s}}, 7) +
            "\r\n" + RequestBytes(u"读取时间"_s, {}, 8) + RequestBytes(u"用户清单"_s, {}, 255);
        const QStringList expected = {u"007 修改记录 <金额>1</金额>\r\n"_s, u"008 读取时间 "_s,
                                      u"255 用户清单 "_s};
        for (qsizetype cut = 0; cut <= stream.size(); ++cut) {
            RequestReader reader;
            QCOMPARE(Read(reader, {stream.first(cut), stream.sliced(cut)}), expected);
        }
        QList<QByteArray> bytes;
        for (char byte : stream)
            bytes += QByteArray(1, byte);
        RequestReader reader;
        QCOMPARE(Read(reader, bytes), expected);
        QVERIFY(!reader.refused());
    }

    void fields() {
        const auto row = [](const char* name, const QString& text, const QString& field,
                            const QString& value) {
            Check(name, Request("001", text).field(field).toString(), value);
        };
        const QString head = u"<命令>修改记录</命令>\r\n<记录>甲</记录>\r\n"_s;
        row("a value with its own tags", head + u"<记录值><记录值>1</记录值></记录值>"_s,
            u"记录值"_s, u"<记录值>1</记录值>"_s);
        row("a value with the request's tags is no field",
            head + u"<记录值><项目名>假</项目名></记录>x</记录值>"_s, u"项目名"_s, u""_s);
        row("a name ends at its first closing tag", head + u"<记录值><记录>乙</记录></记录值>"_s,
            u"记录"_s, u"甲"_s);
        row("a closing tag alone", head + u"</记录值>\r\n<记录值>1</记录值>"_s, u"记录值"_s,
            u"1"_s);
        row("a field that is never closed", head + u"<记录值>1"_s, u"记录值"_s, u""_s);
        row("behind a field that is never closed", u"<命令>x</命令><甲><项目名>账</项目名>"_s,
            u"项目名"_s, u"账"_s);
        row("conditions, then more text",
            u"<命令>字段查找</命令>\r\n<记录查询条件>\r\n<00>a</00>\r\n</记录查询条件>\r\n<x>1</x>"_s,
            u"记录查询条件"_s, u"\r\n<00>a</00>\r\n"_s);
        row("no line ends between fields",
            u"<命令>记录清单</命令><库文件名>a</库文件名><项目名>b</项目名>"_s, u"项目名"_s,
            u"b"_s);
    }

    void tornRequests() {
        const auto row = [](const char* name, const QString& text, bool isTorn) {
            Check(name, Request("001", u"<命令>修改记录</命令>"_s + text).isTorn(), isTorn);
        };
        row("whole", u"<记录>甲</记录>\r\n<记录值>a<b></c></记录值>\r\n"_s, false);
        row("the value", u"<记录>甲</记录><记录值>1"_s, true);
        row("the value's closing tag is cut", u"<记录>甲</记录><记录值>1</记录值"_s, true);
        row("closed ahead of it", u"</记录值><记录值>1"_s, true);
        row("a name", u"<项目名>甲<记录>1</记录><记录值>1</记录值>"_s, true);
        row("a file's content", u"<文件内容><文件长度>0</文件长度>"_s, true);
        row("half a tag", u"<记录>甲</记录><记录"_s, true);
        row("a closing tag alone", u"</记录><记录>甲</记录>"_s, false);
        row("sixteen fields", u"<a>1</a>"_s.repeated(15), false);
        row("one more", u"<a>1</a>"_s.repeated(16), true);
        row("a long name", u"<%1>1</%1>"_s.arg(QString(32, u'a')), false);
        row("a longer one", u"<%1>1</%1>"_s.arg(QString(33, u'a')), true);
    }

    // An end mark is the whole sequence field and its line end; less of it belongs to a value.
    void endMarks() {
        const auto row = [](const char* name, const QString& value) {
            RequestReader reader;
            const QByteArray bytes = RequestBytes(u"修改记录"_s, {{u"记录值"_s, value}}, 9);
            Check(name, Read(reader, {bytes}), QStringList{u"009 修改记录 "_s + value});
        };
        row("closing tag alone", u"</命令流水号>\r\n"_s);
        row("two digits", u"<命令流水号>CmdID:07</命令流水号>\r\n"_s);
        row("letters", u"<命令流水号>CmdID:0x7</命令流水号>\r\n"_s);
        row("no line end", u"<命令流水号>CmdID:007</命令流水号> "_s);
        row("nothing ahead", u"</命令流水号>\r\n</命令流水号>\r\n"_s);
    }

    void refusals() {
        const auto row = [](const char* name, const QByteArray& bytes, bool refused) {
            RequestReader reader(1000);
            reader.feed(bytes);
            while (reader.next()) {
            }
            Check(name, reader.refused(), refused);
            const bool wasRefused = reader.refused();
            reader.feed(RequestBytes(u"读取时间"_s, {}, 1));
            if (wasRefused)
                QVERIFY(!reader.next());
        };
        const QByteArray command = EncodeForWire(u"<命令>");
        row("another protocol", QByteArray("GET / HTTP/1.1\r\n"), true);
        row("one wrong byte", QByteArray("x"), true);
        row("another field first", EncodeForWire(u"<库文件名>"), true);
        row("half a command tag", command.first(3), false);
        row("blank lines only", QByteArray("\r\n\r\n"), false);
        row("at the limit, unfinished", command.leftJustified(1000, 'x'), false);
        row("beyond it, unfinished", command.leftJustified(1001, 'x'), true);
        row("at the limit", RequestOfSize(1000), false);
        row("beyond it", RequestOfSize(1001), true);
        row("rubbish behind a request", RequestOfSize(200) + "rubbish", true);
    }

    // Would take hours if every tag looked for its closing one.
    void manyTagsThatAreNeverClosed() {
        QString tags = u"<命令>读取时间</命令>"_s;
        while (tags.size() < 2'000'000)
            tags += u"<%1>"_s.arg(tags.size());
        QCOMPARE(Request("001", tags).command(), u"读取时间");
        QCOMPARE(Request("001", u'<' + QString(4'000'000, u'a') + u"><" + QString(4'000'000, u'a'))
                     .command(),
                 u"");
    }
};

HOTEL_TEST(RequestReaderTest)

#include "test_request_reader.moc"
