#include "house/folios/night_charge.h"

#include "record/literals.h"

#include <QDate>

#include <algorithm>

namespace hotel {

namespace {

constexpr QStringView kDateFormat = u"yyyy-MM-dd";
constexpr qsizetype kMinuteLength = 5; // of "HH:mm"

constexpr Money kNone = Money::FromUnits(0);
constexpr Money kHalf = Money::FromUnits(5000);
constexpr Money kFull = Money::FromUnits(10000);

using Condition = bool (*)(const NightBed& bed, const NightLimits& limits);
using Date = QString (*)(const NightBed& bed);

struct NightRule {
    Condition fits;
    Money factor;
    Date settledThrough;
    bool writesBed;
};

QString DayBehind(QStringView date, QStringView auditDate) {
    const QDate day = QDate::fromString(date, kDateFormat);
    return day.isValid() ? day.addDays(1).toString(kDateFormat) : auditDate.toString();
}

bool IsSettled(const NightBed& bed, const NightLimits&) {
    return bed.settledThrough >= bed.auditDate;
}

bool WasSettledBefore(const NightBed& bed, const NightLimits&) {
    return !bed.settledThrough.isEmpty();
}

QStringView MinuteOfArrival(const NightBed& bed) {
    return bed.arrivalTime.left(kMinuteLength);
}

bool CameInTheNight(const NightBed& bed, const NightLimits& limits) {
    return MinuteOfArrival(bed) < limits.nightHalfPrice;
}

bool CameAtDawn(const NightBed& bed, const NightLimits& limits) {
    return MinuteOfArrival(bed) <= limits.dayBegins;
}

bool CameOnAnEarlierDay(const NightBed& bed, const NightLimits&) {
    return bed.arrivalDate < bed.auditDate;
}

bool Otherwise(const NightBed&, const NightLimits&) {
    return true;
}

QString AsItWas(const NightBed& bed) {
    return bed.settledThrough.toString();
}

QString OneDayFurther(const NightBed& bed) {
    return DayBehind(bed.settledThrough, bed.auditDate);
}

QString DayOfArrival(const NightBed& bed) {
    return bed.arrivalDate.toString();
}

QString DayBehindArrival(const NightBed& bed) {
    return DayBehind(bed.arrivalDate, bed.auditDate);
}

// The table of the header, line by line.
constexpr NightRule kRules[] = {
    {IsSettled, kNone, AsItWas, false},
    {WasSettledBefore, kFull, OneDayFurther, true},
    {CameInTheNight, kFull, DayOfArrival, true},
    {CameAtDawn, kHalf, DayOfArrival, true},
    {CameOnAnEarlierDay, kFull, DayBehindArrival, true},
    {Otherwise, kNone, DayOfArrival, true},
};

} // namespace

NightCharge ChargeOfNight(const NightBed& bed, const NightLimits& limits) {
    const auto* rule = std::ranges::find_if(
        kRules, [&](const NightRule& candidate) { return candidate.fits(bed, limits); });
    return {rule->factor, rule->settledThrough(bed), rule->writesBed};
}

} // namespace hotel
