#pragma once

// The working set of check-in and room change: everything that is typed before it is confirmed, in one
// text. Nothing of it reaches the server before that.
//
//     one field a chosen room, tag the room number, whose value is
//         one field a bed on offer, 客人01 to 客人10, whose value is a guest text (guest_text.h)

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>

#include "record/text_table.h"
#include "session/notice.h"

namespace hotel {

// A room as it was taken from the list of offered rooms.
struct ChosenRoom {
    QString number;
    QString status;
    QString type;
    int beds = 0;
};

// The rows of a list of chosen rooms, by its titles.
QList<ChosenRoom> ChosenRooms(const TextTable& list);

// `set` with only those rooms, in their order.
QString KeepRooms(QStringView set, const QList<ChosenRoom>& rooms);

// `set` with a guest for every bed of the room that nobody of `present` (the guests in the room, one
// field a bed) lies in: the one typed before, or a new one, with room, bed and type; in a shared room
// with the room's status too.
QString WithBedsOf(QStringView set, const ChosenRoom& room, QStringView present);

// The working set that the guest form is opened on. Reads the guests present in each shared room; a
// room that is sold as a whole is taken as empty.
QString OpenWorkingSet(QStringView set, const QList<ChosenRoom>& rooms);

QStringList RoomsOfSet(QStringView set);
// Tags of the room's beds on offer; its first isn't 客人01 where somebody lies in that bed already.
QStringList BedsOfSet(QStringView set, QStringView room);

QString GuestOfSet(QStringView set, QStringView room, QStringView bedTag);
int ValidGuestsOfSet(QStringView set);
QString WithGuest(QStringView set, QStringView room, QStringView bedTag, QStringView guest);

// Quick registration: every room (up to kQuickRooms) whose first guest isn't valid gets a copy of the
// first room's first guest, to be completed later; only room and bed are its own. Without a valid
// first guest nothing is copied.
inline constexpr int kQuickRooms = 232;
struct QuickRegistration {
    QString set;
    std::optional<Notice> refusal;
};
QuickRegistration RegisterQuickly(QStringView set);

} // namespace hotel
