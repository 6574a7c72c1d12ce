#pragma once

// What FrmKqCount asks of the attendance files: arrivals, departures and absences of a period, and the report of
// months. All of it walks day by day and can be stopped.

#include <QDate>
#include <QString>
#include <QStringView>

#include "personnel/attendance/period_statistics.h"
#include "record/text_table.h"

namespace hotel {

enum class AttendanceQuestion { Arrivals, Departures, Absences };

struct AttendanceCondition {
    QDate first;
    QDate last;
    QString number;             // of a person; empty: everybody
    bool onlyIrregular = false; // late arrivals, early departures
};

// The condition text of a question (record/conditions.h). The key of a punch is its moment, so the period bounds
// it: hours up to 30 are safely inside. Absences are keyed by their row, and only the files of the days bound them.
// A punch counts as late when it bears the field 迟到 with 是, as those of other terminals do, or the state.
QString ConditionTextOf(AttendanceQuestion question, const AttendanceCondition& condition);

// Columns of the three lists:
//     上班登记  编号 姓名 所在部门 日期 应到时间 实到时间 迟到
//     下班登记  编号 姓名 所在部门 日期 下班时间 离开时间 早退
//     缺勤信息  编号 姓名 缺勤事由 批准人 开始时间 结束时间 缺勤天数
// 应到时间 and 下班时间 are those of the person's shift of that name as it is set now; the reason of an absence is
// its category with the note, who has made or corrected it approves, and it lasts the day of its file. The days of a
// lateness or early leaving are none.
QStringList QuestionColumns(AttendanceQuestion question);

// Appends what is found; false when it was stopped.
bool AskAttendance(AttendanceQuestion question, const AttendanceCondition& condition,
                   TextTable& list, const DayProgress& progress = {});

// The report of the months from that of `first` to that of `last`, as far as there are files of them, a row a
// person: 编号 姓名 所在部门 迟到次数 早退次数 请假天数 旷工天数 出差天数 休假天数 加班时间. Late and early count by the
// punches; days by the category of the absence: 请假, 事假 and 病假 are leave, 旷工 absence, 因公出差 and 出差 travel, 休假
// and 换休 holidays. Overtime is in hours: from the first to the last punch of a day outside all periods, and what
// absences of the kind 加班 say.
QStringList ReportColumns();
struct ReportEnd {
    bool finished = true; // false: stopped
    int unread = 0;       // days of which punches or absences could not be read
};
ReportEnd ReportMonths(QDate first, QDate last, TextTable& list, const DayProgress& progress = {});

} // namespace hotel
