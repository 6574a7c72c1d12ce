#pragma once

// Brings the demo hotel to life: checks the parties of parties.h in through the acts of the front desk,
// each at its moment and by the clerk on duty, posts their deposits and what they consumed, sets some statuses
// by hand, and audits every night since the first of them arrived.

#include <QDateTime>
#include <functional>
#include <stdexcept>

#include <QString>

namespace hotel {

class DemoFailure : public std::runtime_error {
public:
    explicit DemoFailure(const QString& words) : std::runtime_error(words.toStdString()) {}
};

// The house is opened at `opening`: everything happened before. Needs a connected link to a server with
// the delivered and the demo data; `setServerClock` moves that server's clock, with which the
// workstation's is moved along. Leaves the clock standing at the opening. Throws DemoFailure at the
// first step that doesn't come out as it should.
void BringInGuests(const QDateTime& opening,
                   const std::function<void(const QDateTime&)>& setServerClock);

} // namespace hotel
