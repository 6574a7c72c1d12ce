#pragma once

// The rules of the repeating lists of an employee (employee_records.h): what an entry must hold. Entries go only
// from the end: their numbers are their places, and other programs count on them.

#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>

#include "session/notice.h"

namespace hotel {

// Why `entry` can't stand at `place` (counted from 0; behind the last one: a further one) of the list `field`, whose
// entries are `entries`.
//
//     考勤时段   all items; a name of its own; times as HH:mm:ss, minutes from 0 to 999, at most seven weekdays
//     others     their main items
std::optional<Notice> RefuseEntry(QStringView field, const QString& entry,
                                  const QStringList& entries, qsizetype place);

// Why the entry at `place` can't be deleted (-1: none is chosen).
std::optional<Notice> RefuseEntryDeletion(const QStringList& entries, qsizetype place);

// The weekdays of a shift period as they are stored: seven digits, Monday first. Fewer are filled up from
// 1111100, as they are read.
QString WeekdaySetting(const QString& typed);

// An entry of issued materials in the words of the operation log.
QString MaterialRemark(QStringView entry);

} // namespace hotel
