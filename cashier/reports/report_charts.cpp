#include "cashier/reports/report_charts.h"

#include <algorithm>

#include "house/rooms/room_record.h"
#include "record/literals.h"

namespace hotel {

namespace {

constexpr int kCents = 2;
constexpr int kTenths = 1;
constexpr int kKeyColumn = 1; // behind 序号
constexpr QStringView kYuan = u"元";

// In units of the chart, rounded half away from zero.
qint64 InUnits(Money amount, int decimals) {
    qint64 unit = 10'000;
    for (; decimals > 0; --decimals)
        unit /= 10;
    const qint64 half = amount.units() < 0 ? -unit / 2 : unit / 2;
    return (amount.units() + half) / unit;
}

qint64 RateInTenths(Money sold, Money all) {
    return (sold.units() * 1000 + all.units() / 2) / all.units();
}

Chart TitledChart(const Report& made, const QString& what, ChartKind kind, int decimals,
                  QStringView unit) {
    return {.title = what,
            .kind = kind,
            .labels = {},
            .series = {},
            .decimals = decimals,
            .unit = unit.toString(),
            .note = made.caption};
}

struct Figure {
    QString label;
    Money amount;
};

void AddFigure(QList<Figure>& figures, const QString& label, Money amount) {
    const auto found = std::ranges::find(figures, label, &Figure::label);
    if (found == figures.end())
        figures.append({label, amount});
    else
        found->amount += amount;
}

// The greatest ones, and what is left of them as one.
QList<Figure> Greatest(QList<Figure> figures, qsizetype most) {
    std::ranges::stable_sort(figures, std::ranges::greater(), &Figure::amount);
    if (figures.size() <= most)
        return figures;
    Figure rest{u"其余%1项"_s.arg(figures.size() - most + 1), {}};
    for (const Figure& figure : figures.sliced(most - 1))
        rest.amount += figure.amount;
    return figures.first(most - 1) << rest;
}

// Rows put together by a column; the row of sums has no part in it.
QList<Figure> FiguresOf(const TextTable& list, int labels, QStringView amounts) {
    QList<Figure> figures;
    const int column = list.column(amounts);
    for (int row = 1; row < list.rows(); ++row) {
        const QString label = FeeClass(list.text(row, labels));
        if (!label.isEmpty() && list.text(row, 0) != kSnapshotTotal)
            AddFigure(figures, label, Money::FromText(list.text(row, column)));
    }
    return figures;
}

Chart FigureChart(Chart chart, const QString& series, const QList<Figure>& figures) {
    ChartSeries values{series, {}};
    for (const Figure& figure : figures) {
        chart.labels.append(figure.label);
        values.values.append(InUnits(figure.amount, chart.decimals));
    }
    chart.series = {values};
    return chart;
}

// Some columns of a list of counts side by side, by type or floor.
Chart ColumnChart(Chart chart, const TextTable& list, const QList<QStringView>& columns) {
    for (const QStringView column : columns)
        chart.series.append({column.toString(), {}});
    for (int row = 1; row < list.rows(); ++row) {
        const QString label = list.text(row, kKeyColumn);
        if (label.isEmpty())
            continue;
        chart.labels.append(label);
        for (qsizetype n = 0; n < columns.size(); ++n)
            chart.series[n].values.append(
                InUnits(Money::FromText(list.text(row, columns[n])), chart.decimals));
    }
    return chart;
}

QString ByWhat(const ReportEntry& report) {
    return report.snapshot == DaySnapshot::SoldByFloor ? u"各楼层"_s : u"各房型"_s;
}

QList<Chart> SoldCharts(const ReportEntry& report, const Report& made) {
    const QString by = ByWhat(report);
    const QString rooms = report.isOfPeriod() ? u"售出间夜"_s : u"售出房间"_s;
    return {ColumnChart(TitledChart(made, by + rooms, ChartKind::Bars, kTenths, u"间"), made.list,
                        {snapshot::kRooms, snapshot::kRoomsSold}),
            ColumnChart(TitledChart(made, by + u"住宿率"_s, ChartKind::Bars, kTenths, u"%"),
                        made.list, {snapshot::kRoomRate, snapshot::kBedRate})};
}

QList<Chart> StatusChart(const Report& made) {
    QList<Figure> figures;
    for (int row = 1; row < made.list.rows(); ++row) {
        const QString status = made.list.text(row, room_record::kStatus);
        if (!status.isEmpty())
            AddFigure(figures, status, Money::FromText(u"1"));
    }
    return {FigureChart(TitledChart(made, u"各房态房间"_s, ChartKind::Pie, 0, u"间"), {},
                        Greatest(figures, kMostBars))};
}

// The field by which a journal's charges are compared.
QStringView JournalKey(PostingKind kind) {
    if (kind == kTeamPosting)
        return u"单位名称";
    return kind == kServicePosting ? u"服务类别" : u"费用名称";
}

Money SumOf(const QList<Money>& amounts) {
    Money sum;
    for (const Money amount : amounts)
        sum += amount;
    return sum;
}

// Day by day, each class a layer; beyond the greatest ones the others are one layer.
Chart DayChart(const Report& made, const IncomeCourse& course) {
    QList<Figure> classes;
    for (auto it = course.classes().cbegin(); it != course.classes().cend(); ++it)
        classes.append({it.key(), SumOf(it.value())});
    std::ranges::sort(classes, {}, &Figure::label); // a hash has no order
    const QList<Figure> shown = Greatest(classes, kMostLayers);
    Chart chart = TitledChart(made, u"按日金额"_s, ChartKind::StackedBars, kCents, kYuan);
    chart.labels = course.steps().labels();
    for (const Figure& figure : shown)
        chart.series.append({figure.label, {}});
    QList<QList<Money>> layers(shown.size(), QList<Money>(course.steps().count()));
    for (auto it = course.classes().cbegin(); it != course.classes().cend(); ++it) {
        const auto own = std::ranges::find(shown, it.key(), &Figure::label);
        const qsizetype layer = std::min(own - shown.begin(), shown.size() - 1);
        for (qsizetype step = 0; step < it.value().size(); ++step)
            layers[layer][step] += it.value()[step];
    }
    for (qsizetype layer = 0; layer < shown.size(); ++layer) {
        for (const Money amount : layers[layer])
            chart.series[layer].values.append(InUnits(amount, kCents));
    }
    return chart;
}

Chart PaidChart(const Report& made, const QList<Figure>& paid) {
    return FigureChart(TitledChart(made, u"各支付方式实收"_s, ChartKind::Pie, kCents, kYuan),
                       u"实收金额"_s, Greatest(paid, kMostBars));
}

} // namespace

QList<Chart> JournalCharts(const ReportEntry& report, const Report& made) {
    if (report.kind == kDepositPosting) {
        QList<Figure> paid =
            FiguresOf(made.list, made.list.column(u"支付方式"), posting::kReceived);
        paid.removeIf([](const Figure& figure) { return figure.amount == Money(); });
        return {PaidChart(made, paid)};
    }
    const QStringView key = JournalKey(report.kind);
    const QList<Figure> figures = FiguresOf(made.list, made.list.column(key), posting::kAmount);
    return {FigureChart(TitledChart(made, u"各类金额"_s, ChartKind::Bars, kCents, kYuan),
                        posting::kAmount.toString(), Greatest(figures, kMostBars))};
}

QList<Chart> SnapshotCharts(const ReportEntry& report, const Report& made) {
    return report.snapshot == DaySnapshot::RoomStates ? StatusChart(made)
                                                      : SoldCharts(report, made);
}

QList<Chart> OccupancyCharts(const ReportEntry& report, const Report& made,
                             const OccupancyCourse& course) {
    Chart rates = TitledChart(made, u"按日住宿率"_s, ChartKind::Lines, kTenths, u"%");
    rates.series = {{snapshot::kRoomRate.toString(), {}}, {snapshot::kBedRate.toString(), {}}};
    for (qsizetype step = 0; step < course.counts().size(); ++step) {
        const DayCounts& counts = course.counts()[step];
        if (counts.rooms <= Money() || counts.beds <= Money())
            continue;
        rates.labels.append(course.steps().labels()[step]);
        rates.series[0].values.append(RateInTenths(counts.roomsSold, counts.rooms));
        rates.series[1].values.append(RateInTenths(counts.bedsSold, counts.beds));
    }
    return QList<Chart>{rates} + SoldCharts(report, made);
}

QList<Chart> IncomeCharts(const ReportEntry& report, const Report& made,
                          const IncomeCourse& course) {
    const QStringView amounts = report.mainSum().header;
    const int labels = report.named.isEmpty() ? kKeyColumn : made.list.column(report.named);
    const QList<Figure> figures = Greatest(FiguresOf(made.list, labels, amounts), kMostBars);
    QList<Chart> charts = {
        DayChart(made, course),
        FigureChart(TitledChart(made, u"各类金额"_s, ChartKind::Bars, kCents, kYuan),
                    amounts.toString(), figures)};
    if (report.kind == kDepositPosting) {
        QList<Figure> paid;
        for (auto it = course.paid().cbegin(); it != course.paid().cend(); ++it)
            paid.append({it.key(), it.value()});
        std::ranges::sort(paid, {}, &Figure::label);
        charts.prepend(PaidChart(made, paid));
    }
    return charts;
}

} // namespace hotel
