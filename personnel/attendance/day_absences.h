#pragma once

// The absences of a day, from what is missing among the punches. What a person's punches say about a period is
// told in day_presence.h; then
//
//     nothing at all             the category that the clerk has chosen, the period's day value
//     arrival, no departure      早退; the limit of early leaving, or the period's early minutes where it is 0
//     departure, no arrival      迟到; the limit of lateness, or the period's late minutes where it is 0
//     only a punch in between    the category chosen, to be looked at
//
// All ways of keeping time are treated alike. An adopted overtime punch gets the function and the shift by which
// it counts from then on. In a rotating shift, a punch that bears another shift than the person's periods of the
// day allow is moved to the first of them (by its start) that it lies inside; where it had no function yet, it
// gets the one that the windows of that period give. The absences are those of the punches as they stood before
// they were moved, so that the act must be repeated then, as the user is told.

#include <optional>

#include "personnel/attendance/day_lists.h"
#include "session/notice.h"

namespace hotel {

struct AnalysisSettings {
    int lateLimit = 30;                       // CdXe, minutes: longer counts as this; 0: as it is
    int earlyLimit = 30;                      // ZtXe, likewise
    QString noPunch = QStringLiteral("旷工"); // QsLb
};

// Rows of the list of punches whose cells were changed.
struct PunchChanges {
    QList<int> adopted;
    QList<int> moved;
};

// Replaces day.absences, and changes day.punches. Writes nothing.
PunchChanges DeriveAbsences(AttendanceDay& day, const AnalysisSettings& settings,
                            const QString& corrector);

// The whole act: derives, writes the changed punches and the absences, logs. The lists stay as they are when
// a write fails, and the notice tells; one of adjusted shifts is told by kAdjustedWords.
struct AbsenceOutcome {
    QList<Notice> notices;
    PunchChanges changes;
};
AbsenceOutcome MakeAbsences(AttendanceDay& day, const AnalysisSettings& settings);

inline constexpr QStringView kAskMakeAbsences =
    u"本操作将清除原来的已经产生的缺勤信息，包括数据库中的纪录！真的要继续吗?";
inline constexpr QStringView kAdjustedWords =
    u"部分考勤班次进行了自适应调整，请重新进行本操作，并随即执行统计分析处理！";

// Replaces the absences of the day that are stored.
std::optional<Notice> SaveAbsences(const AttendanceDay& day);

// An absence by hand: none of the fields may be empty. It is stored at once.
struct AbsenceEntry {
    QString number;
    QString name;
    QString shift;
    QString category;
    QString value;
    QString note;
};
std::optional<Notice> AddAbsence(AttendanceDay& day, const AbsenceEntry& entry);
std::optional<Notice> DeleteAbsence(AttendanceDay& day, int row);

} // namespace hotel
