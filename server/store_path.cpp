#include "server/store_path.h"

#include <algorithm>

#include "record/record_text.h"
#include "record/tag_search.h"

namespace hotel {

static bool HoldsForbidden(QStringView text) {
    return std::any_of(text.begin(), text.end(), [](QChar c) {
        return c.category() == QChar::Other_Control || c == u'<' || c == u'>';
    });
}

static bool HasDriveLetter(QStringView text) {
    return text.size() >= 2 && text[1] == u':' && text[0].isLetter();
}

static bool IsSeparator(QChar c) {
    return c == kPathSeparator || c == u'/';
}

static std::optional<StorePath> ParseSteps(QStringView text) {
    const bool isAbsolute = !text.isEmpty() && IsSeparator(text.front());
    if (isAbsolute || HasDriveLetter(text) || HoldsForbidden(text))
        return std::nullopt;
    QString name;
    name.reserve(text.size());
    while (!text.isEmpty()) {
        const auto end = std::find_if(text.begin(), text.end(), IsSeparator);
        const QStringView step = text.first(end - text.begin());
        text = text.sliced(qMin(step.size() + 1, text.size()));
        if (step == u"..")
            return std::nullopt;
        if (step.isEmpty() || step == u".")
            continue;
        if (!name.isEmpty())
            name += kPathSeparator;
        name += step;
    }
    const QString key = name.toCaseFolded(); // which may be longer
    if (key.size() > kStoredNameLimit)
        return std::nullopt;
    return StorePath{key, name};
}

std::optional<StorePath> ParseFilePath(QStringView text) {
    const QStringView trimmed = TrimmedWhite(text);
    if (trimmed.isEmpty() || IsSeparator(trimmed.back()))
        return std::nullopt;
    const std::optional<StorePath> path = ParseSteps(trimmed);
    return path && !path->key.isEmpty() ? path : std::nullopt;
}

std::optional<StorePath> ParseFolderPath(QStringView text) {
    return ParseSteps(TrimmedWhite(text));
}

std::optional<QString> ParseName(QStringView text) {
    QString name = TrimWhite(text);
    if (name.isEmpty() || name.size() > kStoredNameLimit || HoldsForbidden(name))
        return std::nullopt;
    return name;
}

} // namespace hotel
