#pragma once

// The one source of time. Nothing else in the client asks the operating system for it.
//
// After login the clock follows the server: it keeps the machine's clock plus an offset. The machine's
// own clock is set only when the workstation's configuration asks for it.

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QTime>

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

// Whether SetDate and SetTime set the machine's clock as well (off at start). Where the user may not,
// nothing happens.
void LetMachineFollow(bool on);

// Stands the clock at a moment, for a test and for the days that the demo hotel has behind it; it moves
// only by Advance. Release with Resume.
void Freeze(const QDateTime& moment);
void Advance(qint64 milliseconds);
void Resume();

} // namespace hotel::Clock
