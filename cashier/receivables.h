#pragma once

// Money still to be collected, apart from the folios: what is due and why, and how it ended.
//
//     应收款单号   number, yyMMddHHmmss
//     金额         amount, "#0.00"; not 0
//     目前状态     收款原因     each from its category (收款状态, 收款原因); required
//     应收日期     yyyy-MM-dd, the day on which it was entered
//     应收单位     应收人       named on the item; only he may delete it, on that day
//     收款结果     outcome; empty until it is closed
//     收款日期     yyyy-MM-dd
//     收款人       collector; whoever closes it unless another is named

#include "tools/plans/plan_list.h"

namespace hotel {

const PlanKind& ReceivablePlans();

} // namespace hotel
