#pragma once

// Record text: the one data format of the system. A record is a sequence of fields
// `<name>value</name>`, usually one a line with CR LF between them and none behind the last. There
// is no escaping: the primitives look for literal substrings, and text outside the tags is ignored.
// A value may itself be record text. An absent field and an empty one both read as the empty text.
//
// Counting is one-based, as everywhere in this system: n = 1 is the first field, line or
// occurrence. None of these functions fails on bad text; they give the empty text, or the text
// unchanged.
//
// GetTagN, TagName and GetLine remember where the last call stopped, so that a walk with n from 1
// up costs one pass over the text. The memos are module state, used on the user interface thread
// only; code that runs on another thread walks with FieldWalk (record/field_walk.h) instead.

#include <QString>
#include <QStringView>

#include "record/literals.h"

namespace hotel {

// Texts of this length or longer are not searched by GetTag and GetTagN: they read as empty.
inline constexpr qsizetype kTagTextLimit = 2048000;

// TagName holds this many names; one more is an error of the program.
inline constexpr int kNameLimit = 32000;

// Value of the first field `tag`: from behind the first `<tag>` to the first `</tag>` of the text.
// When the first closing tag stands ahead of the opening one, the field reads as empty.
QString GetTag(QStringView text, QStringView tag);

// Value of the n-th occurrence of field `tag`; the empty form `<tag />` counts as one. The walk is
// resumed when `tag` is that of the last call and n one more, whatever the text: a caller that
// turns to another text starts again with n = 1.
QString GetTagN(QStringView text, QStringView tag, qint16 n);

// Name of the n-th field. n = 1 reads the names anew; n > 1 on the same text serves them from
// memory. Fields inside a value are not listed; a tag that is never closed is. Throws
// std::out_of_range at name number kNameLimit + 1.
QString TagName(const QString& text, qint16 n);

// `text` with field `tag` (blanks around it stripped) set to `value`. An existing field keeps its
// place; a new one goes behind the last `>`, on a line of its own, and what stood behind that `>`
// is dropped. An empty value removes the field.
QString SetTag(const QString& text, QStringView tag, QStringView value);

// The n-th line without its CR LF. A lone CR or LF ends no line.
QString GetLine(const QString& text, qint16 n);

// `text` without blanks, CR, LF, TAB and ideographic blanks (U+3000) at both ends.
QString TrimWhite(QStringView text);

// `text` without ordinary blanks (U+0020) at both ends.
QString TrimBlanks(QStringView text);

// Length in bytes of the Chinese double-byte code page: the width in columns of a printed text.
int AnsiLen(QStringView text);

// The characters 0 to 9 of `text`, in their order.
QString DigitsOnly(QStringView text);

// True when the answer of the server, or of the link in its place, tells of a failure.
inline bool IsError(QStringView answer) {
    return answer.contains(u"<ERROR>");
}

} // namespace hotel
