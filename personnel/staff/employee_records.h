#pragma once

// The personnel files: who works in the house. All lie in folder YgxxPath:
//
//     Ygxx       details: a project a department, a record an employee, keyed by his number
//     YgJmxx     brief records: the columns of the staff list, under the same project and key
//     YgxxLs     details of those who have left: a project a department, keyed by the moment as yyMMddHHmmss
//     YgJmxxLs   their brief records, keyed by number
//     YgZp       photographs, a JPEG an employee, named by his number
//
// A record holds single fields and repeating lists. A list is a field whose value holds numbered fields
// <00>, <01>, ... <99> of record text, up to the first empty one. The name of one single field, 证书编号, stands
// inside a list too, so the fields of a record are read by EmployeeValue, which doesn't look into lists.

#include <QString>
#include <QStringList>
#include <QStringView>
#include <functional>
#include <span>

#include "link/records.h"

namespace hotel {

namespace employee {
// Single fields that the program relies on.
inline constexpr QStringView kCard = u"识别卡号"; // text of the magnetic card that he punches with
inline constexpr QStringView kBadge = u"工号";
inline constexpr QStringView kNumber = u"编号";
inline constexpr QStringView kName = u"姓名";
inline constexpr QStringView kSex = u"性别";
inline constexpr QStringView kStatus = u"状态";
inline constexpr QStringView kPost = u"职务";
inline constexpr QStringView kDepartment = u"所在部门";
inline constexpr QStringView kSecondDepartment1 = u"兼职部门1";
inline constexpr QStringView kSecondPost1 = u"兼职职务1";
inline constexpr QStringView kSecondDepartment2 = u"兼职部门2";
inline constexpr QStringView kSecondPost2 = u"兼职职务2";
inline constexpr QStringView kTitle = u"职称";
inline constexpr QStringView kIdentityNumber = u"身份证号";
inline constexpr QStringView kBirthday = u"生日"; // yyyy-MM-dd

// Repeating lists.
inline constexpr QStringView kShiftPeriods = u"考勤时段";
inline constexpr QStringView kCareer = u"工作经历"; // in this house
inline constexpr QStringView kCurriculum = u"个人简历";
inline constexpr QStringView kTraining = u"培训简历";
inline constexpr QStringView kAwards = u"奖惩纪录";
inline constexpr QStringView kFamily = u"家庭情况";
inline constexpr QStringView kBenefits = u"福利待遇";
inline constexpr QStringView kMaterials = u"物资领用";

// Added to a record that goes to history.
inline constexpr QStringView kLeftOn = u"处理日期"; // yyyy-MM-dd
inline constexpr QStringView kLeftBy = u"操作人";
} // namespace employee

// What a shift period holds, an entry of kShiftPeriods.
namespace shift_period {
inline constexpr QStringView kName = u"班次名称";
inline constexpr QStringView kMode = u"考勤方式";
inline constexpr QStringView kStart = u"开始时间";
inline constexpr QStringView kEnd = u"结束时间";
inline constexpr QStringView kEarly = u"可提前";
inline constexpr QStringView kLate = u"可延迟";
inline constexpr QStringView kWeekdays = u"星期设定";
inline constexpr QStringView kDayValue = u"缺勤折算";
} // namespace shift_period

// Says what a file is, and is no department.
inline constexpr QStringView kDescriptionProject = u"库说明";
// In the choice of departments: all of them.
inline constexpr QStringView kAllDepartments = u"所有部门";

QString EmployeeFile();
QString EmployeeBriefFile();
QString FormerEmployeeFile();
QString FormerEmployeeBriefFile();
QString EmployeePhotographFile(QStringView number);

// --- departments ---

// The projects of the personnel file, in its order; none when it can't be read.
QStringList StaffDepartments();

// What can be chosen from: the entries of category 部门名称, and behind them the projects of the personnel file
// that are not among these.
QStringList OfferedDepartments();

// --- a record ---

// The single fields in their order of writing. 性别, which the identity number tells, is this house's own.
std::span<const QStringView> EmployeeFields();

struct EmployeeListLayout {
    QStringView field;
    std::span<const QStringView> columns; // the inner fields
};
std::span<const EmployeeListLayout> EmployeeLists(); // in their order of writing
const EmployeeListLayout& EmployeeListOf(QStringView field);

// Entries that a list may have, by its two digits.
inline constexpr int kEmployeeListLimit = 100;

// A field of the record itself, never one inside a list.
QString EmployeeValue(QStringView record, QStringView field);

// The entries of a list, each the record text of its inner fields. A text that is cut anywhere gives the
// entries that are whole.
QStringList EmployeeEntries(QStringView record, QStringView list);

// The value of a list with these entries; those behind the hundredth are left out.
QString EntriesText(const QStringList& entries);

// A whole record in its order of writing: the single fields of `fields` (empty ones are left out), the lists of
// `lists`, each a field with EntriesText, and whatever `stored` holds besides.
QString ComposeEmployee(QStringView fields, QStringView lists, QStringView stored = {});

// The same record with one single field, or one list, changed.
QString WithEmployeeValue(QStringView record, QStringView field, const QString& value);

// --- reading ---

// The employees of a department whole, one field each; `brief` takes the brief records.
RecordRead ReadDepartment(QStringView department, bool brief = false);

void EachEmployeeRecord(QStringView department,
                        const std::function<void(const QString& number, QStringView record)>& use);

// Whether somebody has that number, in whatever department.
Reading EmployeeNumberTaken(QStringView number);

} // namespace hotel
