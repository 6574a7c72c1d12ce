#include "house/folios/posting_list.h"

#include "house/common/paths.h"
#include "link/records.h"
#include "record/field_columns.h"
#include "record/field_walk.h"
#include "record/record_text.h"

namespace hotel {

namespace {

// Numbers are written without leading zeros, so that a longer one is the greater one.
bool StandsInOrder(const TextTable& list) {
    for (int row = 2; row < list.rows(); ++row) {
        const QString& before = list.row(row - 1).first();
        const QString& number = list.row(row).first();
        const qsizetype longer = number.size() - before.size();
        if (longer < 0 || (longer == 0 && number < before))
            return false;
    }
    return true;
}

// The running columns of a list, row by row.
class RunningSums {
public:
    RunningSums(PostingKind kind, const TextTable& list) {
        for (const RunningColumn& column : PostingKindOf(kind).running) {
            const int running = list.column(column.running);
            const QString before =
                list.dataRows() > 0 ? list.text(list.dataRows(), running) : QString();
            sums_.append({list.column(column.amount), running, Money::FromText(before)});
        }
    }

    // The cells of the next row.
    void fill(QStringList& cells) {
        for (Sum& sum : sums_) {
            sum.sum += Money::FromText(cells[sum.amount]);
            cells[sum.running] = sum.sum.text();
        }
    }

private:
    struct Sum {
        int amount;
        int running;
        Money sum;
    };
    QList<Sum> sums_;
};

void ReckonRunningColumns(PostingKind kind, TextTable& list) {
    RunningSums sums(kind, EmptyPostingList(kind));
    for (int row = 1; row < list.rows(); ++row) {
        QStringList cells = list.row(row);
        sums.fill(cells);
        list.setRow(row, cells);
    }
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
    FieldColumns columns(list.headers());
    RunningSums sums(kind, list);
    FieldWalk record(project.value);
    while (list.dataRows() < kPostingLimit && record.next()) {
        QStringList cells = columns.cells(record.value(), list.row(list.dataRows()));
        sums.fill(cells);
        list.addRow(cells);
    }
    if (!StandsInOrder(list)) {
        list.sort(0, TextTable::Order::Number);
        ReckonRunningColumns(kind, list);
    }
    return list;
}

void AppendPosting(PostingKind kind, TextTable& list, QStringView record) {
    FieldColumns columns(list.headers());
    QStringList cells = columns.cells(record, list.row(list.dataRows()));
    RunningSums(kind, list).fill(cells);
    list.addRow(cells);
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
