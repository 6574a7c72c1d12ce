#pragma once

// Printer and pages for one printing of the job in the preview.

#include "screen/screen.h"
#include "tools/paper/print_pass.h"

class QComboBox;
class QLabel;

namespace hotel {

class PrtSet : public Screen {
    Q_OBJECT

public:
    // `job` must outlive the screen; `viewedPage` is the page that the preview shows.
    PrtSet(FinishedPrintJob& job, int viewedPage);

private:
    void Pages_Change();
    void Command1_Click(); // prints and closes
    void Command3_Click(); // chooses the printer
    void Command4_Click(); // only the page viewed

    FinishedPrintJob& job_;
    int viewedPage_;
    QLabel* tPag;    // pages of the job
    QComboBox* sPag; // first page to print
    QComboBox* ePag; // last page to print
    QLabel* Dyj;     // the printer
};

} // namespace hotel
