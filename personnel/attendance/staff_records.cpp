#include "personnel/attendance/staff_records.h"

#include "link/records.h"
#include "link/serv_api.h"
#include "record/field_walk.h"
#include "session/parameters.h"

namespace hotel {

namespace {

// Says what the file is, and is no department.
constexpr QStringView kDescription = u"库说明";

} // namespace

QString StaffFile() {
    return Param(u"YgxxPath") + Param(u"Ygxx");
}

QStringList Departments() {
    QStringList departments;
    for (int n = 1;; ++n) {
        const QString name = DbProjectList(StaffFile(), n);
        if (name.isEmpty())
            return departments;
        if (name != kDescription)
            departments.append(name);
    }
}

bool EachDepartment(
    const std::function<void(const QString& department, QStringView employees)>& use,
    const WalkProgress& progress) {
    const QStringList departments = Departments();
    bool read = !departments.isEmpty();
    for (qsizetype i = 0; i < departments.size(); ++i) {
        if (!GoesOn(progress, int(i), int(departments.size())))
            return false;
        const RecordRead employees = ReadProjectToChange(StaffFile(), departments[i]);
        if (employees.failed())
            read = false;
        else
            use(departments[i], employees.value);
    }
    return read;
}

void EachEmployee(QStringView employees,
                  const std::function<void(const QString& number, QStringView record)>& use) {
    for (FieldWalk employee(employees); employee.next();)
        use(employee.name().toString(), employee.value());
}

} // namespace hotel
