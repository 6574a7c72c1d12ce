#pragma once

// Names inside the store. A path is relative to the store's root; `\` separates its steps and `/`
// is taken too. Letter case is ignored: `User.QVR` and `user.qvr` are one file, shown as it was
// first written.

#include <optional>

#include <QString>
#include <QStringView>

namespace hotel {

inline constexpr QChar kPathSeparator = u'\\';

struct StorePath {
    // The steps in lower case, joined by `\`: what two spellings of one path have in common.
    QString key;
    // The steps as they were written, joined by `\`.
    QString name;

    // Last step as it was written.
    QStringView leaf() const {
        return QStringView(name).sliced(name.lastIndexOf(kPathSeparator) + 1);
    }
};

// Characters of a path or a name at most: they stand in indexes, whose entries some databases bound.
inline constexpr qsizetype kStoredNameLimit = 500;

// The path of a database file or an uploaded file. White space around it and doubled separators
// don't count. Gives nothing for a path that is empty or absolute, ends in a separator, has a drive
// letter, a `..` step, a control character or a tag bracket, or is too long.
std::optional<StorePath> ParseFilePath(QStringView text);

// The path of a folder, by the same rules; one trailing separator is allowed, and the empty text is
// the root (an empty key).
std::optional<StorePath> ParseFolderPath(QStringView text);

// `text` as the name of a project or a record, white space around it taken off; nothing when that
// is empty, too long, or holds a control character or a tag bracket, which no list and no field could carry.
std::optional<QString> ParseName(QStringView text);

} // namespace hotel
