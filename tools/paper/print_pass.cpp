#include "tools/paper/print_pass.h"

#include <memory>

#include "platform/printers.h"
#include "screen/messages.h"

namespace hotel {

namespace {

QString chosenPrinter;

const QString kTitle = u"注意"_s;

// The printer's units to the twip.
double UnitsPerTwip(const QPagedPaintDevice& device) {
    constexpr double kCmPerInch = 2.54;
    return device.logicalDpiX() / kCmPerInch / kTwipsPerCm;
}

} // namespace

QString ChosenPrinter() {
    const Printers& printers = Printers::Installed();
    return printers.names().contains(chosenPrinter) ? chosenPrinter : printers.defaultName();
}

void ChoosePrinter(const QString& name) {
    chosenPrinter = name;
}

bool PrintPages(FinishedPrintJob& job, int first, int last,
                const std::function<bool(int page, int last)>& progress) {
    const Printers& printers = Printers::Installed();
    PrintTarget target{ChosenPrinter(), QString(), u"打印"_s, job.paper};
    if (target.printer.isEmpty()) {
        MsgBox(u"没有可以使用的打印机!"_s, kTitle);
        return false;
    }
    if (printers.writesFile(target.printer)) {
        target.pdfFile =
            AskSaveFile(u"保存为PDF文件"_s, u"打印.pdf"_s, u"(PDF文件)|*.pdf|(所有文件)|*.*"_s);
        if (target.pdfFile.isEmpty())
            return false;
    }

    const std::unique_ptr<QPagedPaintDevice> device = printers.open(target);
    QPainter painter;
    bool failed = !device || !painter.begin(device.get());
    bool stopped = false;
    if (!failed) {
        painter.scale(UnitsPerTwip(*device), UnitsPerTwip(*device));
        int page = first;
        job.script.printPages(first, last, [&](const PrintPage& sheet) {
            failed = page > first && !device->newPage();
            stopped = !failed && !progress(page, last);
            if (failed || stopped)
                return false;
            DrawPage(painter, sheet, job.paper * kTwipsPerCm);
            ++page;
            return true;
        });
        failed = !painter.end() || failed;
    }
    if (failed)
        MsgBox(u"打印机报告错误，打印已经停止！"_s, kTitle);
    return !failed && !stopped;
}

} // namespace hotel
