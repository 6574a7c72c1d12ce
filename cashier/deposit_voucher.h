#pragma once

// The deposit voucher (宾客押金凭证) that a guest takes along, by the form that parameter Bkyjpz names.

#include <QString>

#include "record/text_table.h"

namespace hotel {

struct VoucherDesk {
    QString folio;
    QString room;
    QString telephone;
    QString operatorName;
};

// For a row of the deposit list.
void PrintDepositVoucher(const TextTable& deposits, int row, const VoucherDesk& desk);

} // namespace hotel
