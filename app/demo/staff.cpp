#include "app/demo/staff.h"

#include <QList>

#include <span>

#include "app/demo/demo_guests.h"
#include "app/demo/expect.h"
#include "personnel/staff/departments.h"
#include "personnel/staff/employee_card.h"
#include "personnel/staff/employee_change.h"
#include "personnel/staff/employee_lists.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "shell/login.h"

namespace hotel {

namespace {

using namespace employee;

struct DemoShift {
    QStringView name;
    QStringView start;
    QStringView end;
    QStringView mode;
};
constexpr DemoShift kOfficeShifts[] = {{u"行政班", u"08:30:00", u"17:30:00", u"常规"}};
constexpr DemoShift kEarlyShifts[] = {{u"早班", u"07:00:00", u"15:30:00", u"常规"}};
constexpr DemoShift kLateShifts[] = {{u"中班", u"15:00:00", u"23:30:00", u"常规"}};
constexpr DemoShift kNightShifts[] = {{u"夜班", u"23:00:00", u"07:30:00", u"常规"}};
// Two early ones, one late, two nights, two days off.
constexpr DemoShift kTurns[] = {{u"早班", u"07:00:00", u"15:30:00", u"倒班"},
                                {u"中班", u"15:00:00", u"23:30:00", u"倒班"},
                                {u"夜班", u"23:00:00", u"07:30:00", u"倒班"}};

using Shifts = std::span<const DemoShift>;
constexpr Shifts kOffice = kOfficeShifts;
constexpr Shifts kEarly = kEarlyShifts;
constexpr Shifts kLate = kLateShifts;
constexpr Shifts kNight = kNightShifts;
constexpr Shifts kRotating = kTurns;

struct DemoEmployee {
    QStringView name;
    QStringView sex;
    QStringView born; // yyyyMMdd
    QStringView department;
    QStringView post;
    Shifts shifts;
    QStringView week; // Monday first: the how manieth of his shifts, 0: off
    QStringView education;
};
constexpr DemoEmployee kEmployees[] = {
    // --- 总经理办公室 ---
    {u"刘建华", u"男", u"19690412", u"总经理办公室", u"总经理", kOffice, u"1111100", u"本科"},
    {u"谢雨桐", u"女", u"19880923", u"总经理办公室", u"文员", kOffice, u"1111100", u"大专"},
    {u"胡振邦", u"男", u"19750618", u"总经理办公室", u"总经理助理", kOffice, u"1111100", u"硕士"},
    // --- 前厅部 ---
    {u"林晓燕", u"女", u"19920314", u"前厅部", u"领班", kRotating, u"1123300", u"大专"},
    {u"陈志远", u"男", u"19861107", u"前厅部", u"主管", kRotating, u"0112330", u"本科"},
    {u"孙小梅", u"女", u"19900225", u"前厅部", u"总机话务员", kRotating, u"0011233", u"大专"},
    {u"吴小军", u"男", u"20040716", u"前厅部", u"实习生", kEarly, u"1111001", u"大专"},
    {u"曾丽萍", u"女", u"19950809", u"前厅部", u"前台接待员", kEarly, u"1111100", u"大专"},
    {u"彭嘉怡", u"女", u"19980130", u"前厅部", u"前台接待员", kLate, u"0111110", u"大专"},
    {u"蒋文昊", u"男", u"19961212", u"前厅部", u"前台接待员", kNight, u"0011111", u"本科"},
    {u"唐诗韵", u"女", u"19990518", u"前厅部", u"前台接待员", kRotating, u"3001123", u"本科"},
    {u"贺春兰", u"女", u"19830404", u"前厅部", u"总机话务员", kEarly, u"1100111", u"高中"},
    {u"邹美玉", u"女", u"19870821", u"前厅部", u"总机话务员", kLate, u"1110011", u"高中"},
    {u"龙志强", u"男", u"19930617", u"前厅部", u"行李员", kEarly, u"1111001", u"高中"},
    {u"万俊杰", u"男", u"19971003", u"前厅部", u"行李员", kLate, u"1111100", u"高中"},
    {u"段小波", u"男", u"19940228", u"前厅部", u"门童", kEarly, u"0111110", u"高中"},
    {u"侯静怡", u"女", u"19910713", u"前厅部", u"商务中心文员", kOffice, u"1111100", u"本科"},
    {u"雷鸣远", u"男", u"19791120", u"前厅部", u"大堂经理", kLate, u"1001111", u"本科"},
    // --- 客房部 ---
    {u"周桂兰", u"女", u"19760903", u"客房部", u"部门经理", kOffice, u"1111100", u"大专"},
    {u"邓秀英", u"女", u"19810215", u"客房部", u"领班", kEarly, u"1110011", u"高中"},
    {u"向春花", u"女", u"19780326", u"客房部", u"楼层服务员", kEarly, u"1111001", u"初中"},
    {u"石玉珍", u"女", u"19820711", u"客房部", u"楼层服务员", kEarly, u"1111100", u"初中"},
    {u"田秋菊", u"女", u"19840930", u"客房部", u"楼层服务员", kEarly, u"0111110", u"初中"},
    {u"谭小翠", u"女", u"19890512", u"客房部", u"楼层服务员", kEarly, u"0011111", u"高中"},
    {u"覃秀芳", u"女", u"19771118", u"客房部", u"楼层服务员", kEarly, u"1001111", u"初中"},
    {u"瞿丽华", u"女", u"19850602", u"客房部", u"楼层服务员", kLate, u"1100111", u"高中"},
    {u"毛春梅", u"女", u"19800808", u"客房部", u"楼层服务员", kLate, u"1110011", u"初中"},
    {u"文桂香", u"女", u"19790127", u"客房部", u"楼层服务员", kLate, u"1111001", u"初中"},
    {u"欧阳慧", u"女", u"19950316", u"客房部", u"楼层服务员", kLate, u"1111100", u"中专"},
    {u"郝玉兰", u"女", u"19861024", u"客房部", u"楼层服务员", kNight, u"0111110", u"高中"},
    {u"熊冬梅", u"女", u"19831209", u"客房部", u"客房中心文员", kEarly, u"0011111", u"中专"},
    {u"易小芬", u"女", u"19920419", u"客房部", u"客房中心文员", kLate, u"1001111", u"中专"},
    {u"成国富", u"男", u"19720505", u"客房部", u"公共区域保洁员", kEarly, u"1100111", u"初中"},
    {u"左金莲", u"女", u"19740817", u"客房部", u"公共区域保洁员", kLate, u"1110011", u"初中"},
    {u"简玉秀", u"女", u"19760228", u"客房部", u"布草房管理员", kOffice, u"1111100", u"高中"},
    {u"宁长根", u"男", u"19710614", u"客房部", u"洗衣工", kEarly, u"1111100", u"初中"},
    // --- 餐饮部 ---
    {u"徐海波", u"男", u"19800121", u"餐饮部", u"部门经理", kOffice, u"1111100", u"本科"},
    {u"汤国荣", u"男", u"19730928", u"餐饮部", u"厨师长", kOffice, u"1111100", u"中专"},
    {u"罗志刚", u"男", u"19821116", u"餐饮部", u"厨师", kEarly, u"1001111", u"中专"},
    {u"廖建军", u"男", u"19850307", u"餐饮部", u"厨师", kLate, u"1100111", u"中专"},
    {u"袁大海", u"男", u"19880625", u"餐饮部", u"厨师", kLate, u"1110011", u"中专"},
    {u"戴红梅", u"女", u"19810413", u"餐饮部", u"面点师", kEarly, u"1111001", u"中专"},
    {u"梁思琪", u"女", u"19970824", u"餐饮部", u"餐厅领位员", kLate, u"1111100", u"大专"},
    {u"范丽丽", u"女", u"19960105", u"餐饮部", u"餐厅服务员", kEarly, u"0111110", u"高中"},
    {u"方晓玲", u"女", u"19980911", u"餐饮部", u"餐厅服务员", kEarly, u"0011111", u"高中"},
    {u"姚佳慧", u"女", u"19991030", u"餐饮部", u"餐厅服务员", kLate, u"1001111", u"高中"},
    {u"卢小曼", u"女", u"20001219", u"餐饮部", u"餐厅服务员", kLate, u"1100111", u"高中"},
    {u"钟伟明", u"男", u"19950707", u"餐饮部", u"传菜员", kLate, u"1110011", u"高中"},
    {u"任小龙", u"男", u"20010322", u"餐饮部", u"传菜员", kEarly, u"1111001", u"高中"},
    {u"金海燕", u"女", u"19940602", u"餐饮部", u"吧台服务员", kLate, u"1111100", u"大专"},
    {u"丁桂花", u"女", u"19700815", u"餐饮部", u"洗碗工", kEarly, u"0111110", u"初中"},
    {u"夏满秀", u"女", u"19720109", u"餐饮部", u"洗碗工", kLate, u"0011111", u"初中"},
    // --- 康乐部 ---
    {u"薛志鹏", u"男", u"19870518", u"康乐部", u"主管", kLate, u"1001111", u"大专"},
    {u"潘晓雯", u"女", u"19930926", u"康乐部", u"康乐服务员", kLate, u"1100111", u"大专"},
    {u"董文斌", u"男", u"19961113", u"康乐部", u"康乐服务员", kEarly, u"1110011", u"高中"},
    // --- 销售部 ---
    {u"黄美玲", u"女", u"19840706", u"销售部", u"部门经理", kOffice, u"1111100", u"本科"},
    {u"蔡俊豪", u"男", u"19900314", u"销售部", u"销售代表", kOffice, u"1111100", u"本科"},
    {u"苏婉婷", u"女", u"19950428", u"销售部", u"销售代表", kOffice, u"1111100", u"本科"},
    {u"程一鸣", u"男", u"19921201", u"销售部", u"预订员", kEarly, u"0011111", u"大专"},
    // --- 财务部 ---
    {u"魏国栋", u"男", u"19740219", u"财务部", u"总监", kOffice, u"1111100", u"本科"},
    {u"王丽娟", u"女", u"19870111", u"财务部", u"收银员", kRotating, u"3300112", u"大专"},
    {u"赵国强", u"男", u"19780802", u"财务部", u"夜审员", kNight, u"1110011", u"大专"},
    {u"白雪梅", u"女", u"19820517", u"财务部", u"会计", kOffice, u"1111100", u"本科"},
    {u"江小雨", u"女", u"19940923", u"财务部", u"出纳", kOffice, u"1111100", u"大专"},
    {u"阎晓敏", u"女", u"19910630", u"财务部", u"收银员", kRotating, u"2330011", u"大专"},
    {u"崔桂林", u"男", u"19760412", u"财务部", u"仓库保管员", kOffice, u"1111100", u"高中"},
    // --- 人力资源部 ---
    {u"何雅琴", u"女", u"19830520", u"人力资源部", u"部门经理", kOffice, u"1111100", u"本科"},
    {u"陆小曼", u"女", u"19930208", u"人力资源部", u"人事专员", kOffice, u"1111100", u"本科"},
    // --- 采购部 ---
    {u"秦大伟", u"男", u"19810916", u"采购部", u"采购员", kOffice, u"1111100", u"大专"},
    {u"史慧敏", u"女", u"19891104", u"采购部", u"采购员", kOffice, u"1111100", u"大专"},
    // --- 工程部 ---
    {u"马大勇", u"男", u"19750723", u"工程部", u"部门经理", kOffice, u"1111100", u"大专"},
    {u"韦志坚", u"男", u"19801015", u"工程部", u"水电工", kEarly, u"0111110", u"中专"},
    {u"黎建国", u"男", u"19770331", u"工程部", u"水电工", kLate, u"0011111", u"中专"},
    {u"温振华", u"男", u"19840827", u"工程部", u"空调工", kEarly, u"1001111", u"中专"},
    {u"柳文涛", u"男", u"19881202", u"工程部", u"弱电工", kLate, u"1100111", u"大专"},
    {u"康德水", u"男", u"19690906", u"工程部", u"木工", kEarly, u"1110011", u"初中"},
    // --- 保安部 ---
    {u"高振东", u"男", u"19780414", u"保安部", u"部门经理", kOffice, u"1111100", u"大专"},
    {u"冯铁军", u"男", u"19860118", u"保安部", u"保安员", kEarly, u"1111100", u"高中"},
    {u"牛大力", u"男", u"19910809", u"保安部", u"保安员", kEarly, u"0111110", u"高中"},
    {u"庞志勇", u"男", u"19930527", u"保安部", u"保安员", kLate, u"0011111", u"高中"},
    {u"严明亮", u"男", u"19900212", u"保安部", u"保安员", kNight, u"1001111", u"高中"},
    {u"顾长河", u"男", u"19851123", u"保安部", u"保安员", kNight, u"1100111", u"高中"},
    {u"孔祥瑞", u"男", u"19720705", u"保安部", u"消防监控员", kRotating, u"1233001", u"中专"},
    {u"毕春生", u"男", u"19790620", u"保安部", u"车辆管理员", kEarly, u"1111001", u"高中"},
    // --- 信息中心 ---
    {u"郑文斌", u"男", u"19860328", u"信息中心", u"主管", kOffice, u"1111100", u"本科"},
    {u"齐一凡", u"男", u"19951016", u"信息中心", u"网络管理员", kOffice, u"1111100", u"本科"},
};

// Second jobs, and what has changed since somebody was hired.
struct DemoSecondJob {
    QStringView name;
    QStringView department;
    QStringView post;
};
constexpr DemoSecondJob kSecondJobs[] = {{u"齐一凡", u"工程部", u"弱电工"},
                                         {u"雷鸣远", u"保安部", u"夜班经理"},
                                         {u"谢雨桐", u"人力资源部", u"培训专员"}};
constexpr QStringView kMoved = u"程一鸣"; // from the front desk
constexpr QStringView kMovedFrom = u"前厅部";
constexpr DemoEmployee kLeft = {u"鲁小光", u"男", u"19980608", u"餐饮部",
                                u"传菜员", kLate, u"1111100",  u"高中"};

constexpr QStringView kAreas[] = {u"430102", u"430103", u"430104", u"430111", u"430121",
                                  u"430202", u"430302", u"430602", u"430702", u"420106"};

constexpr int kDaysAgo = kDemoDays + 10;
const QTime kBegins(8, 40);
constexpr int kToHire = 210; // seconds for each
constexpr int kToLeave = 30;

QString IdentityNumber(const DemoEmployee& person, int n) {
    constexpr QStringView kCheck = u"10X98765432";
    const int order = n % 100 * 10 + (person.sex == u"男" ? 1 : 2);
    const QString number = kAreas[n % std::size(kAreas)] + person.born.toString() +
                           u"%1"_s.arg(order, 3, 10, QChar(u'0'));
    int sum = 0;
    for (int i = 0; i < 17; ++i)
        sum += number[i].digitValue() * ((1 << (17 - i)) % 11);
    return number + kCheck[sum % 11];
}

QString ShiftEntry(const DemoShift& shift, const QString& weekdays) {
    QString entry;
    const std::pair<QStringView, QString> items[] = {
        {shift_period::kName, shift.name.toString()},   {shift_period::kDayValue, u"1"_s},
        {shift_period::kStart, shift.start.toString()}, {shift_period::kEarly, u"30"_s},
        {shift_period::kEnd, shift.end.toString()},     {shift_period::kLate, u"30"_s},
        {shift_period::kMode, shift.mode.toString()},   {shift_period::kWeekdays, weekdays}};
    for (const auto& [item, value] : items)
        entry = SetTag(entry, item, value);
    return entry;
}

QString ListField(QStringView list, const QStringList& entries) {
    return u"<%1>%2</%1>"_s.arg(list, EntriesText(entries));
}

// In the form of personnel, as it stands before it is kept.
QString FormOf(const DemoEmployee& person, int n) {
    const QString number = u"%1"_s.arg(n, 4, 10, QChar(u'0'));
    const QString born = u"%1-%2-%3"_s.arg(person.born.sliced(0, 4), person.born.sliced(4, 2),
                                           person.born.sliced(6, 2));
    const QString hired =
        Clock::Today().addDays(-90 - n * 37 % 2900).toString(u"yyyy-MM-dd"); // over eight years
    const bool trainee = person.post == u"实习生";
    QString fields;
    const std::pair<QStringView, QString> values[] = {
        {kNumber, number},
        {kName, person.name.toString()},
        {kBadge, u"GH"_s + number},
        {kCard, u"88%1"_s.arg(n * 7919 % 1000000, 6, 10, QChar(u'0'))},
        {kStatus, trainee ? u"实习"_s : u"正式"_s},
        {kPost, person.post.toString()},
        {kDepartment, person.department.toString()},
        {kIdentityNumber, IdentityNumber(person, n)},
        {kBirthday, born},
        {kSex, person.sex.toString()},
        {u"学历学位", person.education.toString()},
        {u"民族", n % 9 == 4 ? u"土家族"_s : u"汉族"_s},
        {u"参加工作", hired},
        {u"联系电话", u"139%1"_s.arg(qint64(n) * 7654321 % 100000000, 8, 10, QChar(u'0'))},
        {u"劳动合同号", u"HT"_s + number},
        {u"合同生效", hired}};
    for (const auto& [field, value] : values)
        fields = SetTag(fields, field, value);
    for (const DemoSecondJob& job : kSecondJobs) {
        if (job.name == person.name)
            fields = SetTag(SetTag(fields, kSecondDepartment1, job.department.toString()),
                            kSecondPost1, job.post.toString());
    }
    return fields;
}

QString RecordOf(const DemoEmployee& person, int n) {
    const QString fields = FormOf(person, n);
    QStringList shifts;
    for (size_t i = 0; i < person.shifts.size(); ++i) {
        QString weekdays;
        for (const QChar turn : person.week)
            weekdays += turn.digitValue() == int(i) + 1 ? u'1' : u'0';
        const QString entry = ShiftEntry(person.shifts[i], weekdays);
        Expect(!RefuseEntry(kShiftPeriods, entry, shifts, shifts.size()),
               person.name + u" 的班次不对"_s);
        shifts.append(entry);
    }
    const QString status = EmployeeValue(fields, kStatus);
    const QString entered = CareerEntry(fields, person.department.toString(),
                                        EmployeeStatusChange(person.name.toString(), {}, status));
    return ComposeEmployee(fields,
                           ListField(kShiftPeriods, shifts) + ListField(kCareer, {entered}));
}

EmployeeKey Hire(const DemoEmployee& person, int n) {
    const QString record = RecordOf(person, n);
    Expect(!RefuseCard(EmployeeValue(record, kCard), {}), person.name + u" 的卡已有人使用"_s);
    const SaveOutcome outcome = SaveEmployee({}, record, false);
    Expect(outcome.step == SaveStep::Written, person.name + u" 没有入职"_s);
    return {person.department.toString(), outcome.number};
}

// He was hired elsewhere and moves to where the table has him.
void Transfer(const DemoEmployee& person, int n) {
    DemoEmployee before = person;
    before.department = kMovedFrom;
    const EmployeeKey key = Hire(before, n);
    const QString record = RecordOf(person, n);
    QStringList career = EmployeeEntries(record, kCareer);
    career.append(
        CareerEntry(record, kMovedFrom.toString(),
                    TransferChange(person.name.toString(), kMovedFrom.toString(),
                                   person.department.toString(), person.post.toString())));
    const QString moved = WithEmployeeValue(record, kCareer, EntriesText(career));
    Expect(SaveEmployee(key, moved, false).step == SaveStep::Written, person.name + u" 没有调动"_s);
}

} // namespace

void BringInStaff(const QDateTime& opening,
                  const std::function<void(const QDateTime&)>& setServerClock) {
    const auto moveTo = [&](const QDateTime& moment) {
        setServerClock(moment);
        Clock::Freeze(moment);
    };
    const auto goOn = [&](int seconds) { moveTo(Clock::Now().addSecs(seconds)); };
    moveTo(QDateTime(opening.date().addDays(-kDaysAgo), kBegins));
    Expect(CheckLogin(u"RENSHI"_s, u"123456"_s) == LoginResult::LoggedIn, u"RENSHI 不能登录"_s);
    BeginSession(u"RENSHI"_s);
    int number = 0;
    for (const DemoEmployee& person : kEmployees) {
        if (!StaffDepartments().contains(person.department)) {
            Expect(AddDepartment(person.department).done, person.department + u" 没有建立"_s);
            goOn(kToLeave);
        }
        ++number;
        if (person.name == kMoved)
            Transfer(person, number);
        else
            Hire(person, number);
        goOn(kToHire);
    }
    const EmployeeKey left = Hire(kLeft, number + 1);
    goOn(kToHire);
    Expect(DeleteEmployee(left).done, kLeft.name + u" 没有离职"_s);
    goOn(kToLeave);
    LogLeaving();
}

} // namespace hotel
