#pragma once

// What a connection may put on file that has just been refused at login: one entry of the day's operation
// log, so that attempts are not forgotten. It speaks for nobody, and so gains as little as can be: an entry
// of this form, under a time of the day.

#include <QDate>
#include <QString>

#include "record/literals.h"
#include "server/request_reader.h"

namespace hotel {

// Where the workstations keep their operation log: `folder` + yy\MM\yyMMdd.qvr by the day. The defaults are
// those of the workstations' parameters.
struct OperationLogPlace {
    QString folder = u"BglogRec\\"_s;
    QString project = u"操作记录信息"_s;
};

// True when `request` is `修改记录` or `创建记录` of such an entry:
//   库文件名, 项目名   the log's of `today`, the server's date
//   记录             the name, a time of the day (HHmmss)
//   记录值           at most 500 characters; nothing but fields `操作员`, `日期`, `时间`, `操作内容`, `备注`
//                    without tags inside. The first `操作内容` is `登录失败`, or `修改密码` with a `备注` that
//                    begins with `验证失败`, as the change of a password at the login window writes it
bool IsRefusalEntry(const OperationLogPlace& log, QDate today, const Request& request);

} // namespace hotel
