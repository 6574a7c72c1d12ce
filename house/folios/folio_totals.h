#pragma once

// What a folio comes to: the sums of its ledger.

#include <QStringView>

#include <array>
#include <optional>

#include "record/numbers.h"

namespace hotel {

struct FolioTotals {
    Money credit;                // 信用金额 of the deposits
    Money received;              // 实收金额 of the deposits
    std::array<Money, 7> ofKind; // 金额 by kind of posting (house/folios/folio_posting.h)
    Money charges;               // of all kinds of charges

    Money balance() const { return received + credit - charges; }
};

// Nothing when a project of the ledger could not be read; a folio without postings comes to 0.
std::optional<FolioTotals> LoadFolioTotals(QStringView folio);

} // namespace hotel
