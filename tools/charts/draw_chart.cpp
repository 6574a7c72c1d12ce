#include "tools/charts/draw_chart.h"

#include <QAbstractAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QCategoryAxis>
#include <QChart>
#include <QDir>
#include <QFileInfo>
#include <QGraphicsLayout>
#include <QGraphicsScene>
#include <QLegendMarker>
#include <QLineSeries>
#include <QPainter>
#include <QPieSeries>
#include <QPieSlice>
#include <QSaveFile>
#include <QScatterSeries>
#include <QStackedBarSeries>
#include <QValueAxis>

#include <array>
#include <cmath>
#include <numbers>
#include <numeric>

#include "platform/work_folder.h"
#include "record/literals.h"
#include "screen/messages.h"
#include "screen/theme.h"
#include "tools/paper/PrtSubs.h"

namespace hotel {

namespace {

constexpr QRgb kInk = 0xFF1A2129;
constexpr QRgb kGrid = 0xFFD5DBE1;
constexpr double kTitlePoints = 11;
constexpr double kTextPoints = 9;
constexpr qsizetype kLongestLabel = 10; // characters
constexpr qsizetype kMostSlanted = 40;  // labels; with more, some are left out
constexpr qsizetype kMostFigures = 14;  // that are written at their bars
constexpr qsizetype kMostMarks = 62;    // labels; lines of more points have no marks
constexpr double kLabelSlant = -35;     // degrees
constexpr int kBesidePlot = 90;         // pixels: the value axis and the margins
constexpr int kRoomForAmounts = 560;    // pixels; a narrower pie tells its shares alone
constexpr int kAround = 8;              // pixels
constexpr QSize kSavedSize(1200, 700);
constexpr int kSavedNote = 2000; // milliseconds

// --- what tells the series apart ---

enum class Hatch { None, Rising, Level, Dots, Upright, Falling, Cross };

struct Look {
    QRgb colour;
    QRgb second; // of the hatching
    Hatch hatch;
    Qt::PenStyle pen;
    QScatterSeries::MarkerShape mark;
};

// Dark and light by turns: neighbours differ in grey.
constexpr std::array<Look, 8> kLooks = {{
    {0xFF1B5E9E, 0xFF1B5E9E, Hatch::None, Qt::SolidLine, QScatterSeries::MarkerShapeCircle},
    {0xFFF2B33D, 0xFFF2B33D, Hatch::None, Qt::DashLine, QScatterSeries::MarkerShapeRectangle},
    {0xFF1F6F54, 0xFFB9E0CF, Hatch::Rising, Qt::DotLine, QScatterSeries::MarkerShapeTriangle},
    {0xFFE9CFC7, 0xFFB0442C, Hatch::Dots, Qt::DashDotLine,
     QScatterSeries::MarkerShapeRotatedRectangle},
    {0xFF5B3F8C, 0xFFD9CDEC, Hatch::Level, Qt::DashDotDotLine, QScatterSeries::MarkerShapeStar},
    {0xFFC4E3EA, 0xFF2B7A8C, Hatch::Upright, Qt::SolidLine, QScatterSeries::MarkerShapePentagon},
    {0xFF444B52, 0xFFC9CED3, Hatch::Cross, Qt::DashLine, QScatterSeries::MarkerShapeCircle},
    {0xFFE4E7A5, 0xFF74782A, Hatch::Falling, Qt::DotLine, QScatterSeries::MarkerShapeTriangle},
}};

const Look& LookOf(qsizetype series) {
    return kLooks[size_t(series) % kLooks.size()];
}

// Lines are thin: a light colour would be lost on white.
QColor LineColour(const Look& look) {
    const QColor colour = QColor(look.colour);
    return colour.lightness() > 190 ? QColor(look.second) : colour.darker(110);
}

QBrush BrushOf(const Look& look) {
    if (look.hatch == Hatch::None)
        return QColor(look.colour);
    constexpr int kTile = 8;
    QImage tile(kTile, kTile, QImage::Format_RGB32);
    tile.fill(look.colour);
    for (int y = 0; y < kTile; ++y) {
        for (int x = 0; x < kTile; ++x) {
            const bool rising = (x + y) % kTile < 2;
            const bool falling = (x - y + kTile) % kTile < 2;
            const bool on = (look.hatch == Hatch::Rising && rising) ||
                            (look.hatch == Hatch::Falling && falling) ||
                            (look.hatch == Hatch::Level && y % 4 == 0) ||
                            (look.hatch == Hatch::Upright && x % 4 == 0) ||
                            (look.hatch == Hatch::Dots && x % 4 < 2 && y % 4 < 2) ||
                            (look.hatch == Hatch::Cross && (x % 8 == 0 || y % 8 == 0));
            if (on)
                tile.setPixel(x, y, look.second);
        }
    }
    return QBrush(tile);
}

// --- axes ---

struct Range {
    double least = 0;
    double most = 0;
};

double Shown(const Chart& chart, qint64 value) {
    return double(value) / std::pow(10, chart.decimals);
}

// What the value axis must hold: zero always.
Range RangeOf(const Chart& chart, ChartKind kind) {
    Range range;
    for (qsizetype label = 0; label < chart.labels.size(); ++label) {
        Range stack;
        for (const ChartSeries& series : chart.series) {
            const double value = Shown(chart, series.values.value(label));
            if (kind != ChartKind::StackedBars)
                stack = {std::min(stack.least, value), std::max(stack.most, value)};
            else if (value < 0)
                stack.least += value;
            else
                stack.most += value;
        }
        range = {std::min(range.least, stack.least), std::max(range.most, stack.most)};
    }
    return range;
}

// 1, 2 or 5 times a power of ten: about five steps to the range.
double StepOf(const Range& range, bool wholeNumbers) {
    const double rough = (range.most - range.least) / 5;
    const double power = std::pow(10, std::floor(std::log10(rough)));
    const double leading = rough / power;
    const double step = power * (leading <= 1 ? 1 : leading <= 2 ? 2 : leading <= 5 ? 5 : 10);
    return wholeNumbers ? std::max(1.0, step) : step;
}

QFont TextFont() {
    return FontFor(u"黑体", kTextPoints);
}

QValueAxis* MakeValueAxis(const Chart& chart, ChartKind kind, bool figuresAtBars) {
    const Range range = RangeOf(chart, kind);
    const double step = StepOf(range, chart.decimals == 0);
    auto* axis = new QValueAxis;
    const double room = figuresAtBars ? (range.most - range.least) * 0.06 : 0;
    const double least = std::floor((range.least - (range.least < 0 ? room : 0)) / step) * step;
    const double most = std::ceil((range.most + room) / step) * step;
    axis->setRange(least, most);
    axis->setTickCount(int(std::lround((most - least) / step)) + 1);
    const int decimals = std::min(chart.decimals, std::max(0, int(-std::floor(std::log10(step)))));
    axis->setLabelFormat(u"%.%1f"_s.arg(decimals));
    axis->setGridLinePen(QPen(QColor(kGrid), 1));
    if (!chart.unit.isEmpty())
        axis->setTitleText(chart.unit);
    return axis;
}

QString ShortLabel(const QString& label) {
    return label.size() <= kLongestLabel ? label : label.first(kLongestLabel - 1) + u'…';
}

// Labels stand at 0, 1, 2, ...; those that have no room are left out.
QCategoryAxis* MakeLabelAxis(const Chart& chart, int width) {
    auto* axis = new QCategoryAxis;
    axis->setLabelsPosition(QCategoryAxis::AxisLabelsPositionOnValue);
    axis->setGridLineVisible(false);
    axis->setTruncateLabels(false);
    const qsizetype labels = chart.labels.size();
    const double place = double(std::max(1, width - kBesidePlot)) / double(labels);
    const QFontMetricsF font{TextFont()};
    double widest = 0;
    for (const QString& label : chart.labels)
        widest = std::max(widest, font.horizontalAdvance(ShortLabel(label)));
    double needed = widest + 10;
    if (needed > place && labels <= kMostSlanted) {
        axis->setLabelsAngle(int(kLabelSlant));
        needed = font.height() / std::sin(-kLabelSlant * std::numbers::pi / 180);
    }
    const qsizetype step = std::max<qsizetype>(1, qsizetype(std::ceil(needed / place)));
    for (qsizetype label = 0; label < labels; label += step) {
        QString text = ShortLabel(chart.labels[label]);
        while (axis->categoriesLabels().contains(text)) // the axis takes no name twice
            text += u'\u200B';
        axis->append(text, double(label));
    }
    axis->setStartValue(-0.5);
    axis->setRange(-0.5, double(labels) - 0.5);
    return axis;
}

// --- series ---

void AddBars(QChart& plot, const Chart& chart, ChartKind kind, bool figures) {
    QAbstractBarSeries* bars = kind == ChartKind::StackedBars
                                   ? static_cast<QAbstractBarSeries*>(new QStackedBarSeries)
                                   : new QBarSeries;
    for (qsizetype number = 0; number < chart.series.size(); ++number) {
        const ChartSeries& series = chart.series[number];
        auto* set = new QBarSet(series.name);
        QList<qreal> values;
        for (qsizetype label = 0; label < chart.labels.size(); ++label)
            values.append(Shown(chart, series.values.value(label)));
        set->append(values);
        set->setBrush(BrushOf(LookOf(number)));
        set->setPen(chart.labels.size() > kMostMarks ? QPen(Qt::NoPen) : QPen(QColor(kInk), 0.6));
        set->setLabelColor(QColor(kInk));
        set->setLabelFont(TextFont());
        bars->append(set);
    }
    bars->setBarWidth(0.7);
    bars->setLabelsVisible(figures);
    bars->setLabelsPosition(QAbstractBarSeries::LabelsOutsideEnd);
    bars->setLabelsPrecision(15);
    plot.addSeries(bars);
}

void AddLines(QChart& plot, const Chart& chart) {
    for (qsizetype number = 0; number < chart.series.size(); ++number) {
        const ChartSeries& series = chart.series[number];
        const Look& look = LookOf(number);
        QList<QPointF> points;
        for (qsizetype label = 0; label < chart.labels.size(); ++label)
            points.append({double(label), Shown(chart, series.values.value(label))});
        auto* line = new QLineSeries;
        line->setName(series.name);
        line->replace(points);
        line->setPen(QPen(LineColour(look), 2, look.pen));
        plot.addSeries(line);
        if (chart.labels.size() > kMostMarks)
            continue;
        auto* marks = new QScatterSeries;
        marks->replace(points);
        marks->setMarkerShape(look.mark);
        marks->setMarkerSize(8);
        marks->setColor(LineColour(look));
        marks->setBorderColor(Qt::white);
        plot.addSeries(marks);
        for (QLegendMarker* entry : plot.legend()->markers(marks))
            entry->setVisible(false);
    }
}

void AddPie(QChart& plot, const Chart& chart, bool withAmounts) {
    const ChartSeries& shares = chart.series.first();
    qint64 whole = 0;
    for (qsizetype label = 0; label < chart.labels.size(); ++label)
        whole += shares.values.value(label);
    auto* pie = new QPieSeries;
    qsizetype look = 0;
    for (qsizetype label = 0; label < chart.labels.size(); ++label) {
        const qint64 value = shares.values.value(label);
        if (value == 0)
            continue;
        const QString amount = withAmounts ? ChartFigure(chart, value, true) + u' ' : QString();
        const QString words =
            u"%1 %2%3"_s.arg(chart.labels[label], amount, ChartShare(value, whole));
        auto* slice = pie->append(words, double(value));
        slice->setBrush(BrushOf(LookOf(look++)));
        slice->setPen(QPen(Qt::white, 2));
    }
    pie->setPieSize(0.9);
    plot.addSeries(pie);
}

void DressAxis(QAbstractAxis* axis) {
    axis->setLabelsFont(TextFont());
    axis->setTitleFont(TextFont());
    axis->setLabelsColor(QColor(kInk));
    axis->setTitleBrush(QColor(kInk));
    axis->setLinePen(QPen(QColor(kInk), 1));
}

QString TitleOf(const Chart& chart) {
    if (chart.note.isEmpty())
        return chart.title.toHtmlEscaped();
    return u"<table><tr><td align='center'>%1</td></tr><tr><td align='center' "
           "style='font-size:%2pt; font-weight:normal'>%3</td></tr></table>"_s.arg(
               chart.title.toHtmlEscaped(), QString::number(kTextPoints),
               chart.note.toHtmlEscaped());
}

QChart* MakePlot(const Chart& chart, QSize size) {
    auto* plot = new QChart;
    const ChartKind kind = DrawnKind(chart);
    plot->setBackgroundVisible(false);
    plot->setMargins({0, 0, 0, 0});
    plot->layout()->setContentsMargins(kAround, kAround, kAround, kAround);
    plot->setTitle(TitleOf(chart));
    plot->setTitleFont(FontFor(u"黑体", kTitlePoints, true));
    plot->setTitleBrush(QColor(kInk));
    plot->legend()->setFont(TextFont());
    plot->legend()->setLabelColor(QColor(kInk));
    if (kind == ChartKind::Lines)
        plot->legend()->setMarkerShape(QLegend::MarkerShapeFromSeries);
    plot->legend()->setAlignment(kind == ChartKind::Pie ? Qt::AlignRight : Qt::AlignBottom);
    plot->legend()->setVisible(kind == ChartKind::Pie || chart.series.size() > 1);
    if (kind == ChartKind::Pie) {
        AddPie(*plot, chart, size.width() >= kRoomForAmounts);
        return plot;
    }
    const bool figures =
        kind == ChartKind::Bars && chart.labels.size() * chart.series.size() <= kMostFigures;
    if (kind == ChartKind::Lines)
        AddLines(*plot, chart);
    else
        AddBars(*plot, chart, kind, figures);
    QAbstractAxis* labels = MakeLabelAxis(chart, size.width());
    QAbstractAxis* values = MakeValueAxis(chart, kind, figures);
    plot->addAxis(labels, Qt::AlignBottom);
    plot->addAxis(values, Qt::AlignLeft);
    for (QAbstractAxis* axis : {labels, values})
        DressAxis(axis);
    for (QAbstractSeries* series : plot->series()) {
        series->attachAxis(labels);
        series->attachAxis(values);
    }
    return plot;
}

} // namespace

QImage DrawChart(const Chart& chart, QSize size, double scale) {
    QImage picture((QSizeF(size) * scale).toSize(), QImage::Format_RGB32);
    picture.fill(Qt::white);
    if (!IsWorthDrawing(chart) || picture.isNull())
        return picture;
    QGraphicsScene scene;
    QChart* plot = MakePlot(chart, size);
    scene.addItem(plot);
    plot->resize(size);
    plot->layout()->activate();
    QPainter painter(&picture);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    scene.render(&painter, picture.rect(), QRectF({}, QSizeF(size)));
    return picture;
}

void PrintChart(const Chart& chart, double x, double y, double width, double height) {
    // Drawn for a screen of 96 points to the inch, three times as fine.
    constexpr double kPixelsPerCm = 96 / 2.54;
    constexpr double kFineness = 3;
    const QSize size(int(width * kPixelsPerCm), int(height * kPixelsPerCm));
    PrintPicture(x, y, width, height, DrawChart(chart, size, kFineness));
}

bool SaveChartPicture(const Chart& chart) {
    if (!IsWorthDrawing(chart))
        return false;
    QString title = chart.title + chart.note;
    for (QChar& c : title) {
        if (u"\\/:*?\"<>|"_s.contains(c))
            c = u'-';
    }
    const QString name = AskSaveFile(u"图表保存"_s, QDir(ListFolder()).filePath(title + u".png"_s),
                                     u"(图片文件)|*.png|(所有文件)|*.*"_s);
    if (name.isEmpty())
        return false;
    QDir().mkpath(QFileInfo(name).path());
    QSaveFile file(name);
    if (!file.open(QIODevice::WriteOnly) || !DrawChart(chart, kSavedSize, 2).save(&file, "PNG") ||
        !file.commit()) {
        MsgBox(u"文件无法生成!"_s, u"错误"_s);
        return false;
    }
    TimedMessage(u"图表已经成功保存在:"_s + name, u"文件保存"_s, kSavedNote);
    return true;
}

} // namespace hotel
