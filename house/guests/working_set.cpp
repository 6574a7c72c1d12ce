#include "house/guests/working_set.h"

#include "house/guests/guest_text.h"
#include "house/rooms/room_record.h"
#include "house/rooms/room_status.h"
#include "record/field_walk.h"
#include "record/numbers.h"
#include "record/record_text.h"

#include <algorithm>

namespace hotel {

namespace {

QString BedNumber(QStringView bedTag) {
    return FormatNumber(LeadingNumber(DigitsOnly(bedTag)), u"#0");
}

QString PlacedGuest(QStringView guest, const ChosenRoom& room, int bed) {
    QString placed = SetTag(guest.toString(), guest_text::kRoom, room.number);
    placed = SetTag(placed, guest_text::kBed, FormatNumber(bed, u"#0"));
    placed = SetTag(placed, guest_text::kRoomType, room.type);
    if (IsShared(room.status)) {
        placed = SetTag(placed, guest_text::kStatus, room.status);
        placed = SetTag(placed, guest_text::kSharesRoom, u"1");
    }
    return placed;
}

QStringList FieldNames(QStringView text) {
    QStringList names;
    for (FieldWalk walk(text); walk.next();)
        names.append(walk.name().toString());
    return names;
}

} // namespace

QList<ChosenRoom> ChosenRooms(const TextTable& list) {
    QList<ChosenRoom> rooms;
    for (int row = 1; row < list.rows(); ++row) {
        rooms.append({.number = list.text(row, room_record::kNumber),
                      .status = list.text(row, room_record::kStatus),
                      .type = list.text(row, room_record::kType),
                      .beds = int(LeadingNumber(list.text(row, room_record::kBeds)))});
    }
    return rooms;
}

QString KeepRooms(QStringView set, const QList<ChosenRoom>& rooms) {
    QString kept;
    for (const ChosenRoom& room : rooms)
        kept = SetTag(kept, room.number, GetTag(set, room.number));
    return kept;
}

QString WithBedsOf(QStringView set, const ChosenRoom& room, QStringView present) {
    const QString typed = GetTag(set, room.number);
    QString guests;
    for (int bed = 1; bed <= std::min(room.beds, kBedLimit); ++bed) {
        const QString tag = GuestTag(bed);
        if (GetTag(present, tag).isEmpty())
            guests = SetTag(guests, tag, PlacedGuest(GetTag(typed, tag), room, bed));
    }
    return SetTag(set.toString(), room.number, guests);
}

QString OpenWorkingSet(QStringView set, const QList<ChosenRoom>& rooms) {
    QString opened = set.toString();
    for (const ChosenRoom& room : rooms) {
        const QString present = IsShared(room.status) ? GetKfrzxx(room.number) : QString();
        opened = WithBedsOf(opened, room, present);
    }
    return opened;
}

QStringList RoomsOfSet(QStringView set) {
    return FieldNames(set);
}

QStringList BedsOfSet(QStringView set, QStringView room) {
    return FieldNames(GetTag(set, room));
}

QString GuestOfSet(QStringView set, QStringView room, QStringView bedTag) {
    return GetTag(GetTag(set, room), bedTag);
}

int ValidGuestsOfSet(QStringView set) {
    int guests = 0;
    for (FieldWalk room(set); room.next();) {
        for (FieldWalk bed(room.value()); bed.next();)
            guests += IsValidGuest(bed.value());
    }
    return guests;
}

QString WithGuest(QStringView set, QStringView room, QStringView bedTag, QStringView guest) {
    return SetTag(set.toString(), room, SetTag(GetTag(set, room), bedTag, guest));
}

QuickRegistration RegisterQuickly(QStringView set) {
    QString filled = set.toString();
    const QStringList rooms = RoomsOfSet(set);
    const QString model =
        rooms.isEmpty() ? QString()
                        : GuestOfSet(set, rooms.first(), BedsOfSet(set, rooms.first()).value(0));
    if (!IsValidGuest(model)) {
        return {filled,
                Notice{u"请检查"_s, u"第一个房间的客人信息都没有正确输入，不能执行快速设定"_s}};
    }
    for (const QString& room : rooms.first(std::min(rooms.size(), qsizetype(kQuickRooms)))) {
        const QString bed = BedsOfSet(set, room).value(0);
        if (bed.isEmpty() || IsValidGuest(GuestOfSet(set, room, bed)))
            continue;
        QString copy = SetTag(model, guest_text::kRoom, room);
        copy = SetTag(copy, guest_text::kBed, BedNumber(bed));
        filled = WithGuest(filled, room, bed, copy);
    }
    return {filled, {}};
}

} // namespace hotel
