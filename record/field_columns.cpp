#include "record/field_columns.h"

#include "record/field_walk.h"
#include "record/tag_search.h"

namespace hotel {

QStringList FieldColumns::cells(QStringView record, const QStringList& before) {
    QStringList row(headers_.size());
    QString* const cells = row.data();
    FieldWalk field(record);
    for (qsizetype place = 0; field.next(); ++place) {
        const int to = column(place, field.name());
        if (to < 0)
            continue;
        QString cell =
            IsSameText(before[to], field.value()) ? before[to] : field.value().toString();
        cells[to].swap(cell);
    }
    return row;
}

int FieldColumns::column(qsizetype place, QStringView name) {
    if (place == before_.size())
        before_.append(0);
    int& column = before_[place];
    if (column < 0 || !IsSameText(headers_[column], name))
        column = int(headers_.indexOf(name));
    return column;
}

} // namespace hotel
