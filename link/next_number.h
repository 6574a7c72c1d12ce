#pragma once

#include <QString>
#include <QStringView>

namespace hotel {

// The key that the next record of a project gets: the greatest number among its record names plus
// one, as "#0"; "1" where there is none and where the server gives no answer.
//
// Nothing is reserved: two desks that ask before either has written get the same number, and the
// second write replaces the first.
QString NextNumberInProject(QStringView file, QStringView project);

} // namespace hotel
