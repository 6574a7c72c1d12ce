#pragma once

#include <QString>

namespace hotel {

// u"房间号"_s in every file of the house; the literal costs no allocation.
using namespace Qt::Literals::StringLiterals;

inline constexpr QLatin1StringView kCrLf{"\r\n"};

} // namespace hotel
