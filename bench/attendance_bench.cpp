// Attendance by the side of the bare commands that it is made of, against a server in the same program.

#include "bench/ratio.h"
#include "bench/screenless.h"

#include "house/common/paths.h"
#include "house/rooms/working_days.h"
#include "link/records.h"
#include "link/serv_api.h"
#include "personnel/attendance/day_load.h"
#include "personnel/attendance/day_statistics.h"
#include "personnel/attendance/list_records.h"
#include "personnel/attendance/period_statistics.h"
#include "personnel/attendance/punch.h"
#include "personnel/staff/employee_records.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "session/operation_log.h"
#include "tests/test_hotel.h"

using namespace hotel;
using namespace hotel::bench;

namespace {

const QDate kDay(2026, 3, 5);
constexpr int kDepartments = 10;

QString Number(int i) {
    return QString::number(10000 + i);
}

QString Department(int i) {
    return u"部门%1"_s.arg(i % kDepartments);
}

QString EmployeeText(int i) {
    const QString other =
        u"<通讯地址>%1</通讯地址><联系电话>%1</联系电话>"_s.arg(QString(60, u'x'));
    return u"<%1><识别卡号>C%1</识别卡号><编号>%1</编号><姓名>员%1</姓名><职务>服务员</"
           u"职务>%2<考勤时段>"
           "<00><班次名称>早班</班次名称><缺勤折算>1</缺勤折算><开始时间>08:00:00</"
           "开始时间><可提前>30</可提前>"
           "<结束时间>18:00:00</结束时间><可延迟>30</可延迟><考勤方式>常规</"
           "考勤方式><星期设定>1111111</星期设定>"
           "</00></考勤时段></%1>\r\n"_s.arg(Number(i), other);
}

void Employ(int people) {
    QStringList departments(kDepartments);
    for (int i = 0; i < people; ++i)
        departments[i % kDepartments] += EmployeeText(i);
    for (int i = 0; i < kDepartments; ++i)
        SaveProject(EmployeeFile(), Department(i), departments[i]);
}

// One punch a call, each by the next person and a second later.
class Punching {
public:
    Punching(TestHotel& hotel, int people) : hotel_(hotel), people_(people) {}

    int act() {
        tick();
        PreparedPunch punch = PreparePunch(directory_, Number(next_));
        return CheckPunch(punch) || !file_.save(punch);
    }

    int bare() {
        tick();
        QString text = DbServerTime() + DbServerDate();
        DbFieldFind(WorkingDayFile(), working_day::kProject,
                    u"<记录查询条件><00><关系>或者</关系><对象>日期</对象><条件>等于</条件>"
                    "<目标>2026-03-05</目标></00></记录查询条件>",
                    1);
        text += DbReadRecord(EmployeeFile(), Department(next_), Number(next_));
        const QString key = PunchKey(moment_);
        text += DbReadRecord(u"bare.qvr", punch_record::kProject, key);
        return DbModifyRecord(u"bare.qvr", punch_record::kProject, key, record_ + text.left(10));
    }

private:
    void tick() {
        next_ = (next_ + 1) % people_;
        moment_ = moment_.addSecs(1);
        if (moment_.date() != kDay)
            moment_ = QDateTime(kDay, QTime(0, 0));
        hotel_.setServerClock(moment_);
    }

    TestHotel& hotel_;
    int people_;
    int next_ = 0;
    QDateTime moment_{kDay, QTime(7, 0)};
    StaffDirectory directory_;
    PunchFile file_;
    QString record_ = QString(300, u'x');
};

// A hotel with so many people, whom the server knows: whoever comes for the first time since it began costs it a look at
// its disk, with as many people as with few.
class PunchingHotel {
public:
    explicit PunchingHotel(int people) : punching_(hotel_, people) {
        Employ(people);
        for (int n = 0; n < people; ++n)
            act();
    }

    int act() {
        hotel_.desk().use();
        return punching_.act();
    }

private:
    TestHotel hotel_;
    Punching punching_;
};

void APunch() {
    TestHotel hotel;
    Employ(500);
    Punching act(hotel, 500);
    Punching bare(hotel, 500);
    act.act();
    bare.bare();
    PrintRatio("punch", MedianRatio<15>([&] { return act.act(); }, [&] { return bare.bare(); }),
               1.3);
    PunchingHotel many(500);
    PunchingHotel few(20);
    PrintRatio("punch_with_500_employees_by_20",
               MedianRatio<25>([&] { return many.act(); }, [&] { return few.act(); }), 1.2);
}

// Everybody has come and gone, one in ten was late, one in twenty away.
QString PunchesOfADay(int people) {
    QString text;
    const auto put = [&](int i, const QString& time, const QString& function,
                         const QString& state) {
        text +=
            u"<260305%1><编号>%2</编号><姓名>员%2</姓名><所在部门>%3</所在部门><职务>服务员</职务>"
            "<实到时间>%4</实到时间><状态>%5</状态><班次名称>早班</班次名称><考勤方式>常规</"
            "考勤方式>"
            "<考勤功能>%6</考勤功能><模式>键盘操作</模式><日期>2026-03-05</日期><操作员>考勤台</"
            "操作员>"
            "<地点>员工通道</地点></260305%1>\r\n"_s.arg(QString(time).remove(u':'), Number(i),
                                                         Department(i), time, state, function);
    };
    for (int i = 0; i < people; ++i) {
        if (i % 20 == 0)
            continue;
        put(i, QTime(i % 10 ? 7 : 8, 30).addSecs(i * 2).toString(), u"上班"_s,
            i % 10 ? u"正常"_s : u"迟到"_s);
        put(i, QTime(18, 0).addSecs(i * 2).toString(), u"下班"_s, u"正常"_s);
    }
    return text;
}

// The day's lists are loaded, absences made, statistics computed and both stored; by the same reads and
// writes with texts that are at hand.
double AnalysedDay(int people, bool told) {
    TestHotel hotel;
    Employ(people);
    const QString file = AttendanceFile(kDay);
    SaveProject(file, punch_record::kProject, PunchesOfADay(people));
    const auto act = [] { return WorkOffDay(kDay, {}).size(); };
    act();
    const QString absences = ReadProject(file, absence_record::kProject);
    const QString results = ReadProject(DayResultFile(kDay), day_result::kPeopleProject);
    const QString shifts = ReadProject(DayResultFile(kDay), day_result::kShiftProject);
    const auto bare = [&] {
        qsizetype read = CheckGzr(u"2026-03-05").size();
        for (const QString& department : StaffDepartments())
            read += ReadDepartment(department).value.size();
        read += ReadProject(file, punch_record::kProject).size();
        EnsureProject(file, absence_record::kProject);
        read += SaveProject(u"bare.qvr", absence_record::kProject, absences);
        for (int entry = 0; entry < 4; ++entry)
            SaveLogRec(u"当天统计数据"_s, {});
        EnsureProject(u"bare.qvr", day_result::kPeopleProject);
        EnsureProject(u"bare.qvr", day_result::kShiftProject);
        read += SaveProject(u"bare.qvr", day_result::kPeopleProject, results);
        return read + SaveProject(u"bare.qvr", day_result::kShiftProject, shifts);
    };
    if (told)
        PrintRatio("day_of_300_employees", MedianRatio<9>(act, bare), 1.5);
    return Nanoseconds(act, Time::Processor) / people;
}

double SummedDays(int days, int people, bool told) {
    TestHotel hotel;
    Employ(people);
    SaveProject(AttendanceFile(kDay), punch_record::kProject, PunchesOfADay(people));
    WorkOffDay(kDay, {});
    const QString results = ReadProject(DayResultFile(kDay), day_result::kPeopleProject);
    const QString shifts = ReadProject(DayResultFile(kDay), day_result::kShiftProject);
    const QDate first = kDay.addDays(1 - days);
    for (int day = 0; day < days; ++day) {
        const QString file = DayResultFile(first.addDays(day));
        SaveProject(file, day_result::kPeopleProject, results);
        SaveProject(file, day_result::kShiftProject, shifts);
    }
    const auto act = [&] { return SumPeriod(first, kDay, u"所有部门"_s).persons; };
    const auto bare = [&] {
        qsizetype read = 0;
        for (int day = 0; day < days; ++day) {
            const QString file = DayResultFile(first.addDays(day));
            read += ReadProject(file, day_result::kPeopleProject).size();
            read += ReadProject(file, day_result::kShiftProject).size();
        }
        return read;
    };
    if (told)
        PrintRatio("year_of_300_employees", MedianRatio<5>(act, bare), 1.5);
    return Nanoseconds(act, Time::Processor) / days / people;
}

} // namespace

int main(int argc, char** argv) {
    ScreenlessApplication application(argc, argv);
    APunch();
    const double few = AnalysedDay(60, false);
    PrintRatio("analysed_person_of_300_by_60", AnalysedDay(300, true) / few, 1.3);
    const double year = SummedDays(365, 300, true);
    PrintRatio("summed_day_of_365_by_30", year / SummedDays(30, 300, false), 1.3);
    PrintRatio("summed_person_of_300_by_60", year / SummedDays(365, 60, false), 1.3);
}
