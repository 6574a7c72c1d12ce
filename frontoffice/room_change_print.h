#pragma once

// The printed notice of a room change (客人换房通知单), for housekeeping, the cashier and the guest.

#include <QString>

namespace hotel {

struct RoomChange;

// Prints the notice of a prepared move and shows it in the preview: its head once, then every guest, over as many
// pages as they need.
void PrintRoomChangeNotice(const RoomChange& change, const QString& workingSet);

} // namespace hotel
