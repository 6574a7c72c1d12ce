#include "personnel/attendance/shift_period.h"

#include <algorithm>

#include "personnel/staff/employee_lists.h"
#include "record/field_walk.h"
#include "record/numbers.h"
#include "record/record_text.h"

namespace hotel {

namespace {

constexpr QStringView kModes[] = {u"常规", u"时间", kRotating, u"登记"};

int Whole(QStringView text) {
    return int(LeadingNumber(text));
}

// The number of two characters; nearly always two digits.
int TwoDigits(QStringView time, qsizetype place) {
    const auto digit = [&](qsizetype i) { return i < time.size() ? time[i].unicode() - u'0' : -1; };
    const int tens = digit(place);
    const int ones = digit(place + 1);
    const bool plain = tens >= 0 && tens <= 9 && ones >= 0 && ones <= 9;
    return plain ? tens * 10 + ones : Whole(time.mid(place, 2));
}

ShiftPeriod ReadPeriod(QStringView text) {
    using namespace shift_period;
    ShiftPeriod period;
    for (FieldWalk field(text); field.next();) {
        const QStringView name = field.name();
        const QStringView value = field.value();
        if (name == kName)
            period.name = value.toString();
        else if (name == kMode)
            period.mode = value.toString();
        else if (name == kStart)
            period.startText = value.toString();
        else if (name == kEnd)
            period.endText = value.toString();
        else if (name == kEarly)
            period.early = Whole(value);
        else if (name == kLate)
            period.late = Whole(value);
        else if (name == kWeekdays)
            period.weekdays = value.toString();
        else if (name == kDayValue)
            period.dayValue = value.toString();
    }
    period.start = MinuteOf(period.startText);
    period.end = MinuteOf(period.endText);
    return period;
}

} // namespace

bool IsKnownMode(QStringView mode) {
    return std::ranges::find(kModes, mode) != std::end(kModes);
}

int MinuteOf(QStringView time) {
    return TwoDigits(time, 0) * 60 + TwoDigits(time, 3);
}

QList<ShiftPeriod> ReadShiftPeriods(QStringView periods) {
    QList<ShiftPeriod> read;
    while (read.size() < kPeriodLimit) {
        const QString text = GetTag(periods, FormatNumber(qint64(read.size()), u"00"));
        if (text.isEmpty())
            break;
        read.append(ReadPeriod(text));
    }
    return read;
}

bool HoldsOn(QStringView weekdays, int weekday) {
    return WeekdaySetting(weekdays.toString()).at(weekday - 1) == u'1';
}

bool LiesInside(const ShiftPeriod& period, int minute) {
    const bool reached = minute >= period.start - period.early;
    const bool notPast = minute <= period.end + period.late;
    return period.isNight() ? reached || notPast : reached && notPast;
}

} // namespace hotel
