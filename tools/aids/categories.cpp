#include "tools/aids/categories.h"

#include "link/records.h"
#include "link/serv_api.h"
#include "record/field_walk.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "session/parameters.h"

#include <QHash>

namespace hotel {

namespace {

constexpr QStringView kRowNumber = u"编号";

void AddRow(TextTable& table, QStringView rowText) {
    const int row = table.addRow();
    table.setText(row, 0, FormatNumber(qint64(row), kCategoryNumberFormat));
    FieldWalk cell(rowText);
    for (int n = 1; n <= kCategoryColumnLimit && cell.next(); ++n) {
        int column = table.column(cell.name());
        if (column < 0)
            column = table.addColumn(cell.name().toString());
        table.setText(row, column, cell.value().toString());
    }
}

} // namespace

QString CategoryRowTag(int row) {
    return u"记录"_s + FormatNumber(qint64(row), kCategoryNumberFormat);
}

QStringList CategoryEntries(QStringView categoryText) {
    QHash<QStringView, QStringView> rows;
    for (FieldWalk row(categoryText); row.next();)
        rows.emplace(row.name(), row.value());

    QStringList entries;
    for (int n = 1; n <= kCategoryRowLimit; ++n) {
        const QStringView row = rows.value(CategoryRowTag(n));
        if (row.isEmpty())
            break;
        entries.append(GetTag(row, tag::kEntry));
    }
    return entries;
}

TextTable CategoryTable(QStringView categoryText) {
    TextTable table({kRowNumber.toString(), tag::kEntry.toString(), tag::kShortKey.toString()});
    FieldWalk row(categoryText);
    for (int n = 1; n <= kCategoryRowLimit && row.next(); ++n)
        AddRow(table, row.value());
    if (table.dataRows() == 0)
        AddRow(table, {});
    return table;
}

QString CategoryText(const TextTable& table) {
    QStringList rows;
    const int entryColumn = table.column(tag::kEntry);
    for (int row = 1; row < table.rows() && !table.text(row, entryColumn).isEmpty(); ++row) {
        QString cells;
        for (int column = 1; column < table.cols(); ++column) {
            const QString cell = table.text(row, column);
            cells = SetTag(cells, table.headers()[column], cell.isEmpty() ? u" "_s : cell);
        }
        const QString name = CategoryRowTag(row);
        rows.append(u'<' + name + u'>' + cells + u"</"_s + name + u'>');
    }
    return rows.join(kCrLf);
}

QString CategoryFile() {
    return Param(u"XtsjLj") + Param(u"Flmcxx");
}

std::optional<QStringList> ReadCategory(QStringView categoryName) {
    const RecordRead category = ReadProjectToChange(CategoryFile(), categoryName);
    if (category.failed())
        return {};
    return CategoryEntries(category.value);
}

QStringList LoadCategory(QStringView categoryName) {
    return ReadCategory(categoryName).value_or(QStringList());
}

QStringList LoadCategoryNames() {
    const QString file = CategoryFile();
    QStringList names;
    for (int n = 1; n <= kCategoryLimit; ++n) {
        const QString name = DbProjectList(file, n);
        if (name.isEmpty())
            break;
        if (name != category::kDescription)
            names.append(name);
    }
    return names;
}

} // namespace hotel
