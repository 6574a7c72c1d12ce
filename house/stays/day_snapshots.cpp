#include "house/stays/day_snapshots.h"

#include "house/common/paths.h"
#include "house/rooms/room_record.h"
#include "house/rooms/room_status.h"
#include "link/QVRapp.h"
#include "link/records.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "record/numbers.h"
#include "record/record_text.h"

#include <algorithm>

namespace hotel {

namespace {

constexpr int kNumberColumn = 0;
constexpr int kKeyColumn = 1;   // of a list of counts: room type or floor
constexpr qint64 kOne = 10'000; // in units of Money
constexpr qint64 kHundredPercent = 100;

struct SnapshotEntry {
    DaySnapshot kind;
    QStringView project;
    QStringView key;      // its column; empty: a row a room
    QStringView boardKey; // the same on the board
};
constexpr SnapshotEntry kEntries[] = {
    {DaySnapshot::SoldByType, u"客房销售日报信息", snapshot::kType, room_record::kType},
    {DaySnapshot::SoldByFloor, u"楼层销售日报信息", snapshot::kFloor, room_record::kFloor},
    {DaySnapshot::RoomStates, u"客房状态明细信息", {}, {}},
};

const SnapshotEntry& EntryOf(DaySnapshot kind) {
    return *std::ranges::find(kEntries, kind, &SnapshotEntry::kind);
}

Money Cell(const TextTable& list, int row, QStringView column) {
    return Money::FromText(list.text(row, column));
}

// A part of a room keeps its decimals.
QString CountText(Money count) {
    return count.text(count.units() % kOne == 0 ? u"#0" : u"#0.####");
}

void AddTo(TextTable& list, int row, QStringView column, Money count) {
    list.setText(row, column, CountText(Cell(list, row, column) + count));
}

// The row of a type or floor; a new one where there is none yet.
int RowOfKey(TextTable& list, const QString& key) {
    const int row = list.find(kKeyColumn, key);
    if (row > 0)
        return row;
    return list.addRow({FormatNumber(list.rows(), u"#0"), key});
}

void CountRoom(TextTable& list, const TextTable& board, int room, QStringView boardKey) {
    const int row = RowOfKey(list, board.text(room, boardKey));
    const Money beds = Cell(board, room, room_record::kBeds);
    const Money guests = Cell(board, room, room_record::kGuests);
    const Money one = Money::FromUnits(kOne);
    AddTo(list, row, snapshot::kRooms, one);
    AddTo(list, row, snapshot::kBeds, beds);
    const bool sold = guests > Money() && beds > Money();
    const bool byTheBed = IsShared(board.text(room, room_record::kStatus));
    const Money part = sold ? Money::FromUnits(guests.units() * kOne / beds.units()) : Money();
    AddTo(list, row, snapshot::kRoomsSold, !sold ? Money() : byTheBed ? part : one);
    AddTo(list, row, snapshot::kBedsSold, !sold ? Money() : byTheBed ? guests : beds);
}

// What is cut off behind the fourth decimal makes no difference to the first.
QString RateText(Money sold, Money all) {
    if (all == Money())
        return {};
    return Money::FromUnits(sold.units() * kHundredPercent * kOne / all.units()).text(u"#0.0");
}

void SetRates(TextTable& list, int row) {
    list.setText(
        row, snapshot::kRoomRate,
        RateText(Cell(list, row, snapshot::kRoomsSold), Cell(list, row, snapshot::kRooms)));
    list.setText(row, snapshot::kBedRate,
                 RateText(Cell(list, row, snapshot::kBedsSold), Cell(list, row, snapshot::kBeds)));
}

Money SumOf(const TextTable& list, QStringView column) {
    Money sum;
    for (int row = 1; row < list.rows(); ++row)
        sum += Cell(list, row, column);
    return sum;
}

struct TotalColumn {
    QStringView column;
    QStringView format;
};

void AddTotalRow(TextTable& list, std::initializer_list<TotalColumn> columns) {
    QList<QString> sums;
    for (const TotalColumn& total : columns)
        sums.append(SumOf(list, total.column).text(total.format));
    const int row = list.addRow({kSnapshotTotal.toString()});
    for (const TotalColumn& total : columns)
        list.setText(row, total.column, sums.takeFirst());
}

} // namespace

QString SnapshotProject(DaySnapshot kind) {
    return EntryOf(kind).project.toString();
}

QStringList SnapshotTitles(DaySnapshot kind) {
    const SnapshotEntry& entry = EntryOf(kind);
    if (entry.key.isEmpty())
        return BoardTitles();
    return {u"序号"_s,
            entry.key.toString(),
            snapshot::kRooms.toString(),
            snapshot::kBeds.toString(),
            snapshot::kRoomsSold.toString(),
            snapshot::kBedsSold.toString(),
            snapshot::kRoomRate.toString(),
            snapshot::kBedRate.toString(),
            u"备注"_s};
}

TextTable MakeSnapshot(DaySnapshot kind, const TextTable& board) {
    const SnapshotEntry& entry = EntryOf(kind);
    TextTable list(SnapshotTitles(kind));
    for (int room = 1; room < board.rows(); ++room) {
        if (entry.key.isEmpty())
            list.addRow(board.row(room));
        else
            CountRoom(list, board, room, entry.boardKey);
    }
    if (entry.key.isEmpty())
        AddTotalRow(list, {{room_record::kBeds, u"#0"}, {room_record::kGuests, u"#0"}});
    else
        CloseOccupancy(list);
    return list;
}

void CloseOccupancy(TextTable& list) {
    AddTotalRow(list, {{snapshot::kBeds, u"#0"},
                       {snapshot::kBedsSold, u"#0"},
                       {snapshot::kRooms, u"#0.0"},
                       {snapshot::kRoomsSold, u"#0.0"}});
    for (int row = 1; row < list.rows(); ++row)
        SetRates(list, row);
}

TextTable LoadSnapshot(DaySnapshot kind, QDate day) {
    TextTable list(SnapshotTitles(kind));
    LoadProjectToGrid(SnapshotFile(day), SnapshotProject(kind), list, kNumberColumn);
    return list;
}

int SaveSnapshot(DaySnapshot kind, QDate day, const TextTable& list) {
    QString rows;
    for (int row = 1; row < list.rows(); ++row)
        rows = SetTag(rows, list.text(row, kNumberColumn),
                      GridRowToText(list, row, {}, kNumberColumn));
    return SaveProject(SnapshotFile(day), SnapshotProject(kind), rows);
}

std::optional<Notice> TakeSnapshots(const BoardProgress& progress) {
    TextTable board(BoardTitles());
    bool whole = true;
    const auto goesOn = [&](int done, int all) {
        whole = !progress || progress(done, all);
        return whole;
    };
    if (const auto notice = LoadFtQd(board, LoadStatusPlaces(), goesOn))
        return notice;
    if (!whole)
        return {};
    int failed = board.dataRows() == 0 ? 1 : 0;
    for (const DaySnapshot kind : kDaySnapshots) {
        if (failed == 0)
            failed = SaveSnapshot(kind, Clock::Today(), MakeSnapshot(kind, board));
    }
    return failed == 0
               ? std::nullopt
               : std::optional(Notice{u"没有保存"_s, u"当日统计数据没有保存，请稍候再试！"_s});
}

} // namespace hotel
