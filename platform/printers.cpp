#include "platform/printers.h"

#include <QFileInfo>
#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>

#include "record/literals.h"

namespace hotel {

namespace {

const QString kPdfChoice = u"PDF文件"_s;
constexpr int kPdfResolution = 600;

const Printers kSystemPrinters;
const Printers* installed = &kSystemPrinters;

// The whole sheet, whatever the driver takes for its margins: the margins are the form's.
QPageLayout WholeSheet(QSizeF paperCm) {
    const QPageSize size(paperCm * 10, QPageSize::Millimeter, {}, QPageSize::ExactMatch);
    QPageLayout layout(size, QPageLayout::Portrait, QMarginsF());
    layout.setMode(QPageLayout::FullPageMode);
    return layout;
}

std::unique_ptr<QPagedPaintDevice> OpenPdf(const PrintTarget& target) {
    if (!QFileInfo(QFileInfo(target.pdfFile).absolutePath()).isWritable())
        return nullptr;
    auto pdf = std::make_unique<QPdfWriter>(target.pdfFile);
    pdf->setResolution(kPdfResolution);
    pdf->setTitle(target.title);
    return pdf;
}

std::unique_ptr<QPagedPaintDevice> OpenPrinter(const PrintTarget& target) {
    const QPrinterInfo info = QPrinterInfo::printerInfo(target.printer);
    if (info.isNull())
        return nullptr;
    auto printer = std::make_unique<QPrinter>(info, QPrinter::HighResolution);
    printer->setDocName(target.title);
    printer->setFullPage(true);
    return printer;
}

} // namespace

QStringList Printers::names() const {
    return QPrinterInfo::availablePrinterNames() + QStringList{kPdfChoice};
}

QString Printers::defaultName() const {
    const QString name = QPrinterInfo::defaultPrinterName();
    return name.isEmpty() ? names().value(0) : name;
}

bool Printers::writesFile(const QString& name) const {
    return name == kPdfChoice;
}

std::unique_ptr<QPagedPaintDevice> Printers::open(const PrintTarget& target) const {
    auto device = writesFile(target.printer) ? OpenPdf(target) : OpenPrinter(target);
    if (device)
        device->setPageLayout(WholeSheet(target.paper));
    return device;
}

const Printers& Printers::Installed() {
    return *installed;
}

void Printers::Install(const Printers* printers) {
    installed = printers ? printers : &kSystemPrinters;
}

} // namespace hotel
