#pragma once

// The operation log: who did what and when, one database file a day, written only by the client.

#include <QDate>
#include <QString>

namespace hotel {

namespace tag {
inline constexpr QStringView kOperator_ = u"操作员";
} // namespace tag

// Writes one entry: operator, the server's date, the workstation's time, operation and remark. Where
// the workstation's date differs from the server's and the user lacks the right 日期调整, a note of it
// goes behind the remark. A failed write is silent, and two entries within a second overwrite each
// other: the key is HHmmss.
void SaveLogRec(const QString& operation, const QString& remark);

// The day file: parameter SysLog + yy\MM\yyMMdd.qvr; the folders come from `serverDate`
// ("yyyy-MM-dd"), the name from the workstation's date.
QString OperationLogFile(QStringView serverDate, QDate workstationDate);

} // namespace hotel
