#pragma once

#include "screen/screen.h"

class QListWidget;

namespace hotel {

// The question which printer to use, asked by the preview and by PrtSet.
class PrinterChoice : public Screen {
    Q_OBJECT

public:
    PrinterChoice();

    // The printer picked; empty when there are none.
    QString printer() const;

private:
    QListWidget* DyjQd; // the printers
};

// Asks in front of `asking`; an accepted choice becomes ChosenPrinter().
void AskForPrinter(QWidget* asking);

} // namespace hotel
