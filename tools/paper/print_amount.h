#pragma once

#include <QString>

#include "record/numbers.h"

namespace hotel {

// An amount in the characters of vouchers, which can't be altered afterwards: 1234.50 is
// "壹仟贰佰叁拾肆元伍角整". Rounded to the cent; nothing is "零元整", a negative amount begins with "负".
QString AmountInWords(Money amount);

} // namespace hotel
