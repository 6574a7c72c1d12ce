#include "house/folios/folio_totals.h"

#include "house/common/paths.h"
#include "house/folios/folio_posting.h"
#include "link/records.h"
#include "record/field_walk.h"
#include "record/record_text.h"

namespace hotel {

namespace {

constexpr PostingKind kCharges[] = {kRoomPosting, kFoodPosting, kBroadbandPosting,
                                    kTelephonePosting, kServicePosting};

Money SumOf(QStringView project, QStringView field) {
    Money sum;
    for (FieldWalk posting(project); posting.next();)
        sum += Money::FromText(GetTag(posting.value(), field));
    return sum;
}

} // namespace

std::optional<FolioTotals> LoadFolioTotals(QStringView folio) {
    const QString ledger = LedgerFile(folio);
    FolioTotals totals;
    const RecordRead deposits = ReadProjectToChange(ledger, PostingProject(kDepositPosting));
    if (deposits.failed())
        return {};
    totals.credit = SumOf(deposits.value, u"信用金额");
    totals.received = SumOf(deposits.value, u"实收金额");
    for (const PostingKind kind : kCharges) {
        const RecordRead postings = ReadProjectToChange(ledger, PostingProject(kind));
        if (postings.failed())
            return {};
        totals.ofKind[kind] = SumOf(postings.value, posting::kAmount);
        totals.charges += totals.ofKind[kind];
    }
    return totals;
}

} // namespace hotel
