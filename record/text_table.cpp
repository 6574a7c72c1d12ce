#include "record/text_table.h"

#include "record/numbers.h"

#include <algorithm>
#include <numeric>

namespace hotel {

namespace {

struct SortKey {
    bool isNumber = false;
    double number = 0;
    QStringView text;
    qsizetype row = 0;
};

SortKey MakeKey(const QString& cell, qsizetype row, TextTable::Order order) {
    SortKey key;
    key.row = row;
    key.isNumber =
        order == TextTable::Order::Number || (order == TextTable::Order::Natural && IsNumber(cell));
    if (key.isNumber)
        key.number = LeadingNumber(cell);
    else
        key.text = cell;
    return key;
}

bool IsLess(const SortKey& a, const SortKey& b) {
    if (a.isNumber != b.isNumber)
        return a.isNumber;
    return a.isNumber ? a.number < b.number : a.text < b.text;
}

} // namespace

void TextTable::setHeaders(const QStringList& headers) {
    rows_ = {headers};
}

int TextTable::column(QStringView header) const {
    if (header.isEmpty())
        return -1;
    const QStringList& all = headers();
    const auto found = std::find(all.begin(), all.end(), header);
    return found == all.end() ? -1 : int(found - all.begin());
}

int TextTable::addColumn(const QString& header) {
    for (QStringList& cells : rows_)
        cells.append(QString());
    rows_.first().last() = header;
    return cols() - 1;
}

void TextTable::removeColumn(int column) {
    if (!hasColumn(column))
        return;
    for (QStringList& cells : rows_)
        cells.removeAt(column);
}

void TextTable::moveColumn(int from, int to) {
    if (!hasColumn(from) || !hasColumn(to))
        return;
    for (QStringList& cells : rows_)
        cells.move(from, to);
}

QString TextTable::text(int row, int column) const {
    return row >= 0 && row < rows() && hasColumn(column) ? rows_[row][column] : QString();
}

void TextTable::setText(int row, int column, const QString& text) {
    if (row >= 0 && row < rows() && hasColumn(column))
        rows_[row][column] = text;
}

void TextTable::setRow(int row, const QStringList& cells) {
    if (isDataRow(row))
        rows_[row] = fitted(cells);
}

int TextTable::addRow(const QStringList& cells) {
    rows_.append(fitted(cells));
    return rows() - 1;
}

void TextTable::insertRow(int row, const QStringList& cells) {
    rows_.insert(std::clamp(row, 1, rows()), fitted(cells));
}

void TextTable::removeRow(int row) {
    if (isDataRow(row))
        rows_.removeAt(row);
}

void TextTable::moveRow(int from, int to) {
    if (isDataRow(from) && isDataRow(to))
        rows_.move(from, to);
}

void TextTable::clearRows() {
    rows_.resize(1);
}

int TextTable::find(int column, QStringView text, int from) const {
    if (!hasColumn(column))
        return -1;
    for (int row = std::max(from, 1); row < rows(); ++row) {
        if (rows_[row][column] == text)
            return row;
    }
    return -1;
}

QList<int> TextTable::sort(int column, Order order, bool descending, int totalRows) {
    QList<int> cameFrom(rows());
    std::iota(cameFrom.begin(), cameFrom.end(), 0);
    if (!hasColumn(column))
        return cameFrom;
    const qsizetype end = std::max<qsizetype>(1, rows_.size() - std::max(0, totalRows));
    std::vector<SortKey> keys;
    keys.reserve(size_t(end));
    for (qsizetype row = 1; row < end; ++row)
        keys.push_back(MakeKey(rows_.at(row).at(column), row, order));
    std::stable_sort(keys.begin(), keys.end(), [descending](const SortKey& a, const SortKey& b) {
        return descending ? IsLess(b, a) : IsLess(a, b);
    });
    QList<QStringList> sorted;
    sorted.reserve(rows_.size());
    sorted.append(rows_.first());
    for (const SortKey& key : keys) {
        cameFrom[sorted.size()] = int(key.row);
        sorted.append(std::move(rows_[key.row]));
    }
    sorted += rows_.sliced(end);
    rows_ = std::move(sorted);
    return cameFrom;
}

void TextTable::numberRows(int column, QStringView format) {
    for (int row = 1; row < rows(); ++row)
        setText(row, column, FormatNumber(row, format));
}

QStringList TextTable::fitted(QStringList cells) const {
    if (cells.size() != cols()) // else the row is shared, not copied
        cells.resize(cols());
    return cells;
}

} // namespace hotel
