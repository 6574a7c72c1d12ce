#include "app/demo/punches.h"

#include <QRandomGenerator>

#include <algorithm>
#include <numeric>

#include "app/demo/demo_guests.h"
#include "app/demo/expect.h"
#include "app/demo/users.h"
#include "personnel/attendance/day_absences.h"
#include "personnel/attendance/day_check.h"
#include "personnel/attendance/day_load.h"
#include "personnel/attendance/day_statistics.h"
#include "personnel/attendance/punch.h"
#include "personnel/attendance/staff_walk.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "session/session.h"
#include "shell/login.h"

namespace hotel {

namespace {

struct Worker {
    QString number;
    QString department;
    QList<ShiftPeriod> periods;
};

struct DemoPunch {
    QDateTime at;
    QString number;
};

// What somebody does with a shift, by so many of a thousand.
enum class Habit { Punctual, Late, Early, StaysOn, ForgetsIn, ForgetsOut, Twice, StandsIn, Away };
struct HabitShare {
    Habit habit;
    int ofThousand;
};
constexpr HabitShare kHabits[] = {
    {Habit::Late, 45},      {Habit::Early, 20}, {Habit::StaysOn, 35}, {Habit::ForgetsIn, 6},
    {Habit::ForgetsOut, 9}, {Habit::Twice, 12}, {Habit::StandsIn, 8}, {Habit::Away, 22}};
constexpr int kWhole = 1000;
constexpr int kOnADayOff = 10; // of a thousand
const QTime kMorningOfAnalysis(9, 40);
const QTime kBeforeAll(0, 5);
constexpr int kToLogIn = 12; // seconds

class Chance {
public:
    Chance(QDate day, const QString& number)
        : random_(std::accumulate(
              number.begin(), number.end(), quint32(day.toJulianDay()),
              [](quint32 seed, QChar c) { return (seed ^ c.unicode()) * 2654435761U; })) {}

    int below(int limit) { return int(random_.bounded(limit)); }
    // Minutes of a shift, with seconds.
    int between(int first, int last) { return first * 60 + below((last - first) * 60); }
    Habit habit() {
        int drawn = below(kWhole);
        for (const auto& [habit, share] : kHabits) {
            if (drawn < share)
                return habit;
            drawn -= share;
        }
        return Habit::Punctual;
    }

private:
    QRandomGenerator random_;
};

QList<Worker> Staff() {
    QList<Worker> staff;
    EachDepartment([&](const QString& department, QStringView employees) {
        EachEmployee(employees, [&](const QString& number, QStringView record) {
            staff.append(
                {number, department, ReadShiftPeriods(GetTag(record, employee::kShiftPeriods))});
        });
    });
    return staff;
}

// The moments at which somebody punches for a shift of a day.
QList<QDateTime> MomentsOf(const ShiftPeriod& period, QDate day, Chance& chance) {
    const QDateTime start(day, QTime(0, 0).addSecs(period.start * 60));
    const QDateTime end(period.isNight() ? day.addDays(1) : day,
                        QTime(0, 0).addSecs(period.end * 60));
    QDateTime came = start.addSecs(-chance.between(2, 25));
    QDateTime went = end.addSecs(chance.between(0, 20));
    constexpr int kHalfADay = 4 * 60 * 60;
    switch (chance.habit()) {
    case Habit::Late:
        came = start.addSecs(chance.between(1, 29));
        break;
    case Habit::Early:
        went = end.addSecs(-chance.between(2, 28));
        break;
    case Habit::StaysOn:
        went = end.addSecs(chance.between(50, 150));
        break;
    case Habit::ForgetsIn:
        return {went};
    case Habit::ForgetsOut:
        return {came};
    case Habit::Twice:
        return {came, came.addSecs(chance.between(0, 2) + 4), went};
    case Habit::StandsIn:
        return {came.addSecs(kHalfADay), went.addSecs(kHalfADay)};
    case Habit::Away:
        return {};
    case Habit::Punctual:
        break;
    }
    return {came, went};
}

QList<DemoPunch> PunchesOf(const QList<Worker>& staff, QDate first, const QDateTime& opening) {
    QList<DemoPunch> punches;
    for (QDate day = first; day <= opening.date(); day = day.addDays(1)) {
        const int weekday = RuleWeekday(day);
        for (const Worker& worker : staff) {
            Chance chance(day, worker.number);
            bool due = false;
            QList<QDateTime> moments;
            for (const ShiftPeriod& period : worker.periods) {
                if (HoldsOn(period.weekdays, weekday)) {
                    due = true;
                    moments += MomentsOf(period, day, chance);
                }
            }
            if (!due && chance.below(kWhole) < kOnADayOff) {
                const QDateTime came(day, QTime(9, 0).addSecs(chance.between(-20, 20)));
                moments = {came, came.addSecs(chance.between(150, 300))};
            }
            for (const QDateTime& moment : moments) {
                if (moment < opening)
                    punches.append({moment, worker.number});
            }
        }
    }
    std::ranges::stable_sort(punches, {}, &DemoPunch::at);
    return punches;
}

class PunchingDesk {
public:
    explicit PunchingDesk(std::function<void(const QDateTime&)> setServerClock)
        : setServerClock_(std::move(setServerClock)) {}

    QList<Worker> staff(QDate first);
    void punch(const DemoPunch& punch);
    // The personnel department, on the morning after.
    void analyse(QDate day);
    void moveTo(const QDateTime& moment);

private:
    void logIn(const DemoUser& user, const QDateTime& moment);
    void giveReasons(AttendanceDay& day);

    std::function<void(const QDateTime&)> setServerClock_;
    StaffDirectory directory_;
    PunchFile file_;
    QString user_;
};

void PunchingDesk::moveTo(const QDateTime& moment) {
    setServerClock_(moment);
    Clock::Freeze(moment);
}

void PunchingDesk::logIn(const DemoUser& user, const QDateTime& moment) {
    if (user_ == user.login)
        return moveTo(moment);
    moveTo(moment.addSecs(-kToLogIn));
    user_ = user.login.toString();
    Expect(CheckLogin(user_, user.password.toString()) == LoginResult::LoggedIn,
           user_ + u" 不能登录"_s);
    BeginSession(user_);
    moveTo(moment);
}

// Read by who may: ahead of all that happens.
QList<Worker> PunchingDesk::staff(QDate first) {
    logIn(kPersonnel, QDateTime(first, kBeforeAll));
    return Staff();
}

void PunchingDesk::punch(const DemoPunch& punch) {
    logIn(kPunchingDesk, punch.at);
    PreparedPunch prepared = PreparePunch(directory_, punch.number);
    prepared.operatorName = CurrentSession().userName;
    prepared.place = CurrentSession().userName;
    ExpectNone(CheckPunch(prepared));
    Expect(file_.save(prepared).has_value(), punch.number + u" 没有登记"_s);
}

// Some of those who were away had told: ill, on leave, or resting for a day they have worked.
void PunchingDesk::giveReasons(AttendanceDay& day) {
    struct Reason {
        QStringView category;
        QStringView note;
    };
    static constexpr Reason kReasons[] = {{u"病假", u"交来病假条"},
                                          {u"病假", u"电话请假，已补条"},
                                          {u"事假", u"部门经理批准"},
                                          {u"换休", u"休节日加班"}};
    for (int row = day.absences.rows() - 1; row >= 1; --row) {
        const QStringList absence = day.absences.row(row);
        Chance chance(day.date, absence[1] + absence[3]);
        if (absence[4] != u"旷工" || chance.below(kWhole) < 150)
            continue;
        const Reason& reason = kReasons[chance.below(int(std::size(kReasons)))];
        ExpectNone(DeleteAbsence(day, row));
        ExpectNone(AddAbsence(day, {absence[1], absence[2], absence[3], reason.category.toString(),
                                    absence[5], reason.note.toString()}));
    }
}

void PunchingDesk::analyse(QDate date) {
    logIn(kPersonnel, QDateTime(date.addDays(1), kMorningOfAnalysis));
    AttendanceDay day;
    day.date = date;
    Expect(LoadKqsdQd(day) && LoadPunches(day), date.toString() + u" 考勤读取失败"_s);
    ExpectNone(CheckPunches(day).notice);
    const AnalysisSettings settings;
    AbsenceOutcome absences = MakeAbsences(day, settings);
    if (!absences.changes.moved.isEmpty())
        absences = MakeAbsences(day, settings);
    for (const Notice& notice : absences.notices)
        ExpectNone(notice);
    giveReasons(day);
    ExpectNone(MakeStatistics(day, settings));
    ExpectNone(SaveStatistics(day));
}

} // namespace

void BringInPunches(const QDateTime& opening,
                    const std::function<void(const QDateTime&)>& setServerClock) {
    PunchingDesk desk(setServerClock);
    const QDate first = opening.date().addDays(1 - kDaysOfPunches);
    const QList<DemoPunch> punches = PunchesOf(desk.staff(first), first, opening);
    QDate analysed = first; // the first day that is not analysed yet
    const auto analyseUntil = [&](const QDateTime& moment) {
        while (QDateTime(analysed.addDays(1), kMorningOfAnalysis) < moment) {
            desk.analyse(analysed);
            analysed = analysed.addDays(1);
        }
    };
    for (const DemoPunch& punch : punches) {
        analyseUntil(punch.at);
        desk.punch(punch);
    }
    if (!punches.isEmpty())
        analyseUntil(opening);
    desk.moveTo(opening);
}

} // namespace hotel
