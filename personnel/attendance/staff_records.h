#pragma once

// What attendance reads of the personnel file (YgxxPath, Ygxx): a project a department, a record an employee, keyed
// by his number. It writes none of it.

#include <QDate>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <functional>

#include "house/common/walk_progress.h"

namespace hotel {

namespace staff_record {
inline constexpr QStringView kNumber = u"编号";
inline constexpr QStringView kName = u"姓名";
inline constexpr QStringView kCard = u"识别卡号";
inline constexpr QStringView kPost = u"职务";
inline constexpr QStringView kBirthday = u"生日";    // yyyy-MM-dd
inline constexpr QStringView kPeriods = u"考勤时段"; // shift_period.h
} // namespace staff_record

QString StaffFile();

// The departments that the file knows; none when it can't be read.
QStringList Departments();

// Reads department after department, each in one command. False when one could not be read, which is left out, when
// there is none, and when the walk was stopped.
bool EachDepartment(
    const std::function<void(const QString& department, QStringView employees)>& use,
    const WalkProgress& progress = {});

void EachEmployee(QStringView employees,
                  const std::function<void(const QString& number, QStringView record)>& use);

} // namespace hotel
