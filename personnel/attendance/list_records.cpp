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
    constexpr qsizetype kUsualRecord = 400;
    QString text;
    text.reserve(list.rows() * kUsualRecord);
    for (int row = 1; row < list.rows(); ++row) {
        const QString key = QString::number(row);
        text.append(u'<').append(key).append(u'>');
        const QStringList& cells = list.row(row);
        for (qsizetype column = 0; column < cells.size(); ++column) {
            const QString& header = headers[column];
            if (!cells[column].isEmpty())
                text.append(u'<')
                    .append(header)
                    .append(u'>')
                    .append(cells[column])
                    .append(u"</")
                    .append(header)
                    .append(u">\r\n");
        }
        text.append(u"</").append(key).append(u">\r\n");
    }
    return SaveProject(file, project, text) == 0;
}

} // namespace hotel
