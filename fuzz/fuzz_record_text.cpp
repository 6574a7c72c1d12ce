// The primitives of record text. Input: a tag, a value, then the text.

#include "fuzz/fuzz_input.h"

#include "record/field_walk.h"
#include "record/record_text.h"

#include <stdexcept>

using namespace hotel;
using namespace hotel::fuzz;

namespace {

bool IsClean(const QString& text) {
    return !text.contains(u'<') && !text.contains(u'>');
}

void StoredValuesReadTheSame(const QString& text, const QString& tag, const QString& value) {
    const QString name = TrimBlanks(tag);
    const bool isNew = !text.contains(u"<%1>"_s.arg(name)) && !text.contains(u"</%1>"_s.arg(name));
    const QString stored = SetTag(text, tag, value);
    if (name.isEmpty() || !IsClean(name) || !IsClean(value))
        return;
    if (isNew && !value.isEmpty()) {
        Require(GetTag(stored, name) == value, "a stored value reads the same");
        Require(GetTagN(stored, name, 1) == value || text.contains(u"<%1 />"_s.arg(name)),
                "a stored value is the first occurrence");
        Require(!SetTag(stored, tag, u"").contains(u"<%1>"_s.arg(name)), "a removed field is gone");
    }
    if (isNew && value.isEmpty())
        Require(stored == text, "nothing to remove changes nothing");
    if (!value.isEmpty())
        Require(SetTag(stored, tag, value) == stored, "storing twice changes nothing");
}

void NamesAreThoseOfTheWalk(const QString& text) try {
    FieldWalk walk(text);
    qint16 n = 1;
    for (; walk.next(); ++n) {
        Require(TagName(text, n) == walk.name(), "names are those of the walk");
        Require(!walk.name().isEmpty(), "a field has a name");
    }
    Require(TagName(text, n).isEmpty(), "no name behind the last one");
} catch (const std::out_of_range&) {
    Require(text.count(u'<') > kNameLimit, "names have a limit");
}

void LinesMakeTheText(const QString& text) {
    const qsizetype lines = text.count(kCrLf) + 1;
    QStringList read;
    for (qsizetype n = 1; n <= lines; ++n)
        read.append(GetLine(text, qint16(n)));
    Require(read.join(kCrLf) == text, "lines make the text");
    Require(GetLine(text, qint16(lines + 1)).isEmpty(), "no line behind the last one");
}

void OccurrencesComeToAnEnd(const QString& text, const QString& tag) {
    qint16 n = 1;
    while (!GetTagN(text, tag, n).isEmpty())
        ++n;
    Require(n <= text.size() + 1, "occurrences come to an end");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QStringList texts = Texts(data, size, 3);
    StoredValuesReadTheSame(texts[2], texts[0], texts[1]);
    NamesAreThoseOfTheWalk(texts[2]);
    LinesMakeTheText(texts[2]);
    OccurrencesComeToAnEnd(texts[2], texts[0]);
    const QString trimmed = TrimWhite(texts[2]);
    Require(TrimWhite(trimmed) == trimmed, "trimming twice changes nothing");
    return 0;
}
