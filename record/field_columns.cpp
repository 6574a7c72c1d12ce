#include "record/field_columns.h"

#include "record/field_walk.h"

namespace hotel {

QStringList FieldColumns::cells(QStringView record, const QStringList& before) {
    QStringList cells(headers_.size());
    FieldWalk field(record);
    for (qsizetype place = 0; field.next(); ++place) {
        const int to = column(place, field.name());
        if (to >= 0)
            cells[to] = before[to] == field.value() ? before[to] : field.value().toString();
    }
    return cells;
}

int FieldColumns::column(qsizetype place, QStringView name) {
    if (place == before_.size())
        before_.append(0);
    int& column = before_[place];
    if (column < 0 || headers_[column] != name)
        column = int(headers_.indexOf(name));
    return column;
}

} // namespace hotel
