#pragma once

// What proves a password at login without sending it. Both ends of the wire compute the same text:
// the workstation from what was typed, the server from the user's record.

#include <optional>

#include <QString>
#include <QStringView>

namespace hotel {

// Product tag of this system in the digest; workstation and server must agree on it.
inline constexpr QStringView kProductId = u"Hotel";

// MD5 (RFC 1321) of the first half of `text`: of its UTF-16 little-endian bytes only as many are
// fed as the text has characters. The halving is deliberate: every workstation in use computes it
// so. Gives 32 upper-case hexadecimal digits.
QString MD5Hex(QStringView text);

// The digest that is sent in place of `password`. `date` is "yyyy-MM-dd", so that a digest holds
// for one day and both ends must agree on the day.
//
// Gives nothing for a password that can't be digested: each of its bytes is multiplied with its
// position in 16-bit signed arithmetic, and a product above 32767 is a failure. No password of up
// to 64 characters fails.
std::optional<QString> LoginDigest(QStringView productId, QStringView user, QStringView password,
                                   QStringView date);

} // namespace hotel
