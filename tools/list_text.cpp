#include "tools/list_text.h"

#include "record/literals.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QList>

#include <algorithm>

namespace hotel {

namespace {

constexpr int kGapBetweenColumns = 2;

QList<int> ColumnWidths(const TextTable& table) {
    QList<int> widths(table.cols(), 0);
    for (int row = 0; row < table.rows(); ++row)
        for (int column = 0; column < table.cols(); ++column)
            widths[column] = std::max(widths[column], DisplayWidth(table.text(row, column)));
    return widths;
}

} // namespace

int DisplayWidth(QStringView text) {
    int width = 0;
    for (const QChar c : text)
        width += c.unicode() >= 1 && c.unicode() <= 127 ? 1 : 2;
    return width;
}

QString PaddedTo(int width, QStringView text) {
    return text + QString(std::max(0, width - DisplayWidth(text)), u' ');
}

QString AlignedText(const TextTable& table) {
    const QList<int> widths = ColumnWidths(table);
    QString text;
    for (int row = 0; row < table.rows(); ++row) {
        for (int column = 0; column < table.cols(); ++column)
            text += PaddedTo(widths[column] + kGapBetweenColumns, table.text(row, column));
        text += kCrLf;
    }
    return text;
}

bool SaveText(const QString& fileName, const QString& text) {
    QFile file(QString(fileName).replace(u'\\', u'/'));
    QDir().mkpath(QFileInfo(file).path());
    const QByteArray bytes = text.toUtf8();
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
}

} // namespace hotel
