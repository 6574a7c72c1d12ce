#pragma once

// The two requests of a SOCKS5 proxy (version 5, no authentication) and what their replies mean.

#include <QByteArray>
#include <QString>
#include <QStringView>

namespace hotel::Socks5 {

// Three bytes that offer one method, the one without authentication.
QByteArray MethodRequest();

// A proxy that takes the offer answers exactly two bytes: 5, 0.
bool AcceptsMethod(const QByteArray& reply);

// Ten bytes that ask for a connection to `address`, in dotted numeric form, and `port`.
QByteArray ConnectRequest(QStringView address, quint16 port);

// The second byte of the reply is 0 when the proxy serves; the rest is not looked at.
bool Serves(const QByteArray& reply);

// Part `index` (0 to 3) of a dotted address. Anything but digits and dots is ignored; a missing part
// is 0.
quint8 DottedOctet(QStringView address, int index);

} // namespace hotel::Socks5
