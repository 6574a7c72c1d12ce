// Printing a list of 200 pages by the side of one of 2 pages, and reading a script by the side of a
// bare look at its bytes.

#include "bench/ratio.h"
#include "bench/screenless.h"

#include <QDir>
#include <QImage>
#include <QTemporaryDir>

#include "screen/theme.h"
#include "tools/paper/PrtSubs.h"
#include "tools/paper/print_pass.h"

using namespace hotel;
using namespace hotel::bench;

namespace {

constexpr int kRowsPerPage = 66;

TextTable GuestTable(int pages) {
    TextTable table({u"序号"_s, u"房间号"_s, u"客人姓名"_s, u"入住日期"_s, u"房价"_s, u"备注"_s});
    for (int row = 1; row <= pages * kRowsPerPage; ++row)
        table.addRow({QString::number(row), QString::number(8000 + row % 999), u"欧阳晓光"_s,
                      u"2026-03-05"_s, QString::number(row % 500) + u".00"_s, u"延住两天"_s});
    return table;
}

// The list's script; it stands in the open job.
int PrintTable(const TextTable& table) {
    OpenPrintJob(21, 28);
    SetPrintMargins(1.5, 1, 1.5, 1);
    const GridPrintLayout layout = MeasureGridPrint(table, {});
    int pages = 0;
    for (int row = 1; row < table.rows(); ++pages) {
        StartPage(u"云水宾馆"_s);
        row = PrintGridPage(table, layout, row, 1);
        EndPage(u"第%1页"_s.arg(pages + 1));
    }
    return pages;
}

QByteArray ScriptOf(int pages) {
    PrintTable(GuestTable(pages));
    FinishedPrintJob job = ReadPrintJob();
    QFile script(PrintScriptFile());
    return script.open(QIODevice::ReadOnly) ? script.readAll() : QByteArray();
}

qsizetype FirstPage(const QByteArray& text) {
    return PrintScript(text).previewPage(1).size();
}

int CountLines(const QByteArray& text) {
    return int(text.count('\n'));
}

} // namespace

int main(int argc, char** argv) {
    ScreenlessApplication application(argc, argv);
    ApplyTheme(application);
    QTemporaryDir folder;
    QDir::setCurrent(folder.path());

    const QByteArray longList = ScriptOf(200);
    const QByteArray shortList = ScriptOf(2);
    std::printf("print script of 200 pages %.1f MB\n", double(longList.size()) / 1e6);

    PrintRatio(
        "preview_page_1_of_200", // by that of a list of 2 pages
        ProcessorRatio([&] { return FirstPage(longList); }, [&] { return FirstPage(shortList); }),
        1.5);
    PrintScript script(longList);
    const int farPage = script.pageCount() - 1;
    PrintRatio("preview_far_page", // by page 1 of the same list
               ProcessorRatio([&] { return script.previewPage(farPage).size(); },
                              [&] { return script.previewPage(1).size(); }),
               1.5);
    PrintRatio("script_walked_through", // by a count of its lines
               ProcessorRatio([&] { return PrintScript(longList).pageCount(); },
                              [&] { return CountLines(longList); }),
               20.0);

    const TextTable longTable = GuestTable(200);
    const TextTable shortTable = GuestTable(2);
    PrintRatio("list_printed_per_page", // of 200 by one of 2
               ProcessorRatio([&] { return PrintTable(longTable); },
                              [&] { return PrintTable(shortTable); }, 200, 2),
               1.5);

    QImage surface(794, 1058, QImage::Format_RGB32);
    const auto draw = [&](const PrintPage& page) {
        surface.fill(Qt::white);
        QPainter painter(&surface);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(1 / 15.0, 1 / 15.0);
        DrawPage(painter, page, QSizeF(21, 28) * kTwipsPerCm);
        return page.size();
    };
    const PrintPage page = script.previewPage(1);
    std::printf("print page of %d items drawn %.2f ms\n", int(page.size()),
                Nanoseconds([&] { return draw(page); }, Time::Processor) / 1e6);
    std::printf("print list of 200 pages written %.1f ms, walked through %.1f ms\n",
                Nanoseconds([&] { return PrintTable(longTable); }, Time::Processor) / 1e6,
                Nanoseconds([&] { return PrintScript(longList).pageCount(); }, Time::Processor) /
                    1e6);
    ClosePrintJob();
    QDir::setCurrent(QDir::rootPath());
}
