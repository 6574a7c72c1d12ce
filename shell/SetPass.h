#pragma once

// The change of one's own password (修改密码), from the login window. Opened with the login name that stands there.

#include "screen/screen.h"

namespace hotel {

class FieldForm;

class SetPass : public Screen {
    Q_OBJECT

public:
    SetPass();

    void load(const QVariant& user) override;

private:
    void Image1_Click();

    FieldForm* boxes_;
};

} // namespace hotel
