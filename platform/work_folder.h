#pragma once

// Where the workstation keeps files of its own. That is the folder of the program, where desks are used to look. A
// program that is installed for all users can't write there; then it is a folder of the user.

#include <QString>

namespace hotel {

// Pictures while they are shown; whatever picture stands there is removed when the program ends. Of the user: the
// program's data folder, which nobody else puts anything into.
QString PictureFolder();
QString PictureFolder(const QString& programFolder);

// Lists that are saved under a proposed name. Of the user: his documents.
QString ListFolder();
QString ListFolder(const QString& programFolder);

// What the desk is set to by its own screens. Of the user: the program's data folder.
QString SettingsFolder();

} // namespace hotel
