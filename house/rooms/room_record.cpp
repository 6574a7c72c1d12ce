#include "house/rooms/room_record.h"

#include "house/common/paths.h"
#include "house/rooms/room_status.h"
#include "link/records.h"
#include "record/field_walk.h"
#include "record/numbers.h"
#include "record/record_text.h"

namespace hotel {

namespace {

void FillRoomRow(TextTable& grid, int row, QStringView record) {
    QStringList cells = RoomCells(record, grid.headers());
    cells[0] = grid.text(row, 0);
    grid.setRow(row, cells);
}

} // namespace

QString NumberedTag(QStringView word, int number) {
    QString tag = word.toString();
    if (number < 10)
        tag += u'0';
    return tag += QString::number(number);
}

QString GuestTag(int bed) {
    return NumberedTag(u"客人", bed);
}

QList<RoomEntry> LoadRooms() {
    const QString project = ReadProject(RoomDatabaseFile(), room_record::kProject);
    QList<RoomEntry> rooms;
    FieldWalk walk(project);
    while (rooms.size() < kRoomLimit && walk.next())
        rooms.append({walk.name().toString(), walk.value().toString()});
    return rooms;
}

QString GetKfjbxx(QStringView room) {
    return FindKfjbxx(room).value;
}

RecordRead FindKfjbxx(QStringView room) {
    return ReadToChange(RoomDatabaseFile(), room_record::kProject, room);
}

int SetKfjbxx(QStringView room, QStringView record) {
    return SaveRecord(RoomDatabaseFile(), room_record::kProject, room, record);
}

int SetKfft(QStringView room, QStringView status) {
    EnsureProject(RoomDatabaseFile(), room_record::kProject);
    const QString record = GetKfjbxx(room);
    return record.isEmpty() ? -1 : SetKfjbxx(room, SetTag(record, room_record::kStatus, status));
}

QString GetKfrzxx(QStringView room) {
    return FindKfrzxx(room).value;
}

RecordRead FindKfrzxx(QStringView room) {
    return ReadProjectToChange(RoomFile(room), room_record::kStayProject);
}

int SaveRmRec(QStringView room, QStringView guests) {
    return SaveProject(RoomFile(room), room_record::kStayProject, guests);
}

int BedsOfRoom(QStringView record) {
    return int(LeadingNumber(GetTag(record, room_record::kBeds)));
}

int GuestsAtSale(QStringView record) {
    if (IsVacant(StatusAtSale(GetTag(record, room_record::kStatus))))
        return 0;
    return int(LeadingNumber(GetTag(record, room_record::kGuests)));
}

// One walk over the record: lists of a thousand rooms are read again and again.
QStringList RoomCells(QStringView record, const QStringList& titles) {
    QStringList cells(titles.size());
    for (FieldWalk field(record); field.next();) {
        const qsizetype column = titles.indexOf(field.name());
        if (column >= 0 && cells[column].isEmpty())
            cells[column] = field.value().toString();
    }
    for (qsizetype column = 0; column < cells.size(); ++column) {
        if (titles[column].endsWith(u'数'))
            cells[column] = FormatText(cells[column], u"#0");
    }
    return cells;
}

void LoadkfQd(TextTable& grid) {
    grid.clearRows();
    for (const RoomEntry& room : LoadRooms())
        FillRoomRow(grid, grid.addRow(), room.record);
    grid.sort(grid.column(room_record::kNumber), TextTable::Order::Natural);
    grid.numberRows(0);
}

void UpdateKfGrid(TextTable& grid, const QString& room) {
    int row = grid.find(grid.column(room_record::kNumber), room);
    if (row < 0) {
        row = grid.addRow();
        grid.setText(row, 0, FormatNumber(row, u"#0"));
    }
    FillRoomRow(grid, row, GetKfjbxx(room));
}

} // namespace hotel
