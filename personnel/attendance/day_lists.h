#pragma once

// A day's attendance as the analysis works on it: lists of text, filled from the server or by a test, in any
// order of rows. The acts of the analysis (day_check.h, day_absences.h, day_statistics.h) read and change them.

#include <QDate>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include "house/common/walk_progress.h"
#include "personnel/attendance/day_records.h"
#include "personnel/attendance/shift_period.h"
#include "record/text_table.h"

namespace hotel {

// Kqqd. The last column is not shown: the analysis wants it to know overtime.
QStringList PunchColumns();
// KqsdQd: the periods that are due on the day, a row for each of a person.
QStringList PeriodColumns();
// KqqqQd.
QStringList AbsenceColumns();
// KqtjQd. The last column is not shown; statistics over time choose by it.
QStringList StatisticsColumns();
// KqbcQd: 编号, 姓名, five groups of a shift, and the department, not shown.
QStringList ShiftColumns();

inline constexpr int kShiftGroups = 5;

// A mark that takes a punch out of the analysis; its record stays.
inline constexpr QStringView kDeletedMark = u"删除";

struct AttendanceDay {
    QDate date;
    TextTable punches{PunchColumns()};
    TextTable periods{PeriodColumns()};
    TextTable absences{AbsenceColumns()};
    TextTable statistics{
        StatisticsColumns()}; // a row for each person, the values empty until computed
    TextTable shifts{ShiftColumns()};
};

// The periods of a row of 考勤时段 that hold on the day, as rows of `periods`.
void AddDuePeriods(TextTable& periods, const QStringList& person, QStringView periodsText,
                   int weekday);

// Adds the people to statistics and shifts who aren't there yet: number, name, department.
void AddPerson(AttendanceDay& day, const QString& number, const QString& name,
               const QString& department);

// A period of a row of `periods`.
ShiftPeriod PeriodOfRow(const TextTable& periods, int row);

// Rows by person: those without a mark of deletion, a person's by time. Made anew when rows have changed.
using RowsOfPeople = QHash<QString, QList<int>>;
RowsOfPeople PunchesOfPeople(const TextTable& punches);
RowsOfPeople PeriodsOfPeople(const TextTable& periods); // by start and name

} // namespace hotel
