#include "tools/charts/chart.h"

#include <algorithm>

#include "record/literals.h"

namespace hotel {

namespace {

// The series that are drawn.
QList<ChartSeries> Drawn(const Chart& chart) {
    return chart.kind == ChartKind::Pie ? chart.series.mid(0, 1) : chart.series;
}

// "1234.5" of 12345 tenths.
QString PointAt(qint64 value, int decimals) {
    QString digits = QString::number(value < 0 ? -quint64(value) : quint64(value));
    if (decimals > 0) {
        digits = digits.rightJustified(decimals + 1, u'0');
        digits.insert(digits.size() - decimals, u'.');
    }
    return value < 0 ? u'-' + digits : digits;
}

} // namespace

bool IsWorthDrawing(const Chart& chart) {
    const qsizetype labels = chart.labels.size();
    const QList<ChartSeries> series = Drawn(chart);
    if (labels * series.size() < 2 || (chart.kind == ChartKind::Lines && labels < 2))
        return false;
    qsizetype figures = 0; // that are not zero
    for (const ChartSeries& one : series)
        figures += std::ranges::count_if(one.values.first(std::min(labels, one.values.size())),
                                         [](qint64 value) { return value != 0; });
    return figures >= (chart.kind == ChartKind::Pie ? 2 : 1);
}

ChartKind DrawnKind(const Chart& chart) {
    if (chart.kind != ChartKind::Pie || chart.series.isEmpty())
        return chart.kind;
    const QList<qint64>& values = chart.series.first().values;
    const bool negative = std::ranges::any_of(values, [](qint64 value) { return value < 0; });
    return negative ? ChartKind::Bars : ChartKind::Pie;
}

QString ChartFigure(const Chart& chart, qint64 value, bool withUnit) {
    return PointAt(value, chart.decimals) + (withUnit ? chart.unit : QString());
}

QString ChartShare(qint64 part, qint64 whole) {
    if (whole <= 0)
        return {};
    const auto tenths = (__int128(part) * 2000 + whole) / (__int128(whole) * 2);
    return PointAt(qint64(tenths), 1) + u'%';
}

} // namespace hotel
