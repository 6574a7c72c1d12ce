#include <QMap>
#include <QRandomGenerator>
#include <QTest>

#include "personnel/attendance/day_absences.h"
#include "personnel/attendance/day_check.h"
#include "personnel/attendance/day_statistics.h"
#include "personnel/attendance/punch_decision.h"
#include "platform/clock.h"
#include "tests/hotel_test.h"

using namespace hotel;

namespace {

// "1 早班 常规 08:00 18:00 30 30 1"; the name of person 1 is 员1, his department 部1.
void AddPeriods(AttendanceDay& day, const QStringList& periods) {
    for (const QString& period : periods) {
        const QStringList part = period.split(u' ');
        day.periods.addRow({part[0], u"员"_s + part[0], part[1], part[2], part[3] + u":00"_s,
                            part[4] + u":00"_s, part[5], part[6], part[7], u"部"_s + part[0]});
    }
}

// "1 07:55 上班 正常 早班", "-" for what is empty, a sixth part is the way of keeping time.
void AddPunches(AttendanceDay& day, const QStringList& punches) {
    for (const QString& punch : punches) {
        QStringList part = punch.split(u' ');
        part.replaceInStrings(u"-"_s, QString());
        const QString time = part[1].size() == 5 ? part[1] + u":00"_s : part[1];
        const int row = day.punches.addRow({{},
                                            {},
                                            part[0],
                                            u"员"_s + part[0],
                                            u"部"_s + part[0],
                                            time,
                                            part[3],
                                            part[4],
                                            part[2]});
        day.punches.setText(row, u"考勤方式", part.value(5));
        day.punches.setText(row, kRecordKey,
                            u"260305"_s + QString(time).remove(u':') + QString::number(row));
    }
}

AttendanceDay Day(const QStringList& periods, const QStringList& punches) {
    AttendanceDay day;
    day.date = QDate(2026, 3, 5);
    AddPeriods(day, periods);
    AddPunches(day, punches);
    for (int row = 1; row < day.periods.rows(); ++row) {
        const QString number = day.periods.text(row, 0);
        if (day.statistics.find(0, number) < 0)
            AddPerson(day, number, u"员"_s + number, u"部"_s + number);
    }
    return day;
}

// Rows as "编号 班次 类别 折算 说明", sorted.
QStringList Absences(const AttendanceDay& day, bool withNotes = true) {
    QStringList rows;
    for (int row = 1; row < day.absences.rows(); ++row) {
        const QStringList& cells = day.absences.row(row);
        QStringList told = {cells[1], cells[3], cells[4], cells[5]};
        if (withNotes)
            told.append(cells[6]);
        rows.append(told.join(u' '));
    }
    rows.sort();
    return rows;
}

// The values of a person that are not zero: "出勤次数1 在岗时间8.0".
QString Sums(const AttendanceDay& day, const QString& number) {
    QStringList told;
    const int row = day.statistics.find(0, number);
    for (int column = 2; column < day.statistics.cols() - 1; ++column) {
        const QString cell = day.statistics.text(row, column);
        if (cell != u"0" && cell != u"0.0")
            told.append(day.statistics.headers()[column] + cell);
    }
    return told.join(u' ');
}

QStringList Rows(const TextTable& list, int from = 0) {
    QStringList rows;
    for (int row = 1; row < list.rows(); ++row)
        rows.append(list.row(row).mid(from).join(u'|'));
    rows.sort();
    return rows;
}

const QString kDayShift = u"1 早班 常规 08:00 18:00 30 40 1"_s;
const QString kNightShift = u"1 夜班 常规 22:00 06:00 30 40 1"_s;

// A staff whose month is random: shifts that may be anything, times near and far from them.
class RandomStaff {
public:
    explicit RandomStaff(quint32 seed) : random_(seed) {}

    AttendanceDay day(int people) {
        AttendanceDay made = Day({}, {});
        for (int person = 1; person <= people; ++person)
            addPerson(made, QString::number(person));
        return made;
    }

    void shuffle(TextTable& list) {
        for (int row = 1; row < list.rows(); ++row)
            list.moveRow(row, 1 + below(list.dataRows()));
    }

private:
    int below(int limit) { return int(random_.bounded(limit)); }

    void addPerson(AttendanceDay& day, const QString& number) {
        static const QStringList kShifts = {
            u"早班 常规 08:00 16:00 30 30 1"_s, u"中班 倒班 15:30 23:30 20 45 0.5"_s,
            u"夜班 倒班 23:00 07:00 30 60 1"_s, u"午班 时间 11:00 13:00 15 15 0.5"_s,
            u"全天 登记 09:00 21:00 60 60 2"_s, u"短班 倒班 12:00 12:30 30 30 1"_s};
        AddPerson(day, number, u"员"_s + number, u"部"_s + number);
        const int first = day.periods.rows();
        for (const QString& shift : kShifts) {
            if (below(3) == 0)
                AddPeriods(day, {number + u' ' + shift});
        }
        QList<ShiftPeriod> due;
        for (int row = first; row < day.periods.rows(); ++row) {
            due.append(PeriodOfRow(day.periods, row));
            due.last().weekdays = u"1111111"_s;
        }
        for (int punches = below(6); punches > 0; --punches) {
            const int minute = due.isEmpty() || below(3) == 0 ? below(1440) : nearDuty(due);
            PunchDecision decision = DecidePunch(minute, 1, due);
            if (below(8) == 0) {
                decision.state = u"加班"_s;
                decision.function.clear();
            } else if (below(12) == 0) {
                decision.shift = u"别班"_s;
            }
            const auto orNone = [](const QString& text) { return text.isEmpty() ? u"-"_s : text; };
            AddPunches(day, {QStringList({number,
                                          u"%1:%2"_s.arg(minute / 60, 2, 10, QChar(u'0'))
                                              .arg(minute % 60, 2, 10, QChar(u'0')),
                                          orNone(decision.function), decision.state,
                                          orNone(decision.shift), decision.mode})
                                 .join(u' ')});
        }
    }

    int nearDuty(const QList<ShiftPeriod>& due) {
        const ShiftPeriod& period = due[below(int(due.size()))];
        return ((below(2) ? period.start : period.end) + below(140) - 70 + 1440) % 1440;
    }

    QRandomGenerator random_;
};

// The absences once more, as one who reads the list by eye would find them: for days in which nobody has to be
// adopted or moved.
QStringList PlainAbsences(const AttendanceDay& day) {
    QStringList found;
    for (int p = 1; p < day.periods.rows(); ++p) {
        const QStringList& due = day.periods.row(p);
        QStringList seen;
        for (int row = 1; row < day.punches.rows(); ++row) {
            if (day.punches.text(row, u"标记").isEmpty() &&
                day.punches.text(row, u"编号") == due[0] &&
                day.punches.text(row, u"班次名称") == due[2])
                seen.append(day.punches.text(row, u"状态") == u"工作中"
                                ? u"中途"_s
                                : day.punches.text(row, u"考勤功能"));
        }
        const QString who = due[0] + u' ' + due[2];
        if (seen.contains(u"上班"_s) && seen.contains(u"下班"_s))
            continue;
        if (seen.contains(u"上班"_s))
            found.append(who + u" 早退 25"_s);
        else if (seen.contains(u"下班"_s))
            found.append(who + u" 迟到 35"_s);
        else
            found.append(who + u" 旷工 "_s + due[8]);
    }
    found.sort();
    return found;
}

} // namespace

class DayAnalysisTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void absencesByWhatIsMissing() {
        const auto row = [](const char* name, const QString& period, const QStringList& punches,
                            const QStringList& expected, AnalysisSettings settings = {}) {
            AttendanceDay day = Day({period}, punches);
            const PunchChanges changes = DeriveAbsences(day, settings, u"何雅琴"_s);
            Check(name, Absences(day), expected);
            Check(name, changes.moved.size(), 0);
        };
        const QString in = u"1 07:55 上班 正常 早班"_s;
        const QString out = u"1 18:05 下班 正常 早班"_s;
        const QString seen = u"1 12:00 上班 工作中 早班"_s;
        row("both", kDayShift, {out, in}, {});
        row("nothing", kDayShift, {}, {u"1 早班 旷工 1 没有任何考勤纪录,默认为旷工"_s});
        row("nothing, another kind by the clerk's choice", u"1 早班 登记 08:00 18:00 30 40 0.5"_s,
            {}, {u"1 早班 事假 0.5 没有任何考勤纪录,默认为事假"_s}, {.noPunch = u"事假"_s});
        row("no departure", kDayShift, {in, seen},
            {u"1 早班 早退 30 没有下班考勤纪录,默认为早退,使用限额分钟数"_s});
        row("no departure, no limit", kDayShift, {in},
            {u"1 早班 早退 30 没有下班考勤纪录,默认为早退,使用时段中可提前分钟数"_s},
            {.earlyLimit = 0});
        row("no arrival", kDayShift, {seen, out},
            {u"1 早班 迟到 20 没有上班考勤纪录,默认为迟到,使用限额分钟数"_s}, {.lateLimit = 20});
        row("no arrival, no limit", kDayShift, {out},
            {u"1 早班 迟到 40 没有上班考勤纪录,默认为迟到,使用时段中可延迟分钟数"_s},
            {.lateLimit = 0});
        row("only in between", kDayShift, {seen},
            {u"1 早班 旷工 1 不能判断上班下班,有中途考勤纪录，默认旷工,应该确定"_s});
        row("another shift's and another person's punches", kDayShift,
            {u"1 07:55 上班 正常 晚班"_s, u"2 07:55 上班 正常 早班"_s, out},
            {u"1 早班 迟到 30 没有上班考勤纪录,默认为迟到,使用限额分钟数"_s});
        row("nothing is due", u"2 早班 常规 08:00 18:00 30 40 1"_s,
            {in, u"2 08:00 上班 正常 早班"_s, u"2 18:00 下班 早退 早班"_s}, {});
    }

    // Which overtime punches are taken for an arrival or a departure, and which are left.
    void overtimeIsAdopted() {
        const auto row = [](const char* name, const QStringList& periods,
                            const QStringList& punches, const QStringList& expected,
                            const QStringList& absences = {}) {
            AttendanceDay day = Day(periods, punches);
            DeriveAbsences(day, {}, {});
            QStringList functions;
            for (int n = 1; n < day.punches.rows(); ++n)
                functions.append(day.punches.text(n, u"班次名称") +
                                 day.punches.text(n, u"考勤功能"));
            Check(name, functions, expected);
            Check(name, Absences(day, false), absences);
        };
        row("for what is missing", {kDayShift},
            {u"1 20:30 未知 正常 - 加班"_s, u"1 07:50 上班 正常 早班"_s},
            {u"早班下班"_s, u"早班上班"_s});
        row("by the state, without a function", {kDayShift},
            {u"1 06:10 - 加班 -"_s, u"1 20:30 - 加班 -"_s}, {u"早班上班"_s, u"早班下班"_s});
        row("the earliest and the latest", {kDayShift},
            {u"1 09:00 - 加班 -"_s, u"1 06:00 - 加班 -"_s, u"1 19:00 - 加班 -"_s},
            {u""_s, u"早班上班"_s, u"早班下班"_s});
        row("none is missing", {kDayShift},
            {u"1 20:30 - 加班 -"_s, u"1 07:50 上班 正常 早班"_s, u"1 18:00 下班 正常 早班"_s},
            {u""_s, u"早班上班"_s, u"早班下班"_s});
        row("no arrival behind the end, no departure ahead of the start", {kDayShift},
            {u"1 18:00 - 加班 -"_s, u"1 08:00 - 加班 -"_s}, {u"早班下班"_s, u"早班上班"_s});
        row("a departure at the start is none", {kDayShift},
            {u"1 07:50 上班 正常 早班"_s, u"1 08:00 - 加班 -"_s}, {u"早班上班"_s, u""_s},
            {u"1 早班 早退 30"_s});
        row("an arrival at the end is none", {kDayShift},
            {u"1 18:30 下班 正常 早班"_s, u"1 18:00 - 加班 -"_s}, {u"早班下班"_s, u""_s},
            {u"1 早班 迟到 30"_s});
        row("around a night period on either side", {kNightShift},
            {u"1 20:00 - 加班 -"_s, u"1 06:00 下班 正常 夜班"_s}, {u"夜班上班"_s, u"夜班下班"_s});
        row("one punch for one period",
            {u"1 早班 常规 08:00 12:00 30 30 1"_s, u"1 晚班 常规 14:00 18:00 30 30 1"_s},
            {u"1 07:00 - 加班 -"_s, u"1 12:00 下班 正常 早班"_s, u"1 18:00 下班 正常 晚班"_s},
            {u"早班上班"_s, u"早班下班"_s, u"晚班下班"_s}, {u"1 晚班 迟到 30"_s});
        row("a punch with a function is none", {kDayShift},
            {u"1 06:10 上班 加班 -"_s, u"1 18:00 下班 正常 早班"_s}, {u"上班"_s, u"早班下班"_s},
            {u"1 早班 迟到 30"_s});
        row("a punch marked is none", {kDayShift}, {}, {}, {u"1 早班 旷工 1"_s});
    }

    void rotatingShiftsAreAdjusted() {
        const QStringList due = {u"1 早班 倒班 08:00 16:00 30 30 1"_s,
                                 u"1 晚班 倒班 16:00 23:00 30 30 1"_s};
        const auto row = [&](const char* name, const QStringList& periods,
                             const QStringList& punches, const QString& expected) {
            AttendanceDay day = Day(periods, punches);
            const PunchChanges changes = DeriveAbsences(day, {}, {});
            QStringList told;
            for (int n = 1; n < day.punches.rows(); ++n)
                told.append(day.punches.text(n, u"班次名称") + day.punches.text(n, u"考勤功能") +
                            day.punches.text(n, u"状态") +
                            (changes.moved.contains(n) ? u"*"_s : QString()));
            Check(name, told.join(u' '), expected);
        };
        row("to the shift that the time is in", due,
            {u"1 07:58 上班 正常 夜班"_s, u"1 22:50 下班 早退 夜班"_s},
            u"早班上班正常* 晚班下班早退*"_s);
        row("a punch that fits its own shift stays", due,
            {u"1 16:10 下班 正常 早班"_s, u"1 16:10 上班 迟到 晚班"_s},
            u"早班下班正常 晚班上班迟到"_s);
        row("one that no longer fits its shift goes", due, {u"1 22:00 上班 正常 早班"_s},
            u"晚班上班正常*"_s);
        row("outside of all it stays", due, {u"1 03:00 上班 正常 夜班"_s}, u"夜班上班正常"_s);
        row("only in rotating shifts", {u"1 早班 常规 08:00 16:00 30 30 1"_s},
            {u"1 07:58 上班 正常 夜班"_s}, u"夜班上班正常"_s);
        row("what had no function gets that of the window, and what lies in none is at work",
            {due[0]},
            {u"1 07:40 未知 正常 - 加班"_s, u"1 08:10 未知 正常 - 加班"_s,
             u"1 12:00 未知 正常 - 加班"_s, u"1 16:30 未知 正常 - 加班"_s},
            u"早班上班正常 早班上班迟到* 早班上班工作中* 早班下班正常"_s);
    }

    void statisticsOfAPerson() {
        const auto row = [](const char* name, const QStringList& periods,
                            const QStringList& punches, const QStringList& absences,
                            const QString& expected, AnalysisSettings settings = {}) {
            AttendanceDay day = Day(periods, punches);
            for (const QString& absence : absences) {
                const QStringList part = absence.split(u' ');
                day.absences.addRow({{}, u"1"_s, u"员1"_s, part[0], part[1], part[2]});
            }
            Check(name, ComputeStatistics(day, settings), std::nullopt);
            Check(name, Sums(day, u"1"_s), expected);
        };
        const QString in = u"1 07:54 上班 正常 早班"_s;
        const QString late = u"1 08:45 上班 迟到 早班"_s;
        const QString out = u"1 18:06 下班 正常 早班"_s;
        const QStringList oneDay = {kDayShift};
        row("a whole day", oneDay, {in, out}, {}, u"出勤次数1 在岗时间10.2 工作时间10.0"_s);
        row("nothing", oneDay, {}, {}, {});
        row("late beyond the limit", oneDay, {late, out}, {},
            u"出勤次数1 在岗时间9.4 工作时间10.0 迟到次数1 迟到分钟30 脱岗统计0.7"_s);
        row("late at the limit", oneDay, {late, out}, {},
            u"出勤次数1 在岗时间9.4 工作时间10.0 迟到次数1 迟到分钟45 脱岗统计0.7"_s,
            {.lateLimit = 45});
        row("late, no limit", oneDay, {late, out}, {},
            u"出勤次数1 在岗时间9.4 工作时间10.0 迟到次数1 迟到分钟45 脱岗统计0.7"_s,
            {.lateLimit = 0});
        row("early", oneDay, {in, u"1 17:15 下班 早退 早班"_s}, {},
            u"出勤次数1 在岗时间9.4 工作时间10.0 早退次数1 早退分钟30 脱岗统计0.7"_s);
        row("early, no limit", oneDay, {in, u"1 17:15 下班 早退 早班"_s}, {},
            u"出勤次数1 在岗时间9.4 工作时间10.0 早退次数1 早退分钟45 脱岗统计0.7"_s,
            {.earlyLimit = 0});
        row("two arrivals count by the earliest, two departures by the latest", oneDay,
            {late, in, out, u"1 17:45 下班 早退 早班"_s}, {},
            u"出勤次数1 在岗时间10.2 工作时间10.0"_s);
        row("no departure: to the end", oneDay, {in}, {}, u"出勤次数1 在岗时间10.1 工作时间10.0"_s);
        row("no arrival: from the start", oneDay, {out}, {},
            u"出勤次数1 在岗时间10.1 工作时间10.0"_s);
        row("no arrival, but seen", oneDay, {u"1 10:00 上班 工作中 早班"_s, out}, {},
            u"出勤次数1 在岗时间8.1 工作时间10.0 脱岗统计1.9"_s);
        row("overtime stands for the arrival", oneDay, {u"1 06:00 未知 正常 - 加班"_s, out}, {},
            u"出勤次数1 在岗时间12.1 工作时间10.0"_s);
        row("a night", {kNightShift}, {u"1 06:00 下班 正常 夜班"_s, u"1 22:12 上班 迟到 夜班"_s},
            {}, u"出勤次数1 在岗时间7.8 工作时间8.0 迟到次数1 迟到分钟12 脱岗统计0.2"_s);
        row("two shifts", {kDayShift, u"1 晚班 时间 19:00 21:30 30 30 1"_s},
            {in, out, u"1 19:05 上班 迟到 晚班"_s, u"1 21:30 下班 正常 晚班"_s}, {},
            u"出勤次数2 在岗时间12.6 工作时间12.5 迟到次数1 迟到分钟5 脱岗统计0.1"_s);
        row("overtime without a period", {u"2 早班 常规 08:00 18:00 30 40 1"_s},
            {u"1 09:00 未知 正常 - 加班"_s, u"1 11:00 未知 正常 - 加班"_s, u"1 13:30 - 加班 -"_s},
            {}, u"加班次数1 加班小时4.5"_s);
        row("a single overtime punch", {u"2 早班 常规 08:00 18:00 30 40 1"_s},
            {u"1 09:00 未知 正常 - 加班"_s}, {}, {});
        row("absences of every kind", oneDay, {},
            {u"早班 迟到 45"_s, u"早班 早退 10"_s, u"早班 事假 0.5"_s, u"早班 事假 1"_s,
             u"早班 病假 1.5"_s, u"早班 旷工 2"_s, u"早班 出差 1"_s, u"晚班 换休 1"_s,
             u"早班 培训 1"_s, u"早班 特班 1"_s, u"早班 施工 1"_s, u"早班 其他 1"_s,
             u"早班 公务 1"_s, u"早班 加班 1"_s},
            u"出勤次数2 迟到次数1 迟到分钟30 早退次数1 早退分钟10 事假次数2 事假天数1.5 病假次数1 "
            "病假天数1.5 缺勤次数1 缺勤天数2.0"_s);
        row("lateness that is excused", oneDay, {late, out}, {u"早班 公务 1"_s},
            u"出勤次数1 在岗时间9.4 工作时间10.0 脱岗统计0.7"_s);
        row("an excuse for another shift", oneDay, {late, out}, {u"晚班 特许 1"_s},
            u"出勤次数1 在岗时间9.4 工作时间10.0 迟到次数1 迟到分钟30 脱岗统计0.7"_s);
    }

    void shiftsOfAPerson() {
        QStringList periods;
        QStringList punches;
        for (int n = 0; n < 6; ++n) {
            periods.append(u"1 班%1 常规 %2:00 %2:30 5 5 1"_s.arg(n).arg(10 + n));
            punches.append(u"1 %1:00 上班 正常 班%2"_s.arg(10 + n).arg(n));
        }
        AttendanceDay day = Day(periods, punches);
        const auto notice = ComputeStatistics(day, {});
        QCOMPARE(notice->title + u": "_s + notice->words,
                 u"改进班次设定: 班次种类太多？大于5种！"_s);
        QCOMPARE(
            day.shifts.row(1).join(u' '),
            u"1 员1 班0 1 0.5 0.5 班1 1 0.5 0.5 班2 1 0.5 0.5 班3 1 0.5 0.5 班4 1 0.5 0.5 部1"_s);
        day.periods.removeRow(6);
        QCOMPARE(ComputeStatistics(day, {}), std::nullopt);
        day.periods.clearRows();
        ComputeStatistics(day, {});
        QCOMPARE(day.shifts.row(1).join(QString()), u"1员1部1"_s);
    }

    // Whoever has punched counts, though his record has gone meanwhile; whoever is there keeps his row.
    void peopleOfADay() {
        AttendanceDay day =
            Day({kDayShift}, {u"7 08:00 上班 正常 早班"_s, u"- 08:00 上班 正常 早班"_s,
                              u"8 08:00 未知 正常 - 加班"_s, u"8 12:30 未知 正常 - 加班"_s});
        AddPerson(day, u"3"_s, u"员3"_s, u"部3"_s);
        ComputeStatistics(day, {});
        ComputeStatistics(day, {});
        QStringList people;
        for (int row = 1; row < day.statistics.rows(); ++row)
            people.append(day.statistics.row(row)[0] + day.statistics.row(row)[1] +
                          day.statistics.row(row).last());
        QCOMPARE(people, QStringList({u"1员1部1"_s, u"3员3部3"_s, u"7员7部7"_s, u"8员8部8"_s}));
        QCOMPARE(Sums(day, u"8"_s), u"加班次数1 加班小时4.5"_s);
    }

    void repeatedPunchesAreMarked() {
        AttendanceDay day =
            Day({}, {u"1 08:00 上班 正常 早班"_s, u"1 07:50 上班 正常 早班"_s,
                     u"1 12:00 上班 工作中 早班"_s, u"1 13:00 上班 工作中 早班"_s,
                     u"1 17:40 下班 早退 早班"_s, u"1 18:10 下班 正常 早班"_s,
                     u"2 08:00 上班 正常 早班"_s, u"1 19:00 上班 正常 晚班"_s,
                     u"3 09:00 - 加班 -"_s, u"3 08:00 - 加班 -"_s, u"4 09:00 未知 正常 - 加班"_s,
                     u"4 10:00 未知 正常 - 加班"_s, u"- 09:00 上班 正常 早班"_s});
        const auto marked = [&day] {
            QStringList rows;
            for (int row = 1; row < day.punches.rows(); ++row) {
                if (day.punches.text(row, u"标记") == u"删除")
                    rows.append(day.punches.text(row, u"编号") +
                                day.punches.text(row, u"实到时间"));
            }
            return rows.join(u' ');
        };
        QCOMPARE(MarkPunches(day).size(), 4);
        QCOMPARE(marked(), u"108:00:00 117:40:00 309:00:00 09:00:00"_s);
        QCOMPARE(MarkPunches(day).size(), 0); // once more: what was marked goes from the list
        QCOMPARE(day.punches.dataRows(), 9);
        QCOMPARE(day.punches.text(9, kRowNumber), u"9"_s);

        // What is marked counts for nothing.
        AttendanceDay absent = Day({kDayShift}, {u"1 08:00 上班 正常 早班"_s});
        absent.punches.setText(1, u"标记", u"删除"_s);
        DeriveAbsences(absent, {}, {});
        ComputeStatistics(absent, {});
        QCOMPARE(Absences(absent, false), QStringList{u"1 早班 旷工 1"_s});
        QCOMPARE(Sums(absent, u"1"_s), u"缺勤次数1 缺勤天数1.0"_s);
    }

    // A month of random punches, worked off once, once more, and in any other order of rows.
    void aMonthInAnyOrder() {
        RandomStaff staff(20261123);
        int moved = 0;
        int adopted = 0;
        for (int n = 0; n < 30; ++n) {
            AttendanceDay day = staff.day(40);
            AttendanceDay shuffled = day;
            for (TextTable* list :
                 {&shuffled.periods, &shuffled.punches, &shuffled.statistics, &shuffled.shifts})
                staff.shuffle(*list);
            for (AttendanceDay* each : {&day, &shuffled}) {
                MarkPunches(*each);
                MarkPunches(*each);
                const PunchChanges changes = DeriveAbsences(*each, {}, {});
                moved += int(changes.moved.size());
                adopted += int(changes.adopted.size());
                DeriveAbsences(*each, {}, {}); // as the user is told to where shifts were adjusted
                ComputeStatistics(*each, {});
            }
            const QStringList absences = Absences(day);
            QCOMPARE(Absences(shuffled), absences);
            QCOMPARE(Rows(shuffled.statistics), Rows(day.statistics));
            QCOMPARE(Rows(shuffled.shifts), Rows(day.shifts));
            const QStringList sums = Rows(day.statistics);
            const PunchChanges again = DeriveAbsences(day, {}, {});
            QVERIFY(again.moved.isEmpty() && again.adopted.isEmpty());
            ComputeStatistics(day, {});
            QCOMPARE(Absences(day), absences);
            QCOMPARE(Rows(day.statistics), sums);

            // By now everybody has what he was adopted and moved to: a plain look finds the same.
            DeriveAbsences(day, {.lateLimit = 35, .earlyLimit = 25}, {});
            QCOMPARE(Absences(day, false), PlainAbsences(day));
        }
        QVERIFY(moved > 20 && adopted > 100);
    }

    void minutes() {
        Clock::Freeze(QDateTime(QDate(2026, 3, 5), QTime(10, 7)));
        QCOMPARE(CompuMin(u"08:45:59"), 525);
        QCOMPARE(CompuMin(u"00:00:00"), 0);
        QCOMPARE(CompuMin(u"08:45"), 607);
        QCOMPARE(CompuMin({}), 607);
        Clock::Resume();
    }
};

HOTEL_TEST(DayAnalysisTest)
#include "test_day_analysis.moc"
