// The families of the house as it stood on a day (house/stays/day_snapshots.h).

#include <QHash>

#include "cashier/reports/period_walk.h"
#include "cashier/reports/report_charts.h"
#include "cashier/reports/reports.h"
#include "house/common/paths.h"
#include "house/stays/board.h"
#include "link/records.h"
#include "platform/clock.h"
#include "record/field_walk.h"
#include "record/literals.h"
#include "record/numbers.h"
#include "record/record_text.h"

namespace hotel {

namespace {

const Notice kNotKept{u"没有保存"_s, u"当日统计数据没有保存，请稍候再试！"_s};

// The board as it stands now. Only the states of the rooms show who is in them.
std::optional<Notice> ReadBoard(TextTable& board, bool withGuests, bool& whole,
                                const WalkProgress& progress) {
    whole = true;
    return LoadFtQd(board, LoadStatusPlaces(), [&](int done, int all) {
        if (withGuests)
            whole = GoesOn(progress, done, all);
        return withGuests && whole;
    });
}

Report MakeTodays(const ReportEntry& report, const WalkProgress& progress) {
    Report made{.list = TextTable(ReportTitles(report)),
                .caption = DayCaption(report, Clock::Now().toString(u"yyyy-MM-dd HH:mm"))};
    TextTable board(BoardTitles());
    bool whole = true;
    made.notice = ReadBoard(board, report.snapshot == DaySnapshot::RoomStates, whole, progress);
    if (made.notice)
        return made;
    if (board.dataRows() == 0) { // a house without rooms is one that could not be read
        made.notice = kNotKept;
        return made;
    }
    made.list = MakeSnapshot(report.snapshot, board);
    made.charts = SnapshotCharts(report, made);
    if (!whole)
        made.remark = u"没有做完，没有保存"_s;
    else if (SaveSnapshot(report.snapshot, Clock::Today(), made.list) != 0)
        made.notice = kNotKept;
    return made;
}

// The row of a type or floor, while days add up.
struct CountedRow {
    QString key;
    DayCounts counts;
};

QString CountText(Money count) {
    return count.text(count.units() % Money::FromText(u"1").units() == 0 ? u"#0" : u"#0.####");
}

DayCounts CountsOf(QStringView row) {
    return {Money::FromText(GetTag(row, snapshot::kRooms)),
            Money::FromText(GetTag(row, snapshot::kBeds)),
            Money::FromText(GetTag(row, snapshot::kRoomsSold)),
            Money::FromText(GetTag(row, snapshot::kBedsSold))};
}

// Adds up the snapshots of a period, by row and by day.
class OccupancySums {
public:
    OccupancySums(const ReportEntry& report, const ReportPeriod& period)
        : key_(ReportTitles(report)[1]), project_(SnapshotProject(report.snapshot)),
          course(PeriodSteps(period)) {}

    void addDay(QDate day) {
        const RecordRead read = ReadProjectToChange(SnapshotFile(day), project_);
        if (read.outcome != Reading::Present) {
            ++(read.failed() ? unread : missing);
            return;
        }
        bool complete = false;
        for (FieldWalk row(read.value); row.next();) {
            if (row.name() == kSnapshotTotal)
                complete = true;
            else
                addRow(day, row.value());
        }
        cut += complete ? 0 : 1;
    }

    // Days that could not be read, that have no snapshot, whose snapshot isn't whole.
    int unread = 0;
    int missing = 0;
    int cut = 0;

    QList<CountedRow> rows;

private:
    // A row without its key, of a snapshot that was cut off, says nothing.
    void addRow(QDate day, QStringView row) {
        const QString key = GetTag(row, key_);
        if (key.isEmpty())
            return;
        const DayCounts counts = CountsOf(row);
        const auto place = places_.constFind(key);
        const qsizetype number = place == places_.constEnd() ? rows.size() : *place;
        if (number == rows.size()) {
            places_.insert(key, number);
            rows.append({key, {}});
        }
        rows[number].counts += counts;
        course.add(day, counts);
    }

    QString key_;
    QString project_;
    QHash<QString, qsizetype> places_;

public:
    OccupancyCourse course;
};

QString RemarkOn(const OccupancySums& sums) {
    QStringList parts;
    const auto tell = [&](int days, const QString& words) {
        if (days > 0)
            parts.append(words.arg(days));
    };
    tell(sums.missing, u"%1 天没有日报"_s);
    tell(sums.cut, u"%1 天日报不完整"_s);
    tell(sums.unread, u"%1 天读取失败"_s);
    return parts.join(u'，');
}

} // namespace

Report MakeSnapshotReport(const ReportEntry& report, QDate day, const WalkProgress& progress) {
    if (day == Clock::Today())
        return MakeTodays(report, progress);
    Report made{.list = LoadSnapshot(report.snapshot, day),
                .caption = DayCaption(report, day.toString(u"yyyy-MM-dd"))};
    const QString last = made.list.text(made.list.rows() - 1, kReportNumber);
    if (made.list.dataRows() == 0)
        made.remark =
            ReadProjectToChange(SnapshotFile(day), SnapshotProject(report.snapshot)).failed()
                ? u"读取失败，请稍候再试"_s
                : u"当日没有做过日报"_s;
    else if (last != kSnapshotTotal)
        made.remark = u"当日日报不完整"_s;
    made.charts = SnapshotCharts(report, made);
    return made;
}

Report MakeSnapshotPeriod(const ReportEntry& report, const ReportPeriod& period,
                          const WalkProgress& progress) {
    OccupancySums sums(report, period);
    const PeriodWalk walk =
        WalkPeriod(report, period, progress, [&](QDate day) { sums.addDay(day); });
    Report made{.list = TextTable(ReportTitles(report)),
                .caption = walk.caption,
                .remark = walk.remark.isEmpty() ? RemarkOn(sums) : walk.remark};
    for (const CountedRow& row : sums.rows)
        made.list.addRow({FormatNumber(made.list.rows(), u"#0"), row.key,
                          CountText(row.counts.rooms), CountText(row.counts.beds),
                          CountText(row.counts.roomsSold), CountText(row.counts.bedsSold)});
    CloseOccupancy(made.list);
    made.charts = OccupancyCharts(report, made, sums.course);
    return made;
}

} // namespace hotel
