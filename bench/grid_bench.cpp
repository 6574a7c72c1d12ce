// A list of 30000 rows by 20 columns on the screen, by the side of a short one.

#include "bench/ratio.h"
#include "bench/screenless.h"

#include <QScrollBar>

#include "record/literals.h"
#include "screen/grid_view.h"
#include "screen/theme.h"

using namespace hotel;
using namespace hotel::bench;

namespace {

constexpr int kRows = 30000;
constexpr int kShortRows = 300;
constexpr int kColumns = 20;

TextTable GuestTable(int rows) {
    QStringList headers{u"序号"_s, u"客人姓名"_s, u"房价"_s};
    while (headers.size() < kColumns)
        headers += u"第%1栏"_s.arg(headers.size());
    TextTable table(headers);
    for (int row = 1; row <= rows; ++row) {
        QStringList cells{QString::number(row), u"王小明"_s,
                          QString::number((row * 7919) % 100003) + u".50"_s};
        while (cells.size() < kColumns)
            cells += u"散客 %1"_s.arg(row % 97);
        table.addRow(cells);
    }
    return table;
}

class ShownGrid {
public:
    explicit ShownGrid(int rows) : grid(u"KrxxQd"_s) {
        grid.setTable(GuestTable(rows));
        grid.setNumberColumn(0);
        grid.resize(1600, 900);
        grid.show();
        QCoreApplication::processEvents();
    }
    int show() {
        grid.refresh();
        return repaint();
    }
    int scroll() {
        QScrollBar* bar = grid.verticalScrollBar();
        bar->setValue((bar->value() + 25) % qMax(1, bar->maximum()));
        return repaint();
    }
    int fit() {
        grid.autoFit();
        return grid.columnWidth(1);
    }
    int sort() {
        descending_ = !descending_;
        grid.sortBy(2, descending_);
        return repaint();
    }

    GridView grid;

private:
    int repaint() { return grid.viewport()->grab().width(); }
    bool descending_ = false;
};

template<typename Work>
double PrintMilliseconds(const char* name, Work&& work) {
    const double milliseconds = Nanoseconds(work, Time::Processor) / 1e6;
    std::printf("grid %s %.2f ms\n", name, milliseconds);
    return milliseconds;
}

} // namespace

int main(int argc, char** argv) {
    ScreenlessApplication application(argc, argv);
    ApplyTheme(application);
    ShownGrid grid(kRows);
    ShownGrid shortGrid(kShortRows);
    TextTable table = GuestTable(kRows);
    bool descending = false;

    const double shown = PrintMilliseconds("shown", [&] { return grid.show(); });
    const double fitted = PrintMilliseconds("fitted", [&] { return grid.fit(); });
    PrintMilliseconds("scrolled by a page", [&] { return grid.scroll(); });
    PrintMilliseconds("sorted", [&] { return grid.sort(); });
    std::printf("grid autoFit's share of opening %.0f%%\n", 100 * fitted / (fitted + shown));

    PrintRatio("grid_shown", // by a list of 300 rows
               ProcessorRatio([&] { return grid.show(); }, [&] { return shortGrid.show(); }), 2.0);
    PrintRatio("grid_fitted",
               ProcessorRatio([&] { return grid.fit(); }, [&] { return shortGrid.fit(); }), 3.0);
    PrintRatio("grid_scrolled",
               ProcessorRatio([&] { return grid.scroll(); }, [&] { return shortGrid.scroll(); }),
               2.0);
    PrintRatio("grid_sorted", // by the table alone
               ProcessorRatio([&] { return grid.sort(); },
                              [&] {
                                  descending = !descending;
                                  table.sort(2, TextTable::Order::Natural, descending);
                                  return table.rows();
                              }),
               3.0);
}
