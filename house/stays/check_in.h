#pragma once

// Confirming a check-in: the one act that takes rooms from free to occupied.

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>

#include "house/guests/working_set.h"
#include "session/notice.h"

namespace hotel {

struct CheckInOutcome {
    bool confirmed = false;       // everything was written that stops a check-in when it can't be
    std::optional<Notice> notice; // why it was refused, or what could not be written
    QStringList occupiedRooms;    // whose room record was written
    QStringList roomsWithGuests;  // whose room file was written too
    QString firstFolio;           // of the first guest, for the charges that may be opened next
};

// Checks the party, then writes it, in this order: all room records; room by room the register of
// stays, the photographs and the room file; the folios; the operation log. Without a chosen room
// nothing happens.
//
// The two checks come ahead of the first write. A room record or a room file that can't be written
// stops the act where it stands, and nothing is taken back: the notice tells the staff, who start again
// and correct through the board. Two desks may sell the same room; the last confirm overwrites, but in
// a shared room each desk only touches its own beds.
CheckInOutcome ConfirmCheckIn(const QString& workingSet, const QList<ChosenRoom>& rooms);

// `guest` with its photographs moved from this workstation to the house's folder; a field keeps the
// bare file name, or becomes empty where the upload failed. A file that isn't here any more has been
// moved with another guest, from whom this one was copied.
QString WithUploadedPhotographs(QStringView guest);

} // namespace hotel
