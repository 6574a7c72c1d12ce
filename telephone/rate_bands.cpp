#include "telephone/rate_bands.h"

#include <algorithm>

namespace hotel {

namespace {

constexpr qsizetype kEntryLength = 32;
constexpr int kDaysAWeek = 7;
constexpr qsizetype kDays = 0;
constexpr qsizetype kHolidays = 8;
constexpr qsizetype kStart = 17;
constexpr qsizetype kEnd = 21;
constexpr qsizetype kTimeLength = 4;
constexpr qsizetype kPercent = 25;
constexpr qsizetype kPercentLength = 3;
constexpr qsizetype kFlags = 28;
constexpr qsizetype kThirdFlag = kFlags + 2;
constexpr qsizetype kFourthFlag = kFlags + 3;
constexpr qint64 kUnitsAPercent = 100; // of Money

constexpr int kFixedHolidays[] = {101, 501, 1001, 1002};

struct SpringFestival {
    int year;
    int first; // month × 100 + day
    int last;
};
constexpr SpringFestival kSpringFestivals[] = {
    {1998, 128, 130}, {1999, 216, 218}, {2000, 205, 207}, {2001, 124, 126}, {2002, 212, 214},
    {2003, 201, 203}, {2004, 122, 124}, {2005, 209, 211}, {2006, 129, 131}, {2007, 218, 220},
};

std::array<bool, kDaysAWeek> DayFlags(QStringView text) {
    std::array<bool, kDaysAWeek> flags{};
    for (size_t day = 0; day < flags.size(); ++day)
        flags[day] = text[qsizetype(day)] == u'1';
    return flags;
}

bool IsWithin(int time, const HalfRateEntry& entry) {
    if (entry.start <= entry.end)
        return time >= entry.start && time <= entry.end;
    return time >= entry.start || time <= entry.end;
}

} // namespace

std::optional<HalfRateEntry> ParseHalfRate(QStringView text) {
    if (text.size() != kEntryLength)
        return std::nullopt;
    const auto number = [text](qsizetype from, qsizetype length) {
        return int(LeadingNumber(text.sliced(from, length)));
    };
    return HalfRateEntry{
        DayFlags(text.sliced(kDays, kDaysAWeek)), DayFlags(text.sliced(kHolidays, kDaysAWeek)),
        number(kStart, kTimeLength), number(kEnd, kTimeLength),
        RateBand{Money::FromUnits(number(kPercent, kPercentLength) * kUnitsAPercent),
                 text[kThirdFlag] == u'1', text[kFourthFlag] == u'1'}};
}

RateBands::RateBands(const AccountingConfig& config) {
    for (const QString& text : config.values(accounting_key::kHalfRate)) {
        if (const auto entry = ParseHalfRate(text))
            entries_.append(*entry);
    }
    for (const QString& day : config.values(accounting_key::kHalfRateDay))
        holidays_.append(int(LeadingNumber(day)));
}

RateBand RateBands::at(QDate day, QTime time) const {
    if (!day.isValid() || !time.isValid())
        return {};
    const auto weekday = size_t(day.dayOfWeek() % kDaysAWeek);
    const bool holiday = isHoliday(day);
    const int minute = time.hour() * 100 + time.minute();
    for (const HalfRateEntry& entry : entries_) {
        if (entry.days[weekday] && (!holiday || entry.holidays[weekday]) && IsWithin(minute, entry))
            return entry.band;
    }
    return {};
}

bool RateBands::isHoliday(QDate day) const {
    const int date = day.month() * 100 + day.day();
    return std::ranges::find(kFixedHolidays, date) != std::end(kFixedHolidays) ||
           holidays_.contains(date) ||
           std::ranges::any_of(kSpringFestivals, [&](const SpringFestival& festival) {
               return festival.year == day.year() && date >= festival.first &&
                      date <= festival.last;
           });
}

} // namespace hotel
