#include "personnel/attendance/list_records.h"

#include <QHash>

#include "link/serv_api.h"
#include "record/field_walk.h"
#include "record/literals.h"

namespace hotel {

void ReadList(QStringView records, TextTable& list, int keyColumn) {
    QHash<QStringView, int> columns;
    const QStringList headers = list.headers();
    for (int column = 0; column < headers.size(); ++column)
        columns.insert(headers[column], column);
    list.clearRows();
    QStringList cells;
    for (FieldWalk record(records); record.next();) {
        cells.fill({}, headers.size());
        for (FieldWalk field(record.value()); field.next();) {
            if (const auto column = columns.constFind(field.name()); column != columns.constEnd())
                cells[*column] = field.value().toString();
        }
        if (keyColumn >= 0)
            cells[keyColumn] = record.name().toString();
        list.addRow(cells);
    }
}

Reading LoadProjectAsList(const QString& file, QStringView project, TextTable& list,
                          int keyColumn) {
    const RecordRead stored = ReadProjectToChange(file, project);
    if (!stored.failed())
        ReadList(stored.value, list, keyColumn);
    return stored.outcome;
}

bool SaveListAsProject(const QString& file, QStringView project, const TextTable& list) {
    EnsureProject(file, project);
    if (list.dataRows() == 0)
        return DbDeleteProject(file, project) == 0 && DbCreateProject(file, project) == 0;
    const QStringList& headers = list.headers();
    QString text;
    for (int row = 1; row < list.rows(); ++row) {
        const QString key = QString::number(row);
        text += u'<' + key + u'>';
        const QStringList& cells = list.row(row);
        for (qsizetype column = 0; column < cells.size(); ++column) {
            if (!cells[column].isEmpty())
                text += u'<' + headers[column] + u'>' + cells[column] + u"</"_s + headers[column] +
                        u">\r\n"_s;
        }
        text += u"</"_s + key + u">\r\n"_s;
    }
    return SaveProject(file, project, text) == 0;
}

} // namespace hotel
