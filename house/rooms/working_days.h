#pragma once

// Special working days: dates on which attendance goes by the rules of another weekday. One record a
// day, keyed by its row as "000":
//
//     说明       what the day is
//     日期       yyyy-MM-dd
//     换算星期   the weekday whose rules hold: 星期天, 星期一, ... 星期六
//
// The list is a table of these three columns.

#include <QDate>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>

#include "record/text_table.h"
#include "session/notice.h"

namespace hotel {

namespace working_day {
inline constexpr QStringView kProject = u"工作日定义";
inline constexpr QStringView kRemark = u"说明";
inline constexpr QStringView kDate = u"日期";
inline constexpr QStringView kWeekday = u"换算星期";
} // namespace working_day

inline constexpr int kWorkingDayLimit = 1000;

// 星期天 to 星期六, and the one that a typed key picks: "0" to "6" by index, "7" is Sunday too. Empty
// for any other key.
const QStringList& Weekdays();
QString WeekdayOfKey(QStringView key);

// The weekday whose rules hold on `date` ("yyyy-MM-dd"); empty for a date that isn't defined.
QString CheckGzr(QStringView date);

// Nothing when they can't be read: saving replaces all that is stored.
std::optional<TextTable> LoadWorkingDays();

// A day that is gone can't be defined any more.
std::optional<Notice> CheckWorkingDay(QDate day, QDate today);

struct WorkingDayChange {
    bool changed = false;
    std::optional<Notice> refusal;
};

// Takes the day into the list: into its last row when that is empty, else behind it. Without remark or
// weekday nothing happens.
WorkingDayChange AddWorkingDay(TextTable& list, const QString& remark, const QString& date,
                               const QString& weekday);

// Removes a row; the only row is emptied.
void RemoveWorkingDay(TextTable& list, int row);

// Replaces all that is stored by the list. A row that can't be written stops the act.
std::optional<Notice> SaveWorkingDays(const TextTable& list);

} // namespace hotel
