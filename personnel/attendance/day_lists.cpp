#include "personnel/attendance/day_lists.h"

#include <algorithm>
#include <tuple>

#include "record/literals.h"
#include "record/numbers.h"

namespace hotel {

namespace {

QStringList Columns(std::initializer_list<QStringView> names) {
    QStringList columns;
    for (const QStringView name : names)
        columns.append(name.toString());
    return columns;
}

RowsOfPeople RowsBy(const TextTable& list) {
    RowsOfPeople rows;
    rows.reserve(list.dataRows());
    const int number = list.column(punch_record::kNumber);
    for (int row = 1; row < list.rows(); ++row)
        rows[list.row(row)[number]].append(row);
    return rows;
}

} // namespace

QStringList PunchColumns() {
    using namespace punch_record;
    return Columns({kRowNumber, kMark, kNumber, kName, kDepartment, kTime, kState, kShift,
                    kFunction, kMeans, kDate, kNote, kOperator, kCorrector, kCorrected, kRecordKey,
                    kMode});
}

QStringList PeriodColumns() {
    using namespace shift_period;
    return Columns({punch_record::kNumber, punch_record::kName, kName, kMode, kStart, kEnd, kEarly,
                    kLate, kDayValue, punch_record::kDepartment});
}

QStringList AbsenceColumns() {
    using namespace absence_record;
    return Columns({kRowNumber, punch_record::kNumber, punch_record::kName, punch_record::kShift,
                    kCategory, kValue, kNote, punch_record::kCorrector});
}

QStringList StatisticsColumns() {
    return Columns({punch_record::kNumber, punch_record::kName, u"出勤次数", u"在岗时间",
                    u"工作时间", u"加班次数", u"加班小时", u"迟到次数", u"迟到分钟", u"早退次数",
                    u"早退分钟", u"事假次数", u"事假天数", u"病假次数", u"病假天数", u"缺勤次数",
                    u"缺勤天数", u"脱岗统计", punch_record::kDepartment});
}

QStringList ShiftColumns() {
    QStringList columns = Columns({punch_record::kNumber, punch_record::kName});
    for (int group = 1; group <= kShiftGroups; ++group) {
        for (const QStringView what : {u"名称", u"次数", u"时间", u"在岗"})
            columns.append(what + QString::number(group));
    }
    columns.append(punch_record::kDepartment.toString());
    return columns;
}

void AddDuePeriods(TextTable& periods, const QStringList& person, QStringView periodsText,
                   int weekday) {
    for (const ShiftPeriod& period : ReadShiftPeriods(periodsText)) {
        if (HoldsOn(period.weekdays, weekday))
            periods.addRow({person.value(0), person.value(1), period.name, period.mode,
                            period.startText, period.endText, QString::number(period.early),
                            QString::number(period.late), period.dayValue, person.value(2)});
    }
}

void AddPerson(AttendanceDay& day, const QString& number, const QString& name,
               const QString& department) {
    for (TextTable* list : {&day.statistics, &day.shifts}) {
        QStringList cells(list->cols());
        cells[0] = number;
        cells[1] = name;
        cells.last() = department;
        list->addRow(cells);
    }
}

ShiftPeriod PeriodOfRow(const TextTable& periods, int row) {
    const QStringList& cells = periods.row(row);
    return {.name = cells[2],
            .mode = cells[3],
            .startText = cells[4],
            .endText = cells[5],
            .start = MinuteOf(cells[4]),
            .end = MinuteOf(cells[5]),
            .early = int(LeadingNumber(cells[6])),
            .late = int(LeadingNumber(cells[7])),
            .weekdays = {},
            .dayValue = cells[8]};
}

RowsOfPeople PunchesOfPeople(const TextTable& punches) {
    const int mark = punches.column(punch_record::kMark);
    const int time = punches.column(punch_record::kTime);
    const int key = punches.column(kRecordKey);
    RowsOfPeople people = RowsBy(punches);
    for (QList<int>& rows : people) {
        erase_if(rows, [&](int row) { return punches.row(row)[mark] == kDeletedMark; });
        std::ranges::sort(rows, {}, [&](int row) {
            const QStringList& cells = punches.row(row);
            return std::tie(cells[time], cells[key]);
        });
    }
    return people;
}

RowsOfPeople PeriodsOfPeople(const TextTable& periods) {
    RowsOfPeople people = RowsBy(periods);
    for (QList<int>& rows : people)
        std::ranges::sort(rows, {}, [&](int row) {
            const QStringList& cells = periods.row(row);
            return std::tie(cells[4], cells[2]);
        });
    return people;
}

} // namespace hotel
