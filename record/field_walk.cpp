#include "record/field_walk.h"

#include <algorithm>

#include "record/tag_search.h"

namespace hotel {

namespace {

constexpr qsizetype kClosingMarks = 3; // "</" and ">"

// Where the mark stands at or behind `from`, or -1. Names and most values are so short that a search made for long
// texts would take longer to begin than to find.
qsizetype FindMark(QStringView text, char16_t mark, qsizetype from) {
    constexpr qsizetype kNear = 16;
    const char16_t* const characters = text.utf16();
    const qsizetype near = std::min(text.size(), from + kNear);
    for (qsizetype i = from; i < near; ++i) {
        if (characters[i] == mark)
            return i;
    }
    return near < text.size() ? text.indexOf(mark, near) : -1;
}

} // namespace

bool FieldWalk::next() {
    for (;;) {
        const qsizetype open = FindMark(text_, u'<', position_);
        const qsizetype end = open < 0 ? -1 : FindMark(text_, u'>', open + 1);
        if (end < 0) {
            position_ = text_.size();
            return false;
        }
        position_ = end + 1;
        name_ = TrimmedWhite(text_.sliced(open + 1, end - open - 1));
        if (!name_.isEmpty())
            break;
    }
    qsizetype closing = closingAhead();
    if (closing < 0)
        closing = findClosing(TagMarks(name_).closing());
    closed_ = closing >= 0;
    value_ = closed_ ? text_.sliced(position_, closing - position_) : QStringView();
    if (closed_)
        position_ = closing + kClosingMarks + name_.size();
    return true;
}

// Most values hold no tag: the first mark behind them begins their own closing tag.
qsizetype FieldWalk::closingAhead() const {
    const qsizetype mark = FindMark(text_, u'<', position_);
    if (mark < 0 || mark + kClosingMarks + name_.size() > text_.size())
        return -1;
    const QStringView tag = text_.sliced(mark, kClosingMarks + name_.size());
    const bool closes =
        tag[1] == u'/' && tag.back() == u'>' && IsSameText(tag.sliced(2, name_.size()), name_);
    return closes ? mark : -1;
}

qsizetype FieldWalk::findClosing(QStringView closingTag) {
    // A search that finds something is paid for by the step over the value. Those that find nothing
    // read the whole rest of the text, so after a few of them the rest is looked through once for all.
    constexpr int kFutileSearches = 8;
    const bool isKnown = futileSearches_ >= kFutileSearches && !name_.contains(u'<');
    if (isKnown && lastClosings_.value(name_, -1) < position_)
        return -1;
    const qsizetype closing = FindText(text_, closingTag, position_);
    if (closing < 0 && ++futileSearches_ == kFutileSearches)
        readLastClosings();
    return closing;
}

void FieldWalk::readLastClosings() {
    qsizetype open = -1;
    for (qsizetype i = position_; i < text_.size(); ++i) {
        if (text_[i] == u'<') {
            open = i;
        } else if (text_[i] == u'>') {
            if (open >= 0 && text_[open + 1] == u'/')
                lastClosings_.insert(text_.sliced(open + 2, i - open - 2), open);
            open = -1;
        }
    }
}

} // namespace hotel
