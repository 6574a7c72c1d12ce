#pragma once

// Walks over the staff: department after department, each in one command.

#include <QString>
#include <QStringView>

#include <functional>

#include "house/common/walk_progress.h"
#include "personnel/staff/employee_records.h"

namespace hotel {

// False when a department could not be read, which is left out, when there is none, and when the walk was stopped.
bool EachDepartment(
    const std::function<void(const QString& department, QStringView employees)>& use,
    const WalkProgress& progress = {});

void EachEmployee(QStringView employees,
                  const std::function<void(const QString& number, QStringView record)>& use);

} // namespace hotel
