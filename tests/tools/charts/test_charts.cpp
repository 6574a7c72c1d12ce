#include <QTemporaryDir>

#include <random>

#include "screen/messages.h"
#include "tests/hotel_test.h"
#include "tools/charts/ChartPane.h"
#include "tools/charts/draw_chart.h"
#include "tools/paper/PrtSubs.h"
#include "tools/paper/print_pass.h"

using namespace hotel;

namespace {

Chart Figures(ChartKind kind, int labels, const QList<QList<qint64>>& values) {
    Chart chart{u"收入"_s, kind};
    for (int label = 1; label <= labels; ++label)
        chart.labels.append(u"11-%1"_s.arg(label, 2, 10, QChar(u'0')));
    for (const QList<qint64>& series : values)
        chart.series.append({u"房费"_s, series});
    chart.decimals = 2;
    chart.unit = u"元"_s;
    return chart;
}

// Pixels that are not white, of those that are grey and of those that have a colour.
struct Ink {
    int grey = 0;
    int coloured = 0;
};
Ink InkOf(const QImage& picture) {
    Ink ink;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor colour = picture.pixelColor(x, y);
            if (colour.lightness() < 250)
                ++(colour.saturation() > 120 ? ink.coloured : ink.grey);
        }
    }
    return ink;
}

} // namespace

class TestCharts : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void drawsOnlyWhatCanBeCompared() {
        using enum ChartKind;
        const auto row = [](const char* name, const Chart& chart, bool worth) {
            Check(name, IsWorthDrawing(chart), worth);
            Check(name, InkOf(DrawChart(chart, {300, 200})).coloured > 50, worth);
        };
        row("no label", Figures(Bars, 0, {{}}), false);
        row("no series", Figures(Bars, 3, {}), false);
        row("one figure", Figures(Bars, 1, {{5}}), false);
        row("one label of two series", Figures(Bars, 1, {{5000}, {7000}}), true);
        row("one beside nothing", Figures(Bars, 2, {{0, 5000}}), true);
        row("nothing but zeros", Figures(StackedBars, 2, {{0, 0}, {0}}), false);
        row("values without a label", Figures(Bars, 2, {{0, 0, 7}}), false);
        row("a line of one day", Figures(Lines, 1, {{1}, {2}}), false);
        row("a line of two days", Figures(Lines, 2, {{100, 200}}), true);
        row("a single share", Figures(Pie, 2, {{5, 0}}), false);
        row("shares of another series", Figures(Pie, 2, {{5}, {6, 7}}), false);
        row("two shares", Figures(Pie, 2, {{5, 6}}), true);
        row("less than nothing", Figures(Pie, 2, {{-5000, 6000}}), true);
        row("a loss alone", Figures(Bars, 2, {{-5000, -1}}), true);
        QVERIFY(DrawnKind(Figures(Pie, 2, {{-5, 6}})) == Bars);
        QVERIFY(DrawnKind(Figures(Pie, 2, {{5, 6}, {-1, -1}})) == Pie);
    }

    void tellsFiguresInWords() {
        const auto row = [](qint64 value, int decimals, const QString& words) {
            Chart chart = Figures(ChartKind::Bars, 1, {});
            chart.decimals = decimals;
            Check("figure", ChartFigure(chart, value, true), words);
        };
        row(0, 2, u"0.00元"_s);
        row(5, 2, u"0.05元"_s);
        row(-5, 1, u"-0.5元"_s);
        row(123456, 2, u"1234.56元"_s);
        row(-70, 0, u"-70元"_s);
        row(std::numeric_limits<qint64>::min(), 0, u"-9223372036854775808元"_s);

        QCOMPARE(ChartShare(1, 0), QString());
        QCOMPARE(ChartShare(1, 3), u"33.3%"_s);
        QCOMPARE(ChartShare(2, 3), u"66.7%"_s);
        QCOMPARE(ChartShare(1, 2000), u"0.1%"_s); // half a tenth goes up
        QCOMPARE(ChartShare(Q_INT64_C(9000000000000000000), Q_INT64_C(9000000000000000000)),
                 u"100.0%"_s);
        std::mt19937 chance(7);
        for (int n = 0; n < 3000; ++n) {
            const qint64 whole = 1 + chance() % 100000;
            const qint64 part = chance() % (whole + 1);
            qint64 tenths = 0; // counted up, not divided
            while ((2 * tenths + 1) * whole <= 2000 * part)
                ++tenths;
            QCOMPARE(ChartShare(part, whole), u"%1.%2%"_s.arg(tenths / 10).arg(tenths % 10));
        }
    }

    void neighboursDifferOnGreyPaper() {
        // Two shares of one half each: left and right half of the pie, past the legend.
        Chart chart = Figures(ChartKind::Pie, 2, {{1, 1}});
        const QImage picture = DrawChart(chart, {600, 300}, 2);
        QCOMPARE(picture.size(), QSize(1200, 600));
        QList<int> greys;
        for (int x = 0; x < picture.width() * 3 / 5; x += 2) {
            const int grey = qGray(picture.pixel(x, picture.height() * 3 / 5));
            if (grey < 240 && (greys.isEmpty() || qAbs(grey - greys.last()) > 60))
                greys.append(grey);
        }
        QCOMPARE(greys.size(), 2);
    }

    void drawsWhateverThereIs() {
        std::mt19937_64 chance(11);
        for (int n = 0; n < 60; ++n) {
            const int labels = int(chance() % 400);
            QList<QList<qint64>> values(qsizetype(1 + chance() % 9));
            for (QList<qint64>& series : values) {
                for (int label = int(chance() % 2); label < labels; ++label)
                    series.append(qint64(chance()) >> (chance() % 64));
            }
            Chart chart = Figures(ChartKind(chance() % 4), labels, values);
            chart.decimals = int(chance() % 5);
            if (labels > 3)
                chart.labels[2] = chart.labels[3] = u"同名的而且是相当长的一项"_s;
            const QSize size(int(chance() % 500), int(chance() % 300));
            QCOMPARE(DrawChart(chart, size).size(), size);
        }
    }

    void paneTellsTheFiguresByKeys() {
        ChartPane pane;
        Chart chart = Figures(ChartKind::Bars, 3, {{100, 250, -5}, {7, 8}});
        chart.series[1].name = u"餐饮"_s;
        pane.setChart(chart);
        pane.resize(400, 300);
        QCOMPARE(pane.figuresInWords(), QString());
        QTest::keyClick(&pane, Qt::Key_Left);
        QCOMPARE(pane.figuresInWords(), u"11-01：房费 1.00元，餐饮 0.07元"_s);
        QTest::keyClick(&pane, Qt::Key_Right);
        QCOMPARE(pane.figuresInWords(), u"11-02：房费 2.50元，餐饮 0.08元"_s);
        QTest::keyClick(&pane, Qt::Key_End);
        QTest::keyClick(&pane, Qt::Key_Down); // there is no fourth
        QCOMPARE(pane.figuresInWords(), u"11-03：房费 -0.05元，餐饮 0.00元"_s);
        QTest::keyClick(&pane, Qt::Key_Home);
        QCOMPARE(pane.accessibleDescription(), u"11-01：房费 1.00元，餐饮 0.07元"_s);
        pane.setChart({});
        QTest::keyClick(&pane, Qt::Key_Right);
        QCOMPARE(pane.figuresInWords(), QString());
    }

    void savesThePicture() {
        MessageRecorder messages;
        QTemporaryDir folder;
        ChartPane pane;
        pane.setChart(Figures(ChartKind::Bars, 2, {{1, 2}}));
        QTest::keyClick(&pane, Qt::Key_S, Qt::ControlModifier); // cancelled
        QVERIFY(messages.entries().last().words.endsWith(u"/收入.png"_s));
        QCOMPARE(messages.entries().last().filter, u"(图片文件)|*.png|(所有文件)|*.*"_s);

        const QString file = folder.filePath(u"新建/收入.png"_s);
        messages.answerNext(file);
        QTest::keyClick(&pane, Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(messages.last(), u"图表已经成功保存在:"_s + file);
        QVERIFY(InkOf(QImage(file)).coloured > 1000);

        messages.answerNext(folder.path()); // a folder stands there
        QTest::keyClick(&pane, Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(messages.last(), u"文件无法生成!"_s);

        messages.clear();
        pane.setChart(Figures(ChartKind::Bars, 1, {{1}}));
        QTest::keyClick(&pane, Qt::Key_S, Qt::ControlModifier);
        QVERIFY(messages.entries().isEmpty());
    }

    void standsOnThePage() {
        OpenPrintJob(21, 28);
        SetPrintMargins(2, 2, 3, 1);
        StartPage();
        PrintChart(Figures(ChartKind::Bars, 2, {{1, 2}}), 1, 4, 10, 5);
        PrintChart(Figures(ChartKind::Bars, 2, {{3, 2}}), 1, 10, 10, 5);
        EndPage();
        FinishedPrintJob job = ReadPrintJob();
        const PrintPage page = job.script.previewPage(1);
        QCOMPARE(page.size(), 2);
        const auto& picture = std::get<PrintedPicture>(page[0]);
        QCOMPARE(picture.area, QRectF(3 * 567, 7 * 567, 10 * 567, 5 * 567));
        QVERIFY(InkOf(QImage(picture.file)).coloured > 1000);
        QVERIFY(QImage(picture.file) != QImage(std::get<PrintedPicture>(page[1]).file));
        ClosePrintJob();
        QVERIFY(!QFile::exists(picture.file));
    }
};

HOTEL_TEST(TestCharts)
#include "test_charts.moc"
