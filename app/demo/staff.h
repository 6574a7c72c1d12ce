#pragma once

// Who works in the demo hotel: some eighty employees in its departments, by day, in the evening, at night and by
// turns, each with a card. The users of the demo hotel are among them. Names and numbers are invented.

#include <QDateTime>
#include <functional>

namespace hotel {

// Hired through the acts of personnel by the user of that department, ahead of the weeks that lie before
// `opening`, one after the other. Needs a connected link to a server with the delivered and the demo data, whose
// clock `setServerClock` moves; the workstation's is moved along and left standing. Throws DemoFailure (see
// expect.h) at the first step that doesn't come out as it should.
void BringInStaff(const QDateTime& opening,
                  const std::function<void(const QDateTime&)>& setServerClock);

} // namespace hotel
