#pragma once

// The house as it stood on a day: three lists that are made from the board on the day itself, and kept. They
// are the only thing from which occupancy of days gone by is known; a day on which nobody took them has none,
// and can't get them any more.
//
//     list                project            a row for   columns behind 序号
//     SoldByType          客房销售日报信息   room type   房间类型 and the counts
//     SoldByFloor         楼层销售日报信息   floor       楼层号 and the counts
//     RoomStates          客房状态明细信息   room        those of the board (house/stays/board.h)
//
// The counts: 总房间数 总床位数 售出房间数 售出床位数 客房住宿率 床位住宿率 备注. A room with guests and beds
// is sold: as one room with all its beds; where its status is shared, by the bed, as the part of a room that its
// guests make up of its beds: 2 guests in 4 beds are 0.5 rooms, 2 beds. Rates are in percent, "#0.0", empty
// where there is nothing to be sold; those of the total are reckoned from the totals.
//
// All three lie in one file a day (SnapshotFile), a record a row, keyed by 序号; the last one, 总计, holds the
// sums. Taking a day's list again replaces it.

#include <QDate>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>

#include "house/stays/board.h"
#include "record/text_table.h"
#include "session/notice.h"

namespace hotel {

enum class DaySnapshot { SoldByType, SoldByFloor, RoomStates };
inline constexpr DaySnapshot kDaySnapshots[] = {DaySnapshot::SoldByType, DaySnapshot::SoldByFloor,
                                                DaySnapshot::RoomStates};

inline constexpr QStringView kSnapshotTotal = u"总计";

namespace snapshot {
inline constexpr QStringView kType = u"房间类型";
inline constexpr QStringView kFloor = u"楼层号";
inline constexpr QStringView kRooms = u"总房间数";
inline constexpr QStringView kBeds = u"总床位数";
inline constexpr QStringView kRoomsSold = u"售出房间数";
inline constexpr QStringView kBedsSold = u"售出床位数";
inline constexpr QStringView kRoomRate = u"客房住宿率";
inline constexpr QStringView kBedRate = u"床位住宿率";
} // namespace snapshot

QString SnapshotProject(DaySnapshot kind);
QStringList SnapshotTitles(DaySnapshot kind);

// The list of a board (BoardTitles), with its total row.
TextTable MakeSnapshot(DaySnapshot kind, const TextTable& board);

// The rates of every row and the total row of a list of counts, as a day's list ends, and one that adds up
// the days of a period.
void CloseOccupancy(TextTable& list);

// As it was kept; without rows where the day has none.
TextTable LoadSnapshot(DaySnapshot kind, QDate day);
int SaveSnapshot(DaySnapshot kind, QDate day, const TextTable& list);

// Reads the board and keeps all three lists as today's. A house that can't be read keeps what it has; so does a
// walk that was stopped, of which the notice says nothing.
std::optional<Notice> TakeSnapshots(const BoardProgress& progress = {});

} // namespace hotel
