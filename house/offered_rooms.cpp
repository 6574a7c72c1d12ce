#include "house/offered_rooms.h"

#include "house/room_record.h"
#include "house/room_status.h"
#include "record/numbers.h"
#include "record/record_text.h"

#include <QSet>

namespace hotel {

namespace {

// The record as the list shows it: a vacant room without status or with a stale count of guests.
QString AtSale(QStringView record) {
    const QString status = StatusAtSale(GetTag(record, room_record::kStatus));
    const QString offered = SetTag(record.toString(), room_record::kStatus, status);
    return SetTag(offered, room_record::kGuests, FormatNumber(GuestsAtSale(record), u"#0"));
}

} // namespace

QString StatusFilter(const QStringList& statuses) {
    return statuses.join(u',');
}

bool IsOffered(QStringView record, QStringView statusFilter) {
    const QString status = StatusAtSale(GetTag(record, room_record::kStatus));
    return statusFilter.contains(status) && GuestsAtSale(record) < BedsOfRoom(record);
}

void LoadKxkfQd(TextTable& grid, QStringView statusFilter, const QList<ChosenRoom>& taken) {
    QSet<QString> takenNumbers;
    for (const ChosenRoom& room : taken)
        takenNumbers.insert(room.number);

    grid.clearRows();
    for (const RoomEntry& room : LoadRooms()) {
        if (takenNumbers.contains(room.number) || !IsOffered(room.record, statusFilter))
            continue;
        grid.addRow(RoomCells(AtSale(room.record), grid.headers()));
    }
    grid.sort(0, TextTable::Order::Natural);
}

} // namespace hotel
