#include "personnel/attendance/staff_walk.h"

#include "record/field_walk.h"

namespace hotel {

bool EachDepartment(
    const std::function<void(const QString& department, QStringView employees)>& use,
    const WalkProgress& progress) {
    const QStringList departments = StaffDepartments();
    bool read = !departments.isEmpty();
    for (qsizetype i = 0; i < departments.size(); ++i) {
        if (!GoesOn(progress, int(i), int(departments.size())))
            return false;
        const RecordRead employees = ReadDepartment(departments[i]);
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
