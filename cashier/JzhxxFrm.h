#pragma once

// A folio as the cashier looks at it: who is on it, all that was posted to it, and the guests'
// photographs. Opened with a folio number or with none.
//
// Every change of the box Jzh that gives a valid number shows that folio. One that is retired, or
// never was, is told to the user; its box then bears the tag "失效" (FolioBox::isRetired), and what its
// ledger keeps is shown. Enter on anything but a number searches the open folios by it.

#include <QString>

#include "screen/screen.h"

class QLabel;
class QPlainTextEdit;
class QTreeWidgetItem;

namespace hotel {

class FolioBox;
class GridView;
class PhotoFrame;
class RecordTree;

class JzhxxFrm : public Screen {
    Q_OBJECT

public:
    JzhxxFrm();

    void load(const QVariant& folio) override;

private:
    void Jzh_Change();
    void Jzh_Enter();
    void PickCmd_Click();
    void FreshCmd_Click();
    void JzhmxQd_Click(int row);
    void QVRTrVw_Click();

    void ShowFolio(const QString& folio);
    void ShowLedger(const QString& folio);

    FolioBox* Jzh;
    QLabel* state_;      // shows the tag of Jzh
    GridView* JzhmxQd;   // the rooms of the folio
    RecordTree* QVRTrVw; // its ledger
    QPlainTextEdit* value_;
    PhotoFrame* photo_;
};

} // namespace hotel
