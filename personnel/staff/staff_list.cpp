#include "personnel/staff/staff_list.h"

#include <QMap>

#include "link/QVRapp.h"
#include "link/serv_api.h"
#include "record/conditions.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "tools/aids/categories.h"

namespace hotel {

namespace {

using namespace employee;

constexpr QStringView kTitleCategory = u"员工清单标题定义";
constexpr QStringView kNeeded[] = {kNumber, kName, kDepartment, kSecondDepartment1,
                                   kSecondDepartment2};
constexpr QStringView kRosterColumns[] = {kSerialTitle, kNumber,    kName,     kDepartment,
                                          kPost,        kStatus,    kBirthday, u"学历学位",
                                          u"参加工作",  u"联系电话"};

void AddRow(TextTable& table, QStringView record) {
    const int row = table.addRow();
    for (int column = 1; column < table.cols(); ++column)
        table.setText(row, column, EmployeeValue(record, table.headers()[column]));
}

// Employees of other departments by their second jobs.
void AddSecondJobs(TextTable& table, const QString& department) {
    QString conditions;
    int number = 0;
    AddQueryCondition(conditions, u"或者", kSecondDepartment1, u"等于", department, number);
    AddQueryCondition(conditions, u"或者", kSecondDepartment2, u"等于", department, number);
    const QString text = WrapConditions(conditions);
    QStringList found; // further reads would take the list of the search's place
    for (int n = 1;; ++n) {
        const QString name = DbFieldFind(EmployeeBriefFile(), {}, text, n);
        if (name.isEmpty())
            break;
        found.append(name);
    }
    for (const QString& name : found) {
        const QString record = ReadRecord(EmployeeBriefFile(), {}, name);
        if (!record.isEmpty() && EmployeeValue(record, kDepartment) != department)
            AddRow(table, record);
    }
}

// Posts of a department with their holders.
struct Post {
    QStringList holders;
    QStringList besides;
};
using Posts = QMap<QString, Post>;

void AddStaffingRow(TextTable& table, const QString& department, const QString& post,
                    qsizetype holders, qsizetype besides, const QStringList& names) {
    table.addRow(
        {department, post, QString::number(holders), QString::number(besides), names.join(u' ')});
}

} // namespace

std::optional<QStringList> StaffTitles() {
    const auto entries = ReadCategory(kTitleCategory);
    if (!entries)
        return std::nullopt;
    QStringList titles = *entries;
    for (const QStringView needed : kNeeded)
        titles.append(needed.toString());
    titles.removeDuplicates();
    return titles;
}

QString BriefRecord(QStringView record, const QStringList& titles) {
    QString brief;
    for (const QString& title : titles)
        brief = SetTag(brief, title, EmployeeValue(record, title));
    return brief;
}

StaffList ListStaff(const QString& department) {
    StaffList list;
    const auto titles = StaffTitles();
    list.complete = titles.has_value();
    list.table.setHeaders(QStringList{kSerialTitle.toString()} + titles.value_or(QStringList()));
    if (!titles)
        return list;
    const bool all = department == kAllDepartments;
    const QStringList departments = all ? StaffDepartments() : QStringList{department};
    for (const QString& each : departments) {
        const RecordRead employees = ReadDepartment(each, true);
        list.complete = list.complete && !employees.failed();
        EachEmployeeRecord(employees.value,
                           [&](const QString&, QStringView record) { AddRow(list.table, record); });
    }
    if (!all)
        AddSecondJobs(list.table, department);
    list.table.numberRows(0);
    return list;
}

EmployeeKey EmployeeOfRow(const TextTable& list, int row) {
    return {list.text(row, kDepartment), list.text(row, kNumber)};
}

std::optional<Notice> RefuseChange(const TextTable& list, int row, const QString& department) {
    if (row < 1 || row >= list.rows())
        return Notice{u"请注意"_s, u"请选择要修改的记录！"_s};
    const EmployeeKey key = EmployeeOfRow(list, row);
    const bool elsewhere = department != kAllDepartments && key.department != department;
    if (elsewhere || key.isNew() || key.department.isEmpty())
        return Notice{u"请注意"_s, u"这是该员工的兼职岗位，或员工信息读取错误,不能修改?"_s};
    return std::nullopt;
}

std::optional<Notice> RefuseDeletion(const TextTable& list, int row, const QString& department) {
    if (department == kAllDepartments || department.isEmpty())
        return Notice{u"请注意"_s, u"请先选择具体部门，再删除相应的员工信息，减少误操作！"_s};
    if (row < 1 || row >= list.rows())
        return Notice{u"请注意"_s, u"请选择要删除的记录！"_s};
    return RefuseChange(list, row, department);
}

TextTable Roster(const TextTable& list) {
    QStringList headers;
    for (const QStringView column : kRosterColumns) {
        if (list.column(column) >= 0)
            headers.append(column.toString());
    }
    TextTable roster(headers);
    for (int row = 1; row < list.rows(); ++row) {
        QStringList cells;
        for (const QString& header : headers)
            cells.append(list.text(row, header));
        roster.addRow(cells);
    }
    return roster;
}

TextTable StaffingTable(const TextTable& everybody) {
    QStringList departments;
    QMap<QString, Posts> house;
    const auto note = [&](int row, QStringView department, QStringView post,
                          QStringList Post::*names) {
        const QString where = everybody.text(row, department);
        if (where.isEmpty())
            return;
        if (!departments.contains(where))
            departments.append(where);
        (house[where][everybody.text(row, post)].*names).append(everybody.text(row, kName));
    };
    for (int row = 1; row < everybody.rows(); ++row) {
        note(row, kDepartment, kPost, &Post::holders);
        note(row, kSecondDepartment1, kSecondPost1, &Post::besides);
        note(row, kSecondDepartment2, kSecondPost2, &Post::besides);
    }
    TextTable table({u"部门"_s, u"职务"_s, u"在编人数"_s, u"兼职人数"_s, u"员工姓名"_s});
    qsizetype houseHolders = 0;
    qsizetype houseBesides = 0;
    for (const QString& department : departments) {
        qsizetype holders = 0;
        qsizetype besides = 0;
        for (const auto& [post, names] : house[department].asKeyValueRange()) {
            AddStaffingRow(table, department, post, names.holders.size(), names.besides.size(),
                           names.holders + names.besides);
            holders += names.holders.size();
            besides += names.besides.size();
        }
        AddStaffingRow(table, department, u"小计"_s, holders, besides, {});
        houseHolders += holders;
        houseBesides += besides;
    }
    AddStaffingRow(table, u"合计"_s, {}, houseHolders, houseBesides, {});
    return table;
}

} // namespace hotel
