#include "link/response_ring.h"

#include "record/literals.h"
#include "record/numbers.h"
#include "record/tag_search.h"

namespace hotel {

namespace {

constexpr QStringView kHead = u"<CmdID:";
constexpr QStringView kEndMark = u"</CmdID:";
constexpr qsizetype kHeadLength = 11;    // "<CmdID:nnn>"
constexpr qsizetype kEndMarkLength = 12; // "</CmdID:nnn>"

} // namespace

void ResponseRing::receive(QStringView text) {
    while (!text.isEmpty()) {
        const qsizetype nextHead = FindText(text, kHead, 1);
        const QStringView piece = nextHead < 0 ? text : text.first(nextHead);
        const bool begins = piece.startsWith(kHead);
        if (begins || slots_[writeIndex_].text.size() >= kFullSlot) {
            const QString begun = begins ? QString() : slots_[writeIndex_].takeBegunMark();
            writeIndex_ = (writeIndex_ + 1) % kSlots;
            slots_[writeIndex_] = {};
            slots_[writeIndex_].append(begun);
            if (oldest_ == writeIndex_) // overrun: the one behind is the oldest now
                oldest_ = (oldest_ + 1) % kSlots;
        }
        slots_[writeIndex_].append(piece);
        text = text.sliced(piece.size());
        news_ = true;
    }
}

int ResponseRing::oldest() {
    while (oldest_ != writeIndex_ && isEmpty(oldest_))
        oldest_ = (oldest_ + 1) % kSlots;
    return oldest_;
}

bool ResponseRing::collect(int slot) {
    const QStringView text = slots_[slot].text;
    if (text.size() < kHeadLength || !text.startsWith(kHead))
        return false;
    const QString head = text.first(kHeadLength).toString();
    const QString endMark = u"</"_s + head.sliced(1);

    for (int i = 0; i < kSlots; ++i) {
        const int last = (slot + i) % kSlots;
        const qsizetype end = slots_[last].find(endMark);
        if (end < 0)
            continue;
        const int number = int(qint64(LeadingNumber(QStringView(head).sliced(7))) & (kSlots - 1));
        answers_[number] = join(slot, last, end);
        slots_[last].cut(end + endMark.size());
        news_ = news_ || !slots_[last].text.isEmpty();
        return true;
    }
    return false;
}

QString ResponseRing::join(int first, int last, qsizetype end) {
    qsizetype size = end;
    for (int i = first; i != last; i = (i + 1) % kSlots)
        size += slots_[i].text.size();

    QString body;
    body.reserve(size - kHeadLength);
    qsizetype skip = kHeadLength;
    for (int i = first; i != last; i = (i + 1) % kSlots) {
        body += QStringView(slots_[i].text).sliced(skip);
        skip = 0;
        slots_[i] = {};
    }
    return body += QStringView(slots_[last].text).first(end).sliced(skip);
}

void ResponseRing::dropUnfinished() {
    for (int slot = 0; slot < kSlots; ++slot)
        collect(slot);
    slots_.fill({});
    news_ = false;
}

void ResponseRing::Slot::append(QStringView piece) {
    text += piece;
    qsizetype mark;
    while ((mark = FindText(text, kEndMark, searched)) >= 0) {
        endMarks.append(mark);
        searched = mark + kEndMark.size();
    }
    // The beginning of a mark may stand at the end.
    searched = qMax(searched, text.size() - kEndMark.size() + 1);
}

void ResponseRing::Slot::cut(qsizetype count) {
    const QString rest = text.sliced(count);
    *this = {};
    append(rest);
}

QString ResponseRing::Slot::takeBegunMark() {
    const qsizetype start = text.lastIndexOf(u'<');
    if (start < 0 || text.size() - start >= kEndMarkLength || text.indexOf(u'>', start) >= 0)
        return {};
    const QString begun = text.sliced(start);
    text.truncate(start);
    if (!endMarks.isEmpty() && endMarks.last() == start)
        endMarks.removeLast();
    return begun;
}

qsizetype ResponseRing::Slot::find(QStringView endMark) const {
    for (qsizetype mark : endMarks) {
        if (QStringView(text).sliced(mark).startsWith(endMark))
            return mark;
    }
    return -1;
}

} // namespace hotel
