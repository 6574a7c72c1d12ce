#include "record/field_walk.h"

#include "record/tag_search.h"

namespace hotel {

namespace {

bool IsWhite(QChar c) {
    return c == u' ' || c == u'\r' || c == u'\n' || c == u'\t' || c == u'\u3000';
}

QStringView WithoutWhite(QStringView text) {
    while (!text.isEmpty() && IsWhite(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && IsWhite(text.back()))
        text.chop(1);
    return text;
}

} // namespace

bool FieldWalk::next() {
    for (;;) {
        const qsizetype open = text_.indexOf(u'<', position_);
        const qsizetype end = open < 0 ? -1 : text_.indexOf(u'>', open + 1);
        if (end < 0) {
            position_ = text_.size();
            return false;
        }
        position_ = end + 1;
        name_ = WithoutWhite(text_.sliced(open + 1, end - open - 1));
        if (name_.isEmpty())
            continue;
        const TagMarks marks(name_);
        const qsizetype closing = FindText(text_, marks.closing(), position_);
        closed_ = closing >= 0;
        value_ = closed_ ? text_.sliced(position_, closing - position_) : QStringView();
        if (closed_)
            position_ = closing + marks.closing().size();
        return true;
    }
}

} // namespace hotel
