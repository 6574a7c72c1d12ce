#include <QImage>

#include "tests/hotel_test.h"
#include "tests/test_files.h"
#include "tests/tools/paper/print_items.h"
#include "tools/paper/print_macros.h"

using namespace hotel;

namespace {

// `count` pages, each with its number as text.
PrintScript NumberedPages(int count) {
    QStringList lines;
    for (int page = 1; page <= count; ++page)
        lines += {u"#startpage"_s, u"#txt"_s, QString::number(page), u"#endpage"_s};
    return ScriptOf(lines.join(u'|'));
}

QList<QStringList> Sheets(PrintScript& script, int first, int last) {
    QList<QStringList> sheets;
    script.printPages(first, last, [&](const PrintPage& page) {
        sheets.append(ItemTexts(page));
        return true;
    });
    return sheets;
}

} // namespace

class PrintScriptTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void drawsWhatTheScriptSays() {
        const auto row = [](const char* name, const QString& script, QStringList items) {
            PrintScript reader = ScriptOf(u"#startpage|"_s + script + u"|#endpage"_s);
            Check(name, reader.pageCount(), 1);
            Check(name, ItemTexts(reader.previewPage(1)), items);
            items.removeIf([](const QString& item) { return item.startsWith(u"background"); });
            Check(name, Sheets(reader, 1, 1), {items});
        };
        row("a text in the standing font", u"#x|100|#y|200|#txt|你好"_s,
            {u"text 100,200 黑体12 你好"_s});
        row("a font of its own",
            u"#fontname|宋体|#fontsize|10.5|#fontbold|1|#txt|a|#fontbold|0|#txt|b"_s,
            {u"text 0,0 宋体10.5B a"_s, u"text 0,0 宋体10.5 b"_s});
        row("bold for any other text", u"#fontbold||#txt|a"_s, {u"text 0,0 黑体12B a"_s});
        row("comma as decimal mark", u"#x|12,5|#fontsize|8,5|#txt|a"_s,
            {u"text 12.5,0 黑体8.5 a"_s});
        row("a size of nothing is passed over", u"#fontsize|0|#fontsize|-3|#txt|a"_s,
            {u"text 0,0 黑体12 a"_s});
        row("a text that looks like a directive", u"#txt|#endpage|#txt|#x"_s,
            {u"text 0,0 黑体12 #endpage"_s, u"text 0,0 黑体12 #x"_s});
        row("nonsense between directives", u"abc||#nothing|5|#|##x|#X|7|#txt|a"_s,
            {u"text 0,0 黑体12 a"_s});
        row("nonsense as number", u"#x|abc|#y||#fontsize|x|#txt|a"_s, {u"text 0,0 黑体12 a"_s});
        row("far off the paper", u"#x|1e300|#y|-99999999999|#txt|a"_s,
            {u"text 1e+06,-1e+06 黑体12 a"_s});
        row("a line in the colour last set", u"#color|255|#line|1|2|3|4"_s,
            {u"line 1,2-3,4 w1 #ff0000"_s});
        row("line width below 1 is passed over", u"#drawwidth|2.5|#drawwidth|0.5|#line|0|0|9|0"_s,
            {u"line 0,0-9,0 w2.5 #000000"_s});
        row("outlined box", u"#box|10|20|30|40|65280|B"_s, {u"box 10,20-30,40 w1 #00ff00"_s});
        row("corners in any order", u"#box|30|40|10|20|0|B"_s, {u"box 10,20-30,40 w1 #000000"_s});
        row("outlined box with solid filling", u"#fill|0|#color|16711680|#box|0|0|9|9|0|B"_s,
            {u"box 0,0-9,9 w1 #000000 fill #0000ff"_s});
        row("no filling again", u"#fill|0|#fill|1|#box|0|0|9|9|0|B"_s,
            {u"box 0,0-9,9 w1 #000000"_s});
        row("filled box", u"#box|0|0|9|9|255|BF"_s, {u"box 0,0-9,9 w1 fill #ff0000"_s});
        row("box as four lines", u"#box|0|0|9|5|0|"_s,
            {u"line 0,0-9,0 w1 #000000"_s, u"line 9,0-9,5 w1 #000000"_s,
             u"line 9,5-0,5 w1 #000000"_s, u"line 0,5-0,0 w1 #000000"_s});
        row("colours out of range are black", u"#box|0|0|9|9|-1|B|#box|0|0|9|9|16777216|B"_s,
            {u"box 0,0-9,9 w1 #000000"_s, u"box 0,0-9,9 w1 #000000"_s});
        row("picture and background", u"#background|a.jpg|#img|b.jpg|1|2|10|20"_s,
            {u"background a.jpg"_s, u"picture 1,2-11,22 b.jpg"_s});
        row("no directive at all", u"a|b"_s, {});
    }

    void findsThePages() {
        const auto row = [](const char* name, const QString& script, int pages) {
            PrintScript reader = ScriptOf(script);
            Check(name, reader.pageCount(), pages);
            QVERIFY(!reader.hasPage(pages + 1));
            QVERIFY(!reader.hasPage(0));
            QVERIFY(reader.previewPage(pages + 1).isEmpty());
        };
        row("nothing", {}, 0);
        row("no page", u"#txt|a"_s, 0);
        row("one blank page", u"#startpage|#endpage"_s, 1);
        row("page without end", u"#startpage|#txt|a|#startpage|#txt|b"_s, 2);
        row("cut off within a directive", u"#startpage|#box|1|2|3"_s, 1);
        row("page mark as an argument", u"#startpage|#fontname|#startpage"_s, 1);
    }

    void readsLinesEndedByEither() {
        QCOMPARE(ItemTexts(PrintScript("#startpage\n#x\n5\n#txt\na\n").previewPage(1)),
                 QStringList{u"text 5,0 黑体12 a"_s});
        QCOMPARE(ItemTexts(PrintScript("#startpage\r\n#x\r\n5\r\n#txt\r\na").previewPage(1)),
                 QStringList{u"text 5,0 黑体12 a"_s});
    }

    // Font and colour of one page mean nothing to the preview of the next one, but the sheet does get
    // them; position and line width are carried in both.
    void carriesStateAcrossPages() {
        const QString first =
            u"#startpage|#fontname|宋体|#fontsize|9|#color|255|#x|70|#drawwidth|3|"
            u"#endpage|#y|80|"_s;
        PrintScript script = ScriptOf(first + u"#startpage|#txt|a|#line|0|0|1|0|#endpage"_s);
        QCOMPARE(ItemTexts(script.previewPage(2)),
                 (QStringList{u"text 70,80 黑体12 a"_s, u"line 0,0-1,0 w3 #000000"_s}));
        const QStringList printed{u"text 70,80 宋体9 a"_s, u"line 0,0-1,0 w3 #ff0000"_s};
        QCOMPARE(Sheets(script, 2, 2), QList<QStringList>{printed});
        QCOMPARE(Sheets(script, 1, 2), (QList<QStringList>{QStringList(), printed}));
    }

    void leavesOutWhatStandsBetweenPages() {
        PrintScript script = ScriptOf(
            u"#txt|0|#startpage|#txt|1|#endpage|#txt|+|#startpage|#txt|2|#endpage|#txt|-"_s);
        QCOMPARE(ItemTexts(script.previewPage(1)), QStringList{u"text 0,0 黑体12 1"_s});
        QCOMPARE(ItemTexts(script.previewPage(2)), QStringList{u"text 0,0 黑体12 2"_s});
        QCOMPARE(Sheets(script, 1, 2),
                 (QList<QStringList>{
                     {u"text 0,0 黑体12 1"_s},
                     {u"text 0,0 黑体12 +"_s, u"text 0,0 黑体12 2"_s, u"text 0,0 黑体12 -"_s}}));
    }

    void printsTheChosenPages() {
        const auto row = [](const char* name, int first, int last, const QString& pages) {
            PrintScript script = NumberedPages(5);
            QString printed;
            script.printPages(first, last, [&](const PrintPage& page) {
                printed += TextsOf(page).first().text;
                return true;
            });
            Check(name, printed, pages);
        };
        row("all", 1, 5, u"12345"_s);
        row("one in the middle", 2, 2, u"2"_s);
        row("beyond the end", 4, 9, u"45"_s);
        row("nothing", 6, 9, {});
        row("backwards", 3, 2, {});
        int sheets = 0;
        NumberedPages(5).printPages(1, 5, [&](const PrintPage&) { return ++sheets < 2; });
        QCOMPARE(sheets, 2); // stopped by the sheet
    }

    // The first page of a long list must not wait for the rest of it.
    void walksNoFurtherThanAsked() {
        PrintScript script = NumberedPages(200);
        QVERIFY(script.hasPage(1));
        QCOMPARE(script.pagesFound(), 1);
        QCOMPARE(TextsOf(script.previewPage(3)).first().text, u"3"_s);
        QCOMPARE(script.pagesFound(), 3);
        int steps = 0;
        while (script.walkOn(1000))
            ++steps;
        QVERIFY(steps > 2);
        QCOMPARE(script.pagesFound(), 200);
    }

    void writesWaitingLinesInOnePiece() {
        QTemporaryDir folder;
        const QString name = folder.filePath(u"a.tmp"_s);
        const auto content = [&] { return FileBytes(name); };
        ScriptWriter writer;
        QVERIFY(writer.start(name));
        for (int line = 0; line < ScriptWriter::kLinesWaiting; ++line)
            writer.add(u"中"_s);
        QCOMPARE(content(), QByteArray());
        writer.add(u"中"_s);
        QCOMPARE(content().count("中\r\n"), ScriptWriter::kLinesWaiting + 1);
        writer.add(u"one\r\ntwo\nthree"_s);
        writer.add(u"#bufferfresh"_s);
        QVERIFY(content().endsWith("one two three\r\n"));
        QVERIFY(writer.start(name));
        QCOMPARE(content(), QByteArray());
    }

    void takesAFileThatCannotBeWrittenOrRead() {
        QTemporaryDir folder;
        ScriptWriter writer;
        QVERIFY(!writer.start(folder.filePath(u"none/a.tmp"_s)));
        writer.add(u"#startpage"_s);
        QVERIFY(!writer.flush());
        QCOMPARE(PrintScript::FromFile(folder.filePath(u"none/a.tmp"_s)).pageCount(), 0);
    }

    // A page of odd things on a real surface: what can be drawn is drawn.
    void drawsAnything() {
        QTemporaryDir folder;
        const QString broken = WriteBytes(folder.filePath(u"broken.jpg"_s), "no picture");
        PrintScript script = ScriptOf(
            u"#startpage|#background|none.jpg|#img|none.jpg|0|0|9|9|#img|%1|0|0|9|9|"
            u"#img|none.jpg|0|0|-9|x|#fontname||#fontsize|99999|#txt|大|#fontname|无此字体|#txt|中|"
            u"#x|1e300|#y|1e300|#fontsize|9|#txt|远|#line|-1e300|0|1e300|1e300|"
            u"#drawwidth|1e9|#box|1e9|-1e9|0|0|0||#drawwidth|1|#fontsize|1|#txt|\t\u0000\uFFFF|"
            u"#box|100|100|200|200|255|BF|#endpage"_s.arg(broken));
        QImage surface(100, 100, QImage::Format_RGB32);
        surface.fill(Qt::white);
        QPainter painter(&surface);
        painter.scale(0.1, 0.1);
        PrintPage page = script.previewPage(1);
        QCOMPARE(page.size(), 14);
        DrawPage(painter, page, QSizeF(1000, 1000));
        QCOMPARE(surface.pixelColor(15, 15), QColor(Qt::red));
    }

    void expandsMacros() {
        const auto row = [](const char* name, const QString& text, const QString& expanded) {
            const QDateTime now(QDate(2026, 3, 5), QTime(9, 7, 2));
            Check(name, ExpandPrintMacros(text, now), expanded);
        };
        row("none", u"房号"_s, u"房号"_s);
        row("date", u"$YY年$MM月$DD日/$yy-$dd"_s, u"2026年03月05日/26-05"_s);
        row("time", u"$HH:$mm:$SS $ss"_s, u"09:07:02 02"_s);
        row("whole", u"$DT $TM"_s, u"2026/03/05 09:07:02"_s);
        row("unknown code", u"$QQ$YY"_s, u" QQ2026"_s);
        row("case counts", u"$Yy"_s, u" Yy"_s);
        row("cut off", u"a$Y$"_s, u"a Y "_s);
        row("twice the mark", u"$$YY"_s, u" 2026"_s);
        row("empty amount", u"合计 0.00元"_s, u"合计     元"_s);
        row("an amount that ends so", u"10.00"_s, u"10.00"_s);
        row("nothing ahead", u"0.00"_s, u"0.00"_s);
        row("count of none", u"计 0 天, 10 天"_s, u"计   天, 10 天"_s);
        row("side by side", u"x 0 0 0.00 0 y"_s, u"x            y"_s);
    }
};

HOTEL_TEST(PrintScriptTest)

#include "test_print_script.moc"
