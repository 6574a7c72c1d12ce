#include "tools/lists/list_print.h"

#include <QHeaderView>

#include "screen/grid_view.h"
#include "screen/messages.h"
#include "tools/charts/draw_chart.h"
#include "tools/paper/PrtSubs.h"

namespace hotel {

namespace {

constexpr double kChartHeight = 8.5; // centimetres
constexpr double kChartGap = 0.6;

// The pages of one list, from the title down.
class ListPages {
public:
    ListPages(const QString& title, const ListPrintSettings& settings)
        : title_(title), settings_(settings) {}

    int count() const { return count_; }

    void start() {
        ++count_;
        StartPage(settings_.head);
        y_ = 0;
        if (title_.isEmpty())
            return;
        PrintTextCentre(0, 0, title_, settings_.titleFont, PrintableWidthCm());
        y_ = TextHeightCm(settings_.titleFont) + settings_.titleGap;
    }
    void end() { EndPage(settings_.foot + u"第%1页"_s.arg(count_)); }

    // Gives the row at which the next page goes on.
    int printRows(const TextTable& list, const GridPrintLayout& layout, int row) {
        return PrintGridPage(list, layout, row, y_, &y_);
    }

    void printChart(const Chart& chart) {
        if (y_ + kChartGap + kChartHeight > PrintableHeightCm()) {
            end();
            start();
        }
        const double height = std::min(kChartHeight, PrintableHeightCm() - y_ - kChartGap);
        if (height > 0)
            PrintChart(chart, 0, y_ + kChartGap, PrintableWidthCm(), height);
        y_ += kChartGap + kChartHeight;
    }

private:
    const QString& title_;
    const ListPrintSettings& settings_;
    int count_ = 0;
    double y_ = 0; // where the page is printed down to, in centimetres
};

} // namespace

int PrintList(const TextTable& list, const QString& title, const ListPrintSettings& settings,
              const PrintProgress& progress) {
    if (list.dataRows() == 0)
        return 0;
    OpenPrintJob(settings.paperWidth, settings.paperHeight);
    SetPrintMargins(settings.left, settings.right, settings.top, settings.bottom);
    const GridPrintLayout layout = MeasureGridPrint(list, settings.table);
    ListPages pages(title, settings);
    int row = 1;
    bool goesOn = true;
    while (goesOn && row < list.rows() && pages.count() < kListPageLimit) {
        if (pages.count() > 0)
            pages.end();
        pages.start();
        row = pages.printRows(list, layout, row);
        goesOn = !progress || progress(row - 1, list.dataRows(), pages.count());
    }
    for (const Chart& chart : settings.charts) {
        if (goesOn && row == list.rows() && IsWorthDrawing(chart))
            pages.printChart(chart);
    }
    pages.end();
    if (goesOn && row < list.rows())
        MsgBox(u"清单太长，只能打印前%1页，后面还有%2行没有打印！"_s.arg(pages.count())
                   .arg(list.rows() - row),
               u"注意"_s);
    PreviewPrintJob();
    return pages.count();
}

void PrintGrid(const GridView& grid, const QString& title) {
    PrintList(SelectedBlock(grid), title, {});
}

void PrintWide(const GridView& grid, const QString& title, const QList<Chart>& charts) {
    ListPrintSettings settings;
    std::swap(settings.paperWidth, settings.paperHeight);
    settings.table.fitFont = true;
    settings.charts = charts;
    for (int column = 0; column < grid.table().cols(); ++column)
        settings.table.alignments.append(grid.isRightAligned(column) ? u"->"_s : QString());
    PrintList(grid.table(), title, settings);
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
