#pragma once

// Sums under a list. They are money: fixed point with four decimals, shown as "#0.00".

#include <QString>
#include <QStringView>

#include "record/text_table.h"

namespace hotel {

inline constexpr QStringView kTotalLabel = u"合计";
inline constexpr QStringView kReportTotalLabel = u"总计"; // of the reports

// The digits and points of a cell in their order: what a cell counts as a number. So 12元5角 is 125,
// 1,200.50 is 1200.5, and -5 is 5, deliberately: sums and statistics of the lists are made by it.
QString NumericReading(QStringView cell);

// True when the last row is one of sums.
bool HasTotalRow(const TextTable& list, QStringView label = kTotalLabel);

// Sums every column whose header is one of `columnNames` (names with "," between them) in the last
// row, which has `label` in column 0; a list without such a row gets one. Column 0 keeps the label.
void AddColumnTotals(TextTable& list, QStringView columnNames, QStringView label = kTotalLabel);

// The same for every column from the second on.
void AddColumnTotalsAll(TextTable& list);

// Sums of a report, where a minus counts: each of `columns` in the last row, which has kReportTotalLabel in
// column 0, by `format`; a list without such a row gets one.
void AddReportTotals(TextTable& list, const QStringList& columns, QStringView format);

// Whether a column holds what is reckoned with and stands at the right: numbers with a point, or numbers under
// a header that says how many (…数, …率). Numbers of rooms, folios and documents are names. Looks at a sample.
bool HoldsAmounts(const TextTable& list, int column);

} // namespace hotel
