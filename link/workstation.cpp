#include "link/workstation.h"

#include <QCryptographicHash>
#include <QNetworkInterface>
#include <QSysInfo>

#include "record/literals.h"

namespace hotel {

QString LocalAddress(const LinkMessage& message) {
    QString address = DottedAddress(QNetworkInterface::allAddresses());
    if (address.isEmpty() && message)
        message(u"Windows Sockets are not responding. Unable to successfully get Host Name."_s, {});
    return address;
}

QString DottedAddress(const QList<QHostAddress>& addresses) {
    QString loopback;
    for (const QHostAddress& address : addresses) {
        if (address.protocol() != QAbstractSocket::IPv4Protocol)
            continue;
        if (!address.isLoopback())
            return address.toString();
        if (loopback.isEmpty())
            loopback = address.toString();
    }
    return loopback;
}

QString WorkstationNumber() {
    const QByteArray machineId = QSysInfo::machineUniqueId();
    return NumberOfMachine(machineId.isEmpty() ? QSysInfo::machineHostName().toUtf8() : machineId);
}

QString NumberOfMachine(QByteArrayView machineId) {
    constexpr quint64 kTwelveDigits = 1'000'000'000'000;
    const QByteArray digest = QCryptographicHash::hash("workstation " + machineId.toByteArray(),
                                                       QCryptographicHash::Sha256);
    const quint64 number = digest.first(sizeof(quint64)).toHex().toULongLong(nullptr, 16);
    return QString::number(number % kTwelveDigits).rightJustified(12, u'0');
}

} // namespace hotel
