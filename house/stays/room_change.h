#pragma once

// Room change: all guests of an occupied room move to a free one, with a reason, in one confirmed act. Their folios
// stay. The guests are prepared as a working set (house/guests/working_set.h) of the new room alone, so that the rate
// and other details can be adjusted on the guest form on the way.

#include <QString>
#include <QStringView>

#include <optional>

#include "session/notice.h"

namespace hotel {

struct RoomChange {
    QString oldRoom;
    QString newRoom;
    QString reason;
    QString statusAfter; // of the old room

    bool isComplete() const {
        return !oldRoom.isEmpty() && !newRoom.isEmpty() && !reason.isEmpty();
    }
    // Guests prepared for the one stand for the other.
    bool isPreparedAs(const RoomChange& other) const {
        return oldRoom == other.oldRoom && newRoom == other.newRoom && reason == other.reason;
    }
};

// Why these rooms can't be exchanged, whoever is in them.
std::optional<Notice> RefuseRooms(const RoomChange& change);

struct PreparedChange {
    QString workingSet;
    std::optional<Notice>
        refusal; // the guests, or the new room, can't be read: nothing is prepared
};

// The guests of the old room (客人01, ... as they lie there), rewritten for the new one: room and type are the new
// room's, 床位 is the running number, and 特殊说明 gains the history of the move. A room without guests in its file
// gives a blank guest for each of its beds.
PreparedChange PrepareRoomChange(const RoomChange& change);

struct RoomChangeOutcome {
    bool confirmed = false;
    std::optional<Notice> notice; // why it was refused, or what could not be written
};

// Checks the move, then writes it, in this order: the new room's record, the old room's, the new room's guests, the
// folios (the guests entered in the new room, then the old room taken off the folio of each), the operation log.
// Nothing is taken back: a room that can't be written stops the act where it stands, and staff correct by hand on the
// board.
//
// Guests who aren't valid don't move. The old room keeps its guests in its file: the next check-in overwrites them.
// 住客数 of the new room is what stands there and those who move, whatever its status; each of them takes the first
// free bed, and who finds none is counted all the same.
//
// A room that counts nobody is moved into as an empty one. Guests who moved out of it before may still stand in its file:
// they would take beds, be entered in their folios again and leave with the others.
RoomChangeOutcome ConfirmRoomChange(const RoomChange& change, QStringView workingSet);

} // namespace hotel
