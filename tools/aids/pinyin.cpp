#include "tools/aids/pinyin.h"

#include "record/code_page.h"
#include "record/literals.h"

namespace hotel {

namespace {

constexpr quint16 kFirstRow = 0xB0;
constexpr quint16 kLastRow = 0xD7;
constexpr int kRowLength = 96; // the code page's 94 positions, and one unused at each end
constexpr quint16 kTrailOfPositionZero = 0xA0;
constexpr char16_t kFirstIdeograph = 0x4E00;
constexpr char16_t kLastIdeograph = 0x9FFF;

// The level-one characters of the national character set stand in the order of their pronunciation;
// these are the first of each letter. No word begins with I, U or V.
constexpr QStringView kFirstOfLetter = u"啊芭擦搭蛾发噶哈击喀垃妈拿哦啪期然撒塌挖昔压匝";
constexpr QStringView kLetters = u"ABCDEFGHJKLMNOPQRSTWXYZ";
static_assert(kFirstOfLetter.size() == kLetters.size());

// A letter for each position from row 0xB0 on; a blank where there is no character.
QString MakeLetterTable() {
    QString table((kLastRow - kFirstRow + 1) * kRowLength, u' ');
    qsizetype next = 0; // of the letters
    for (qsizetype i = 0; i < table.size(); ++i) {
        if (i % kRowLength == 0)
            continue;
        const auto row = quint16(kFirstRow + i / kRowLength);
        const auto trail = quint16(kTrailOfPositionZero + i % kRowLength);
        const char16_t character = FromCodePage(quint16(row << 8 | trail));
        if (character < kFirstIdeograph || character > kLastIdeograph)
            continue;
        if (next < kFirstOfLetter.size() && character == kFirstOfLetter[next])
            ++next;
        table[i] = kLetters[next - 1];
    }
    return table;
}

QChar Initial(QChar character) {
    static const QString table = MakeLetterTable();
    const quint16 value = CodePageValue(character.unicode());
    if (value < 0x1000)
        return character;
    const int row = (value >> 8) - kFirstRow;
    const int position = (value & 0xFF) - kTrailOfPositionZero;
    const int index = row * kRowLength + position;
    return index >= 0 && index < table.size() ? table[index] : u'Z';
}

} // namespace

QString PinyinInitials(QStringView text) {
    QString initials = text.toString();
    for (QChar& c : initials)
        c = Initial(c);
    return initials;
}

ListEntry SplitListEntry(QStringView entry) {
    const QList<QStringView> parts = entry.split(u',');
    return {parts.value(0).toString(), parts.value(1).toString(), parts.value(2).toString()};
}

qsizetype FindListEntry(const QStringList& entries, QStringView code, QStringView initials) {
    const auto begins = [](QStringView text, QStringView typed) {
        return !typed.isEmpty() && text.startsWith(typed, Qt::CaseInsensitive);
    };
    for (qsizetype i = 0; i < entries.size(); ++i) {
        const ListEntry entry = SplitListEntry(entries[i]);
        if (begins(entry.name, code) || begins(entry.pinyin, initials))
            return i;
    }
    return -1;
}

bool MatchesTyped(QStringView entry, QStringView typed) {
    return entry.startsWith(typed, Qt::CaseInsensitive) ||
           PinyinInitials(entry).startsWith(typed, Qt::CaseInsensitive);
}

} // namespace hotel
