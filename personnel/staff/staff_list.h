#pragma once

// The list of a department's employees. It shows brief records: a column a title of category 员工清单标题定义,
// behind a running number.
//
// Somebody with second jobs stands in the lists of three departments; all that is written about him lies in his
// main one.

#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>

#include "personnel/staff/employee_records.h"
#include "record/text_table.h"
#include "session/notice.h"

namespace hotel {

inline constexpr QStringView kSerialTitle = u"序号";

// The titles of the list, nothing when they can't be read. 编号, 姓名, 所在部门 and both second departments are
// always among them: the list is found and changed by these.
std::optional<QStringList> StaffTitles();

// What the list shows of a record.
QString BriefRecord(QStringView record, const QStringList& titles);

struct StaffList {
    bool complete = true; // false: a department could not be read
    TextTable table;
};

// The employees of a department, then those who have a second job in it, or everybody (kAllDepartments).
StaffList ListStaff(const QString& department);

// Who stands in a row of the list.
struct EmployeeKey {
    QString department;
    QString number;

    bool isNew() const { return number.isEmpty(); }
    bool operator==(const EmployeeKey&) const = default;
};
EmployeeKey EmployeeOfRow(const TextTable& list, int row);

// Why the row of a department's list can't be changed: none is chosen, or he works there besides.
std::optional<Notice> RefuseChange(const TextTable& list, int row, const QString& department);
// Why it can't be deleted.
std::optional<Notice> RefuseDeletion(const TextTable& list, int row, const QString& department);

// The columns of the printed roster (员工花名册) that the list has.
TextTable Roster(const TextTable& list);

// The staffing table (员工编制表) of a list of the house: a row a department and post with how many hold it, how
// many of other posts have it besides, and who; a sum behind each department, and one of the house at the end.
TextTable StaffingTable(const TextTable& everybody);

} // namespace hotel
