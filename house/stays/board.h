#pragma once

// The room status board as data: what the front desk sees of the house. It is a snapshot; only a
// refresh shows what other desks have done since.

#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <array>
#include <functional>
#include <optional>

#include "record/text_table.h"
#include "session/notice.h"

namespace hotel {

inline constexpr int kStatusPlaces = 12;

// A status on the board. The category 房态 has them in the order of their places; a status behind the
// twelfth has none, and its rooms are not drawn.
struct StatusPlace {
    QString word;   // empty: the place is hidden
    int colour = 0; // as in the category, 0xBBGGRR
};
using StatusPlaces = std::array<StatusPlace, kStatusPlaces>;

StatusPlaces PlacesOfCategory(QStringView categoryText);
StatusPlaces LoadStatusPlaces();

// All floors in the order of the room database, each once; all room types (at most 100).
QStringList LoadLcQd();
QStringList LoadRoomTypes();

// 序号, 房间号, 房态, 楼层号, 客房类型, 床位数, 住客数, 住客姓名
QStringList BoardTitles();

// Asked ahead of each room whose guests are read: how many are done, of how many. False ends the walk;
// the rooms that are left stay without the names of their guests.
using BoardProgress = std::function<bool(int done, int all)>;

// Fills the list of rooms: one read for the house and one for each room with a count of guests. A room
// without a status gets the board's vacant word; a vacant room shows no count. Where no place of the
// board has a vacant word, the notice says so and the list stays as it was read.
std::optional<Notice> LoadFtQd(TextTable& list, const StatusPlaces& places,
                               const BoardProgress& progress = {});

// The names of a room's guests (one field a bed) joined with ",".
QString GuestNames(QStringView guests);

// What the map shows.
struct BoardFilter {
    QSet<QString> statuses;
    QSet<QString> floors;
    QSet<QString> types;

    bool shows(const QString& status, const QString& floor, const QString& type) const {
        return statuses.contains(status) && floors.contains(floor) && types.contains(type);
    }
};

inline constexpr int kMapRooms = 5; // in a line of the map, behind the floor

struct MapCell {
    QString text; // "room/beds/guests"
    int colour = 0;
};
struct MapLine {
    QString floor;
    QList<MapCell> cells;
};

// The map: the rooms of the list in its order, a new line at each change of floor and after kMapRooms
// rooms. A room whose status has no place is not drawn.
QList<MapLine> MakeFtTb(const TextTable& list, const StatusPlaces& places,
                        const BoardFilter& filter);

// The room of a map cell: what stands before its first "/".
QString RoomOfMapCell(QStringView cellText);

// The three counts of the board: rooms, beds and guests by status, by floor and by type, each closed by
// a row 合计.
struct BoardCounts {
    TextTable byStatus; // 房态, 房数, 床数, 住客
    TextTable byFloor;  // 楼层, 房数, 床数, 住客
    TextTable byType;   // 房型, 房数, 床数, 住客
};
BoardCounts EmptyCounts(const StatusPlaces& places, const QStringList& floors,
                        const QStringList& types);

// Counts the list anew. One notice for each room whose status or type has no line.
QList<Notice> SetFtLcFxtjQd(BoardCounts& counts, const TextTable& list);

// A status set by hand, on the room as the server has it now.
struct StatusChange {
    bool changed = false; // written: the screen shows the new status
    std::optional<Notice> refusal;
};
StatusChange SetStatusByHand(QStringView room, QStringView status);

} // namespace hotel
