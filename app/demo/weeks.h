#pragma once

// The weeks that lie behind the demo hotel: guests who came and have all left again ahead of the parties of
// parties.h. They are drawn by a generator with a seed of its own, so that a house opened at the same moment,
// with the same number of days, has had the same guests.
//
// How full the house was goes by the weekday: least on Sundays, most on Saturdays, between 45 and 85 of a
// hundred rooms. The rooms that the parties of parties.h take count, and are free when these come. A room that
// was dirty when the hotel was filled is dirty again in the end; one that was under repair isn't sold.

#include <QDateTime>
#include <QList>

#include "app/demo/consumption.h"
#include "app/demo/making.h"
#include "app/demo/parties.h"
#include "house/rooms/room_record.h"

namespace hotel {

struct DemoWeeks {
    QList<DemoCompany> companies;
    QList<DemoParty> parties;
    QList<DemoPosting> postings;
    QList<DemoDeparture> departures;
    QList<DemoStatusChange> statusChanges;
    DemoWords words; // what the views of the lists above look at
};

// Nights from `days` ahead of the opening to the last but one; nobody with less than three days.
DemoWeeks MakeDemoWeeks(const QDateTime& opening, int days, const QList<RoomEntry>& rooms);

// Rooms, of a hundred, that the house means to have sold on a night.
int OccupancyMeant(QDate night);

} // namespace hotel
