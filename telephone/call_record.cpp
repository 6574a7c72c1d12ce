#include "telephone/call_record.h"

#include <algorithm>

#include "record/literals.h"

namespace hotel {

QStringList CallColumns() {
    using namespace call_record;
    QStringList columns;
    for (const QStringView column : {kExtension, kOwner, kUser, kNumber, kStartDate, kStartTime,
                                     kLength, kPlace, kClass, kTotal})
        columns.append(column.toString());
    for (const QStringView amount : kAmounts)
        columns.append(amount.toString());
    columns.append(u"记录号"_s);
    return columns;
}

QStringList AllCallColumns() {
    using namespace call_record;
    QStringList columns = CallColumns();
    for (const QStringView column : {kEndDate, kEndTime, kTrunk, kLinkClass})
        columns.append(column.toString());
    return columns;
}

bool IsCallAmount(QStringView header) {
    return header == call_record::kTotal ||
           std::ranges::find(call_record::kAmounts, header) != call_record::kAmounts.end();
}

} // namespace hotel
