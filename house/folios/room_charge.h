#pragma once

// What the last day of a stay costs: nothing, half a day or a full day by the time of day, or an hourly
// price for a room let by the hour. Pure rules over texts; who calls them has read everything.
//
// Times of day are "HH:mm" and dates "yyyy-MM-dd", and all are compared as texts, as they stand: a
// setting "6:00" comes behind "12:00". Amounts are "#0.00". A price may be an expression or have
// full-width digits; one that can't be read counts as 0.

#include <QString>
#include <QStringView>

#include <optional>

#include "record/text_table.h"

namespace hotel {

// Parameters of the house (session/parameters.h).
struct ChargeTimes {
    QString dayStart;      // XYtks: the day begins
    QString halfUntilNoon; // Bjsx1: from the day's start up to here nothing is charged
    QString halfUntilEve;  // Bjsx2: up to here half a day, behind it a full one
    QString nightHalf;     // Yjbj: who arrived before it pays a full day
};
ChargeTimes ChargeTimesInUse();

// The options of the screen, by their number.
enum class ChargePeriod { Free = 0, Half = 1, Full = 2 };

// Of the first guest who leaves.
struct FirstLeaving {
    QString chargedThrough; // 结算日期: the date through which the audit has charged; empty: never
    QString arrivalTime;    // 入住时间
};

struct PeriodChoice {
    ChargePeriod period = ChargePeriod::Free;
    bool remind =
        false; // the audit has not charged the current day: the cashier looks at the charge

    bool operator==(const PeriodChoice&) const = default;
};

// The period of the last day. The clock chooses first; the first leaving guest may overrule it:
//
//     charged through an earlier day   a full day, with a reminder once the day has begun
//     charged through today or later   as the clock has it
//     never charged                    at least half a day: who arrived before the night half price
//                                      begins pays a full day, so does who leaves in the half-price
//                                      window; everybody else, after the evening limit too, pays half
PeriodChoice SettlementPeriod(QStringView now, const ChargeTimes& times,
                              const std::optional<FirstLeaving>& first, QStringView today);

// A row of the settlement.
struct ChargedStay {
    QString status; // 房态
    QString price;  // 确认房价
    QString arrivalTime;
    QString roomType;
};

// The charge of the last day; nothing where a room let by the hour is of a type that the rate table
// doesn't have.
std::optional<QString> LastCharge(const ChargedStay& stay, ChargePeriod period, QStringView now,
                                  const TextTable& rates);

// The price of the day, or half of it, or 0.00. Half of an amount is cut to four decimals, which never
// changes how it is rounded to two.
QString DayCharge(ChargePeriod period, QStringView price);

// Hours from arrival to now that are paid, two at least. A stay isn't longer than a day: who seems to
// arrive later than now arrived yesterday. Hours begun count from their first minute on: with m minutes
// stayed, m/60 + 0.99 cut to a whole number is (m + 59) / 60 in whole numbers, because 0.99 of an hour
// is 59.4 minutes and m is whole.
int PaidHours(QStringView now, QStringView arrivalTime);

// The rate table's 钟点起价 for the first two hours and its 钟点价 for each further one.
std::optional<QString> HourlyCharge(int hours, QStringView roomType, const TextTable& rates);

} // namespace hotel
