#include "tools/lists/list_totals.h"

#include <limits>

#include "record/literals.h"
#include "record/numbers.h"

namespace hotel {

namespace {

int TotalRow(TextTable& list, QStringView label) {
    return HasTotalRow(list, label) ? list.rows() - 1 : list.addRow({label.toString()});
}

// No cell reads as less than 0, so a sum that would not fit stays at the greatest amount: a column of
// identity numbers is summed with the others.
void AddTotal(TextTable& list, int totalRow, int column) {
    constexpr qint64 kMost = std::numeric_limits<qint64>::max();
    Money sum;
    for (int row = 1; row < totalRow; ++row) {
        const Money amount = Money::FromText(NumericReading(list.text(row, column)));
        sum = amount.units() > kMost - sum.units() ? Money::FromUnits(kMost) : sum + amount;
    }
    list.setText(totalRow, column, sum.text());
}

} // namespace

QString NumericReading(QStringView cell) {
    QString number;
    for (const QChar c : cell) {
        if ((c >= u'0' && c <= u'9') || c == u'.')
            number += c;
    }
    return number;
}

bool HasTotalRow(const TextTable& list, QStringView label) {
    return list.dataRows() > 0 && list.text(list.rows() - 1, 0) == label;
}

void AddColumnTotals(TextTable& list, QStringView columnNames, QStringView label) {
    const QString names = u',' + columnNames.toString() + u',';
    const int totalRow = TotalRow(list, label);
    for (int column = 1; column < list.cols(); ++column) {
        const QString& header = list.headers()[column];
        if (!header.isEmpty() && names.contains(u',' + header + u','))
            AddTotal(list, totalRow, column);
    }
}

void AddColumnTotalsAll(TextTable& list) {
    const int totalRow = TotalRow(list, kTotalLabel);
    for (int column = 1; column < list.cols(); ++column)
        AddTotal(list, totalRow, column);
}

void AddReportTotals(TextTable& list, const QStringList& columns, QStringView format) {
    const int totalRow = TotalRow(list, kReportTotalLabel);
    for (const QString& column : columns) {
        Money sum;
        for (int row = 1; row < totalRow; ++row)
            sum += Money::FromText(list.text(row, column));
        list.setText(totalRow, column, sum.text(format));
    }
}

bool HoldsAmounts(const TextTable& list, int column) {
    constexpr int kSample = 200;
    const QString& header = list.headers()[column];
    const bool counts = header.endsWith(u'数') || header.endsWith(u'率');
    int numbers = 0;
    int others = 0;
    bool points = false;
    for (int row = 1; row < std::min(list.rows(), kSample); ++row) {
        const QString cell = list.text(row, column);
        if (cell.isEmpty())
            continue;
        ++(IsNumber(cell) ? numbers : others);
        points = points || (IsNumber(cell) && cell.contains(u'.'));
    }
    return numbers > others && (counts || points);
}

} // namespace hotel
