#pragma once

// Where a day of attendance lies on the server, and what its records are called.
//
// The day's file (KqxxPath, yyMM\yyMMdd.qvr) has two projects: the punches as they were made, keyed by their
// moment as yyMMddHHmmss, and the absences that the analysis derives, keyed by their row. The results of the
// analysis lie in a file of their own (KqtjLj, yyMM\yyMMdd.qvr).

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QStringView>

namespace hotel {

namespace punch_record {
inline constexpr QStringView kProject = u"上班记录";
inline constexpr QStringView kNumber = u"编号"; // of the employee
inline constexpr QStringView kName = u"姓名";
inline constexpr QStringView kDepartment = u"所在部门";
inline constexpr QStringView kPost = u"职务";
inline constexpr QStringView kTime = u"实到时间"; // HH:mm:ss
inline constexpr QStringView kState = u"状态";
inline constexpr QStringView kShift = u"班次名称";
inline constexpr QStringView kMode = u"考勤方式";
inline constexpr QStringView kFunction = u"考勤功能";
inline constexpr QStringView kMeans = u"模式"; // how the punch was made
inline constexpr QStringView kDate = u"日期";  // yyyy-MM-dd
inline constexpr QStringView kNote = u"考勤说明";
inline constexpr QStringView kOperator = u"操作员";
inline constexpr QStringView kPlace = u"地点";
// What a correction adds.
inline constexpr QStringView kMark = u"标记";
inline constexpr QStringView kCorrector = u"修订人";
inline constexpr QStringView kCorrected = u"修订日期";
} // namespace punch_record

namespace absence_record {
inline constexpr QStringView kProject = u"缺勤记录";
inline constexpr QStringView kCategory = u"缺勤类别";
inline constexpr QStringView kValue = u"缺勤折算"; // minutes of 迟到 and 早退, days of all others
inline constexpr QStringView kNote = u"缺勤说明";
} // namespace absence_record

namespace day_result {
inline constexpr QStringView kPeopleProject = u"当天统计数据";
inline constexpr QStringView kShiftProject = u"当天班次数据";
} // namespace day_result

// Lists say which column counts the rows and which holds the record's key.
inline constexpr QStringView kRowNumber = u"序号";
inline constexpr QStringView kRecordKey = u"记录号";

QString AttendanceFile(QDate day);
QString DayResultFile(QDate day);

QString PunchKey(const QDateTime& moment);

// The photograph of a punch, by its key: a folder a day.
QString PunchPhotographFolder(QStringView key);
QString PunchPhotographName(QStringView key);
QString PunchPhotographFile(QStringView name);

// What an absence can be, and what a punch can be called by hand.
const QStringList& AbsenceCategories();

// Minutes since midnight; of a text that is not eight characters long, those of the current time.
int CompuMin(QStringView time);

// The weekday whose rules hold on a day, 1 (Monday) to 7: that of the special working day, else its own.
int RuleWeekday(QDate day);

} // namespace hotel
