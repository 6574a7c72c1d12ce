#pragma once

// Who this workstation is to the server.

#include <QByteArrayView>
#include <QHostAddress>
#include <QList>
#include <QString>

#include "link/link_message.h"

namespace hotel {

// The workstation's own address in dotted form, read from its network interfaces: no name server is
// asked, so this does not wait. Without any address, `message` gets the words and the text is
// empty.
QString LocalAddress(const LinkMessage& message);

// The address by which the house knows a workstation with these addresses: its first IPv4 address,
// a loopback one only where there is no other. Empty when there is none.
QString DottedAddress(const QList<QHostAddress>& addresses);

// A text of twelve digits that stays the same for this machine for as long as its installation
// lives.
QString WorkstationNumber();

// The number of the machine with this identity; the identity can't be read back from it.
QString NumberOfMachine(QByteArrayView machineId);

} // namespace hotel
