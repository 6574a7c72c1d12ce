#pragma once

// The house's rates as they are now (最新房价表). Opening it reads them anew, for every screen that
// asks for RatesInUse (house/rooms/rate_table.h).

#include "screen/screen.h"

namespace hotel {

class GridView;

class Fjxxfrm : public Screen {
    Q_OBJECT

public:
    Fjxxfrm();

    void load(const QVariant& argument) override;

private:
    GridView* FjxxQd;
};

} // namespace hotel
