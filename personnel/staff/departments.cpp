#include "personnel/staff/departments.h"

#include "link/serv_api.h"
#include "personnel/staff/employee_records.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "session/operation_log.h"

namespace hotel {

namespace {

DepartmentOutcome Refused(const QString& words) {
    return {false, {u"请注意"_s, words}};
}

bool IsReserved(QStringView name) {
    return name == kAllDepartments || name == kDescriptionProject;
}

// Both files, the details last: a department is there when the list of the details shows it.
template<class Step>
int InBothFiles(Step step) {
    const int brief = step(EmployeeBriefFile());
    return brief != 0 ? brief : step(EmployeeFile());
}

} // namespace

DepartmentOutcome AddDepartment(QStringView typed) {
    const QString name = TrimWhite(typed);
    if (name.isEmpty())
        return Refused(u"请输入部门名称！"_s);
    if (name.contains(u'<') || name.contains(u'>'))
        return Refused(u"部门名称不能含有“<”或“>”！"_s);
    const bool duplicate = IsReserved(name) || StaffDepartments().contains(name);
    const int status = InBothFiles([&](const QString& file) {
        return duplicate ? DbCreateFile(file) : DbCreateProject(file, name);
    });
    if (duplicate || status != 0)
        return Refused(u"不能增加部门："_s + name + u"，请检查部门名称是否有重复或错误!代码:"_s +
                       QString::number(status));
    SaveLogRec(u"修改创建部门成功"_s, u"操作部门："_s + name);
    return {true, {u"提示"_s, u"成功增加部门："_s + name}};
}

DepartmentOutcome DeleteDepartment(QStringView name) {
    const auto occupied = Refused(
        u"删除该部门，其下的员工信息也将删除，该部门非空，先删除员工信息，方可进行本操作！"_s);
    if (!DbRecordList(EmployeeFile(), name, 1).isEmpty())
        return occupied;
    for (const bool brief : {false, true}) {
        const RecordRead employees = ReadDepartment(name, brief);
        if (employees.failed())
            return {false, {kUnreadTitle.toString(), kUnreadWords.toString()}};
        if (!brief && !TrimWhite(employees.value).isEmpty())
            return occupied;
    }
    const int status =
        InBothFiles([&](const QString& file) { return DbDeleteProject(file, name); });
    if (status != 0)
        return Refused(u"不能删除部门："_s + name + u"!代码:"_s + QString::number(status));
    SaveLogRec(u"删除部门成功"_s, u"操作部门："_s + name);
    return {true, {u"提示"_s, u"成功删除部门："_s + name}};
}

} // namespace hotel
