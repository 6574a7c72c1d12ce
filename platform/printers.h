#pragma once

// The printers of the workstation. Printing into a PDF file is one of the choices, so that a desk
// without a printer can print, too.

#include <QPagedPaintDevice>
#include <QSizeF>
#include <QString>
#include <QStringList>
#include <memory>

namespace hotel {

// A sheet of paper and where it goes.
struct PrintTarget {
    QString printer; // one of Printers::names()
    QString pdfFile; // of a printer that writes files; else unused
    QString title;   // what the printer's queue shows
    QSizeF paper;    // width and height in centimetres
};

class Printers {
public:
    virtual ~Printers() = default;

    // All that can be chosen; empty when nothing can.
    virtual QStringList names() const;

    // The system's default printer, else the first choice; empty when there is none.
    virtual QString defaultName() const;

    // True for a choice that needs a file name.
    virtual bool writesFile(const QString& name) const;

    // A device to paint on, its origin at the corner of the paper; null when it can't be had (the
    // printer is gone, the file can't be written).
    virtual std::unique_ptr<QPagedPaintDevice> open(const PrintTarget& target) const;

    // The printers in use: those of the system, or the ones a test has put in their place.
    static const Printers& Installed();
    static void Install(const Printers* printers); // null: those of the system again
};

} // namespace hotel
