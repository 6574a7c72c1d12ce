#pragma once

// The attendance of the demo hotel's staff: a month of punches by the act of the punching desk, whoever is on the
// personnel file, by his own shift periods; and each day analysed on the next morning by the acts of the personnel
// department. People come a little early, some late, leave early, forget to punch, punch twice, stay for an hour
// more, stand in on another shift, come on a day off, or are ill. Who does what is drawn by the day and the
// number, so that a demo hotel of a day is always the same.

#include <QDateTime>
#include <functional>

namespace hotel {

inline constexpr int kDaysOfPunches = 31;

// The house is opened at `opening`: everything happened before, the last punches just now, and the day of the
// opening is not analysed yet. `setServerClock` moves the server's clock, the workstation's is moved along and left
// standing at the opening. Does nothing where nobody is employed. Throws DemoFailure (expect.h) at the first step
// that doesn't come out as it should.
void BringInPunches(const QDateTime& opening,
                    const std::function<void(const QDateTime&)>& setServerClock);

} // namespace hotel
