#pragma once

// Searching record text, as the primitives of record_text.h and the condition language do it.
// Nothing here remembers anything between calls, so all of it may run on any thread.

#include <QStringView>
#include <QVarLengthArray>

namespace hotel {

// Position of the first `needle` (not empty) at or behind `from`, or -1. Does what
// QStringView::indexOf does, several times as fast on the long texts of this system.
qsizetype FindText(QStringView text, QStringView needle, qsizetype from = 0);

// Whether both are the same. Does what == does, several times as fast on the short texts of tags and cells.
inline bool IsSameText(QStringView a, QStringView b) {
    if (a.size() != b.size())
        return false;
    const char16_t* const of = a.utf16();
    const char16_t* const other = b.utf16();
    for (qsizetype i = 0; i < a.size(); ++i) {
        if (of[i] != other[i])
            return false;
    }
    return true;
}

// `text` without blanks, CR, LF, TAB and ideographic blanks (U+3000) at both ends.
QStringView TrimmedWhite(QStringView text);

// The three forms in which a tag stands in a text, without an allocation for tags of usual length.
class TagMarks {
public:
    explicit TagMarks(QStringView tag);

    QStringView opening() const { return QStringView(forms_).sliced(0, tagSize_ + 2); }
    QStringView closing() const { return QStringView(forms_).sliced(tagSize_ + 2, tagSize_ + 3); }
    QStringView emptyForm() const { return QStringView(forms_).sliced(2 * tagSize_ + 5); }

private:
    QVarLengthArray<char16_t, 96> forms_; // <tag></tag><tag />
    qsizetype tagSize_;
};

// One step over the occurrences of a tag from `position` on, by the rule of GetTagN. The empty form
// counts, but the place to go on from is reckoned from the next regular opening tag (from the front of
// the text when there is none), so that one regular occurrence behind an empty form is stepped over.
// That is deliberate: every workstation numbers the entries of stored lists in this way.
struct Occurrence {
    bool found = false;
    QStringView value;
    qsizetype next = 0; // where the following occurrence is searched from
};
Occurrence ReadOccurrence(QStringView text, const TagMarks& marks, qsizetype position);

// The same step for an occurrence that nobody reads: the position behind its opening tag, or -1
// when there is none. A tag of the same name inside the value therefore counts as the following
// occurrence.
qsizetype SkipOccurrence(QStringView text, const TagMarks& marks, qsizetype position);

} // namespace hotel
