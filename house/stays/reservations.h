#pragma once

// Reservations: what is planned to come. The list is for planning only: check-in doesn't read it, holding a room
// doesn't change the room's status, and two reservations may hold one room.
//
//     预定单号   number, yyMMddHHmmss          订房间数   rooms, above 0
//     客人姓名   客人单位   one of them        预订房价   预定人 (required)
//     通讯地址   电话号码   手机号码           预定状态   计划, 取消, 实施, 延期, 完成; set by hand
//     传真号码   电子邮件                      合约单位   合同编号   付款方式   押金金额
//     预计到达   预计离店   yyyy-MM-dd         销售中介   佣金说明   预定来源   备注信息
//                                              经办单位   经办人     who made it
//     预留客房   the rooms held: one field a room, tagged 001, 002, ..., its value the room number; no column of
//                the list

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

#include "record/text_table.h"
#include "session/notice.h"
#include "tools/plans/plan_list.h"

namespace hotel {

namespace reservation {
inline constexpr QStringView kProject = u"客房预订信息";
inline constexpr QStringView kNumber = u"预定单号";
inline constexpr QStringView kGuest = u"客人姓名";
inline constexpr QStringView kCompany = u"客人单位";
inline constexpr QStringView kArrival = u"预计到达";
inline constexpr QStringView kDeparture = u"预计离店";
inline constexpr QStringView kRooms = u"订房间数";
inline constexpr QStringView kBookedBy = u"预定人";
inline constexpr QStringView kState = u"预定状态";
inline constexpr QStringView kHeldRooms = u"预留客房";
inline constexpr QStringView kPlanned = u"计划";
} // namespace reservation

QStringList ReservationStates();

// Whether the guests are still expected: false for what doesn't come any more, or is here already.
bool IsToCome(QStringView state);

// Tidying looks for its words in the column 预订房价 and not in 预定状态, deliberately: hotels tidy by what they write
// there. A reservation whose state alone says 完成 stays in the list.
const PlanKind& ReservationPlans();

// 预留客房 of these rooms, and the rooms that it holds.
QString HeldRoomsText(const QStringList& rooms);
bool HoldsRoom(QStringView heldRooms, QStringView room);

// The rooms to choose from: 选择, 房间号, 楼层号, 客房类型, 床位数. A held room shows 是 in 选择.
inline constexpr QStringView kHeldMark = u"是";
QStringList HeldRoomTitles();
void LoadRoomsToHold(TextTable& rooms);
void MarkHeldRooms(TextTable& rooms, QStringView heldRooms);
QStringList MarkedRooms(const TextTable& rooms);
// The list of the marked rooms only, as it is printed.
TextTable MarkedList(const TextTable& rooms);
// Marks, or clears, all rooms whose cell in `column` is `value`.
void MarkAll(TextTable& rooms, QStringView column, QStringView value, bool held);

// Held rooms and their beds by floor (楼层, 房数, 床数) and by type (房型, 房数, 床数), each closed by a row 合计; and a
// notice when a room's type isn't among `types`.
struct HeldCounts {
    TextTable byFloor;
    TextTable byType;
    std::optional<Notice> notice;
};
HeldCounts SetLcFxtjQd(const TextTable& rooms, const QStringList& floors, const QStringList& types);

} // namespace hotel
