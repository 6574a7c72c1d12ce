#pragma once

// A week in the demo hotel, played by so many desks at once, each a process of its own, through lines that fail, and
// its books audited after each day.
//
// The same order plays the same week: what each desk does is drawn by the seed and its number, and so is what happens
// on its line. Where the desks come between each other it is the machine that decides, unless they are played in turn.

#include <QDateTime>
#include <QMap>
#include <QString>
#include <QStringList>

#include <array>
#include <functional>

#include "app/week/faulty_line.h"

namespace hotel {

struct WeekOrder {
    QString store;   // with the delivered and the demo data, and nobody else serves it
    QString program; // that plays a desk
    int servers = 1; // on the one store, which more than one can only share in a database
    int desks = 4;
    int days = 7;
    int actsAnHour = 4;       // of each desk
    int requestsAFault = 400; // on the average; 0: the lines don't fail
    bool inTurn = false;
    quint64 seed = 1;
    QString log; // a file for every act as it was told; empty: none
};

struct DayOfWeek {
    QDate day;
    int done = 0;
    int nothing = 0;
    int told = 0;
    QStringList faults; // differences that nothing explains
};

struct WeekReport {
    QList<DayOfWeek> days;
    QMap<QString, int> kinds;    // acts that were done, by kind
    QMap<QString, int> accepted; // differences, by why they are accepted
    QMap<QString, int> words;    // that staff were told, by how often
    std::array<int, kLineFaults> lineFaults{};
    qint64 requests = 0;
    double seconds = 0; // in which desks were at work
    int acts = 0;       // done and told
    double median = 0;  // of an act, in milliseconds
    double slowest = 0; // the 99th percentile, likewise

    bool isSound() const;
    double actsASecond() const { return seconds > 0 ? acts / seconds : 0; }
};

// `tell` gets each day as it has been audited. Needs a QCoreApplication. Throws std::exception where it can't be played
// at all.
WeekReport PlayWeek(const WeekOrder& order, const std::function<void(const DayOfWeek&)>& tell);

// What a desk's process does, by its arguments: reads hours from its input, tells acts on its output.
int PlayDesk(const QStringList& arguments);

} // namespace hotel
