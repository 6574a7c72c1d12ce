#pragma once

// The statistics of a day, per person (KqtjQd) and per shift (KqbcQd), from the due periods, the punches and the
// absences. What a person's punches say about a period is told in day_presence.h; then
//
//     出勤次数            periods with any punch; absences of the kinds 出差 and 换休 add one each
//     工作时间            hours of these periods, to the tenth
//     在岗时间            hours from the arrival to the departure; the period's start or end where one is missing.
//                         Where there is no arrival, a punch in between stands for it
//     迟到, 早退          by the state of arrival and departure, in minutes, with their limit; and by the absences
//                         of these kinds. An absence 公务 or 特许 on the shift excuses the lateness
//     加班次数, 加班小时  of a person without a due period: once, from the first to the last overtime punch
//     事假, 病假, 缺勤    number and days of the absences; 旷工 counts as 缺勤
//     脱岗统计            hours of the periods attended in which the person was not there
//
// The other kinds of absence add nothing. A period's hours are its own whatever the weekday.

#include <optional>

#include "personnel/attendance/day_absences.h"
#include "personnel/attendance/day_lists.h"
#include "session/notice.h"

namespace hotel {

// Computes both lists anew, for the people that they show and those whose punches stand among the day's. The
// notice tells of a person with more than five shifts, of which the surplus is not counted by shift.
std::optional<Notice> ComputeStatistics(AttendanceDay& day, const AnalysisSettings& settings);

// The same, logged.
std::optional<Notice> MakeStatistics(AttendanceDay& day, const AnalysisSettings& settings);

inline constexpr QStringView kAskSaveStatistics =
    u"本操作将清除原来的已经产生的该日考勤统计信息！真的要继续吗?";

// Replaces the stored results of the day by both lists.
std::optional<Notice> SaveStatistics(const AttendanceDay& day);

} // namespace hotel
