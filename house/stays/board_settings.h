#pragma once

// What a user wants to see of the board, kept with the user, not with the workstation: one record for
// the statuses, one for the floors and one for the room types. Each holds a field an entry of the
// list, tagged by the entry's index counted from 0 ("00", "01", ...): "1" shown, "0" hidden.

#include <QList>
#include <QString>
#include <QStringView>

#include <optional>

namespace hotel {

namespace board_settings {
inline constexpr QStringView kProject = u"房间状态个性设定";
inline constexpr QStringView kStatuses = u"显示房态";
inline constexpr QStringView kFloors = u"显示楼层";
inline constexpr QStringView kTypes = u"显示房型";
} // namespace board_settings

struct BoardSettings {
    QList<bool> statuses; // by place
    QList<bool> floors;   // by entry of the board's lists
    QList<bool> types;
};

// One record. An entry that was never stored, of a new floor say, is shown.
QString TextOfShown(const QList<bool>& shown);
QList<bool> ShownOfText(QStringView text, qsizetype entries);

// One read for all three; nothing when it fails. What was not read is not to be written back.
std::optional<BoardSettings> LoadBoardSettings(QStringView user, qsizetype statuses,
                                               qsizetype floors, qsizetype types);

// 0 when all three records are written.
int SaveBoardSettings(QStringView user, const BoardSettings& settings);

} // namespace hotel
