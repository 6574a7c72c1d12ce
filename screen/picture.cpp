#include "screen/picture.h"

#include <QDir>
#include <QFileInfo>
#include <QPixmap>
#include <QWidget>

namespace hotel {

bool SavePicture(QWidget* window, const QString& path) {
    return QDir().mkpath(QFileInfo(path).path()) && window->grab().save(path);
}

} // namespace hotel
