#pragma once

// Repairs of rooms (客房维修计划): reported, closed with their outcome, tidied into the history.

#include "tools/plans/plan_screen.h"

namespace hotel {

class frmWX : public PlanScreen {
    Q_OBJECT

public:
    frmWX();
};

} // namespace hotel
