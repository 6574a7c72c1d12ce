#include "link/socks5.h"

namespace hotel::Socks5 {

namespace {

constexpr char kVersion = 5;
constexpr char kNoAuthentication = 0;
constexpr char kConnect = 1;
constexpr char kDottedAddress = 1;

} // namespace

QByteArray MethodRequest() {
    const char offeredMethods = 1;
    return QByteArray{} + kVersion + offeredMethods + kNoAuthentication;
}

bool AcceptsMethod(const QByteArray& reply) {
    return reply.size() == 2 && reply[0] == kVersion && reply[1] == kNoAuthentication;
}

QByteArray ConnectRequest(QStringView address, quint16 port) {
    QByteArray request = QByteArray{} + kVersion + kConnect + '\0' + kDottedAddress;
    for (int index = 0; index < 4; ++index)
        request += char(DottedOctet(address, index));
    return request + char(port / 256) + char(port % 256);
}

bool Serves(const QByteArray& reply) {
    return reply.size() >= 2 && reply[1] == 0;
}

quint8 DottedOctet(QStringView address, int index) {
    int octet = 0;
    int dots = 0;
    for (QChar character : address) {
        if (character == u'.')
            ++dots;
        else if (dots == index && character >= u'0' && character <= u'9')
            octet = (octet * 10 + character.digitValue()) & 0xFF;
    }
    return quint8(octet);
}

} // namespace hotel::Socks5
