#pragma once

// A day's attendance from the server, and the whole of its working off in one go.

#include "house/common/walk_progress.h"
#include "personnel/attendance/day_absences.h"
#include "personnel/attendance/day_lists.h"

namespace hotel {

// Fills the due periods (by the weekday whose rules hold on day.date) and the people, from all departments. A
// person whose record can't be read is left out. False when a department could not be read, or the walk was stopped.
bool LoadKqsdQd(AttendanceDay& day, const WalkProgress& progress = {});

// The punches, by their keys, and the absences as they are stored. False when they could not be read.
bool LoadPunches(AttendanceDay& day);
bool LoadAbsences(AttendanceDay& day);

// The day worked off as a clerk does it: punches checked, absences made (once more where shifts were adjusted),
// statistics computed and saved. What went wrong, if anything did.
QList<Notice> WorkOffDay(QDate date, const AnalysisSettings& settings);

} // namespace hotel
