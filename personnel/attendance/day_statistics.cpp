#include "personnel/attendance/day_statistics.h"

#include <algorithm>

#include "personnel/attendance/day_presence.h"
#include "personnel/attendance/list_records.h"
#include "personnel/attendance/punch_decision.h"
#include "record/literals.h"
#include "record/numbers.h"
#include "session/operation_log.h"

namespace hotel {

namespace {

constexpr qint64 kSecondsADay = 24 * 60 * 60;
constexpr qint64 kSecondsAnHour = 60 * 60;
constexpr QStringView kDayStatistics = u"当天统计数据";

struct ShiftSum {
    QString name;
    int times = 0;
    qint64 due = 0; // seconds
    qint64 there = 0;
};

struct PersonSum {
    int attended = 0;
    qint64 there = 0; // seconds
    qint64 due = 0;
    int overtimes = 0;
    qint64 overtime = 0;
    int late = 0;
    int lateMinutes = 0;
    int early = 0;
    int earlyMinutes = 0;
    int leaves = 0;
    Money leaveDays;
    int sick = 0;
    Money sickDays;
    int missed = 0;
    Money missedDays;
    Money away; // hours
    QList<ShiftSum> shifts;
};

// Hours to the hundredth, in which what is missing is summed.
Money HundredthsOfHours(qint64 seconds) {
    constexpr qint64 kSecondsAHundredth = kSecondsAnHour / 100;
    constexpr qint64 kUnitsAHundredth = 100;
    return Money::FromUnits((seconds + kSecondsAHundredth / 2) / kSecondsAHundredth *
                            kUnitsAHundredth);
}

// "#0.0", which is 0.0 for nearly everybody.
QString Tenths(Money value) {
    return value == Money() ? u"0.0"_s : value.text(u"#0.0");
}

// "#0", which is 0 or 1 for nearly everybody.
QString Count(int count) {
    static const QString kUsual[] = {u"0"_s, u"1"_s};
    return count == 0 || count == 1 ? kUsual[count] : QString::number(count);
}

QString Hours(qint64 seconds) {
    constexpr qint64 kSecondsATenth = kSecondsAnHour / 10;
    constexpr qint64 kUnitsATenth = 1000;
    return Tenths(Money::FromUnits((seconds + kSecondsATenth / 2) / kSecondsATenth * kUnitsATenth));
}

qint64 SecondOf(QStringView time) {
    return qint64(MinuteOf(time)) * 60 + qint64(LeadingNumber(time.mid(6, 2)));
}

// From one time of the day to another, over midnight in a night period.
qint64 SecondsBetween(const ShiftPeriod& period, qint64 from, qint64 to) {
    if (to >= from)
        return to - from;
    return period.isNight() ? to - from + kSecondsADay : 0;
}

int Limited(int minutes, int limit) {
    return limit != 0 ? std::min(minutes, limit) : minutes;
}

class PersonDay {
public:
    PersonDay(const AttendanceDay& day, const AnalysisSettings& settings)
        : punches_(day.punches), absences_(day.absences), settings_(settings) {}

    void attend(const ShiftPeriod& period, const QList<int>& rows, bool excused);
    void workOvertime(const QList<int>& rows);
    void miss(int absenceRow);

    const PersonSum& sum() const { return sum_; }

private:
    QString time(int row) const { return punches_.text(row, punch_record::kTime); }
    bool is(int row, QStringView state) const {
        return row && punches_.text(row, punch_record::kState) == state;
    }
    int minutesBetween(const ShiftPeriod& period, const QString& from, const QString& to) const {
        return int(SecondsBetween(period, qint64(CompuMin(from)) * 60, qint64(CompuMin(to)) * 60) /
                   60);
    }
    ShiftSum& shift(const QString& name);

    const TextTable& punches_;
    const TextTable& absences_;
    const AnalysisSettings& settings_;
    PersonSum sum_;
    QSet<int> taken_;
};

void PersonDay::attend(const ShiftPeriod& period, const QList<int>& rows, bool excused) {
    const Presence presence = PresenceIn(period, punches_, rows, taken_);
    if (!presence.any())
        return;
    ++sum_.attended;
    if (is(presence.arrival, punch_word::kLate) && !excused) {
        ++sum_.late;
        sum_.lateMinutes += Limited(
            minutesBetween(period, period.startText, time(presence.arrival)), settings_.lateLimit);
    }
    if (is(presence.departure, punch_word::kEarly)) {
        ++sum_.early;
        sum_.earlyMinutes += Limited(
            minutesBetween(period, time(presence.departure), period.endText), settings_.earlyLimit);
    }
    const qint64 start = SecondOf(period.startText);
    const qint64 end = SecondOf(period.endText);
    const int came = presence.arrival ? presence.arrival : presence.between;
    const qint64 due = SecondsBetween(period, start, end);
    const qint64 there =
        SecondsBetween(period, came ? SecondOf(time(came)) : start,
                       presence.departure ? SecondOf(time(presence.departure)) : end);
    sum_.due += due;
    sum_.there += there;
    sum_.away += HundredthsOfHours(std::max<qint64>(due - there, 0));
    ShiftSum& group = shift(period.name);
    ++group.times;
    group.due += due;
    group.there += there;
}

void PersonDay::workOvertime(const QList<int>& rows) {
    QList<int> overtime;
    std::ranges::copy_if(rows, std::back_inserter(overtime),
                         [this](int row) { return IsOvertimePunch(punches_, row); });
    if (overtime.size() < 2)
        return;
    ++sum_.overtimes;
    sum_.overtime += SecondOf(time(overtime.last())) - SecondOf(time(overtime.first()));
}

void PersonDay::miss(int absenceRow) {
    const QString category = absences_.text(absenceRow, absence_record::kCategory);
    const QString value = absences_.text(absenceRow, absence_record::kValue);
    const auto add = [&](int& count, Money& days) {
        ++count;
        days += Money::FromText(value);
    };
    if (category == u"迟到") {
        ++sum_.late;
        sum_.lateMinutes += Limited(int(LeadingNumber(value)), settings_.lateLimit);
    } else if (category == u"早退") {
        ++sum_.early;
        sum_.earlyMinutes += Limited(int(LeadingNumber(value)), settings_.earlyLimit);
    } else if (category == u"事假") {
        add(sum_.leaves, sum_.leaveDays);
    } else if (category == u"病假") {
        add(sum_.sick, sum_.sickDays);
    } else if (category == u"旷工") {
        add(sum_.missed, sum_.missedDays);
    } else if (category == u"出差" || category == u"换休") {
        ++sum_.attended;
    }
}

ShiftSum& PersonDay::shift(const QString& name) {
    const auto known = std::ranges::find(sum_.shifts, name, &ShiftSum::name);
    if (known != sum_.shifts.end())
        return *known;
    sum_.shifts.append({.name = name});
    return sum_.shifts.last();
}

bool Excuses(QStringView category) {
    return category == u"公务" || category == u"特许";
}

void Show(TextTable& statistics, int row, const PersonSum& sum) {
    const QStringList cells = statistics.row(row);
    statistics.setRow(row, {cells[0], cells[1], Count(sum.attended), Hours(sum.there),
                            Hours(sum.due), Count(sum.overtimes), Hours(sum.overtime),
                            Count(sum.late), Count(sum.lateMinutes), Count(sum.early),
                            Count(sum.earlyMinutes), Count(sum.leaves), Tenths(sum.leaveDays),
                            Count(sum.sick), Tenths(sum.sickDays), Count(sum.missed),
                            Tenths(sum.missedDays), Tenths(sum.away), cells.last()});
}

// False when the person has more shifts than there are groups.
bool ShowShifts(TextTable& list, int row, const QList<ShiftSum>& shifts) {
    QStringList cells = {list.row(row)[0], list.row(row)[1]};
    for (qsizetype i = 0; i < kShiftGroups; ++i) {
        if (i < shifts.size())
            cells << shifts[i].name << Count(shifts[i].times) << Hours(shifts[i].due)
                  << Hours(shifts[i].there);
        else
            cells << QString() << QString() << QString() << QString();
    }
    cells << list.row(row).last();
    list.setRow(row, cells);
    return shifts.size() <= kShiftGroups;
}

// Whoever has punched is in the lists, even when his record is gone.
void AddPunchers(AttendanceDay& day, const RowsOfPeople& punchers) {
    QSet<QString> known;
    for (int row = 1; row < day.statistics.rows(); ++row)
        known.insert(day.statistics.row(row)[0]);
    QStringList numbers = punchers.keys();
    numbers.sort();
    for (const QString& number : std::as_const(numbers)) {
        if (number.isEmpty() || known.contains(number) || punchers[number].isEmpty())
            continue;
        const int row = punchers[number].first();
        AddPerson(day, number, day.punches.text(row, punch_record::kName),
                  day.punches.text(row, punch_record::kDepartment));
    }
}

} // namespace

std::optional<Notice> ComputeStatistics(AttendanceDay& day, const AnalysisSettings& settings) {
    const RowsOfPeople punchesOf = PunchesOfPeople(day.punches);
    AddPunchers(day, punchesOf);
    const RowsOfPeople periodsOf = PeriodsOfPeople(day.periods);
    RowsOfPeople absencesOf;
    QSet<QString> excused; // person and shift
    for (int row = 1; row < day.absences.rows(); ++row) {
        const QString person = day.absences.text(row, punch_record::kNumber);
        absencesOf[person].append(row);
        if (Excuses(day.absences.text(row, absence_record::kCategory)))
            excused.insert(person + u'|' + day.absences.text(row, punch_record::kShift));
    }
    QHash<QString, int> shiftRowOf; // either list may have been sorted
    for (int row = 1; row < day.shifts.rows(); ++row)
        shiftRowOf.insert(day.shifts.row(row)[0], row);
    bool shown = true;
    for (int row = 1; row < day.statistics.rows(); ++row) {
        const QString person = day.statistics.row(row)[0];
        const QList<int> punches = punchesOf.value(person);
        const QList<int> periods = periodsOf.value(person);
        PersonDay sums(day, settings);
        for (const int periodRow : periods) {
            const ShiftPeriod period = PeriodOfRow(day.periods, periodRow);
            sums.attend(period, punches,
                        !excused.isEmpty() && excused.contains(person + u'|' + period.name));
        }
        if (periods.isEmpty())
            sums.workOvertime(punches);
        for (const int absence : absencesOf.value(person))
            sums.miss(absence);
        Show(day.statistics, row, sums.sum());
        shown &= ShowShifts(day.shifts, shiftRowOf.value(person), sums.sum().shifts);
    }
    if (shown)
        return {};
    return Notice{u"改进班次设定"_s, u"班次种类太多？大于5种！"_s};
}

std::optional<Notice> MakeStatistics(AttendanceDay& day, const AnalysisSettings& settings) {
    const auto notice = ComputeStatistics(day, settings);
    SaveLogRec(kDayStatistics.toString(), u"生成某天统计处理记录操作"_s);
    return notice;
}

std::optional<Notice> SaveStatistics(const AttendanceDay& day) {
    const QString file = DayResultFile(day.date);
    if (!SaveListAsProject(file, day_result::kPeopleProject, day.statistics))
        return Notice{u"意外错误"_s, u"考勤统计记录保存失败!"_s};
    if (!SaveListAsProject(file, day_result::kShiftProject, day.shifts))
        return Notice{u"意外错误"_s, u"考勤班次记录保存失败!"_s};
    SaveLogRec(kDayStatistics.toString(), u"保存某天统计处理记录操作"_s);
    return {};
}

} // namespace hotel
