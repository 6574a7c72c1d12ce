#include "tools/form_tools.h"

#include "screen/field_form.h"
#include "tools/CalcSub.h"
#include "tools/categories.h"
#include "tools/pinyin.h"

namespace hotel {

namespace {

std::optional<double> ReadAmount(const QString& text) {
    const CellAmount cell = AmountFromCell(text);
    return cell.amount ? std::optional(cell.amount->number()) : std::nullopt;
}

} // namespace

void SetUpForms() {
    SetCategoryLoader(LoadCategory);
    SetCategoryMatch(MatchesTyped);
    SetAmountReader(ReadAmount);
}

} // namespace hotel
