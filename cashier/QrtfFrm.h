#pragma once

// The payment of a settlement. What is due stands fixed; its small change is proposed as the discount. As
// soon as what is received and the discount come to what is due, the change shows and F8 confirms.
//
// A company that settles later is found by its number, or by any word of its record: Enter in 团队编号
// lists the hits. Its name goes into the note, which makes it a settlement of the team.

#include <QString>

#include <optional>

#include "cashier/settlement.h"
#include "screen/screen.h"

namespace hotel {

class FieldForm;

class QrtfFrm : public Screen {
    Q_OBJECT

public:
    QrtfFrm(const QString& folio, const QString& due);

    // The boxes as they stand; Ssje is empty when the payment was cancelled.
    Payment payment() const;

private:
    void Ssje_Change();
    void Khh_Enter();
    void Khh_Leave();
    void takeTeam(const QString& number);
    void Qxcmd_Click();

    FieldForm* boxes_;
};

// Asks for the payment in front of `parent`; nothing when it is cancelled.
std::optional<Payment> TakePayment(QWidget* parent, const QString& folio, const QString& due);

} // namespace hotel
