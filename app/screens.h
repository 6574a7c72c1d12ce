#pragma once

// The one place that knows which screen an entry of the main menu, or another screen, means by a name.

#include <QStringList>
#include <QStringView>

namespace hotel {

// Makes all screens of the house known under their names and gives the main menu its way to them.
void RegisterScreens();

// Names in the main menu that lead to no screen yet: their entries say so.
QStringList ScreensToCome();

} // namespace hotel
