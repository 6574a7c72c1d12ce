#pragma once

// Asks the user of this desk for the password once more (重新登录). Another user is not offered: what stands in
// the open screens is this one's work.

#include "screen/screen.h"

class QLineEdit;

namespace hotel {

class ReloginFrm : public Screen {
    Q_OBJECT

public:
    ReloginFrm();

private:
    void Logincmd_Click();

    QLineEdit* password_;
};

} // namespace hotel
