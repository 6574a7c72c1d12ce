#pragma once

// Times of the day at which calls cost less. A HALFFEE entry of the configuration is a text of 32 characters:
//
//      1 to  7   a flag "0" or "1" for each day of the week, Sunday first: the entry holds on that day
//      9 to 15   the same flags for a holiday on that day
//     18 to 21   start, as hour × 100 + minute
//     22 to 25   end, likewise; both belong to the band, and one that ends before it starts runs across midnight
//     26 to 28   percentage of the rate
//     29 to 32   four flags; the third and the fourth say what the percentage is taken of (call_rating.h)
//
// The first entry that applies to the start of a call is its band.

#include <QDate>
#include <QList>
#include <QStringList>
#include <QStringView>
#include <QTime>

#include <array>
#include <optional>

#include "record/numbers.h"
#include "telephone/accounting_config.h"

namespace hotel {

struct RateBand {
    Money factor = Money::FromUnits(10000);
    bool onFloating = false;       // flag 3
    bool floatingOnTheSum = false; // flag 4

    bool operator==(const RateBand&) const = default;
};

struct HalfRateEntry {
    std::array<bool, 7> days{};     // Sunday first
    std::array<bool, 7> holidays{}; // likewise
    int start = 0;                  // hour × 100 + minute
    int end = 0;
    RateBand band;
};

// Nothing for a text of another length.
std::optional<HalfRateEntry> ParseHalfRate(QStringView text);

class RateBands {
public:
    RateBands() = default;
    explicit RateBands(const AccountingConfig& config);

    // The whole rate where no entry applies, and for a call without a date or a time.
    RateBand at(QDate day, QTime time) const;

    // New Year, 1 May, the first two days of October, the Spring Festival of 1998 to 2007, deliberately none
    // later, and the days of HALFDEF.
    bool isHoliday(QDate day) const;

private:
    QList<HalfRateEntry> entries_;
    QList<int> holidays_; // month × 100 + day
};

} // namespace hotel
