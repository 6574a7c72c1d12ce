#include "tools/lists/list_print.h"

#include <QHeaderView>

#include "screen/grid_view.h"
#include "screen/messages.h"
#include "tools/paper/PrtSubs.h"

namespace hotel {

namespace {

// Prints one page; gives the row at which the next one goes on.
int PrintPage(const TextTable& list, const QString& title, const ListPrintSettings& settings,
              const GridPrintLayout& layout, int row, int page) {
    StartPage(settings.head);
    double top = 0;
    if (!title.isEmpty()) {
        PrintTextCentre(0, 0, title, settings.titleFont, PrintableWidthCm());
        top = TextHeightCm(settings.titleFont) + settings.titleGap;
    }
    const int next = PrintGridPage(list, layout, row, top);
    EndPage(settings.foot + u"第%1页"_s.arg(page));
    return next;
}

} // namespace

int PrintList(const TextTable& list, const QString& title, const ListPrintSettings& settings,
              const PrintProgress& progress) {
    if (list.dataRows() == 0)
        return 0;
    OpenPrintJob(settings.paperWidth, settings.paperHeight);
    SetPrintMargins(settings.left, settings.right, settings.top, settings.bottom);
    const GridPrintLayout layout = MeasureGridPrint(list, settings.table);
    int page = 0;
    int row = 1;
    bool goesOn = true;
    while (goesOn && row < list.rows() && page < kListPageLimit) {
        ++page;
        row = PrintPage(list, title, settings, layout, row, page);
        goesOn = !progress || progress(row - 1, list.dataRows(), page);
    }
    if (goesOn && row < list.rows())
        MsgBox(
            u"清单太长，只能打印前%1页，后面还有%2行没有打印！"_s.arg(page).arg(list.rows() - row),
            u"注意"_s);
    PreviewPrintJob();
    return page;
}

void PrintGrid(const GridView& grid, const QString& title) {
    PrintList(SelectedBlock(grid), title, {});
}

TextTable SelectedBlock(const GridView& grid) {
    const TextTable& table = grid.table();
    const QList<int> rows = grid.selectedRows();
    if (rows.size() < 2)
        return table;
    QList<int> columns;
    for (int column = 0; column < table.cols(); ++column) {
        if (grid.selectionModel()->columnIntersectsSelection(column))
            columns.append(column);
    }
    const auto cellsOf = [&](int row) {
        QStringList cells;
        for (const int column : columns)
            cells.append(table.text(row, column));
        return cells;
    };
    TextTable block(cellsOf(0));
    for (const int row : rows)
        block.addRow(cellsOf(row));
    return block;
}

} // namespace hotel
