#pragma once

// The operation log: who did what and when, one database file a day, written only by the client.
//
//     操作员     personal name of the user
//     日期       the server's date, yyyy-MM-dd
//     时间       the workstation's time, HH:mm:ss
//     操作内容   what was done
//     备注       the remark, and a note where the workstation's date differs from the server's
//
// The record key is the time as HHmmss: two entries within one second overwrite each other, which is
// accepted.

#include <QDate>
#include <QString>
#include <QStringList>
#include <QStringView>

namespace hotel {

namespace operation_log {
inline constexpr QStringView kProject = u"操作记录信息";
inline constexpr QStringView kOperator = u"操作员";
inline constexpr QStringView kDate = u"日期";
inline constexpr QStringView kTime = u"时间";
inline constexpr QStringView kOperation = u"操作内容";
inline constexpr QStringView kRemark = u"备注";
} // namespace operation_log

// Writes one entry. A failed write is silent: no work waits for the log.
void SaveLogRec(const QString& operation, const QString& remark);

// The day's file: parameter SysLog + yy\MM\yyMMdd.qvr. The two folders come from `date` (yyyy-MM-dd,
// the server's), the file's name from the workstation's date.
QString OperationLogFile(QStringView date, QDate workstationDate);

} // namespace hotel
