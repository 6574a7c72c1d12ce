#pragma once

#include <QString>

namespace hotel {

// u"房间号"_s in every file of the house; the literal costs no allocation.
using namespace Qt::Literals::StringLiterals;

inline constexpr QLatin1StringView kCrLf{"\r\n"};

// Tags and table words are views; the toolkit joins views only with its own string builder.
inline QString operator+(QString text, QStringView more) {
    text.append(more);
    return text;
}
inline QString operator+(QStringView text, const QString& more) {
    return text.toString().append(more);
}

} // namespace hotel
