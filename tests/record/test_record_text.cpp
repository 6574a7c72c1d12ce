#include "record/field_walk.h"
#include "record/record_text.h"
#include "record/tag_search.h"
#include "tests/hotel_test.h"

#include <QRandomGenerator>

#include <stdexcept>

using namespace hotel;

namespace {

// A text of pieces that get in each other's way: all the forms of two tags, one of them Chinese.
QString RandomText(QRandomGenerator& random) {
    static const QStringList pieces = {
        u"<a>"_s, u"</a>"_s,   u"<a />"_s,   u"<a"_s,       u"/>"_s,    u">"_s,
        u"<"_s,   u"<房号>"_s, u"</房号>"_s, u"<房号 />"_s, u"< a >"_s, u"</ a>"_s,
        u"<>"_s,  u"\r\n"_s,   u" "_s,       u"1"_s,        u"客"_s,    u"\u3000"_s};
    QString text;
    for (int i = random.bounded(24); i > 0; --i)
        text += pieces[random.bounded(pieces.size())];
    // Long enough, now and then, for the search by blocks.
    if (random.bounded(4) == 0)
        text.insert(random.bounded(text.size() + 1), QString(random.bounded(200), u'x'));
    return text;
}

// The names of the fields, found without any speed.
QStringList PlainTagNames(const QString& text) {
    QStringList names;
    for (qsizetype open = text.indexOf(u'<'); open >= 0;) {
        const qsizetype end = text.indexOf(u'>', open);
        if (end < 0)
            break;
        const QString name = TrimWhite(QStringView(text).sliced(open + 1, end - open - 1));
        const QString closing = u"</"_s + name + u'>';
        const qsizetype closed = name.isEmpty() ? -1 : text.indexOf(closing, end);
        if (!name.isEmpty())
            names.append(name);
        open = text.indexOf(u'<', closed < 0 ? end : closed + closing.size());
    }
    return names;
}

QString FilledTo(qsizetype size, const QString& text) {
    return text + QString(size - text.size(), u'x');
}

} // namespace

class RecordTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void getTag() {
        const auto row = [](const char* name, const QString& text, const QString& value) {
            Check(name, GetTag(text, u"a"), value);
        };
        row("first of two", u"<a>1</a><a>2</a>"_s, u"1"_s);
        row("stray closing tag hides", u"</a><a>1</a>"_s, {});
        row("up to the first closing tag", u"<a>x<a>y</a>z</a>"_s, u"x<a>y"_s);
        row("empty form", u"<a />"_s, {});
        row("never closed", u"<a>1"_s, {});
        row("kept as it stands", u"<a> 1\r\n\t</a>"_s, u" 1\r\n\t"_s);
        row("letter case counts", u"<A>1</A>"_s, {});
        row("longer tag is another", u"<ab>1</ab>"_s, {});
        row("error closed by an error", u"<a>没有该记录<a>"_s, {});
    }

    void oversizedTextReadsAsEmpty() {
        const QString field = u"<a>1</a>"_s;
        const QString searched = FilledTo(2047999, field);
        QCOMPARE(GetTag(searched, u"a"), u"1"_s);
        QCOMPARE(GetTagN(searched, u"a", 1), u"1"_s);
        const QString refused = FilledTo(2048000, field);
        QCOMPARE(GetTag(refused, u"a"), QString());
        QCOMPARE(GetTagN(refused, u"a", 1), QString());
        QCOMPARE(TagName(refused, 1), u"a"_s);
        QCOMPARE(GetLine(refused, 1).size(), 2048000);
        QCOMPARE(SetTag(refused, u"a", u"2").first(8), u"<a>2</a>"_s);
    }

    void getTagNCountsTheEmptyForm() {
        QCOMPARE(GetTagN(u"<a>1</a><a>2</a>", u"a", 2), u"2"_s);
        QCOMPARE(GetTagN(u"<a>1</a><a>2</a>", u"a", 3), QString());
        // The occurrence behind an empty one is stepped over.
        QCOMPARE(GetTagN(u"<a /><a>2</a>", u"a", 1), QString());
        QCOMPARE(GetTagN(u"<a /><a>2</a>", u"a", 2), QString());
        QCOMPARE(GetTagN(u"<a /><a>2</a><a>3</a>", u"a", 1), QString());
        QCOMPARE(GetTagN(u"<a /><a>2</a><a>3</a>", u"a", 2), u"3"_s);
    }

    void getTagNResumesWhateverTheText() {
        const QString text = u"<a>1</a><a>2</a><a>3</a>"_s;
        QCOMPARE(GetTagN(text, u"a", 1), u"1"_s);
        // Not the second occurrence of the new text, but the next one behind the old place.
        QCOMPARE(GetTagN(u"<a>x</a><a>y</a><a>z</a>", u"a", 2), u"y"_s);
        QCOMPARE(GetTagN(u"--------------<a>q</a>", u"a", 3), u"q"_s);
        // Another tag, or another n, starts from the beginning.
        QCOMPARE(GetTagN(text, u"a", 1), u"1"_s);
        QCOMPARE(GetTagN(u"----<b>x</b><b>y</b>", u"b", 2), u"y"_s);
        QCOMPARE(GetTagN(text, u"a", 3), u"3"_s);
        // A walk that reads a value steps over the tags inside; one that counts past it doesn't.
        const QString nested = u"<a>x<a>y</a></a>"_s;
        QCOMPARE(GetTagN(nested, u"a", 2), u"y"_s);
        QCOMPARE(GetTagN(nested, u"a", 1), u"x<a>y"_s);
        QCOMPARE(GetTagN(nested, u"a", 2), QString());
    }

    void tagName() {
        const auto row = [](const char* name, const QString& text, const QStringList& names) {
            for (int round = 0; round < 2; ++round) {
                for (qsizetype n = 1; n <= names.size(); ++n)
                    QCOMPARE(TagName(text, qint16(n)), names[n - 1]);
                QCOMPARE(TagName(text, qint16(names.size() + 1)), QString());
            }
            QCOMPARE(TagName(text, 0), QString());
            Check(name, TagName(text, -1), QString());
        };
        row("value is stepped over", u"<a><x>1</x></a><b>2</b>"_s, {u"a"_s, u"b"_s});
        row("repeated", u"<a>1</a>\r\n<a>2</a>"_s, {u"a"_s, u"a"_s});
        row("never closed", u"<名 /><b>1</b></名>"_s, {u"名 /"_s, u"b"_s, u"/名"_s});
        row("blanks around the name", u"< \t\u3000a\r\n>1</a><b>2</b>"_s, {u"a"_s, u"b"_s});
        row("no name", u"<> < ><a>"_s, {u"a"_s});
        row("no tag", u"a > b < c"_s, {});
    }

    void tagNameFollowsTheText() {
        const QString text = u"<a>1</a><b>2</b>"_s;
        QCOMPARE(TagName(text, 1), u"a"_s);
        QCOMPARE(TagName(u"<c>1</c><d>2</d>"_s, 2), u"d"_s);
        QString changed = text;
        QCOMPARE(TagName(changed, 1), u"a"_s);
        changed.replace(u'b', u'e');
        QCOMPARE(TagName(changed, 2), u"e"_s);
        QCOMPARE(TagName(text, 2), u"b"_s);
    }

    void tagNameHolds32000Names() {
        QString text;
        for (int i = 1; i <= kNameLimit; ++i)
            text += u"<%1></%1>"_s.arg(i);
        QCOMPARE(TagName(text, 32000), u"32000"_s);
        QCOMPARE(TagName(text, 32001), QString());
        text += u"<one more>"_s;
        QVERIFY_THROWS_EXCEPTION(std::out_of_range, TagName(text, 1));
        int names = 0;
        for (FieldWalk walk(text); walk.next();)
            ++names;
        QCOMPARE(names, kNameLimit + 1);
    }

    void setTag() {
        const auto row = [](const char* name, const QString& text, const QString& tag,
                            const QString& value, const QString& result) {
            Check(name, SetTag(text, tag, value), result);
        };
        row("first field", u""_s, u"a"_s, u"1"_s, u"<a>1</a>"_s);
        row("new field", u"<a>1</a>"_s, u"b"_s, u"2"_s, u"<a>1</a>\r\n<b>2</b>"_s);
        row("what stands behind is dropped", u"<a>1</a>\r\nrest"_s, u"b"_s, u"2"_s,
            u"<a>1</a>\r\n<b>2</b>"_s);
        row("text without a tag is lost", u"rest"_s, u"b"_s, u"2"_s, u"<b>2</b>"_s);
        row("keeps its place", u"<a>1</a>\r\n<b>2</b>"_s, u"a"_s, u"9"_s,
            u"<a>9</a>\r\n<b>2</b>"_s);
        row("only the first", u"<a>1</a><a>2</a>"_s, u"a"_s, u"9"_s, u"<a>9</a><a>2</a>"_s);
        row("removed with its line end", u"<a>1</a>\r\n<b>2</b>"_s, u"a"_s, u""_s, u"<b>2</b>"_s);
        row("last one removed", u"<a>1</a>\r\n<b>2</b>\r\n"_s, u"b"_s, u""_s,
            u"<a>1</a>\r\n\r\n"_s);
        row("nothing to remove", u"<a>1</a>\r\n"_s, u"b"_s, u""_s, u"<a>1</a>\r\n"_s);
        row("never closed", u"<a>1"_s, u"a"_s, u"2"_s, u"<a>1"_s);
        row("closing tag ahead", u"</a><a>1"_s, u"a"_s, u"2"_s, u"</a><a>1"_s);
        row("blanks around the tag", u"<a>1</a>"_s, u" a "_s, u"2"_s, u"<a>2</a>"_s);
        row("other blanks belong to it", u"<a>1</a>"_s, u"\u3000a"_s, u"2"_s,
            u"<a>1</a>\r\n<\u3000a>2</\u3000a>"_s);
        row("no tag", u"<a>1</a>"_s, u"  "_s, u"2"_s, u"<a>1</a>"_s);
    }

    void getLine() {
        const auto row = [](const char* name, const QString& text, const QStringList& lines) {
            for (qsizetype n = 1; n <= lines.size(); ++n)
                QCOMPARE(GetLine(text, qint16(n)), lines[n - 1]);
            for (qsizetype n = lines.size(); n >= 1; --n)
                QCOMPARE(GetLine(text, qint16(n)), lines[n - 1]);
            QCOMPARE(GetLine(text, qint16(lines.size() + 1)), QString());
            QCOMPARE(GetLine(text, qint16(lines.size() + 2)), QString());
            Check(name, GetLine(text, 0), QString());
        };
        row("empty line inside", u"a\r\n\r\nb"_s, {u"a"_s, u""_s, u"b"_s});
        row("behind the last end", u"a\r\n"_s, {u"a"_s, u""_s});
        row("lone CR and LF", u"a\rb\nc\n\rd"_s, {u"a\rb\nc\n\rd"_s});
        row("empty", u""_s, {u""_s});
        QCOMPARE(GetLine(u"long line\r\nb"_s, 1), u"long line"_s);
        QCOMPARE(GetLine(u"1\r\n2\r\n3"_s, 2), u"2"_s); // another text starts anew
    }

    // Thousands of texts in which the tags get in each other's way.
    void findsWhatThePlainSearchFinds() {
        QRandomGenerator random(20060302);
        for (int i = 0; i < 30000; ++i) {
            const QString text = RandomText(random);
            for (const QString& needle : {u"<a>"_s, u"</房号>"_s, u">"_s, u"x<a"_s}) {
                const qsizetype from = random.bounded(text.size() + 1);
                QCOMPARE(FindText(text, needle, from), text.indexOf(needle, from));
            }
            const QStringList names = PlainTagNames(text);
            for (qsizetype n = 1; n <= names.size() + 1; ++n)
                QCOMPARE(TagName(text, qint16(n)), names.value(n - 1));
        }
    }

    void fieldWalkReadsValues() {
        FieldWalk walk(u"x<a>1<b>2</b></a><c /><d></d></e>");
        const auto field = [&walk] {
            if (!walk.next())
                return u"end"_s;
            return u"%1=%2%3"_s.arg(walk.name(), walk.value(), walk.closed() ? u"" : u"?");
        };
        QCOMPARE(field(), u"a=1<b>2</b>"_s);
        QCOMPARE(field(), u"c /=?"_s);
        QCOMPARE(field(), u"d="_s);
        QCOMPARE(field(), u"/e=?"_s);
        QCOMPARE(field(), u"end"_s);
        QCOMPARE(field(), u"end"_s);
    }

    // Behind the first few tags that are never closed the walk knows which ones still are.
    void fieldWalkPassesTagsThatAreNeverClosed() {
        QString text;
        for (int i = 0; i < 20; ++i)
            text += u"<n%1><again><m%1>1</m%1><x<n%1>2</x<n%1></gone>"_s.arg(i);
        for (const QString& end : {u""_s, u"<gone></again>"_s, u"</n15><m16></m16>"_s}) {
            QStringList names;
            const QString all = text + end;
            for (FieldWalk walk(all); walk.next();)
                names << walk.name().toString();
            QCOMPARE(names, PlainTagNames(all));
        }
    }

    void trimming() {
        QCOMPARE(TrimWhite(u" \u3000\r\n\ta b\u3000\t"), u"a b"_s);
        QCOMPARE(TrimWhite(u" \u3000\r\n\t"), QString());
        QCOMPARE(TrimWhite(u"\u00a0a"), u"\u00a0a"_s);
        QCOMPARE(TrimBlanks(u"  \u3000a\r\n "), u"\u3000a\r\n"_s);
        QCOMPARE(TrimBlanks(u"  "), QString());
        QCOMPARE(DigitsOnly(u"-1.5元２ 0"), u"150"_s);
    }
};

HOTEL_TEST(RecordTextTest)

#include "test_record_text.moc"
