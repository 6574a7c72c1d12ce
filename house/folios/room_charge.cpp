#include "house/folios/room_charge.h"

#include <algorithm>

#include "record/literals.h"
#include "record/numbers.h"
#include "session/parameters.h"
#include "tools/aids/CalcSub.h"

namespace hotel {

namespace {

constexpr QStringView kByTheHour = u"钟点";
constexpr QStringView kFirstHours = u"钟点起价";
constexpr QStringView kFurtherHour = u"钟点价";
constexpr int kTypeColumn = 1;
constexpr int kLeastHours = 2;
constexpr int kMinutesOfDay = 24 * 60;

ChargePeriod PeriodOfClock(QStringView now, const ChargeTimes& times) {
    ChargePeriod period = ChargePeriod::Free;
    if (now > times.halfUntilNoon && now <= times.halfUntilEve)
        period = ChargePeriod::Half;
    if (now > times.halfUntilEve)
        period = ChargePeriod::Full;
    return period;
}

ChargePeriod PeriodOfNeverCharged(ChargePeriod byClock, QStringView arrivalTime,
                                  const ChargeTimes& times) {
    const bool full = arrivalTime < times.nightHalf || byClock == ChargePeriod::Half;
    return full ? ChargePeriod::Full : ChargePeriod::Half;
}

int MinuteOfDay(QStringView time) {
    return int(LeadingNumber(time.mid(0, 2))) * 60 + int(LeadingNumber(time.mid(3, 2)));
}

} // namespace

ChargeTimes ChargeTimesInUse() {
    return {Param(u"XYtks"), Param(u"Bjsx1"), Param(u"Bjsx2"), Param(u"Yjbj")};
}

PeriodChoice SettlementPeriod(QStringView now, const ChargeTimes& times,
                              const std::optional<FirstLeaving>& first, QStringView today) {
    const ChargePeriod byClock = PeriodOfClock(now, times);
    if (!first)
        return {byClock};
    if (first->chargedThrough.isEmpty())
        return {PeriodOfNeverCharged(byClock, first->arrivalTime, times)};
    if (first->chargedThrough < today)
        return {ChargePeriod::Full, now >= times.dayStart};
    return {byClock};
}

std::optional<QString> LastCharge(const ChargedStay& stay, ChargePeriod period, QStringView now,
                                  const TextTable& rates) {
    if (stay.status == kByTheHour)
        return HourlyCharge(PaidHours(now, stay.arrivalTime), stay.roomType, rates);
    return DayCharge(period, stay.price);
}

QString DayCharge(ChargePeriod period, QStringView price) {
    const Money full = AmountFromCell(price).orZero();
    return Money::FromUnits(full.units() * qint64(period) / 2).text();
}

int PaidHours(QStringView now, QStringView arrivalTime) {
    int minutes = MinuteOfDay(now) - MinuteOfDay(arrivalTime);
    if (minutes < 0)
        minutes += kMinutesOfDay;
    return std::max(kLeastHours, (minutes + 59) / 60);
}

std::optional<QString> HourlyCharge(int hours, QStringView roomType, const TextTable& rates) {
    const int row = rates.find(kTypeColumn, roomType);
    if (row < 0)
        return {};
    const Money first = AmountFromCell(rates.text(row, kFirstHours)).orZero();
    const Money further = AmountFromCell(rates.text(row, kFurtherHour)).orZero();
    return (Money::FromUnits(further.units() * (hours - kLeastHours)) + first).text();
}

} // namespace hotel
