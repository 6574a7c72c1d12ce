#pragma once

// Running statistics of a list, as the result grid shows them beside it.

#include <QString>

#include "record/text_table.h"

namespace hotel {

// A block of cells, all four ends included; data rows begin at 1.
struct CellBlock {
    int firstRow = 0;
    int lastRow = 0;
    int firstColumn = 0;
    int lastColumn = 0;

    bool operator==(const CellBlock&) const = default;
};

// All data rows of one column.
CellBlock ColumnBlock(const TextTable& list, int column);

struct ListStatistics {
    double greatest = 0;
    double least = 0;
    QString greatestText; // the cell that holds it
    QString leastText;
    double sum = 0;
    double mean = 0;
    double deviation = 0; // root of the mean squared difference from the mean
};

// Cells count by their numeric reading (list_totals.h); a block without cells is all zero.
ListStatistics StatisticsOf(const TextTable& list, const CellBlock& block);

// The statistics of a block as rows of label, value and the text of the cell that holds an extreme.
// The numbers of columns and rows are those of `list` without its number column and its headers. For
// a list without data rows the values are empty.
TextTable StatisticsTable(const TextTable& list, const CellBlock& block);

// The same while a list is still growing: only the numbers of columns and rows.
TextTable CountsTable(int columns, int rows);

} // namespace hotel
