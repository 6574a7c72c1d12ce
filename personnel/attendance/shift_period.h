#pragma once

// The shift periods of an employee (考勤时段): when he is due, and how far from it a punch still counts. They
// stand in his record as numbered fields <00>, <01>, ... <99> of record text, up to the first empty one:
//
//     班次名称   shift, such as 早班; no two of a person are the same
//     考勤方式   常规, 时间, 倒班 (rotating) or 登记
//     开始时间   HH:mm:ss, start of duty
//     结束时间   HH:mm:ss, its end; ahead of the start for a night period
//     可提前     minutes ahead of the start from which an arrival counts, and ahead of the end from which a
//                departure counts as early
//     可延迟     minutes behind the end up to which a departure counts, and behind the start up to which an
//                arrival counts as late
//     星期设定   seven digits, Monday first: "1" where the period holds
//     缺勤折算   what a day without a punch counts, in days

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

#include "personnel/staff/employee_records.h"

namespace hotel {

// Ways of keeping time. They differ in name only, but for the rotating one, whose punches the analysis of
// the day may move to another shift.
inline constexpr QStringView kRotating = u"倒班";
bool IsKnownMode(QStringView mode);

inline constexpr int kPeriodLimit = 100;

struct ShiftPeriod {
    QString name;
    QString mode;
    QString startText;
    QString endText;
    int start = 0; // minutes since midnight
    int end = 0;
    int early = 0; // minutes
    int late = 0;
    QString weekdays; // as stored
    QString dayValue;

    bool isNight() const { return start > end; }
};

// Minutes since midnight by the first five characters of "HH:mm:ss"; what is no digit there counts as 0.
int MinuteOf(QStringView time);

// `periods` is the value of 考勤时段, which may be cut anywhere: what can't be read is empty or 0.
QList<ShiftPeriod> ReadShiftPeriods(QStringView periods);

// Whether the period holds on a weekday (1 is Monday, 7 Sunday). A setting of fewer than seven digits has
// 1111100 put behind it, so that an empty one means Monday to Friday; digits behind the seventh are not
// looked at.
bool HoldsOn(QStringView weekdays, int weekday);

// Whether a minute lies between the start, less the early minutes, and the end with the late minutes. A
// period that ends when it begins is a day period without length.
bool LiesInside(const ShiftPeriod& period, int minute);

} // namespace hotel
