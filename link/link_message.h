#pragma once

#include <functional>

#include <QString>

namespace hotel {

// What goes wrong on the link outside of a command's answer and must be told to the user. The link
// lies below the screens and knows no message box; the shell installs the words' way to the user.
using LinkMessage = std::function<void(const QString& words, const QString& title)>;

} // namespace hotel
