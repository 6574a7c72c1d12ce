#pragma once

// Picking from long lists by typing: the first letter of each character's pronunciation, and the rule
// by which typed letters select an entry.

#include <QString>
#include <QStringList>
#include <QStringView>

namespace hotel {

// The initials of a text, one for each of its characters: "客房" is "KF". Characters of a single byte
// in the code page are kept. A character outside the table, which holds the 3755 most frequent ones,
// gives "Z"; so one that is not in the table and one that begins with Z look alike.
QString PinyinInitials(QStringView text);

// An entry of a list to pick from: "8101,标准大床房,BZDCF". Missing parts are empty.
struct ListEntry {
    QString code;
    QString name;
    QString pinyin;
};
ListEntry SplitListEntry(QStringView entry);

// Index of the first entry whose name begins with `code` or whose pinyin begins with `initials`, or
// -1. That the text of the code field is compared with the name is deliberate: lists to pick from
// carry there what is typed. Letter case doesn't matter; an empty text selects nothing.
qsizetype FindListEntry(const QStringList& entries, QStringView code, QStringView initials);

// Whether letters typed into a drop-down mean an entry: its text or its initials begin with them.
bool MatchesTyped(QStringView entry, QStringView typed);

} // namespace hotel
