#pragma once

// The one source of time. Nothing else in the client asks the operating system for it.
//
// After login the clock follows the server: it keeps the machine's clock plus an offset. The machine's
// own clock is set only when the workstation's configuration asks for it.

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QTime>
#include <functional>

namespace hotel::Clock {

QDateTime Now();
QDate Today();
QTime Time();

// "yyyy-MM-dd" and "HH:mm:ss": the workstation's date and time as records carry them.
QString DateText();
QString TimeText();

// Seconds since midnight with their fraction: what the waits of the link measure with. Falls back to
// 0 at midnight.
double SecondsSinceMidnight();

// Follows the server: from here on the clock shows this date or time and goes on from it. A text that
// is no date or time changes nothing and gives false.
bool SetDate(QStringView yyyyMMdd);
bool SetTime(QStringView hhmmss);

// How the machine's own clock is set; false where this user may not.
using MachineClock = std::function<bool(const QDateTime& moment)>;
bool SetMachineClock(const QDateTime& moment);

// Has the machine's clock follow this one, by that way; none (as at the start) leaves it alone.
void LetMachineFollow(MachineClock machine);

// Sets the machine's clock to what this one shows, if it is to follow; false when that failed. This clock
// goes on as it was in any case.
bool MoveMachine();

// Stands the clock at a moment, for a test and for the days that the demo hotel has behind it; it moves
// only by Advance. Release with Resume.
void Freeze(const QDateTime& moment);
void Advance(qint64 milliseconds);
void Resume();

} // namespace hotel::Clock
