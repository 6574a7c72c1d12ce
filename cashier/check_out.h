#pragma once

// Confirming a check-out: guests leave a folio, some of them or all. Who leaves is what is chosen in the
// settlement list. When all leave, the folio is paid and retired; when some do, only their last room
// charges go onto the folio, which stays open for the others.
//
// There is no transaction. Whatever is refused is refused ahead of the first write; from then on a
// failure is told and doesn't stop what comes after it, and what was written stays.

#include <QList>
#include <QString>

#include <functional>
#include <optional>

#include "cashier/settlement.h"
#include "cashier/settlement_list.h"
#include "session/notice.h"

namespace hotel {

struct CheckOut {
    QString folio;
    TextTable list;      // who leaves, with their charges
    QString statusAfter; // of the rooms: Yhft
};

// How the act asks the cashier.
struct CheckOutQuestions {
    std::function<bool(const Notice& question)> yes;
    std::function<std::optional<Payment>(const SettlementSums& sums)> payment; // nothing: cancelled
    std::function<void(int done, int total)> progress;
};

struct CheckOutOutcome {
    TextTable list;        // without those who left
    QList<Notice> notices; // in the order of what happened
    int undecidedRow = 0;  // the first one who leaves without a decided charge
    bool done = false;     // guests have left
    bool retired = false;  // the folio was settled as a whole
};

CheckOutOutcome ConfirmCheckOut(const CheckOut& checkOut, const CheckOutQuestions& questions);

} // namespace hotel
