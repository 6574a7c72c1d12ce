#pragma once

// The cashier's view of a folio (账号账务详细信息清单): a page for each kind of posting, and what it all comes to.
// Opened with a folio number or with none; the right 费用查询 is needed.
//
// Older mistakes are better answered by a reversing posting (冲红) than deleted: only the last row can be, by
// whoever entered it.

#include "cashier/posting_screen.h"
#include "house/folios/service_catalogue.h"

namespace hotel {

class FyxxFrm : public PostingScreen {
    Q_OBJECT

public:
    FyxxFrm();

    void load(const QVariant& folio) override;

protected:
    bool mayView() const override;
    bool closing() override;
    void showTotals() override;
    void posted(const PostingPage& page, const PostingValues& values) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void YjPrint_Click();
    void StatementCmd_Click();
    void Fwlb_Change();
    void Fwmx_Enter();
    void Fwmx_Escape();

    FieldForm* services() const;

    ServiceCatalogue catalogue_;
    bool catalogueLoaded_ = false;
    QLineEdit* Zhxye; // the credit
    QLineEdit* Zssje; // what was received
    QLineEdit* Zhxfe; // all charges
    QLineEdit* Zhye;  // the balance
};

} // namespace hotel
