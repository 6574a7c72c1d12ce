#pragma once

#include <QString>

class QWidget;

namespace hotel {

// Writes what the window shows to a picture file (by its extension, as "tour/RzjdFrm.png"), making
// its folder if needed. False when that fails.
bool SavePicture(QWidget* window, const QString& path);

} // namespace hotel
