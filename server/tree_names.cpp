#include "server/tree_names.h"

#include <QByteArray>

namespace hotel {

static bool MustBeEscaped(QStringView name, qsizetype position) {
    const QChar c = name[position];
    if (c.category() == QChar::Other_Control || QStringView(u"%/\\:*?\"<>|").contains(c))
        return true;
    const bool last = position == name.size() - 1;
    return (c == u'.' && (position == 0 || last)) || (c == u' ' && last);
}

QString ToFileName(QStringView name) {
    QString fileName;
    for (qsizetype i = 0; i < name.size(); ++i) {
        if (!MustBeEscaped(name, i)) {
            fileName += name[i];
            continue;
        }
        for (char byte : name.sliced(i, 1).toUtf8())
            fileName += u'%' + QString::fromLatin1(QByteArray(1, byte).toHex().toUpper());
    }
    return fileName;
}

QString FromFileName(QStringView fileName) {
    const QByteArray written = fileName.toUtf8();
    QByteArray name;
    for (qsizetype i = 0; i < written.size(); ++i) {
        bool isByte = false;
        const uint byte = written[i] == '%' ? written.mid(i + 1, 2).toUInt(&isByte, 16) : 0;
        if (isByte && i + 2 < written.size()) {
            name += char(byte);
            i += 2;
        } else {
            name += written[i];
        }
    }
    return QString::fromUtf8(name);
}

} // namespace hotel
