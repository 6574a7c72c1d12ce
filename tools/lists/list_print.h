#pragma once

// Printing a list: what the user may set about it, and the one way from a list to the print engine.

#include <QString>
#include <functional>

#include "record/literals.h"
#include "record/text_table.h"
#include "tools/charts/chart.h"
#include "tools/paper/print_grid.h"

namespace hotel {

class GridView;

// Lengths in centimetres, fonts in points.
struct ListPrintSettings {
    double paperWidth = 21;
    double paperHeight = 28;
    double left = 1.5;
    double right = 1;
    double top = 1.5;
    double bottom = 1;
    PrintFont titleFont{u"黑体"_s, 12, false};
    double titleGap = 0.5; // between the title and the table
    GridPrintStyle table{{u"黑体"_s, 10, false}, 1, {u"宋体"_s, 8, false}, 1, {}, false};
    QString head;             // of each page; parts with "," between them
    QString foot;             // ahead of the page number
    QList<Chart> charts = {}; // behind the last row: those that are worth drawing
};

// Pages that one list prints; the user is told when rows are left.
inline constexpr int kListPageLimit = 100;

// Called behind each page with the rows that are done, of all, and the number of the page; false stops
// the printing there.
using PrintProgress = std::function<bool(int rows, int allRows, int page)>;

// Prints all rows of `list` under `title` on every page, then the charts, below the last row where there is
// room, and shows the job in the preview. A list without data rows prints nothing. Gives the number of pages.
int PrintList(const TextTable& list, const QString& title, const ListPrintSettings& settings,
              const PrintProgress& progress = {});

// Prints a grid of another screen with the settings that a result grid starts with: the block of cells
// that is selected, if that is more than one row, else all of it.
void PrintGrid(const GridView& grid, const QString& title);

// Prints a grid of many columns across the paper, its letters as small as it takes; what stands to the right on
// the screen does so on paper.
void PrintWide(const GridView& grid, const QString& title, const QList<Chart>& charts = {});

// The selected block of a grid as a list of its own, or all of it.
TextTable SelectedBlock(const GridView& grid);

} // namespace hotel
