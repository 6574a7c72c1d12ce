#pragma once

// What a person's punches say about one period: whether he came, went, or was only seen in between. Absences and
// statistics read it alike.
//
// A punch of the state 工作中 bears the function 上班 and is neither an arrival nor a departure. A punch outside
// every period (function 未知 or empty, by the mode or the state 加班) is taken for the arrival or the departure
// that is missing, if it lies on the right side of the period: ahead of its end for an arrival, behind its start
// for a departure. Around a night period every such punch lies on either side. The earliest one becomes the
// arrival, the latest one of the rest the departure, and one that a period has taken is no other's.

#include <QSet>

#include "personnel/attendance/day_lists.h"

namespace hotel {

// Rows of the list of punches; 0: none.
struct Presence {
    int arrival = 0;   // the earliest
    int departure = 0; // the latest
    int between = 0;   // the earliest
    bool arrivalAdopted = false;
    bool departureAdopted = false;

    bool any() const { return arrival || departure || between; }
};

// `rows` are the person's, by time. What is taken is added to `taken`.
Presence PresenceIn(const ShiftPeriod& period, const TextTable& punches, const QList<int>& rows,
                    QSet<int>& taken);

// A punch outside every period that nobody has given a function yet.
bool IsOvertimePunch(const TextTable& punches, int row);

} // namespace hotel
