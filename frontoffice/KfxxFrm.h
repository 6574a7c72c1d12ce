#pragma once

// The guests who are in a room now. Opened with the room number; closes at once when the room has none.

#include "screen/screen.h"

namespace hotel {

class GridView;

class KfxxFrm : public Screen {
    Q_OBJECT

public:
    KfxxFrm();

    void load(const QVariant& room) override;

private:
    GridView* KrxxQd;
};

} // namespace hotel
