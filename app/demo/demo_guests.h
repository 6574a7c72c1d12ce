#pragma once

// Brings the demo hotel to life: checks the guests of the weeks gone by (weeks.h) and the parties of parties.h
// in through the acts of the front desk, each at its moment and by the clerk on duty, posts their deposits and
// what they consumed, settles who leaves, sets statuses by hand, keeps the figures of every day and audits
// every night. Everybody works at a workstation of his own.

#include <QDate>
#include <QDateTime>
#include <functional>

#include <QString>

namespace hotel {

inline constexpr int kDemoDays = 60;

struct DemoOpening {
    QDateTime at; // everything happened before
    // Moves the clock of the server, with which that of the workstations is moved along.
    std::function<void(const QDateTime&)> setServerClock;
    int days = kDemoDays; // of the weeks gone by; 0: the parties of the table alone
    std::function<void(int done, int all)> progress = [](int, int) {}; // of all that happens
};

// Needs a connected link to a server with the delivered and the demo data; the workstations connect as it
// did. Leaves the clock standing at the opening and the link current. Throws DemoFailure at the first step that
// doesn't come out as it should (expect.h).
void BringInGuests(const DemoOpening& opening);

} // namespace hotel
