#include "record/code_page.h"
#include "record/record_text.h"
#include "tests/hotel_test.h"

using namespace hotel;

namespace {

QByteArray Bytes(const char* hex) {
    return QByteArray::fromHex(hex);
}

} // namespace

class CodePageTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // A character both of whose bytes are above 127 comes back to a workstation; of any other only
    // what the wire leaves of it. The server gets all that the code page holds.
    void wire() {
        const auto row = [](const char* name, const QString& text, const char* hex,
                            const QString& workstation, const QString& server) {
            Check(name, EncodeForWire(text), Bytes(hex));
            Check(name, WireDecoder().decode(Bytes(hex)), workstation);
            Check(name, DecodeRequest(Bytes(hex)), server);
        };
        row("plain", u"A~\r\n"_s, "417e0d0a", u"A~\r\n"_s, u"A~\r\n"_s);
        row("delete", u"\u007f"_s, "7f", u"\u007f"_s, u"\u007f"_s);
        row("common", u"中文，"_s, "d6d0cec4a3ac", u"中文，"_s, u"中文，"_s);
        row("second byte below 128", u"镕A"_s, "e94641", u"FA"_s, u"镕A"_s);
        row("second byte 80", u"\u4e02\u4e82"_s, "81408179", u"@y"_s, u"\u4e02\u4e82"_s);
        row("euro", u"€1"_s, "008031", u"€1"_s, u"€1"_s);
        row("not in the code page", u"ë\ufffd\u00a0"_s, "3f3f3f", u"???"_s, u"???"_s);
        row("outside the first plane", u"a😀b"_s, "613f3f62", u"a??b"_s, u"a??b"_s);
        row("tab waits as a lead byte", u"\tA\t中"_s, "094109d6d0", u"A\ufffd"_s, u"\tA\t中"_s);
    }

    void resetForgetsTheLeadByte() {
        WireDecoder decoder;
        QCOMPARE(decoder.decode(Bytes("d6")), QString());
        decoder.reset();
        QCOMPARE(decoder.decode(Bytes("cec4")), u"文"_s);
    }

    void requestOfBadBytes() {
        const auto row = [](const char* name, const QByteArray& bytes, const QString& text) {
            Check(name, DecodeRequest(bytes), text);
        };
        row("lead byte keeps no line end", Bytes("d60d0a"), u"\ufffd\r\n"_s);
        row("lead byte at the end", Bytes("41d6"), u"A\ufffd"_s);
        row("no lead byte", Bytes("ff41"), u"\ufffdA"_s);
        row("hole in the code page", Bytes("817f41"), u"\ufffdA"_s);
        row("NUL", Bytes("0041"), QString(u'\0') + u'A');
    }

    void everyCharacterComesBackToTheServer() {
        int doubleBytes = 0;
        for (int c = 0; c < 0x10000; ++c) {
            const quint16 value = CodePageValue(char16_t(c));
            if (value == '?')
                continue;
            QCOMPARE(int(FromCodePage(value)), c);
            QCOMPARE(DecodeRequest(EncodeForWire(QString(QChar(c)))), QString(QChar(c)));
            doubleBytes += value >= 0x8000;
        }
        QVERIFY(doubleBytes > 21000);
    }

    void ansiLen() {
        QCOMPARE(AnsiLen(u"A中"), 3);
        QCOMPARE(AnsiLen(u"镕，\u3000"), 6);
        QCOMPARE(AnsiLen(u"ë\t€"), 3);
        QCOMPARE(AnsiLen(u""), 0);
    }
};

HOTEL_TEST(CodePageTest)

#include "test_code_page.moc"
