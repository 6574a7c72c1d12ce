#pragma once

// Printing a list as a table, page by page.
//
//     const GridPrintLayout layout = MeasureGridPrint(table, style);   // once for all pages
//     for (int row = 1; row < table.rows();) {
//         StartPage(head);
//         row = PrintGridPage(table, layout, row, top);
//         EndPage(foot);
//     }

#include <QList>
#include <QString>
#include <QStringList>

#include "record/text_table.h"
#include "tools/paper/print_font.h"

namespace hotel {

// How the user wants the table.
struct GridPrintStyle {
    PrintFont headFont; // nothing given: 宋体 10
    double headLineWidth = 1;
    PrintFont bodyFont; // nothing given: 宋体 8
    double bodyLineWidth = 1;
    QStringList alignments; // one a column; its last two characters are the mark: "->" right,
                            // "<-" left, "<>" spread, " -" centre; none is left
    bool fitFont = false; // lower the sizes until the table fits the paper (自动调整单元字号)
};

// PrintTextLeft or one of its brothers.
using LinePainter = void (*)(double x, double y, const QString& text, const PrintFont& font,
                             double width);

// What holds for all pages of one list: fonts, and widths and heights in centimetres.
struct GridPrintLayout {
    PrintFont headFont;
    PrintFont bodyFont;
    double headLineWidth = 0;
    double bodyLineWidth = 0;
    QList<double> widths;
    QList<LinePainter> painters; // one a column
    double left = 0;             // the table stands in the middle of the paper
    bool squeezed = false;       // columns are narrower than their texts, which are cut into lines
};

// Measures a table for the open print job. Each column is as wide as its widest text. A table that is
// too wide for the paper gets smaller letters where the style says so, half a point at a time and never
// below kSmallestGridFont; what is too wide even then gives up width in its widest columns, and their
// cells become as many lines as it takes. No column is lost.
GridPrintLayout MeasureGridPrint(const TextTable& table, const GridPrintStyle& style);
inline constexpr double kSmallestGridFont = 4;

// Prints the head row and the rows from `row` on, from `top` (centimetres) down to the bottom margin.
// Gives the row at which the next page goes on, or table.rows() at the end. A page takes at least one
// row. `bottom` is told where its last row ends.
int PrintGridPage(const TextTable& table, const GridPrintLayout& layout, int row, double top,
                  double* bottom = nullptr);

} // namespace hotel
