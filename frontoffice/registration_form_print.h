#pragma once

// The printed registration form: one sheet for each room of the party.

#include <QString>
#include <QStringList>

#include <optional>

#include "session/notice.h"

namespace hotel {

// Why there is nothing to print yet; nothing when PrintRegistrationForm may be called.
std::optional<Notice> RefuseRegistrationForm(const QString& workingSet);

// Shows the form of `rooms` (those of the party, in their order) in the preview and logs it. The
// working set is that of house/guests/working_set.h. (Waits on the server, which keeps the form.)
void PrintRegistrationForm(const QString& workingSet, const QStringList& rooms);

} // namespace hotel
