#pragma once

// From the finished script to the sheets of a printer.

#include <QSizeF>
#include <QString>
#include <functional>

#include "tools/paper/print_script.h"

namespace hotel {

// A job as the preview and the printers read it; it outlives the files of the job.
struct FinishedPrintJob {
    PrintScript script;
    QSizeF paper;        // width and height in centimetres
    int number = 0;      // which of this run of the program
    bool isWhole = true; // false: something of the script could not be written
};

// The printer that was chosen at this workstation; the system's default until then, and again when the
// chosen one is gone. Empty when there is none.
QString ChosenPrinter();
void ChoosePrinter(const QString& name);

// Prints the pages from `first` to `last` on the chosen printer; asks for the file when it writes into
// one. `progress` is told the page being printed and the last one, and gives false to stop.
//
// False when not all was printed: no printer, no file, stopped, or an error of the printer, which ends
// the printing at once and is told to the user. The script stays, so that he can print again.
bool PrintPages(FinishedPrintJob& job, int first, int last,
                const std::function<bool(int page, int last)>& progress);

} // namespace hotel
