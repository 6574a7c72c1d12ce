#include "tools/aids/form_tools.h"

#include "screen/field_form.h"
#include "tools/aids/CalcSub.h"
#include "tools/aids/categories.h"
#include "tools/aids/pinyin.h"

namespace hotel {

namespace {

std::optional<double> ReadAmount(const QString& text) {
    const CellAmount cell = AmountFromCell(text);
    return cell.amount ? std::optional(cell.amount->number()) : std::nullopt;
}

} // namespace

void SetUpForms() {
    SetCategoryLoader(ReadCategory);
    SetCategoryMatch(MatchesTyped);
    SetAmountReader(ReadAmount);
}

} // namespace hotel
