#include "server/store_path.h"

#include "server/tree_names.h"
#include "tests/hotel_test.h"

using namespace hotel;

class StorePathTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void paths() {
        // File and folder are "key name", or empty when refused.
        const auto row = [](const char* name, const QString& text, const QString& file,
                            const QString& folder) {
            const auto shown = [](const std::optional<StorePath>& path) {
                return path ? path->key + u' ' + path->name : u""_s;
            };
            Check(name, shown(ParseFilePath(text)), file);
            Check(name, shown(ParseFolderPath(text)), folder);
        };
        const auto both = [&](const char* name, const QString& text, const QString& path) {
            row(name, text, path, path);
        };
        both("letter case", u"User.QVR"_s, u"user.qvr User.QVR"_s);
        both("full-width letters too", u"Ａ.qvr"_s, u"ａ.qvr Ａ.qvr"_s);
        both("steps", u"操作记录\\06\\04\\060412.qvr"_s,
             u"操作记录\\06\\04\\060412.qvr 操作记录\\06\\04\\060412.qvr"_s);
        both("doubled separators", u"QVR\\\\/a.qvr"_s, u"qvr\\a.qvr QVR\\a.qvr"_s);
        both("steps that stay", u".\\QVR\\.\\a.qvr"_s, u"qvr\\a.qvr QVR\\a.qvr"_s);
        both("white space around", u" \ta.qvr\r\n"_s, u"a.qvr a.qvr"_s);
        both("points within", u"a..b\\..c"_s, u"a..b\\..c a..b\\..c"_s);
        row("empty", u""_s, u""_s, u" "_s);
        row("blanks", u"  "_s, u""_s, u" "_s);
        row("a folder", u"QVR\\"_s, u""_s, u"qvr QVR"_s);
        both("too long", QString(501, u'q'), u""_s);
        both("absolute", u"\\QVR\\a.qvr"_s, u""_s);
        both("absolute with a slash", u"/etc/passwd"_s, u""_s);
        both("another machine", u"\\\\server\\a.qvr"_s, u""_s);
        both("drive", u"C:\\a.qvr"_s, u""_s);
        both("drive alone", u"C:"_s, u""_s);
        both("drive without separator", u"c:a.qvr"_s, u""_s);
        both("up", u"..\\a.qvr"_s, u""_s);
        both("up within", u"QVR\\..\\..\\a.qvr"_s, u""_s);
        both("up at the end", u"QVR\\.."_s, u""_s);
        both("NUL", u"a"_s + QChar(0) + u".qvr"_s, u""_s);
        both("line end within", u"a\r\nb"_s, u""_s);
        both("another control character", u"a\x85z"_s, u""_s);
        both("tag brackets", u"a</库文件名>"_s, u""_s);
    }

    void names() {
        const auto row = [](const char* what, const QString& text, const QString& name) {
            Check(what, ParseName(text).value_or(QString()), name);
        };
        row("ordinary", u"客房信息"_s, u"客房信息"_s);
        row("white space around", u"\u3000甲 乙\r\n"_s, u"甲 乙"_s);
        row("separators are ordinary", u"a\\b/c"_s, u"a\\b/c"_s);
        row("empty", u" "_s, u""_s);
        row("as long as can be", QString(500, u'名'), QString(500, u'名'));
        row("too long", QString(501, u'名'), u""_s);
        row("opening bracket", u"a<b"_s, u""_s);
        row("closing bracket", u"a>b"_s, u""_s);
        row("line end", u"a\r\nb"_s, u""_s);
    }

    void fileNames() {
        const auto row = [](const char* what, const QString& name, const QString& fileName) {
            Check(what, ToFileName(name), fileName);
            Check(what, FromFileName(fileName), name);
        };
        row("ordinary", u"证件名称"_s, u"证件名称"_s);
        row("separators", u"a/b\\c"_s, u"a%2Fb%5Cc"_s);
        row("percent", u"50%折%2F"_s, u"50%25折%252F"_s);
        row("stars and questions", u"*?\"<>|:"_s, u"%2A%3F%22%3C%3E%7C%3A"_s);
        row("hidden", u".order"_s, u"%2Eorder"_s);
        row("points", u"a.b."_s, u"a.b%2E"_s);
        row("blank at the end", u"a "_s, u"a%20"_s);
        row("control character", u"a\x85"_s, u"a%C2%85"_s);
        QCOMPARE(FromFileName(u"5%折%4"), u"5%折%4"_s);
    }
};

HOTEL_TEST(StorePathTest)

#include "test_store_path.moc"
