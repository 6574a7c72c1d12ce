#include "platform/clock.h"
#include "screen/messages.h"
#include "tests/hotel_test.h"
#include "tests/test_files.h"
#include "tests/tools/paper/print_items.h"
#include "tools/paper/PrtSubs.h"

using namespace hotel;

namespace {

const PrintFont kSong10{u"宋体"_s, 10, false}; // an ideograph is 200 twips wide, a line 230 high

} // namespace

// The paper is 21 by 28 with margins of 1 at the sides and 2 above and below. A thousandth of a
// centimetre is half a twip: it keeps the cut to whole twips away from the edge.
class PrintJobTest : public QObject {
    Q_OBJECT

private:
    QStringList itemsOfPage() {
        AddScriptLine(script::kEndPage);
        AddScriptLine(script::kBufferFresh);
        PrintScript script = ScriptOfJob();
        return ItemTexts(script.previewPage(1));
    }

    WorkingFolder folder_;

private Q_SLOTS:
    void init() {
        OpenPrintJob(21, 28);
        SetPrintMargins(1, 1, 2, 2);
        AddScriptLine(script::kStartPage);
    }
    void cleanup() {
        ClosePrintJob();
        Clock::Resume();
    }

    void placesTexts() {
        const auto row = [this](const char* name, const std::function<void()>& print,
                                const QStringList& items) {
            init();
            print();
            Check(name, itemsOfPage(), items);
        };
        row("left", [] { PrintTextLeft(1, 2.001, u"你好"_s, kSong10); },
            {u"text 1134,2268 宋体10 你好"_s});
        row("length cut to whole twips", [] { PrintTextLeft(0.0034, 0, u"你"_s, kSong10); },
            {u"text 568,1134 宋体10 你"_s});
        row("the defaults of the job", [] { PrintTextLeft(0, 0, u"你"_s, {}); },
            {u"text 567,1134 黑体12 你"_s});
        row("defaults replaced",
            [] {
                SetDefaultPrintFont(u"楷体"_s, 9);
                PrintTextLeft(0, 0, u"你"_s, {QString(), 0, true});
            },
            {u"text 567,1134 楷体9B 你"_s});
        row("nothing", [] { PrintTextLeft(0, 0, QString(), kSong10); }, {});
        row("a line break is a blank", [] { PrintTextLeft(0, 0, u"你\r\n#endpage"_s, kSong10); },
            {u"text 567,1134 宋体10 你 #endpage"_s});
        // 3 x 200 twips fit 1.1 cm (623), the pitch is 230 x 1.05
        row("left, too wide", [] { PrintTextLeft(0, 0.001, u"一二三四五六七"_s, kSong10, 1.1); },
            {u"text 567,1134 宋体10 一二三"_s, u"text 567,1376 宋体10 四五六"_s,
             u"text 567,1617 宋体10 七"_s});
        row("left, narrower than one character",
            [] { PrintTextLeft(0, 0.001, u"一二"_s, kSong10, 0.1); },
            {u"text 567,1134 宋体10 一"_s, u"text 567,1376 宋体10 二"_s});
        row("left, just wide enough",
            [] { PrintTextLeft(0, 0, u"一二三"_s, kSong10, TextWidthCm(u"一二三"_s, kSong10)); },
            {u"text 567,1134 宋体10 一二三"_s});
        row("right", [] { PrintTextRight(0, 0, u"你好"_s, kSong10, 2.001); },
            {u"text 1301,1134 宋体10 你好"_s});
        row("centre", [] { PrintTextCentre(0, 0, u"你好"_s, kSong10, 2.002); },
            {u"text 934,1134 宋体10 你好"_s});
        // the gap is (3.002 cm - 200 twips) / 2
        row("spread", [] { PrintTextSpread(0, 0, u"一二三"_s, kSong10, 3.002); },
            {u"text 567,1134 宋体10 一"_s, u"text 1318,1134 宋体10 二"_s,
             u"text 2069,1134 宋体10 三"_s});
        row("spread, one character", [] { PrintTextSpread(0, 0, u"一"_s, kSong10, 2.002); },
            {u"text 1034,1134 宋体10 一"_s});
        row("a character outside the basic plane stays whole",
            [] { PrintTextSpread(0, 0, u"一𠮷"_s, kSong10, 2.001); },
            {u"text 567,1134 宋体10 一"_s, u"text 1501,1134 宋体10 𠮷"_s});
        const auto vertical = [&](const char* name, VerticalPlacing placing, QList<int> tops) {
            QStringList items;
            const QString text = u"一二三"_s;
            for (int n = 0; n < 3; ++n)
                items += u"text 750,%1 宋体10 %2"_s.arg(tops[n]).arg(text[n]);
            row(
                name,
                [placing, text] { PrintTextVertical(0, 0.001, text, kSong10, placing, 1.001, 4); },
                items);
        };
        vertical("vertical from the top", VerticalPlacing::Top, {1134, 1376, 1617});
        vertical("vertical to the bottom", VerticalPlacing::Bottom, {2689, 2931, 3172});
        vertical("vertical in the middle", VerticalPlacing::Centre, {1912, 2153, 2395});
        vertical("vertical spread", VerticalPlacing::Spread, {1134, 2153, 3172});
        row("vertical spread, one character",
            [] {
                PrintTextVertical(0, 0.001, u"一"_s, kSong10, VerticalPlacing::Spread, 1.001, 4);
            },
            {u"text 750,2153 宋体10 一"_s});
        row("box", [] { PrintBox(0, 0, 1, 1, 2); }, {u"box 567,1134-1134,1701 w2 #000000"_s});
        row("box keeps the width last used",
            [] {
                PrintLine(0, 0, 1, 0, 3, 255);
                PrintBox(0, 0, 1, 1);
            },
            {u"line 567,1134-1134,1134 w3 #ff0000"_s, u"box 567,1134-1134,1701 w3 #000000"_s});
        row("frame", [] { PrintFrame(0, 0, 1, 1, 1); },
            {u"box 567,1134-1134,1701 w1 #000000"_s, u"box 623,1190-1077,1644 w1 #000000"_s});
        row("filled box", [] { PrintFilledBox(0, 0, 1, 1, 0x00FF00); },
            {u"box 567,1134-1134,1701 w1 fill #00ff00"_s});
    }

    void dropsTextsOutsideThePaper() {
        MessageRecorder messages;
        const auto row = [&](const char* name, double x, double y, bool dropped) {
            init();
            messages.clear();
            PrintTextLeft(x, y, u"甲"_s, kSong10);
            PrintTextLeft(x, y, u"乙"_s, kSong10);
            Check(name, itemsOfPage().isEmpty(), dropped);
            Check(name, messages.entries().size(), dropped ? 1 : 0);
        };
        row("inside the margin", -0.5, -1.5, false);
        row("at the edge", -1.0, -2.0, false);
        row("left of the paper", -1.01, 0.0, true);
        row("above", 0.0, -2.01, true);
        row("right of it", 20.01, 0.0, true);
        row("below", 0.0, 26.01, true);
        row("nowhere", qQNaN(), 0.0, true);
        row("endlessly far", qInf(), 0.0, true);
        QCOMPARE(messages.entries().first().title, u"PrintInCen"_s);
        QCOMPARE(messages.last(), u"坐标系统错误，可能没有设定合理的纸张大小，请调用初始化"_s);
    }

    void printsHeadAndFootIntoTheMargins() {
        OpenPrintJob(21, 28);
        SetPrintMargins(1, 1, 2, 2);
        StartPage(u"某某宾馆,清单,甲"_s);
        EndPage(u"第1页"_s);
        AddScriptLine(script::kBufferFresh);
        PrintScript script = ScriptOfJob();
        const QStringList items = ItemTexts(script.previewPage(1));
        // 8 points: 160 twips wide, 184 high; the margin ends at 1134, the gap is 56.7
        QCOMPARE(items.value(0), u"text 567,893 黑体8 某某宾馆"_s);
        QCOMPARE(items.value(1), u"text 11020,893 黑体8 清单"_s);
        QCOMPARE(items.value(2), u"text 1367,893 黑体8 甲"_s);
        QCOMPARE(items.value(3), u"line 567,1105-11340,1105 w1 #000000"_s);
        QCOMPARE(items.value(4), u"line 567,14770-11340,14770 w1 #000000"_s);
        QVERIFY(items.value(5).endsWith(u",14798 黑体8 第1页"_s));
        QCOMPARE(items.size(), 6);
    }

    void opensWithACleanFolder() {
        const QString old = QFileInfo(PrintScriptFile()).path() + u"/_$$_OLD.TMP"_s;
        QFile stale(old);
        QVERIFY(stale.open(QIODevice::WriteOnly));
        stale.close();
        PrintTextLeft(0, 0, u"甲"_s, kSong10);
        OpenPrintJob(21, 28);
        QVERIFY(!QFile::exists(old));
        QCOMPARE(QFileInfo(PrintScriptFile()).fileName(), u"_$$_TEMP.TMP"_s);
        QCOMPARE(QFileInfo(PrintScriptFile()).size(), 0);
        AddScriptLine(script::kBufferFresh);
        QCOMPARE(ScriptOfJob().pageCount(), 0);
        ClosePrintJob();
        QVERIFY(!QFile::exists(PrintScriptFile()));
    }

    void keepsPaperAndMarginsThatAreNotSet() {
        OpenPrintJob(0, -1);
        SetPrintMargins(1.5, -1, 0, -0.1);
        QCOMPARE(PrintableWidthCm(), 19.5);
        QCOMPARE(PrintableHeightCm(), 28.0);
    }

    void readsThePaperRecord() {
        const PaperFormat standing{20, 10, 1, 2, 3, 4};
        QCOMPARE(ReadPaperFormat(u"", standing), standing);
        QCOMPARE(ReadPaperFormat(u"<纸宽>21</纸宽><纸高>0</纸高><左边界>-1</左边界>"
                                 u"<上边界>0.8</上边界><下边界>x</下边界>",
                                 standing),
                 (PaperFormat{21, 10, 1, 2, 0.8, 4}));
    }

    void paintsBlocks() {
        const auto row = [this](const char* name, const QString& block, const QStringList& items) {
            init();
            Clock::Freeze(QDateTime(QDate(2026, 3, 5), QTime(9, 7, 2)));
            const QString form = u"<表头><高度>2.5</高度>"_s + block + u"</表头>"_s;
            const double height = PrintFormBlock(form, tag::kFormHead, 0, 0.001);
            Check(name, itemsOfPage(), items);
            QCOMPARE(height, form.size() > kFormatTextLimit ? 0 : 2.5);
        };
        const QString place = u"<左边界>1</左边界><上边界>1</上边界>"
                              u"<单元宽>2.002</单元宽><单元高>2</单元高>"_s;
        const auto cell = [&](const QString& more) {
            return u"<00><字体>宋体</字体><字号>10</字号>"_s + place + more + u"</00>"_s;
        };
        // the block stands at (0, 0.001); in the height of 2 cm (1134) a line begins 452 below the top
        row("left when nothing is said", cell(u"<文本>甲乙</文本>"_s),
            {u"text 1134,2153 宋体10 甲乙"_s});
        row("an unknown word is left, too", cell(u"<方式>斜</方式><文本>甲乙</文本>"_s),
            {u"text 1134,2153 宋体10 甲乙"_s});
        row("left in two lines", cell(u"<文本>一二三四五六</文本>"_s),
            {u"text 1134,2032 宋体10 一二三四五"_s, u"text 1134,2274 宋体10 六"_s});
        row("right", cell(u"<方式>右对齐</方式><文本>甲乙</文本>"_s),
            {u"text 1869,2153 宋体10 甲乙"_s});
        row("centre", cell(u"<方式>居中</方式><文本>甲乙</文本>"_s),
            {u"text 1501,2153 宋体10 甲乙"_s});
        row("spread", cell(u"<方式>匀齐</方式><文本>甲乙</文本>"_s),
            {u"text 1134,2153 宋体10 甲"_s, u"text 2069,2153 宋体10 乙"_s});
        row("vertical", cell(u"<方式>上对齐</方式><文本>甲</文本>"_s),
            {u"text 1601,1701 宋体10 甲"_s});
        row("vertical at the bottom", cell(u"<方式>下对齐</方式><文本>甲</文本>"_s),
            {u"text 1601,2605 宋体10 甲"_s});
        row("vertical in the middle", cell(u"<方式>垂直居中</方式><文本>甲</文本>"_s),
            {u"text 1601,2153 宋体10 甲"_s});
        row("vertical spread", cell(u"<方式>垂直匀齐</方式><文本>甲乙</文本>"_s),
            {u"text 1601,1701 宋体10 甲"_s, u"text 1601,2605 宋体10 乙"_s});
        row("a line and no text",
            cell(u"<方式>直线</方式><线宽>2</线宽><填充色>255</填充色><文本>甲</文本>"_s),
            {u"line 1134,1701-2269,2835 w2 #ff0000"_s});
        row("frame on a colour", cell(u"<线宽>1</线宽><填充色>65280</填充色>"_s),
            {u"box 1134,1701-2269,2835 w1 fill #00ff00"_s,
             u"box 1134,1701-2269,2835 w1 #000000"_s});
        row("the time of printing", cell(u"<文本>$DD日</文本>"_s),
            {u"text 1134,2153 宋体10 05日"_s});
        row("a cell takes font and place of the one before, not its size or frame",
            cell(u"<粗体>1</粗体><线宽>1</线宽><方式>右对齐</方式><文本>甲</文本>"_s) +
                u"<01><上边界>2</上边界><文本>乙</文本></01>"
                u"<02><粗体>0</粗体><文本>丙</文本></02>"_s,
            {u"box 1134,1701-2269,2835 w1 #000000"_s, u"text 2069,2153 宋体10B 甲"_s,
             u"text 1134,2268 宋体10B 乙"_s, u"text 1134,2268 宋体10 丙"_s});
        row("cells end at the first number missing",
            cell(u"<文本>甲</文本>"_s) + u"<02><文本>乙</文本></02>"_s,
            {u"text 1134,2153 宋体10 甲"_s});
        row("the block's own defaults",
            u"<默认字体>楷体</默认字体><默认字号>9</默认字号><00><文本>甲</文本></00>"_s,
            {u"text 567,1134 楷体9 甲"_s});
        row("too long a text has no fields",
            cell(u"<文本>甲</文本>"_s) + QString(kFormatTextLimit, u'x'), {});
    }

    void putsDataIntoBlocks() {
        const QString form = u"<表芯><高度>1</高度><默认字体>楷体</默认字体>"
                             u"<00><文本>姓名</文本></00><01><左边界>2</左边界>"
                             u"<文本>张三</文本></01><02><左边界>4</左边界></02></表芯>"_s;
        QCOMPARE(PrintFormBlockWithData(
                     form, tag::kFormBody, 0, 0,
                     {{0, QString()}, {1, u"李四"_s}, {2, u"余 0.00"_s}, {7, u"无此单元"_s}}),
                 1.0);
        QCOMPARE(itemsOfPage(),
                 (QStringList{u"text 567,1134 黑体12 姓名"_s, u"text 1701,1134 黑体12 李四"_s,
                              u"text 2835,1134 黑体12 余     "_s}));
        QCOMPARE(PrintFormBlockWithData(form, tag::kFormFoot, 0, 0, {{0, u"甲"_s}}), 0.0);
    }
};

HOTEL_TEST(PrintJobTest)

#include "test_print_job.moc"
