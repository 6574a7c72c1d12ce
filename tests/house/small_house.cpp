#include "tests/house/small_house.h"

#include "house/common/paths.h"
#include "house/guests/guest_text.h"
#include "house/rooms/room_record.h"
#include "link/records.h"
#include "record/field_walk.h"
#include "record/record_text.h"

namespace hotel {

QString Words(const std::optional<Notice>& notice) {
    return notice ? notice->title + u": "_s + notice->words : QString();
}

QString RoomText(const RoomSpec& room) {
    QString text = SetTag({}, room_record::kNumber, room.number);
    text = SetTag(text, room_record::kFloor, room.floor);
    text = SetTag(text, room_record::kBeds, QString::number(room.beds));
    text = SetTag(text, room_record::kType, room.type);
    text = SetTag(text, room_record::kStatus, room.status);
    return room.guests < 0 ? text
                           : SetTag(text, room_record::kGuests, QString::number(room.guests));
}

void FillRooms(const QList<RoomSpec>& rooms) {
    QString project;
    for (const RoomSpec& room : rooms)
        project += u"<%1>%2</%1>\r\n"_s.arg(room.number, RoomText(room));
    SaveProject(RoomDatabaseFile(), room_record::kProject, project);
}

ChosenRoom Chosen(const RoomSpec& room) {
    return {room.number, room.status.isEmpty() ? u"空房"_s : room.status, room.type, room.beds};
}

QString ValidGuest(const QString& name, const QString& folio, const QString& status,
                   const QString& changes) {
    QString guest = u"<客人姓名>%1</客人姓名><结账号>%2</结账号><证件种类>护照</证件种类>"
                    "<证件号码>P%2</证件号码><入住日期>2026-03-05</入住日期>"
                    "<房态>%3</房态><确认房价>258.00</确认房价>"_s.arg(name, folio, status);
    for (FieldWalk change(changes); change.next();)
        guest = SetTag(guest, change.name(), change.value());
    return guest;
}

QString TypedSet(const QList<ChosenRoom>& rooms, const QStringList& guests, int guestsPerRoom) {
    QString set = OpenWorkingSet({}, rooms);
    qsizetype next = 0;
    for (const ChosenRoom& room : rooms) {
        const QStringList beds = BedsOfSet(set, room.number);
        for (int i = 0; i < guestsPerRoom && next < guests.size(); ++i, ++next) {
            QString guest = GuestOfSet(set, room.number, beds.value(i));
            for (FieldWalk typed(guests[next]); typed.next();)
                guest = SetTag(guest, typed.name(), typed.value());
            set = WithGuest(set, room.number, beds.value(i), guest);
        }
    }
    return set;
}

QString StoredRoom(const QString& room, QStringView field) {
    return GetTag(GetKfjbxx(room), field);
}

QStringList StoredNames(const QString& room) {
    QStringList names;
    const QString guests = GetKfrzxx(room);
    for (FieldWalk bed(guests); bed.next();)
        names.append(bed.name() + u" "_s + GetTag(bed.value(), guest_text::kName));
    return names;
}

QStringList StoredRecords(const QString& file, const QString& project) {
    QStringList values;
    const QString whole = ReadProject(file, project);
    for (FieldWalk record(whole); record.next();)
        values.append(record.value().toString());
    return values;
}

} // namespace hotel
