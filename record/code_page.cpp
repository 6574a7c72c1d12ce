#include "record/code_page.h"

#include <QStringDecoder>

#include <array>

namespace hotel {

namespace {

constexpr quint8 kFirstLead = 0x81;
constexpr quint8 kLastLead = 0xFE;
constexpr quint8 kFirstTrail = 0x40;
constexpr quint16 kEuro =
    0x80; // the one character of the code page between 127 and the double bytes

bool IsLead(quint8 byte) {
    return byte >= kFirstLead && byte <= kLastLead;
}

// Asked for every byte that arrives: a table is twice as fast as the comparisons.
constexpr auto kStandsForItself = [] {
    std::array<bool, 256> stands{};
    for (int byte = 32; byte <= 127; ++byte)
        stands[byte] = true;
    stands['\r'] = stands['\n'] = true;
    return stands;
}();

struct Tables {
    std::array<quint16, 0x10000> values;      // by character
    std::array<char16_t, 0x10000> characters; // by value
};

void AddDoubleBytes(Tables& tables) {
    QStringDecoder decode("GBK", QStringDecoder::Flag::Stateless);
    if (!decode.isValid())
        qFatal("This Qt can't convert the Chinese code page (GBK).");
    for (int lead = kFirstLead; lead <= kLastLead; ++lead) {
        for (int trail = kFirstTrail; trail <= 0xFF; ++trail) {
            const char bytes[] = {char(lead), char(trail)};
            const QString text = decode(QByteArrayView(bytes, 2));
            if (text.size() != 1 || text.front() == QChar::ReplacementCharacter)
                continue;
            const quint16 value = quint16(lead << 8 | trail);
            const char16_t character = text.front().unicode();
            tables.characters[value] = character;
            tables.values[character] = value;
        }
    }
}

Tables MakeTables() {
    Tables tables;
    tables.values.fill(u'?');
    tables.characters.fill(QChar::ReplacementCharacter);
    for (char16_t c = 0; c < 0x80; ++c) {
        tables.values[c] = c;
        tables.characters[c] = c;
    }
    tables.values[u'€'] = kEuro;
    tables.characters[kEuro] = u'€';
    AddDoubleBytes(tables);
    return tables;
}

const Tables& CodePage() {
    static const Tables tables = MakeTables();
    return tables;
}

} // namespace

quint16 CodePageValue(char16_t character) {
    return CodePage().values[character];
}

char16_t FromCodePage(quint16 value) {
    return CodePage().characters[value];
}

QByteArray EncodeForWire(QStringView text) {
    const Tables& tables = CodePage();
    QByteArray bytes(2 * text.size(), Qt::Uninitialized);
    char* out = bytes.data();
    for (const QChar c : text) {
        const quint16 value = tables.values[c.unicode()];
        *out = char(value >> 8); // without a branch, which mixed text would often mislead
        out += value > 0x7F;
        *out++ = char(value);
    }
    bytes.truncate(out - bytes.constData());
    return bytes;
}

QString WireDecoder::decode(QByteArrayView bytes) {
    const Tables& tables = CodePage();
    QString text(bytes.size(), Qt::Uninitialized);
    QChar* out = text.data();
    int lead = lead_; // in a register, which doubles the speed
    for (const char c : bytes) {
        const quint8 byte = quint8(c);
        if (kStandsForItself[byte]) {
            *out++ = QChar(byte);
            lead = kNoLead;
        } else if (lead == kNoLead) {
            lead = byte;
        } else {
            *out++ = tables.characters[lead << 8 | byte];
            lead = kNoLead;
        }
    }
    lead_ = lead;
    text.truncate(out - text.constData());
    return text;
}

QString DecodeRequest(QByteArrayView bytes) {
    const Tables& tables = CodePage();
    QString text(bytes.size(), Qt::Uninitialized);
    QChar* out = text.data();
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const quint8 byte = quint8(bytes[i]);
        if (byte >= 1 && byte <= 127) {
            *out++ = QChar(byte);
            continue;
        }
        const quint8 following = i + 1 < bytes.size() ? quint8(bytes[i + 1]) : 0;
        const bool isPair = IsLead(byte) ? following >= kFirstTrail : !byte && following == kEuro;
        *out++ = tables.characters[isPair ? byte << 8 | following : byte];
        i += isPair;
    }
    text.truncate(out - text.constData());
    return text;
}

} // namespace hotel
