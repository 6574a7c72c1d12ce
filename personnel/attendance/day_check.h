#pragma once

// Looking over the punches of a day: what is put right by hand, and what the check finds by itself. A correction
// goes into the punch's record at once, with who made it and when; nothing is taken out of the file, a punch that
// doesn't count bears the mark 删除.

#include <optional>

#include "personnel/attendance/day_lists.h"
#include "session/notice.h"

namespace hotel {

// Corrections of a row by hand. They change the row when they are written.
std::optional<Notice> CorrectState(AttendanceDay& day, int row, const QString& state);
std::optional<Notice> CorrectShift(AttendanceDay& day, int row, const QString& shift);
std::optional<Notice> CorrectNote(AttendanceDay& day, int row, const QString& note);
// Sets the mark, or takes it away again.
std::optional<Notice> MarkPunch(AttendanceDay& day, int row, bool deleted);

// Writes these cells of a row over its record, with corrector and date, which the row shows then.
std::optional<Notice> UpdatePunchRecord(AttendanceDay& day, int row,
                                        const QList<QStringView>& fields);

// The check: takes the rows that bear a mark off the list, and marks
//
//     a punch without number or time
//     of several arrivals of a person on one shift all but the earliest, of several departures all but the
//     latest (what the terminal called 工作中 is neither)
//     a punch without function that has an earlier one of the same person and shift without function
//
// Gives the rows marked, which stay in view until the check is made once more. Writes nothing.
QList<int> MarkPunches(AttendanceDay& day);

// The whole act: what it marks is written, and the check logged. The notice is that of the first failure.
struct CheckOutcome {
    int marked = 0;
    std::optional<Notice> notice;
};
CheckOutcome CheckPunches(AttendanceDay& day);

} // namespace hotel
