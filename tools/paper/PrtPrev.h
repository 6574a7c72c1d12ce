#pragma once

// The preview of the open print job, and the way to the printer.

#include "screen/screen.h"
#include "tools/paper/print_pass.h"

class QComboBox;
class QLabel;
class QScrollArea;
class QTimer;

namespace hotel {

class PageView;

// Zoom, per cent of the paper's size.
inline constexpr int kSmallestZoom = 25;
inline constexpr int kLargestZoom = 500;

// The zoom that the text of the zoom list means: a percentage (a smaller one than kSmallestZoom counts
// as that), or how the page fits `window`: "页高" its height, "页宽" its width, "整页" both. 100 for any
// other text. `page` is the page at 100 per cent, in the unit of `window`.
double ZoomOf(const QString& text, QSizeF page, QSizeF window);

class PrtPrev : public Screen {
    Q_OBJECT

public:
    PrtPrev();

    // Shows page 1 of the open print job; closes when it has none.
    void load(const QVariant& argument) override;

protected:
    bool closing() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ZoomIn_Click();
    void ZoomOut_Click();
    void PrintCmd_Click();
    void PrinterCmd_Click();
    void ePag_Click();
    void zVal_Change();

    void FindMorePages();
    void ShowPage(int page);
    void ShowZoom();
    int LastPage();

    FinishedPrintJob job_;
    int page_ = 1;
    double zoom_ = 100;
    QComboBox* ePag;    // the pages found so far
    QComboBox* zVal;    // the zoom
    QLabel* PagLbl;     // page and total
    QLabel* ZoomLbl;    // the zoom in use
    PageView* surface_; // the page
    QScrollArea* window_;
    QTimer* findPages_; // looks through the script while nothing else is to be done
};

} // namespace hotel
