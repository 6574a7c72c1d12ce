#include "house/guests/offered_rooms.h"

#include "house/rooms/room_record.h"
#include "house/rooms/room_status.h"
#include "record/numbers.h"
#include "record/record_text.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>

namespace hotel {

namespace {

// The record as the list shows it: a vacant room without status or with a stale count of guests.
QString AtSale(QStringView record) {
    const QString status = StatusAtSale(GetTag(record, room_record::kStatus));
    const QString offered = SetTag(record.toString(), room_record::kStatus, status);
    return SetTag(offered, room_record::kGuests, FormatNumber(GuestsAtSale(record), u"#0"));
}

// The offered rooms of one typed word.
QStringList RoomsOfWord(const QString& word, const QStringList& offered) {
    if (offered.contains(word))
        return {word};
    static const QRegularExpression range(u"^(\\d+)-(\\d+)$"_s);
    const QRegularExpressionMatch match = range.match(word);
    if (!match.hasMatch())
        return {};
    const auto [first, last] =
        std::minmax({match.captured(1).toLongLong(), match.captured(2).toLongLong()});
    QStringList rooms;
    for (const QString& room : offered) {
        bool isNumber = false;
        const qint64 number = room.toLongLong(&isNumber);
        if (isNumber && number >= first && number <= last)
            rooms.append(room);
    }
    return rooms;
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

void LoadRoomsInStatus(TextTable& grid, const QStringList& statuses) {
    grid.clearRows();
    for (const RoomEntry& room : LoadRooms()) {
        if (statuses.contains(GetTag(room.record, room_record::kStatus)))
            grid.addRow(RoomCells(room.record, grid.headers()));
    }
    grid.sort(0, TextTable::Order::Natural);
}

TypedRooms RoomsTyped(QStringView typed, const QStringList& offered) {
    static const QRegularExpression separators(u"[\\s,、;]+"_s);
    TypedRooms result;
    for (const QString& word : typed.toString().split(separators, Qt::SkipEmptyParts)) {
        const QStringList rooms = RoomsOfWord(word, offered);
        if (rooms.isEmpty())
            result.unknown.append(word);
        result.rooms.append(rooms);
    }
    result.rooms.removeDuplicates();
    return result;
}

} // namespace hotel
