#include "personnel/staff/employee_records.h"

#include <algorithm>

#include "link/serv_api.h"
#include "record/field_walk.h"
#include "record/literals.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "session/parameters.h"
#include "tools/aids/categories.h"

namespace hotel {

namespace {

using namespace employee;

constexpr QStringView kDepartmentCategory = u"部门名称";

constexpr QStringView kFields[] = {
    kCard,         kBadge,
    kNumber,       kName,
    kStatus,       kPost,
    kDepartment,   kSecondDepartment1,
    kSecondPost1,  kSecondDepartment2,
    kSecondPost2,  u"毕业院校",
    u"学历学位",   u"专业",
    kTitle,        u"外语语种",
    u"外语级别",   kIdentityNumber,
    u"驾驶技能",   u"参加工作",
    kBirthday,     u"籍贯",
    u"政治面貌",   u"身高",
    u"体重",       u"婚姻状态",
    u"视力",       u"民族",
    u"血型",       u"邮政编码",
    u"通讯地址",   u"联系电话",
    u"个人电邮",   u"身体情况",
    u"先天疾患",   u"其他情况",
    u"家庭住址",   u"住宅电话",
    u"个人QQ",     u"户口地址",
    u"入党团时间", u"服役情况",
    u"复转时间",   u"取证时间",
    u"业务专长",   u"岗前培训",
    u"劳动合同",   u"劳动合同号",
    u"合同生效",   u"合同截止",
    u"合同摘要",   u"应收保证金余额",
    u"下岗失业证", u"证书编号",
    u"其它保险",   kSex,
};

constexpr QStringView kPeriodColumns[] = {
    shift_period::kName, shift_period::kDayValue, shift_period::kStart, shift_period::kEarly,
    shift_period::kEnd,  shift_period::kLate,     shift_period::kMode,  shift_period::kWeekdays};
constexpr QStringView kCareerColumns[] = {u"工作开始", u"工作部门", u"当时职务",
                                          u"当时职称", u"经历说明", u"证明人",
                                          u"调入部门", u"调入岗位", u"录入员"};
constexpr QStringView kCurriculumColumns[] = {u"经历开始时间", u"经历结束时间", u"相关单位",
                                              u"地点", u"证明人"};
constexpr QStringView kTrainingColumns[] = {u"培训时间", u"培训单位", u"培训内容",
                                            u"证书证明", u"证书编号", u"培训状态",
                                            u"培训费用", u"培训时数", u"培训说明"};
constexpr QStringView kAwardColumns[] = {u"获得时间", u"奖惩名称", u"奖惩级别", u"奖惩单位",
                                         u"奖惩说明"};
constexpr QStringView kFamilyColumns[] = {u"亲属姓名", u"出生年月", u"亲属文化程度",
                                          u"亲属个人情况"};
constexpr QStringView kBenefitColumns[] = {u"福利种类", u"办理日期", u"工资基数", u"单位比例",
                                           u"个人比例", u"单位负担", u"个人负担", u"合计金额"};
constexpr QStringView kMaterialColumns[] = {u"物资品种", u"号码型号", u"领用日期",   u"领用状态",
                                            u"数量",     u"单价",     u"应收保证金", u"已收保证金",
                                            u"领用说明", u"领用经办", u"结算金额",   u"结算经办"};

constexpr EmployeeListLayout kLists[] = {
    {kShiftPeriods, kPeriodColumns},   {kCareer, kCareerColumns},
    {kCurriculum, kCurriculumColumns}, {kTraining, kTrainingColumns},
    {kAwards, kAwardColumns},          {kFamily, kFamilyColumns},
    {kBenefits, kBenefitColumns},      {kMaterials, kMaterialColumns},
};

QString InStaffFolder(QStringView parameter) {
    return Param(u"YgxxPath") + Param(parameter);
}

QString FieldLine(QStringView field, QStringView value) {
    return u'<' + field.toString() + u'>' + value + u"</"_s + field + u'>';
}

void Append(QString& record, QStringView field, QStringView value) {
    if (value.isEmpty())
        return;
    if (!record.isEmpty())
        record += kCrLf;
    record += FieldLine(field, value);
}

bool IsKnownField(QStringView field) {
    return std::ranges::find(kFields, field) != std::end(kFields) ||
           std::ranges::find(kLists, field, &EmployeeListLayout::field) != std::end(kLists);
}

} // namespace

QString EmployeeFile() {
    return InStaffFolder(u"Ygxx");
}

QString EmployeeBriefFile() {
    return InStaffFolder(u"YgJmxx");
}

QString FormerEmployeeFile() {
    return InStaffFolder(u"YgxxLs");
}

QString FormerEmployeeBriefFile() {
    return InStaffFolder(u"YgJmxxLs");
}

QString EmployeePhotographFile(QStringView number) {
    return Param(u"YgxxPath") + Param(u"YgZp") + number + u".jpg"_s;
}

// --- departments ---

QStringList StaffDepartments() {
    QStringList departments;
    for (int n = 1;; ++n) {
        const QString name = DbProjectList(EmployeeFile(), n);
        if (name.isEmpty())
            return departments;
        if (name != kDescriptionProject)
            departments.append(name);
    }
}

QStringList OfferedDepartments() {
    QStringList offered = LoadCategory(kDepartmentCategory);
    offered += StaffDepartments();
    offered.removeDuplicates();
    return offered;
}

// --- a record ---

std::span<const QStringView> EmployeeFields() {
    return kFields;
}

std::span<const EmployeeListLayout> EmployeeLists() {
    return kLists;
}

const EmployeeListLayout& EmployeeListOf(QStringView field) {
    const auto* layout = std::ranges::find(kLists, field, &EmployeeListLayout::field);
    if (layout == std::end(kLists))
        qFatal("an employee has no list %s", qPrintable(field.toString()));
    return *layout;
}

QString EmployeeValue(QStringView record, QStringView field) {
    for (FieldWalk walk(record); walk.next();) {
        if (walk.closed() && walk.name() == field)
            return walk.value().toString();
    }
    return {};
}

QStringList EmployeeEntries(QStringView record, QStringView list) {
    const QString value = EmployeeValue(record, list);
    QStringList entries;
    while (entries.size() < kEmployeeListLimit) {
        const QString entry = EmployeeValue(value, FormatNumber(qint64(entries.size()), u"00"));
        if (entry.isEmpty())
            break;
        entries.append(entry);
    }
    return entries;
}

QString EntriesText(const QStringList& entries) {
    QString text;
    for (qsizetype n = 0; n < qMin(entries.size(), qsizetype(kEmployeeListLimit)); ++n)
        Append(text, FormatNumber(qint64(n), u"00"), entries[n]);
    return text;
}

QString ComposeEmployee(QStringView fields, QStringView lists, QStringView stored) {
    QString record;
    for (const QStringView field : kFields)
        Append(record, field, EmployeeValue(fields, field));
    for (const EmployeeListLayout& list : kLists)
        Append(record, list.field, EmployeeValue(lists, list.field));
    for (FieldWalk walk(stored); walk.next();) {
        if (walk.closed() && !IsKnownField(walk.name()))
            Append(record, walk.name(), walk.value());
    }
    return record;
}

QString WithEmployeeValue(QStringView record, QStringView field, const QString& value) {
    // In front, where it is met ahead of what the record holds.
    const QString changed = FieldLine(field, value) + kCrLf + record;
    return ComposeEmployee(changed, changed, record);
}

// --- reading ---

RecordRead ReadDepartment(QStringView department, bool brief) {
    return ReadProjectToChange(brief ? EmployeeBriefFile() : EmployeeFile(), department);
}

void EachEmployeeRecord(QStringView department,
                        const std::function<void(const QString& number, QStringView record)>& use) {
    for (FieldWalk walk(department); walk.next();) {
        if (walk.closed())
            use(walk.name().toString(), walk.value());
    }
}

Reading EmployeeNumberTaken(QStringView number) {
    // Without a project the server gives the first record of that name in any of them.
    return ReadToChange(EmployeeFile(), {}, number).outcome;
}

} // namespace hotel
