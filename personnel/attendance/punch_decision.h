#pragma once

// What a punch means: an arrival or a departure, on time, late or early, on which shift. Decided by the time of
// the day, the weekday whose rules hold, and the person's shift periods, and by nothing else.

#include <QString>

#include "personnel/attendance/shift_period.h"

namespace hotel {

namespace punch_word {
inline constexpr QStringView kArrival = u"上班"; // 考勤功能
inline constexpr QStringView kDeparture = u"下班";
inline constexpr QStringView kUnknown = u"未知";
inline constexpr QStringView kNormal = u"正常"; // 状态
inline constexpr QStringView kLate = u"迟到";
inline constexpr QStringView kEarly = u"早退";
inline constexpr QStringView kAtWork = u"工作中";
inline constexpr QStringView kOvertime = u"加班"; // 考勤方式 outside every period; 状态 by hand
} // namespace punch_word

// The fields of a decision as the punch record bears them, and what they were decided by.
struct PunchDecision {
    QString function; // 考勤功能
    QString state;    // 状态
    QString shift;    // 班次名称
    QString mode;     // 考勤方式
    int start = 0;    // minutes since midnight
    int end = 0;
    int early = 0; // minutes
    int late = 0;
    QString weekdays;

    bool operator==(const PunchDecision&) const = default;
};

// What a minute means in one period; empty function and state where none of its windows holds it.
struct WindowHit {
    QStringView function;
    QStringView state;
};
WindowHit HitOf(const ShiftPeriod& period, int minute);

// `minute` since midnight, `weekday` 1 (Monday) to 7. The first period whose windows hold the minute decides.
// Where none does, the first one that the minute lies inside tells that the person is at work; where there
// is none either, it is overtime.
PunchDecision DecidePunch(int minute, int weekday, const QList<ShiftPeriod>& periods);

} // namespace hotel
