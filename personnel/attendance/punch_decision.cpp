#include "personnel/attendance/punch_decision.h"

#include "record/literals.h"

namespace hotel {

namespace {

using namespace punch_word;

constexpr int kOvertimeMargin = 10;
constexpr QStringView kEveryDay = u"1111111";

// Windows of a period, the first that holds decides. Lateness is measured with the late minutes and early
// leaving with the early ones: the two are crossed on purpose, since the margins say how far from the period a
// punch still belongs to it on either side.
struct Window {
    QStringView function;
    QStringView state;
    bool (*holds)(const ShiftPeriod& period, int minute);
};
constexpr Window kWindows[] = {
    {kArrival, kNormal,
     [](const ShiftPeriod& p, int t) { return t >= p.start - p.early && t <= p.start; }},
    {kDeparture, kNormal,
     [](const ShiftPeriod& p, int t) { return t >= p.end && t <= p.end + p.late; }},
    {kArrival, kLate,
     [](const ShiftPeriod& p, int t) { return t > p.start && t <= p.start + p.late; }},
    {kDeparture, kEarly,
     [](const ShiftPeriod& p, int t) { return t >= p.end - p.early && t < p.end; }},
};

bool Counts(const ShiftPeriod& period, int minute, int weekday) {
    return HoldsOn(period.weekdays, weekday) && LiesInside(period, minute);
}

PunchDecision DecisionBy(const ShiftPeriod& period, WindowHit hit) {
    return {hit.function.toString(),
            hit.state.toString(),
            period.name,
            period.mode,
            period.start,
            period.end,
            period.early,
            period.late,
            period.weekdays};
}

PunchDecision DecideByWindows(int minute, int weekday, const QList<ShiftPeriod>& periods) {
    for (const ShiftPeriod& period : periods) {
        if (!Counts(period, minute, weekday) || !IsKnownMode(period.mode))
            continue;
        if (const WindowHit hit = HitOf(period, minute); !hit.function.isEmpty())
            return DecisionBy(period, hit);
    }
    for (const ShiftPeriod& period : periods) {
        if (Counts(period, minute, weekday))
            return DecisionBy(period, {kArrival, kAtWork});
    }
    return {};
}

} // namespace

WindowHit HitOf(const ShiftPeriod& period, int minute) {
    for (const Window& window : kWindows) {
        if (window.holds(period, minute))
            return {window.function, window.state};
    }
    return {};
}

PunchDecision DecidePunch(int minute, int weekday, const QList<ShiftPeriod>& periods) {
    const PunchDecision decision = DecideByWindows(minute, weekday, periods);
    if (!decision.shift.isEmpty())
        return decision;
    return {kUnknown.toString(),
            kNormal.toString(),
            {},
            kOvertime.toString(),
            minute,
            minute,
            kOvertimeMargin,
            kOvertimeMargin,
            kEveryDay.toString()};
}

} // namespace hotel
