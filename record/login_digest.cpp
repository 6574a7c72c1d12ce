#include "record/login_digest.h"

#include <limits>

#include <QCryptographicHash>
#include <QStringBuilder>

#include "record/literals.h"

namespace hotel {

static QByteArray Utf16LittleEndian(QStringView text) {
    QByteArray bytes;
    for (const QChar c : text)
        bytes.append(char(c.cell())).append(char(c.row()));
    return bytes;
}

QString MD5Hex(QStringView text) {
    const QByteArray firstHalf = Utf16LittleEndian(text).first(text.size());
    const QByteArray digest = QCryptographicHash::hash(firstHalf, QCryptographicHash::Md5);
    return QString::fromLatin1(digest.toHex().toUpper());
}

std::optional<QString> LoginDigest(QStringView productId, QStringView user, QStringView password,
                                   QStringView date) {
    QString text = productId % user % password % date;
    const QByteArray bytes = Utf16LittleEndian(password);
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const qint64 product = quint8(bytes[i]) * (i + 1);
        if (product > std::numeric_limits<qint16>::max())
            return std::nullopt;
        text += QString::number(product, 16).toUpper();
    }
    return MD5Hex(text);
}

} // namespace hotel
