#include "house/folios/posting_list.h"

#include "house/common/paths.h"
#include "link/records.h"
#include "record/field_walk.h"
#include "record/record_text.h"

namespace hotel {

namespace {

// Each field goes into the column that bears its name.
QStringList CellsOf(QStringView record, const QHash<QStringView, int>& columns) {
    QStringList cells(columns.size());
    for (FieldWalk field(record); field.next();) {
        const int column = columns.value(field.name(), -1);
        if (column >= 0)
            cells[column] = field.value().toString();
    }
    return cells;
}

QHash<QStringView, int> ColumnsByName(const QStringList& headers) {
    QHash<QStringView, int> columns;
    for (int column = 0; column < headers.size(); ++column)
        columns.insert(headers[column], column);
    return columns;
}

bool StandsInOrder(const TextTable& list) {
    double before = 0;
    for (int row = 1; row < list.rows(); ++row) {
        const double number = LeadingNumber(list.text(row, 0));
        if (number < before)
            return false;
        before = number;
    }
    return true;
}

bool IsPosting(const TextTable& list, int row) {
    return LeadingNumber(list.text(row, 0)) > 0;
}

} // namespace

TextTable EmptyPostingList(PostingKind kind) {
    return TextTable(PostingKindOf(kind).headers());
}

std::optional<TextTable> LoadPostings(QStringView folio, PostingKind kind) {
    const RecordRead project = ReadProjectToChange(LedgerFile(folio), PostingProject(kind));
    if (project.failed())
        return {};
    TextTable list = EmptyPostingList(kind);
    const QHash<QStringView, int> columns = ColumnsByName(list.headers());
    FieldWalk record(project.value);
    while (list.dataRows() < kPostingLimit && record.next())
        list.addRow(CellsOf(record.value(), columns));
    if (!StandsInOrder(list))
        list.sort(0, TextTable::Order::Number);
    ReckonRunningColumns(kind, list);
    return list;
}

void AppendPosting(PostingKind kind, TextTable& list, QStringView record) {
    list.addRow(CellsOf(record, ColumnsByName(list.headers())));
    ReckonRunningColumns(kind, list);
}

void ReckonRunningColumns(PostingKind kind, TextTable& list) {
    for (const RunningColumn& column : PostingKindOf(kind).running) {
        const int amount = list.column(column.amount);
        const int running = list.column(column.running);
        Money sum;
        for (int row = 1; row < list.rows(); ++row) {
            sum += Money::FromText(list.text(row, amount));
            list.setText(row, running, sum.text());
        }
    }
}

Money LastRunning(const TextTable& list, QStringView runningColumn) {
    int row = list.dataRows();
    while (row > 0 && !IsPosting(list, row))
        --row;
    return Money::FromText(row > 0 ? list.text(row, runningColumn) : QString());
}

bool MayDelete(const TextTable& list, int row, QStringView department, QStringView operatorName) {
    return row > 0 && row == list.dataRows() &&
           list.text(row, posting::kOperator) == operatorName &&
           list.text(row, posting::kDepartment) == department;
}

PostingValues ValuesOfRow(PostingKind kind, const TextTable& list, int row) {
    PostingValues values;
    for (const PostingField& field : PostingKindOf(kind).fields) {
        if (field.control.isEmpty() || field.input == PostingInput::Shared)
            continue;
        QString value = list.text(row, field.tag);
        if (field.input == PostingInput::Guarantee && value.isEmpty())
            value = list.text(row, posting::kCredit);
        values.insert(field.control, value);
    }
    return values;
}

} // namespace hotel
