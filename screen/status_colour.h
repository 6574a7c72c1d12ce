#pragma once

// The colours of the statuses as the category has them, on the screen.

#include <QColor>

namespace hotel {

// From the category's number, 0xBBGGRR.
QColor StatusColour(int number);

// Black or white, whichever reads better on `fill`.
QColor ReadableOn(const QColor& fill);

} // namespace hotel
