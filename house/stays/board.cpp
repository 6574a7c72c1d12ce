#include "house/stays/board.h"

#include "house/guests/guest_text.h"
#include "house/rooms/room_record.h"
#include "house/rooms/room_status.h"
#include "link/records.h"
#include "record/field_walk.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "session/operation_log.h"
#include "tools/aids/categories.h"

#include <algorithm>

namespace hotel {

namespace {

constexpr int kRoomTypeLimit = 100;
constexpr QStringView kGuestNames = u"住客姓名";

QString VacantWordOf(const StatusPlaces& places) {
    const auto found = std::ranges::find_if(
        places, [](const StatusPlace& place) { return IsVacantWord(place.word); });
    return found == places.end() ? QString() : found->word;
}

const StatusPlace* PlaceOf(const StatusPlaces& places, const QString& status) {
    const auto found = std::ranges::find(places, status, &StatusPlace::word);
    return status.isEmpty() || found == places.end() ? nullptr : &*found;
}

TextTable CountTable(const QString& title, const QStringList& lines) {
    TextTable table({title, u"房数"_s, u"床数"_s, u"住客"_s});
    for (const QString& line : lines)
        table.addRow({line});
    table.addRow({u"合计"_s});
    return table;
}

void ClearCounts(TextTable& table) {
    for (int row = 1; row < table.rows(); ++row)
        table.setRow(row, {table.text(row, 0)});
}

void AddTo(TextTable& table, int row, const std::array<qint64, 3>& amounts) {
    for (int i = 0; i < 3; ++i) {
        const qint64 before = qint64(LeadingNumber(table.text(row, i + 1)));
        table.setText(row, i + 1, FormatNumber(before + amounts[size_t(i)], u"#0"));
    }
}

// Adds a room to its line and to the total; false when there is no line for it.
bool CountRoom(TextTable& table, QStringView line, const std::array<qint64, 3>& amounts) {
    const int row = table.find(0, line);
    if (row < 0)
        return false;
    AddTo(table, row, amounts);
    AddTo(table, table.rows() - 1, amounts);
    return true;
}

Notice NotDefined(const QString& room, const QString& words) {
    return {u"内部设定错误"_s, room + words};
}

} // namespace

StatusPlaces PlacesOfCategory(QStringView categoryText) {
    StatusPlaces places;
    for (int i = 0; i < kStatusPlaces; ++i) {
        const QString row = GetTag(categoryText, CategoryRowTag(i + 1));
        places[size_t(i)] = {GetTag(row, tag::kEntry),
                             int(LeadingNumber(GetTag(row, tag::kColour)))};
    }
    return places;
}

StatusPlaces LoadStatusPlaces() {
    return PlacesOfCategory(ReadProject(CategoryFile(), category::kRoomStates));
}

QStringList LoadLcQd() {
    QStringList floors;
    for (const RoomEntry& room : LoadRooms())
        floors.append(GetTag(room.record, room_record::kFloor));
    floors.removeDuplicates();
    return floors;
}

QStringList LoadRoomTypes() {
    return CategoryEntries(ReadProject(CategoryFile(), category::kRoomTypes))
        .mid(0, kRoomTypeLimit);
}

QStringList BoardTitles() {
    return {u"序号"_s,
            room_record::kNumber.toString(),
            room_record::kStatus.toString(),
            room_record::kFloor.toString(),
            room_record::kType.toString(),
            room_record::kBeds.toString(),
            room_record::kGuests.toString(),
            kGuestNames.toString()};
}

std::optional<Notice> LoadFtQd(TextTable& list, const StatusPlaces& places,
                               const BoardProgress& progress) {
    LoadkfQd(list);
    const QString vacant = VacantWordOf(places);
    if (vacant.isEmpty())
        return Notice{u"系统设定错误"_s, u"房态中没有表示空闲房态的默认值"_s};

    const int statusColumn = list.column(room_record::kStatus);
    const int guestsColumn = list.column(room_record::kGuests);
    QList<int> counted; // a vacant room's stale count, too, has its names read
    for (int row = 1; row < list.rows(); ++row) {
        if (list.text(row, statusColumn).isEmpty())
            list.setText(row, statusColumn, vacant);
        if (!list.text(row, guestsColumn).isEmpty())
            counted.append(row);
        if (IsVacant(list.text(row, statusColumn)))
            list.setText(row, guestsColumn, {});
    }

    const int numberColumn = list.column(room_record::kNumber);
    const int namesColumn = list.column(kGuestNames);
    for (qsizetype i = 0; i < counted.size(); ++i) {
        if (progress && !progress(int(i), int(counted.size())))
            break;
        const QString guests = GetKfrzxx(list.text(counted[i], numberColumn));
        list.setText(counted[i], namesColumn, GuestNames(guests));
    }
    return {};
}

QString GuestNames(QStringView guests) {
    QMap<QString, QString> names; // by bed, in whichever order the beds were sold
    for (FieldWalk bed(guests); bed.next();) {
        if (!bed.value().isEmpty())
            names.insert(bed.name().toString(), GetTag(bed.value(), guest_text::kName));
    }
    return QStringList(names.values()).mid(0, kBedLimit).join(u',');
}

QList<MapLine> MakeFtTb(const TextTable& list, const StatusPlaces& places,
                        const BoardFilter& filter) {
    QList<MapLine> lines;
    for (int row = 1; row < list.rows(); ++row) {
        const QString status = list.text(row, room_record::kStatus);
        const QString floor = list.text(row, room_record::kFloor);
        const StatusPlace* place = PlaceOf(places, status);
        if (!place || !filter.shows(status, floor, list.text(row, room_record::kType)))
            continue;
        if (lines.isEmpty() || lines.last().floor != floor ||
            lines.last().cells.size() == kMapRooms)
            lines.append({floor, {}});
        lines.last().cells.append({list.text(row, room_record::kNumber) + u'/' +
                                       list.text(row, room_record::kBeds) + u'/' +
                                       list.text(row, room_record::kGuests),
                                   place->colour});
    }
    return lines;
}

QString RoomOfMapCell(QStringView cellText) {
    return cellText.mid(0, cellText.indexOf(u'/')).toString();
}

BoardCounts EmptyCounts(const StatusPlaces& places, const QStringList& floors,
                        const QStringList& types) {
    QStringList statuses;
    for (const StatusPlace& place : places) {
        if (!place.word.isEmpty())
            statuses.append(place.word);
    }
    return {CountTable(u"房态"_s, statuses), CountTable(u"楼层"_s, floors),
            CountTable(u"房型"_s, types)};
}

QList<Notice> SetFtLcFxtjQd(BoardCounts& counts, const TextTable& list) {
    QList<Notice> notices;
    for (TextTable* table : {&counts.byStatus, &counts.byFloor, &counts.byType})
        ClearCounts(*table);
    for (int row = 1; row < list.rows(); ++row) {
        const QString room = list.text(row, room_record::kNumber);
        const std::array<qint64, 3> amounts = {
            1, qint64(LeadingNumber(list.text(row, room_record::kBeds))),
            qint64(LeadingNumber(list.text(row, room_record::kGuests)))};
        if (!CountRoom(counts.byStatus, list.text(row, room_record::kStatus), amounts))
            notices.append(NotDefined(room, u"有一种房态没有在房态分类中定义！"_s));
        CountRoom(counts.byFloor, list.text(row, room_record::kFloor), amounts);
        if (!CountRoom(counts.byType, list.text(row, room_record::kType), amounts))
            notices.append(NotDefined(room, u"有一种房型没有在房间类型分类中定义！"_s));
    }
    return notices;
}

StatusChange SetStatusByHand(QStringView room, QStringView status) {
    const QString record = GetKfjbxx(room);
    if (record.isEmpty())
        return {};
    const QString before = GetTag(record, room_record::kStatus);
    const int guests = int(LeadingNumber(GetTag(record, room_record::kGuests)));
    const StatusDecision decision = DecideStatusChange(before, status, guests);
    if (!decision.change)
        return {.changed = false, .refusal = decision.refusal};
    if (SetKfjbxx(room, SetTag(record, room_record::kStatus, status)) != 0)
        return {};
    SaveLogRec(u"人工设定房态"_s, u"房间:"_s + room + u"从："_s + before + u"变为:"_s + status);
    return {.changed = true, .refusal = {}};
}

} // namespace hotel
