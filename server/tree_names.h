#pragma once

// Names of the store as names of files and folders, and back.

#include <QString>
#include <QStringView>

namespace hotel {

// `name` with every character that a file system can't hold, a point in front and a point or blank
// at the end written as `%` and two hexadecimal digits for each byte of its UTF-8 form.
QString ToFileName(QStringView name);

// The name that ToFileName was given. A `%` without two hexadecimal digits stands for itself.
QString FromFileName(QStringView fileName);

} // namespace hotel
