#include "server/request_reader.h"

#include <algorithm>
#include <array>

#include "record/code_page.h"
#include "record/tag_search.h"

namespace hotel {

namespace {

constexpr qsizetype kNumberDigits = 3;

// A request has fewer fields and shorter names. What goes beyond is not looked at, so that a text
// made of tags that are never closed costs no more than any other.
constexpr int kFieldLimit = 16;
constexpr qsizetype kFieldNameLimit = 32;

// Fields whose text is the caller's own and may hold any tags.
constexpr std::array<QStringView, 6> kFreeTexts = {u"记录值",     u"初始值",     u"记录查询条件",
                                                   u"记录必选项", u"记录任选项", u"记录排除项"};

struct Marks {
    QByteArray command = EncodeForWire(u"<命令>");
    QByteArray numberOpen = EncodeForWire(u"<命令流水号>CmdID:");
    QByteArray numberClose = EncodeForWire(u"</命令流水号>\r\n");
};

const Marks& WireMarks() {
    static const Marks marks;
    return marks;
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

} // namespace

Request::Request(QByteArray number, QString text)
    : number_(std::move(number)), text_(std::move(text)) {
    const QStringView all = text_;
    fields_.reserve(kFieldLimit);
    qsizetype position = 0;
    for (int count = 0;; ++count) {
        const qsizetype open = all.indexOf(u'<', position);
        if (open < 0)
            return;
        const qsizetype bracket = all.indexOf(u'>', open);
        const Span name{open + 1, bracket - open - 1};
        if (bracket < 0 || name.second > kFieldNameLimit || count == kFieldLimit) {
            isTorn_ = true;
            return;
        }
        const TagMarks marks(view(name));
        const QStringView closing = marks.closing();
        const bool free =
            std::find(kFreeTexts.begin(), kFreeTexts.end(), view(name)) != kFreeTexts.end();
        const qsizetype start = bracket + 1;
        const qsizetype end = free ? all.lastIndexOf(closing) : FindText(all, closing, start);
        if (end < start) {
            isTorn_ = isTorn_ || !view(name).startsWith(u'/');
            position = start;
            continue;
        }
        fields_.push_back({name, {start, end - start}});
        position = end + closing.size();
    }
}

QStringView Request::field(QStringView name) const {
    for (const auto& [fieldName, value] : fields_)
        if (view(fieldName) == name)
            return view(value);
    return {};
}

void RequestReader::feed(QByteArrayView bytes) {
    if (refused_)
        return;
    if (start_ == buffer_.size())
        buffer_.clear(); // gives the memory of a large request back
    else
        buffer_.remove(0, start_);
    scanned_ -= start_;
    start_ = 0;
    buffer_.append(bytes);
}

std::optional<Request> RequestReader::next() {
    skipLineEnds();
    if (refused_ || !beginsLikeCommand()) {
        refused_ = true;
        return std::nullopt;
    }
    const qsizetype end = findEnd();
    if ((end < 0 ? buffer_.size() : end) - start_ > limit_)
        refused_ = true;
    if (end < 0 || refused_)
        return std::nullopt;

    const Marks& marks = WireMarks();
    const qsizetype digits = end - marks.numberClose.size() - kNumberDigits;
    const qsizetype textSize = digits - marks.numberOpen.size() - start_;
    Request request(buffer_.sliced(digits, kNumberDigits),
                    DecodeRequest(QByteArrayView(buffer_).sliced(start_, textSize)));
    start_ = scanned_ = end;
    return request;
}

// Blank lines between requests don't count.
void RequestReader::skipLineEnds() {
    while (start_ < buffer_.size() && (buffer_[start_] == '\r' || buffer_[start_] == '\n'))
        ++start_;
    scanned_ = std::max(scanned_, start_);
}

bool RequestReader::beginsLikeCommand() const {
    const QByteArrayView begun = QByteArrayView(buffer_).sliced(start_);
    const QByteArrayView mark = WireMarks().command;
    const qsizetype size = std::min(begun.size(), mark.size());
    return begun.first(size) == mark.first(size);
}

// The byte behind the end mark of the request at hand, -1 when it has not come yet. A closing tag
// without the opening one and a number ahead of it belongs to a value.
qsizetype RequestReader::findEnd() {
    const Marks& marks = WireMarks();
    const qsizetype ahead = marks.numberOpen.size() + kNumberDigits;
    while (true) {
        const qsizetype close = buffer_.indexOf(marks.numberClose, scanned_);
        if (close < 0) {
            scanned_ = std::max(scanned_, buffer_.size() - marks.numberClose.size() + 1);
            return -1;
        }
        scanned_ = close + 1;
        if (close - ahead < start_)
            continue;
        const QByteArrayView number =
            QByteArrayView(buffer_).sliced(close - kNumberDigits, kNumberDigits);
        const bool opened =
            QByteArrayView(buffer_).sliced(close - ahead).startsWith(marks.numberOpen);
        if (opened && std::all_of(number.begin(), number.end(), IsDigit))
            return close + marks.numberClose.size();
    }
}

} // namespace hotel
