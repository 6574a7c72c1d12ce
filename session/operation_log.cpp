#include "session/operation_log.h"

#include "link/serv_api.h"
#include "platform/clock.h"
#include "record/record_text.h"
#include "session/parameters.h"
#include "session/session.h"

namespace hotel {

QString OperationLogFile(QStringView date, QDate workstationDate) {
    return u"%1%2\\%3\\%4.qvr"_s.arg(Param(u"SysLog"), date.mid(2, 2), date.mid(5, 2),
                                     workstationDate.toString(u"yyMMdd"));
}

void SaveLogRec(const QString& operation, const QString& remark) {
    const QString workstationDate = Clock::DateText();
    QString date = DbServerDate();
    if (date.size() != workstationDate.size())
        date = workstationDate;

    QString note = remark;
    if (date != workstationDate && !HasRight(right::kAdjustDate))
        note += u",日期强行从"_s + workstationDate + u"恢复到"_s + date;

    const QString file = OperationLogFile(date, Clock::Today());
    const QString project = operation_log::kProject.toString();
    DbCreateFile(file);
    DbCreateProject(file, project, {});

    QString record;
    record = SetTag(record, operation_log::kOperator, CurrentSession().userName);
    record = SetTag(record, operation_log::kDate, date);
    record = SetTag(record, operation_log::kTime, Clock::TimeText());
    record = SetTag(record, operation_log::kOperation, operation);
    record = SetTag(record, operation_log::kRemark, note);
    DbModifyRecord(file, project, Clock::Time().toString(u"HHmmss"), record);
}

} // namespace hotel
