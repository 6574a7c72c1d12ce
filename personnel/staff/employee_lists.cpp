#include "personnel/staff/employee_lists.h"

#include <QTime>

#include <algorithm>

#include "personnel/staff/employee_records.h"
#include "record/literals.h"
#include "record/record_text.h"

namespace hotel {

namespace {

using namespace employee;

constexpr QStringView kFilledUp = u"1111100";
constexpr qsizetype kWeek = 7;

// What an entry of a list can't do without, and the words.
struct MainItems {
    QStringView list;
    std::initializer_list<QStringView> items;
    QStringView words;
};
const MainItems kMainItems[] = {
    {kCareer, {u"工作开始", u"经历说明"}, u"主要信息（工作开始、经历说明）不能有空白！"},
    {kCurriculum, {u"经历开始时间", u"相关单位"}, u"主要信息（开始时间、相关单位）不能有空白！"},
    {kTraining, {u"培训时间", u"培训内容"}, u"主要信息（培训时间、培训内容）不能有空白！"},
    {kAwards, {u"获得时间", u"奖惩名称"}, u"主要信息（获得时间、奖惩名称）不能有空白！"},
    // How he is related stands in the relative's circumstances.
    {kFamily, {u"亲属个人情况", u"亲属姓名"}, u"主要信息（关系、姓名）不能有空白！"},
    {kBenefits, {u"福利种类", u"办理日期"}, u"主要信息（福利种类，办理状态）不能有空白！"},
    {kMaterials,
     {u"物资品种", u"领用状态", u"号码型号"},
     u"主要信息（物资品名，领用状态,号码型号）不能有空白！"},
};

bool Lacks(const QString& entry, QStringView item) {
    return TrimWhite(EmployeeValue(entry, item)).isEmpty();
}

bool IsTime(const QString& text) {
    return QTime::fromString(text, u"HH:mm:ss").isValid();
}

bool IsMinutes(const QString& text) {
    return !text.isEmpty() && text.size() <= 3 && DigitsOnly(text) == text;
}

bool IsWeek(const QString& text) {
    return text.size() <= kWeek &&
           std::ranges::all_of(text, [](QChar day) { return day == u'0' || day == u'1'; });
}

std::optional<Notice> RefuseShift(const QString& entry, const QStringList& entries,
                                  qsizetype place) {
    for (const QStringView item : EmployeeListOf(kShiftPeriods).columns) {
        if (Lacks(entry, item))
            return Notice{u"请注意"_s, u"信息项不能空白"_s};
    }
    const QString name = TrimWhite(EmployeeValue(entry, shift_period::kName));
    for (qsizetype n = 0; n < entries.size(); ++n) {
        if (n != place && TrimWhite(EmployeeValue(entries[n], shift_period::kName)) == name)
            return Notice{u"错误名称"_s, u"班次名称不能相同！"_s};
    }
    if (!IsTime(EmployeeValue(entry, shift_period::kStart)) ||
        !IsTime(EmployeeValue(entry, shift_period::kEnd)))
        return Notice{u"请注意"_s, u"开始时间、结束时间必须是“HH:mm:ss”形式的时间！"_s};
    if (!IsMinutes(EmployeeValue(entry, shift_period::kEarly)) ||
        !IsMinutes(EmployeeValue(entry, shift_period::kLate)))
        return Notice{u"请注意"_s, u"可提前、可延迟必须是0到999分钟！"_s};
    if (!IsWeek(EmployeeValue(entry, shift_period::kWeekdays)))
        return Notice{u"请注意"_s, u"星期设定最多七位，从星期一开始，“1”为上班，“0”为休息！"_s};
    return std::nullopt;
}

} // namespace

std::optional<Notice> RefuseEntry(QStringView field, const QString& entry,
                                  const QStringList& entries, qsizetype place) {
    if (place >= kEmployeeListLimit)
        return Notice{u"请注意"_s, field + u"最多%1条，不能再增加！"_s.arg(kEmployeeListLimit)};
    if (field == kShiftPeriods)
        return RefuseShift(entry, entries, place);
    const auto* main = std::ranges::find(kMainItems, field, &MainItems::list);
    if (std::ranges::any_of(main->items, [&](QStringView item) { return Lacks(entry, item); }))
        return Notice{u"请注意"_s, main->words.toString()};
    return std::nullopt;
}

std::optional<Notice> RefuseEntryDeletion(const QStringList& entries, qsizetype place) {
    if (place < 0 || place >= entries.size())
        return Notice{u"请注意"_s, u"请选择要删除的记录！"_s};
    if (place != entries.size() - 1)
        return Notice{u"请注意"_s, u"请从最后一条开始删除"_s};
    return std::nullopt;
}

QString WeekdaySetting(const QString& typed) {
    return typed.size() < kWeek ? (typed + kFilledUp).left(kWeek) : typed;
}

QString MaterialRemark(QStringView entry) {
    return u"物资："_s + EmployeeValue(entry, u"物资品种") + u"，型号："_s +
           EmployeeValue(entry, u"号码型号") + u"，数量："_s + EmployeeValue(entry, u"数量");
}

} // namespace hotel
