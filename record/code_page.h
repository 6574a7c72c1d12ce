#pragma once

// The Chinese double-byte code page of the wire (CP936).
//
// The two directions are deliberately unequal. Sending, a character from 0 to 127 is one byte and
// any other two, high byte first (the euro sign, value 128, is 00 80). Receiving, a byte that is
// CR, LF or from 32 to 127 stands for itself and throws a pending lead byte away: a character whose
// second byte is below 128 arrives at the client as that byte alone. Workstations in use depend on
// it, so it stays.

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

namespace hotel {

// Code page value of a character: 0 to 127, or lead byte times 256 plus trail byte. Characters that
// the code page does not hold give the value of '?'.
quint16 CodePageValue(char16_t character);

// Character of a value; U+FFFD where the code page has none.
char16_t FromCodePage(quint16 value);

// The bytes that go over the wire for `text`.
QByteArray EncodeForWire(QStringView text);

// The client's side of receiving: keeps the pending lead byte between pieces.
class WireDecoder {
public:
    QString decode(QByteArrayView bytes);

    // Forgets a pending lead byte (a new connection starts clean).
    void reset() { lead_ = kNoLead; }

private:
    static constexpr int kNoLead = -1;
    int lead_ = kNoLead;
};

// The server's side of receiving: a whole request, every two-byte character kept, so that a text
// comes back as CodePageValue knows it. A byte that begins no character gives U+FFFD.
QString DecodeRequest(QByteArrayView bytes);

} // namespace hotel
