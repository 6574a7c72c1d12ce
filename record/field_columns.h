#pragma once

// Records as rows of a list: their fields to the columns that bear their names.
//
// Records of one project have their fields in one order, mostly, so each field is looked for where it stood in the
// record before; and they repeat much of it: such cells share their text. Both spare a long list most of its time.

#include <QList>
#include <QStringList>
#include <QStringView>

namespace hotel {

class FieldColumns {
public:
    explicit FieldColumns(const QStringList& headers) : headers_(headers) {}

    // One cell a column, in order; empty where the record has no such field. `before` are the cells of the row before,
    // or any of that length.
    QStringList cells(QStringView record, const QStringList& before);

private:
    int column(qsizetype place, QStringView name);

    QStringList headers_;
    QList<int> before_;
};

} // namespace hotel
