#pragma once

// Statistics over time: what the analysis has saved for each day (day_statistics.h), summed for the people of a
// department, or all, and for their shifts. A day that was not saved adds nothing. The department is the one that
// stands in the day's result, whatever the person's present one.

#include <QDate>
#include <QString>

#include <functional>

#include "record/text_table.h"

namespace hotel {

struct PeriodStatistics {
    TextTable
        people; // KqtjQd: the columns of the day's statistics, a row a person, the last one 合计
    TextTable shifts; // BctjQd: 编号, 姓名, 班次名称, 次数, 时间, 在岗, the last one 合计
    TextTable days;        // 日期 and the sums of that day of the columns of kComparedColumns
    TextTable departments; // 所在部门, likewise
    int persons = 0;
    bool finished = true; // false: stopped, and the sums are those of the days that were read
    int unread = 0;       // days whose results may stand on the server, and are not in the sums
};

// What days and departments are compared by.
const QStringList& ComparedColumns();

// Tells which file is read, and how many days of all are done; false stops.
using DayProgress = std::function<bool(const QString& file, int done, int total)>;

// Both days included; `department` may be kAllDepartments.
PeriodStatistics SumPeriod(QDate first, QDate last, const QString& department,
                           const DayProgress& progress = {});

} // namespace hotel
