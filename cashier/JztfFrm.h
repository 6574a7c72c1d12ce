#pragma once

// Check-out (结账退房). A folio's rooms and beds are listed with all of them leaving; those who stay are
// taken out by F4. F6 reckons the last room charges by the chosen period, or they are typed; F8 confirms:
// whole, with the payment, or in part, without.
//
// Opened with a folio number or with none. In the box a room, a name or a part of the number finds the
// folio; several hits are offered in its list.

#include <QSet>
#include <QString>

#include <optional>

#include "cashier/settlement_list.h"
#include "screen/screen.h"

class QButtonGroup;
class QComboBox;

namespace hotel {

struct CheckOutOutcome;
struct GridCell;
class FieldForm;
class FolioBox;
class GridView;

class JztfFrm : public Screen {
    Q_OBJECT

public:
    JztfFrm();

    void load(const QVariant& folio) override;

private:
    void Jzh_Change();
    void Jzh_Enter();
    void FreshCmd_Click();
    void XzCmd_Click();
    void QxCmd_Click();
    void DjCmd_Click();
    void QrCmd_Click();
    void Jzdxqd_Click(int row, int column);
    void Jzdxqd_Edited(int row);

    QWidget* makePeriodOptions();
    void showFolio(const QString& folio);
    void showList(const TextTable& list);
    void showTotals();
    void toggle(int row);
    GridCell nextChosen(GridCell from) const;
    void choosePeriod();
    void showOutcome(const QString& folio, const CheckOutOutcome& outcome);

    FolioBox* Jzh;
    FieldForm* totals_;
    QComboBox* Yhft;
    QButtonGroup* Sd; // by the number of its ChargePeriod
    GridView* Jzdxqd;

    QString shown_;                          // the folio of the list
    std::optional<FolioTotals> folioTotals_; // nothing while none is shown
    QSet<int> typedRows_;                    // whose charge was typed
};

} // namespace hotel
