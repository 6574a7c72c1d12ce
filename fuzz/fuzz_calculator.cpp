// The calculator of amount fields: what is typed ends in a finite value or in words.

#include "fuzz/fuzz_input.h"

#include "tools/aids/CalcSub.h"

#include <cmath>

using namespace hotel;
using namespace hotel::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QString text = QString::fromUtf8(Bytes(data, size));
    try {
        Require(std::isfinite(EvaluateExpression(text)), "a value is finite");
    } catch (const CalcError& fault) {
        Require(!fault.text().isEmpty(), "a fault has words");
    }
    const CellAmount cell = AmountFromCell(text);
    Require(cell.amount.has_value() == cell.error.isEmpty(), "an amount or words, never both");
    return 0;
}
