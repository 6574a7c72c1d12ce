#pragma once

// Adding, changing and deleting rooms of the house. `boxes` is what stands in the entry boxes, as
// record text with the tags of a room record; blanks around the values are taken off.

#include <QString>
#include <QStringView>

#include <optional>

#include "session/notice.h"

namespace hotel {

struct RoomEditOutcome {
    bool done = false; // the room's record has changed or is gone
    std::optional<Notice> notice;
    QStringView missing = {}; // the field that must be filled first
};

// Adds a room that doesn't exist yet. `picturePath` is a file of this workstation, or empty; a picture
// that can't be uploaded is left out.
RoomEditOutcome AddRoom(QStringView boxes, const QString& picturePath);

// Changes a room that exists. Only boxes that are filled overwrite: a field can't be blanked, and
// status and guests stay. A picture of the same name as the stored one isn't uploaded again.
RoomEditOutcome ChangeRoom(QStringView boxes, const QString& picturePath);

// Deletes a room's record, whoever is in it; the room's file and its picture stay on the server. The
// screen first sees whether there is such a room, and asks with DeleteQuestion.
RoomEditOutcome DeleteRoom(QStringView room);
std::optional<Notice> RefuseDelete(QStringView room);
Notice DeleteQuestion(QStringView room);

} // namespace hotel
