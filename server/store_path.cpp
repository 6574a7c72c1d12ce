#include "server/store_path.h"

#include <algorithm>

#include <QStringList>

#include "record/record_text.h"

namespace hotel {

static bool HoldsForbidden(QStringView text) {
    return std::any_of(text.begin(), text.end(), [](QChar c) {
        return c.category() == QChar::Other_Control || c == u'<' || c == u'>';
    });
}

static bool HasDriveLetter(QStringView text) {
    return text.size() >= 2 && text[1] == u':' && text[0].isLetter();
}

static std::optional<StorePath> ParseSteps(QString text) {
    text.replace(u'/', kPathSeparator);
    if (text.startsWith(kPathSeparator) || HasDriveLetter(text) || HoldsForbidden(text))
        return std::nullopt;
    QStringList steps = text.split(kPathSeparator, Qt::SkipEmptyParts);
    steps.removeAll(u"."_s);
    if (steps.contains(u".."_s))
        return std::nullopt;
    const QString name = steps.join(kPathSeparator);
    return StorePath{name.toCaseFolded(), name};
}

std::optional<StorePath> ParseFilePath(QStringView text) {
    const QString trimmed = TrimWhite(text);
    if (trimmed.endsWith(u'\\') || trimmed.endsWith(u'/'))
        return std::nullopt;
    const std::optional<StorePath> path = ParseSteps(trimmed);
    return path && !path->key.isEmpty() ? path : std::nullopt;
}

std::optional<StorePath> ParseFolderPath(QStringView text) {
    return ParseSteps(TrimWhite(text));
}

std::optional<QString> ParseName(QStringView text) {
    QString name = TrimWhite(text);
    if (name.isEmpty() || HoldsForbidden(name))
        return std::nullopt;
    return name;
}

} // namespace hotel
