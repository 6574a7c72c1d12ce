#pragma once

// Signed vouchers (客人记账号综合消费服务签单记账): what the outlets post for food, drink and entertainment.

#include "cashier/posting_screen.h"

namespace hotel {

class QdjzFrm : public PostingScreen {
    Q_OBJECT

public:
    QdjzFrm();

protected:
    void showTotals() override;

private:
    QLineEdit* Zhxfe; // charges of food, drink and entertainment
};

} // namespace hotel
