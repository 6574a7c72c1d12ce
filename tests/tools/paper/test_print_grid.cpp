#include "screen/messages.h"
#include "tests/hotel_test.h"
#include "tests/test_files.h"
#include "tests/tools/paper/print_items.h"
#include "tools/lists/list_print.h"
#include "tools/paper/PrtSubs.h"

using namespace hotel;

namespace {

TextTable GuestList(int rows) {
    TextTable table({u"房间号"_s, u"客人"_s, u"备注"_s});
    for (int row = 1; row <= rows; ++row)
        table.addRow({QString::number(8000 + row), u"张三"_s, u"无"_s});
    return table;
}

// A list that is wider than any paper.
TextTable WideList() {
    TextTable table({u"号"_s, u"说明"_s});
    table.addRow({u"一"_s, QString(200, u'长')});
    table.addRow({u"二"_s, u"短"_s});
    return table;
}

double Sum(const QList<double>& widths) {
    double sum = 0;
    for (double width : widths)
        sum += width;
    return sum;
}

} // namespace

class PrintGridTest : public QObject {
    Q_OBJECT

private:
    // Prints the whole list and gives back what stands on each page.
    QList<PrintPage> print(const TextTable& table, const GridPrintStyle& style) {
        MessageRecorder messages;
        const GridPrintLayout layout = MeasureGridPrint(table, style);
        int pages = 0;
        for (int row = 1; row < table.rows() && pages < 100; ++pages) {
            StartPage();
            row = PrintGridPage(table, layout, row, 1);
            EndPage();
        }
        AddScriptLine(script::kBufferFresh);
        complaints_ += messages.words();
        PrintScript script = ScriptOfJob();
        QList<PrintPage> result;
        for (int page = 1; page <= script.pageCount(); ++page)
            result.append(script.previewPage(page));
        return result;
    }

    QStringList complaints_;
    WorkingFolder folder_;

private Q_SLOTS:
    void init() {
        complaints_.clear();
        OpenPrintJob(21, 28);
        SetPrintMargins(1.5, 1, 1.5, 1);
    }
    void cleanup() {
        ClosePrintJob();
        QCOMPARE(complaints_, QStringList());
    }

    void printsEveryRowOnceUnderAHead() {
        const QList<PrintPage> pages = print(GuestList(300), {});
        QVERIFY(pages.size() > 1);
        int next = 8001;
        for (const PrintPage& page : pages) {
            const QList<PrintedText> texts = TextsOf(page);
            QCOMPARE(texts.first().text, u"房间号"_s);
            QCOMPARE(texts.first().font, (PrintFont{u"宋体"_s, 10, false}));
            for (qsizetype n = 3; n < texts.size(); n += 3, ++next) {
                QCOMPARE(texts.at(n).text, QString::number(next));
                QCOMPARE(texts.at(n).font, (PrintFont{u"宋体"_s, 8, false}));
            }
            for (const PrintItem& item : page)
                if (auto box = std::get_if<PrintedBox>(&item))
                    QVERIFY(box->area.bottom() <= (28 - 1) * kTwipsPerCm);
        }
        QCOMPARE(next, 8301);
    }

    // A list goes on over pages until its progress says no; each page says its title and its number.
    void printsListsPageByPage() {
        MessageRecorder messages;
        QCOMPARE(PrintList(GuestList(0), u"住客"_s, {}), 0);
        QCOMPARE(PrintList(GuestList(1), u"住客"_s, {}), 1);
        QStringList told;
        const auto telling = [&](int goesOnFor) {
            told.clear();
            return [&told, goesOnFor](int rows, int all, int page) {
                told.append(u"%1/%2/%3"_s.arg(rows).arg(all).arg(page));
                return page < goesOnFor;
            };
        };
        QCOMPARE(PrintList(GuestList(100), u"住客"_s, {}, telling(2)), 2);
        QVERIFY(told.value(0).endsWith(u"/100/1"));
        QVERIFY(told.value(1).endsWith(u"/100/2"));
        QCOMPARE(told.size(), 2);
        PrintScript script = ScriptOfJob();
        QCOMPARE(script.pageCount(), 2);
        QCOMPARE(told.value(1),
                 u"%1/100/2"_s.arg(TextsOf(script.previewPage(2)).at(4).text.toInt() - 8001 +
                                   int(TextsOf(script.previewPage(2)).size() - 5) / 3));
        const QList<PrintedText> texts = TextsOf(script.previewPage(2));
        QCOMPARE(texts.first().text, u"住客"_s);
        QVERIFY(texts.at(1).at.y() - texts.first().at.y() > 12 * 20); // below a title of 12 points
        QCOMPARE(texts.last().text, u"第2页"_s);
        QVERIFY(messages.words().isEmpty());
    }

    // A page of only the head would go on for ever.
    void takesARowThatIsHigherThanThePage() {
        OpenPrintJob(6, 4);
        SetPrintMargins(1, 1, 1, 1);
        QCOMPARE(print(WideList(), {}).size(), 2);
    }

    void marksAlignment() {
        TextTable table(
            {u"左左左左"_s, u"右右右右"_s, u"匀匀匀匀"_s, u"中中中中"_s, u"无无无无"_s});
        table.addRow({u"一二"_s, u"一二"_s, u"一二"_s, u"一二"_s, u"一二"_s});
        GridPrintStyle style;
        style.headFont = style.bodyFont = {u"宋体"_s, 10, false};
        style.alignments = {u"左<-"_s, u"右->"_s, u"匀<>"_s, u"中 -"_s};
        const PrintPage page = print(table, style).first();
        QList<double> inside; // where each text of the row begins, from the left of its column
        const QList<PrintedText> texts = TextsOf(page);
        for (qsizetype n = 5, column = 0; n < texts.size(); ++n) {
            inside.append(texts.at(n).at.x() - texts.at(column).at.x());
            if (texts.at(n).text != u"一")
                ++column;
        }
        // columns are four characters of 200 twips wide, the texts two
        QCOMPARE(inside.size(), 6);
        const QList<double> expected{0, 400, 0, 600, 200, 0};
        for (qsizetype n = 0; n < expected.size(); ++n)
            QVERIFY2(qAbs(inside.at(n) - expected.at(n)) <= 1, qPrintable(QString::number(n)));
    }

    void keepsAllColumnsOnThePaper() {
        const auto row = [](const char* name, int columns, bool fit, double headSize,
                            bool squeezed) {
            TextTable table(QStringList(columns, u"标题"_s));
            table.addRow(QStringList(columns, u"一二三"_s));
            GridPrintStyle style;
            style.fitFont = fit;
            const GridPrintLayout layout = MeasureGridPrint(table, style);
            Check(name, layout.headFont.size, headSize);
            Check(name, layout.squeezed, squeezed);
            QVERIFY(Sum(layout.widths) <= PrintableWidthCm() + 1e-9);
            QVERIFY(layout.left >= 0);
        };
        row("narrow", 5, true, 10.0, false);
        row("fitting", 20, true, 9.0, false);
        row("too wide to fit", 60, true, kSmallestGridFont, true);
        row("plain", 20, false, 10.0, true);
    }

    // The long column gives way; what it holds is printed in lines, nothing is lost.
    void cutsTheWidestColumnIntoLines() {
        const QList<PrintedText> texts = TextsOf(print(WideList(), {}).first());
        QString remark;
        for (const PrintedText& text : texts)
            if (text.text.startsWith(u"长"))
                remark += text.text;
        QCOMPARE(remark, QString(200, u'长'));
        QVERIFY(std::any_of(texts.begin(), texts.end(),
                            [](const PrintedText& text) { return text.text == u"短"; }));
    }
};

HOTEL_TEST(PrintGridTest)

#include "test_print_grid.moc"
