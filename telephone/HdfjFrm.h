#pragma once

// The calls of a day as they stand on file (电话话单分拣处理). It shows them, and does nothing with them.

#include "screen/screen.h"

namespace hotel {

class FieldForm;
class GridView;

class HdfjFrm : public Screen {
    Q_OBJECT

public:
    HdfjFrm();

    // The calls of today.
    void load(const QVariant& argument) override;

private:
    void showDay();

    FieldForm* date_; // BillDate
    GridView* HdQd;
};

} // namespace hotel
