#include "record/record_text.h"

#include "record/code_page.h"
#include "record/field_walk.h"
#include "record/tag_search.h"

#include <QList>

#include <initializer_list>
#include <stdexcept>

namespace hotel {

namespace {

constexpr QStringView kLineEnd = u"\r\n";

struct NameTable {
    QString text; // keeps alive what the names look into
    QList<QStringView> names;
};

struct OccurrenceMemo {
    QString tag;
    bool valid = false;
    int n = 0;
    qsizetype position = 0;
};

struct LineMemo {
    QString text;
    int n = 0;
    qsizetype position = 0;
};

NameTable nameTable;
OccurrenceMemo occurrenceMemo;
LineMemo lineMemo;

// Texts that share their data are the same without a look at their characters.
bool SameText(const QString& a, const QString& b) {
    return a.size() == b.size() && (a.constData() == b.constData() || a == b);
}

NameTable ReadNames(const QString& text) {
    NameTable table{text, {}};
    FieldWalk walk(table.text);
    while (walk.next()) {
        if (table.names.size() == kNameLimit)
            throw std::out_of_range("TagName: more names than the table holds");
        table.names.append(walk.name());
    }
    return table;
}

QString Joined(std::initializer_list<QStringView> parts) {
    qsizetype size = 0;
    for (const QStringView part : parts)
        size += part.size();
    QString text;
    text.reserve(size);
    for (const QStringView part : parts)
        text += part;
    return text;
}

// `text` without what stands from `opening` up to the first `<` at or behind `behind`: the line end
// behind a field goes with the field.
QString WithoutField(QStringView text, qsizetype opening, qsizetype behind) {
    const qsizetype next = text.indexOf(u'<', behind);
    return Joined({text.first(opening), text.sliced(next < 0 ? behind : next)});
}

QString WithNewField(QStringView text, const TagMarks& marks, QStringView value) {
    const qsizetype last = text.lastIndexOf(u'>');
    if (last < 0)
        return Joined({marks.opening(), value, marks.closing()});
    return Joined({text.first(last + 1), kLineEnd, marks.opening(), value, marks.closing()});
}

} // namespace

QString GetTag(QStringView text, QStringView tag) {
    if (text.size() >= kTagTextLimit)
        return {};
    const TagMarks marks(tag);
    const qsizetype closing = FindText(text, marks.closing());
    if (closing < 0)
        return {};
    const QStringView ahead = text.first(closing);
    const qsizetype opening = FindText(ahead, marks.opening());
    if (opening < 0)
        return {};
    return ahead.sliced(opening + marks.opening().size()).toString();
}

QString GetTagN(QStringView text, QStringView tag, qint16 n) {
    OccurrenceMemo& memo = occurrenceMemo;
    const bool resumed = memo.valid && memo.n + 1 == n && memo.tag == tag;
    memo.valid = false;
    if (n < 1 || text.size() >= kTagTextLimit)
        return {};
    const TagMarks marks(tag);
    qsizetype position = resumed ? memo.position : 0;
    for (int counter = resumed ? n : 1; counter < n && position >= 0; ++counter)
        position = SkipOccurrence(text, marks, position);
    if (position < 0)
        return {};
    const Occurrence occurrence = ReadOccurrence(text, marks, position);
    if (!occurrence.found)
        return {};
    if (!resumed)
        memo.tag = tag.toString();
    memo.valid = true;
    memo.n = n;
    memo.position = occurrence.next;
    return occurrence.value.toString();
}

QString TagName(const QString& text, qint16 n) {
    const bool known = n > 1 && !nameTable.names.isEmpty() && SameText(text, nameTable.text);
    if (!known)
        nameTable = ReadNames(text);
    return n >= 1 && n <= nameTable.names.size() ? nameTable.names[n - 1].toString() : QString();
}

QString SetTag(const QString& text, QStringView tag, QStringView value) {
    const QString name = TrimBlanks(tag);
    if (name.isEmpty())
        return text;
    const TagMarks marks(name);
    const qsizetype opening = FindText(text, marks.opening());
    if (opening < 0)
        return value.isEmpty() ? text : WithNewField(text, marks, value);
    const qsizetype closing = FindText(text, marks.closing(), opening + 1);
    if (closing < 0)
        return text;
    if (value.isEmpty())
        return WithoutField(text, opening, closing + marks.closing().size());
    const QStringView all(text);
    return Joined({all.first(opening + marks.opening().size()), value, all.sliced(closing)});
}

QString GetLine(const QString& text, qint16 n) {
    LineMemo& memo = lineMemo;
    const bool resumed = memo.n > 0 && memo.n + 1 == n && SameText(text, memo.text);
    qsizetype position = resumed ? memo.position : 0;
    for (int counter = resumed ? n : 1; counter <= n && position <= text.size(); ++counter) {
        const qsizetype found = FindText(text, kLineEnd, position);
        const qsizetype end = found < 0 ? text.size() : found;
        if (counter == n) {
            memo = {text, n, end + kLineEnd.size()};
            return text.sliced(position, end - position);
        }
        if (found < 0)
            break;
        position = found + kLineEnd.size();
    }
    memo = {};
    return {};
}

QString TrimWhite(QStringView text) {
    return TrimmedWhite(text).toString();
}

QString TrimBlanks(QStringView text) {
    while (text.startsWith(u' '))
        text = text.sliced(1);
    while (text.endsWith(u' '))
        text.chop(1);
    return text.toString();
}

int AnsiLen(QStringView text) {
    int length = 0;
    for (const QChar c : text)
        length += CodePageValue(c.unicode()) >= 0x8000 ? 2 : 1;
    return length;
}

QString DigitsOnly(QStringView text) {
    QString digits;
    for (const QChar c : text) {
        if (c >= u'0' && c <= u'9')
            digits += c;
    }
    return digits;
}

} // namespace hotel
