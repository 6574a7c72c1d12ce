#pragma once

// Repairs of rooms: what is broken, who reported it, and how it ended. The room's status is set by hand on the board.
//
//     维修单号   number, yyMMddHHmmss
//     房间号     the room
//     目前状态   state of the room            }
//     维修原因   reason                       } each from its category; required
//     报修日期   yyyy-MM-dd
//     报修单位   报修人     who reported it; only he may delete it, on that day
//     维修结果   outcome, from its category; empty until it is closed
//     维修日期   yyyy-MM-dd
//     维修人     repairer

#include "tools/plans/plan_list.h"

namespace hotel {

namespace repair {
inline constexpr QStringView kProject = u"维修信息";
inline constexpr QStringView kNumber = u"维修单号";
inline constexpr QStringView kRoom = u"房间号";
inline constexpr QStringView kState = u"目前状态";
inline constexpr QStringView kReason = u"维修原因";
inline constexpr QStringView kReported = u"报修日期";
inline constexpr QStringView kOutcome = u"维修结果";
} // namespace repair

const PlanKind& RepairPlans();

} // namespace hotel
