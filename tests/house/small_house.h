#pragma once

// What the tests of the house work with: a small house on the test server, rooms and guests as text.

#include <QString>
#include <QStringList>

#include "house/guests/working_set.h"
#include "tests/test_hotel.h"

namespace hotel {

// "title: words"; empty when there is nothing to tell.
QString Words(const std::optional<Notice>& notice);

struct RoomSpec {
    QString number;
    QString status = {}; // empty: none in the record
    int guests = -1;     // -1: no count in the record
    int beds = 2;
    QString floor = QStringLiteral("1");
    QString type = QStringLiteral("标准双床房");
};
QString RoomText(const RoomSpec& room);

// Replaces the house's rooms on the server.
void FillRooms(const QList<RoomSpec>& rooms);

ChosenRoom Chosen(const RoomSpec& room);

// A guest who can be checked in, but for what stands in `changes` (record text, laid over it).
QString ValidGuest(const QString& name, const QString& folio, const QString& status,
                   const QString& changes = {});

// The working set as the guest form leaves it: the guests in the first beds on offer of the rooms in
// turn, so many a room.
QString TypedSet(const QList<ChosenRoom>& rooms, const QStringList& guests, int guestsPerRoom = 1);

// A field of a record as the server holds it.
QString StoredRoom(const QString& room, QStringView field);
QStringList StoredNames(const QString& room);                           // "客人01 王一", by bed
QStringList StoredRecords(const QString& file, const QString& project); // values in their order

} // namespace hotel
