#include "record/tag_search.h"

#include <algorithm>

namespace hotel {

namespace {

// Where the next occurrence starts. Both positions are -1 when nothing is found.
struct OccurrenceStart {
    qsizetype regular;
    bool empty; // the empty form stands ahead of the regular one
};

OccurrenceStart FindOccurrence(QStringView text, const TagMarks& marks, qsizetype position) {
    const qsizetype regular = FindText(text, marks.opening(), position);
    // An empty form behind the regular one plays no part, so a long text isn't searched for it.
    const QStringView ahead =
        regular < 0 ? text
                    : text.first(std::min(text.size(), regular + marks.emptyForm().size() - 1));
    return {regular, FindText(ahead, marks.emptyForm(), position) >= 0};
}

} // namespace

qsizetype FindText(QStringView text, QStringView needle, qsizetype from) {
    // Whole blocks are tested for two of the needle's characters at once; the compiler makes vector
    // instructions of the inner loop. The middle one is the rarer in tags, which all begin alike.
    constexpr qsizetype kBlock = 64;
    const char16_t* const characters = text.utf16();
    const qsizetype middle = needle.size() / 2;
    const char16_t firstCharacter = needle.front().unicode();
    const char16_t middleCharacter = needle[middle].unicode();
    const qsizetype end = text.size() - needle.size() + 1;
    for (qsizetype block = from; block < end; block += kBlock) {
        if (block + kBlock <= end) {
            quint16 candidates = 0;
            for (qsizetype i = 0; i < kBlock; ++i)
                candidates |= quint16(characters[block + i] == firstCharacter) &
                              quint16(characters[block + middle + i] == middleCharacter);
            if (!candidates)
                continue;
        }
        const qsizetype blockEnd = std::min(block + kBlock, end);
        for (qsizetype i = block; i < blockEnd; ++i) {
            if (characters[i] == firstCharacter && characters[i + middle] == middleCharacter &&
                std::equal(needle.utf16(), needle.utf16() + needle.size(), characters + i))
                return i;
        }
    }
    return -1;
}

QStringView TrimmedWhite(QStringView text) {
    const auto isWhite = [](QChar c) {
        return c == u' ' || c == u'\r' || c == u'\n' || c == u'\t' || c == u'\u3000';
    };
    while (!text.isEmpty() && isWhite(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isWhite(text.back()))
        text.chop(1);
    return text;
}

TagMarks::TagMarks(QStringView tag) : tagSize_(tag.size()) {
    const auto append = [this](QStringView part) { forms_.append(part.utf16(), part.size()); };
    forms_.reserve(3 * tagSize_ + 9);
    append(u"<");
    append(tag);
    append(u"></");
    append(tag);
    append(u"><");
    append(tag);
    append(u" />");
}

Occurrence ReadOccurrence(QStringView text, const TagMarks& marks, qsizetype position) {
    const auto [regular, empty] = FindOccurrence(text, marks, position);
    if (regular < 0 && !empty)
        return {};
    const qsizetype closing = FindText(text, marks.closing(), std::max<qsizetype>(regular, 0));
    if (closing <= regular)
        return {};
    if (empty)
        return {true, {}, regular + marks.emptyForm().size()};
    const qsizetype begin = regular + marks.opening().size();
    return {true, begin < closing ? text.sliced(begin, closing - begin) : QStringView(), closing};
}

qsizetype SkipOccurrence(QStringView text, const TagMarks& marks, qsizetype position) {
    const auto [regular, empty] = FindOccurrence(text, marks, position);
    if (empty)
        return regular + marks.emptyForm().size();
    return regular < 0 ? -1 : regular + marks.opening().size();
}

} // namespace hotel
