#include "link/next_number.h"

#include "link/serv_api.h"
#include "record/conditions.h"
#include "record/numbers.h"

namespace hotel {

namespace {

QString GreatestRecordNumber() {
    QString conditions;
    int number = 0;
    AddQueryCondition(conditions, u"或者", tag::kRecordName, u"数值最大", {}, number);
    return WrapConditions(conditions);
}

} // namespace

QString NextNumberInProject(QStringView file, QStringView project) {
    const QString name =
        DbFieldFind(file.toString(), project.toString(), GreatestRecordNumber(), 1);
    return FormatNumber(LeadingNumber(name) + 1, u"#0");
}

} // namespace hotel
