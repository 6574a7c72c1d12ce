#pragma once

// Receivables (应收款管理): money still to be collected, apart from the folios.

#include "tools/plans/plan_screen.h"

namespace hotel {

class frmYsk : public PlanScreen {
    Q_OBJECT

public:
    frmYsk();
};

} // namespace hotel
