#pragma once

// Pictures of figures. A chart holds what is compared as whole numbers; where these come from is decided by
// who fills it:
//
//     Chart chart{u"客房住宿率"_s, ChartKind::Lines};
//     chart.labels = {u"11-01"_s, u"11-02"_s};
//     chart.series = {{u"客房住宿率"_s, {625, 700}}, {u"床位住宿率"_s, {580, 655}}};
//     chart.decimals = 1;
//     chart.unit = u"%"_s;

#include <QList>
#include <QString>
#include <QStringList>

namespace hotel {

enum class ChartKind {
    Bars,        // series side by side at each label
    StackedBars, // one on top of the other: parts of a whole at each label
    Lines,       // a course of time
    Pie,         // shares of one whole: the first series only
};

struct ChartSeries {
    QString name;
    QList<qint64>
        values; // one a label, in units of 10^-decimals of the chart; those that are missing are 0
};

struct Chart {
    QString title;
    ChartKind kind = ChartKind::Bars;
    QStringList labels = {};
    QList<ChartSeries> series = {};
    int decimals = 0;  // of the values: 2 where they are cents
    QString unit = {}; // "元", "%", "间"; empty: a mere number
    QString note = {}; // a second line below the title: what the figures are of
};

// Whether there is anything to compare: two figures or more, one of them not zero. Lines need two labels, a pie
// two shares.
bool IsWorthDrawing(const Chart& chart);

// How the chart is drawn: a share of a whole can't be negative, so that a pie with a negative value becomes bars.
ChartKind DrawnKind(const Chart& chart);

// A value of the chart in words, as "1234.50", or "1234.50元" with the unit.
QString ChartFigure(const Chart& chart, qint64 value, bool withUnit = false);

// "12.3%": the share in tenths of a per cent, rounded half up; of values that are not negative. Empty where
// the whole is 0.
QString ChartShare(qint64 part, qint64 whole);

} // namespace hotel
