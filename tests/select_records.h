#pragma once

// Selecting by conditions in one call, for tests and measurements.

#include "record/conditions.h"
#include "record/field_walk.h"

namespace hotel {

// The names of `project` (record text: one field a record) that match, in their order.
inline QStringList SelectRecords(const QString& project, QStringView conditionText) {
    RecordSelection selection(ParseConditions(conditionText));
    for (FieldWalk record(project); record.next();)
        selection.look(record.name(), record.value());
    return selection.names();
}

// Whether one value passes an operator.
inline bool PassesOperator(QStringView op, QStringView value, QStringView target) {
    RecordSelection selection(
        {{u"或者"_s, tag::kRecordName.toString(), op.toString(), target.toString()}});
    selection.look(value, u"");
    return !selection.names().isEmpty();
}

} // namespace hotel
