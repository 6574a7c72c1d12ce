#include "tools/paper/print_script.h"

#include <array>
#include <cmath>
#include <utility>

#include "record/numbers.h"

namespace hotel {

namespace {

constexpr int kMostArguments = 6;

enum class Directive {
    StartPage,
    EndPage,
    FontName,
    FontSize,
    FontBold,
    X,
    Y,
    Text,
    Colour,
    Fill,
    DrawWidth,
    Line,
    Box,
    Picture,
    Background,
};

struct DirectiveForm {
    QStringView word;
    Directive directive;
    int arguments;
};

constexpr DirectiveForm kDirectives[] = {
    {script::kX, Directive::X, 1},
    {script::kY, Directive::Y, 1},
    {script::kText, Directive::Text, 1},
    {script::kFontName, Directive::FontName, 1},
    {script::kFontSize, Directive::FontSize, 1},
    {script::kFontBold, Directive::FontBold, 1},
    {script::kBox, Directive::Box, 6},
    {script::kLine, Directive::Line, 4},
    {script::kColour, Directive::Colour, 1},
    {script::kFill, Directive::Fill, 1},
    {script::kDrawWidth, Directive::DrawWidth, 1},
    {script::kPicture, Directive::Picture, 5},
    {script::kBackground, Directive::Background, 1},
    {script::kStartPage, Directive::StartPage, 0},
    {script::kEndPage, Directive::EndPage, 0},
};

const DirectiveForm* FormOf(QByteArrayView line) {
    if (!line.startsWith('#'))
        return nullptr;
    const QLatin1StringView word(line.trimmed());
    for (const DirectiveForm& form : kDirectives)
        if (form.word == word)
            return &form;
    return nullptr;
}

// Numbers beyond any paper are drawn at the edge of the imaginable, not handed to a printer.
constexpr double kLargestNumber = 1e6;

double Number(QByteArrayView text) {
    const QString number = QString::fromUtf8(text).replace(u',', u'.');
    const double value = LeadingNumber(number);
    return std::isfinite(value) ? qBound(-kLargestNumber, value, kLargestNumber) : 0;
}

QColor Colour(QByteArrayView text) {
    const double value = LeadingNumber(QString::fromUtf8(text));
    const int number = value > 0 && value <= 0xFFFFFF ? int(value) : 0;
    return QColor(number & 0xFF, number >> 8 & 0xFF, number >> 16);
}

// One walk over the lines of a script.
class ScriptWalk {
public:
    ScriptWalk(QByteArrayView text, qsizetype from) : text_(text), position_(from) {}

    // Moves to the next directive that is complete; false at the end.
    bool next() {
        QByteArrayView line;
        while (readLine(line)) {
            const DirectiveForm* form = FormOf(line);
            if (form && readArguments(form->arguments)) {
                directive_ = form->directive;
                return true;
            }
        }
        return false;
    }

    Directive directive() const { return directive_; }
    qsizetype position() const { return position_; }

    QByteArrayView argument(int n) const { return arguments_[size_t(n)]; }
    QString text(int n) const { return QString::fromUtf8(argument(n)); }
    double number(int n) const { return Number(argument(n)); }

private:
    bool readLine(QByteArrayView& line) {
        if (position_ >= text_.size())
            return false;
        const qsizetype end = text_.indexOf('\n', position_);
        const qsizetype stop = end < 0 ? text_.size() : end;
        line = text_.sliced(position_, stop - position_);
        if (line.endsWith('\r'))
            line.chop(1);
        position_ = stop + 1;
        return true;
    }

    bool readArguments(int count) {
        for (int n = 0; n < count; ++n)
            if (!readLine(arguments_[size_t(n)]))
                return false;
        return true;
    }

    QByteArrayView text_;
    qsizetype position_;
    Directive directive_ = Directive::EndPage;
    std::array<QByteArrayView, kMostArguments> arguments_;
};

// Takes what a directive sets; those that draw set nothing.
void Take(const ScriptWalk& walk, ScriptState& state) {
    constexpr double kLargestFont = 1000;
    switch (walk.directive()) {
    case Directive::FontName:
        state.font.name = walk.text(0);
        break;
    case Directive::FontSize:
        if (const double size = walk.number(0); size > 0)
            state.font.size = qMin(size, kLargestFont);
        break;
    case Directive::FontBold:
        state.font.bold = walk.argument(0) != "0";
        break;
    case Directive::X:
        state.x = walk.number(0);
        break;
    case Directive::Y:
        state.y = walk.number(0);
        break;
    case Directive::Colour:
        state.colour = Colour(walk.argument(0));
        break;
    case Directive::Fill:
        state.solidFill = walk.number(0) == 0;
        break;
    case Directive::DrawWidth:
        if (const double width = walk.number(0); width >= 1)
            state.lineWidth = width;
        break;
    default:
        break;
    }
}

void DrawBox(const ScriptWalk& walk, const ScriptState& state, PrintPage& page) {
    const QPointF topLeft(walk.number(0), walk.number(1));
    const QPointF bottomRight(walk.number(2), walk.number(3));
    const QRectF area(topLeft, bottomRight);
    const QColor colour = Colour(walk.argument(4));
    const QByteArrayView kind = walk.argument(5).trimmed();
    if (kind.isEmpty()) {
        for (const QLineF& side :
             {QLineF(area.topLeft(), area.topRight()), QLineF(area.topRight(), area.bottomRight()),
              QLineF(area.bottomRight(), area.bottomLeft()),
              QLineF(area.bottomLeft(), area.topLeft())})
            page.append(PrintedLine{side, state.lineWidth, colour});
    } else if (kind == "BF") {
        page.append(PrintedBox{area.normalized(), state.lineWidth, {}, colour});
    } else {
        page.append(PrintedBox{area.normalized(), state.lineWidth, colour,
                               state.solidFill ? std::optional(state.colour) : std::nullopt});
    }
}

// Adds what a directive draws; those that set draw nothing.
void Draw(const ScriptWalk& walk, const ScriptState& state, PrintPage& page) {
    switch (walk.directive()) {
    case Directive::Text:
        page.append(PrintedText{QPointF(state.x, state.y), walk.text(0), state.font});
        break;
    case Directive::Line:
        page.append(
            PrintedLine{QLineF(walk.number(0), walk.number(1), walk.number(2), walk.number(3)),
                        state.lineWidth, state.colour});
        break;
    case Directive::Box:
        DrawBox(walk, state, page);
        break;
    case Directive::Picture:
        page.append(PrintedPicture{
            walk.text(0), QRectF(walk.number(1), walk.number(2), walk.number(3), walk.number(4))});
        break;
    default:
        break;
    }
}

} // namespace

bool ScriptWriter::start(const QString& fileName) {
    fileName_ = fileName;
    waiting_.clear();
    linesWaiting_ = 0;
    QFile file(fileName_);
    failed_ = !file.open(QIODevice::WriteOnly | QIODevice::Truncate);
    return !failed_;
}

void ScriptWriter::add(QStringView line) {
    if (line == script::kBufferFresh) {
        flush();
        return;
    }
    const QByteArray bytes = line.toUtf8();
    if (bytes.contains('\n') || bytes.contains('\r'))
        waiting_ += QByteArray(bytes).replace("\r\n", " ").replace('\n', ' ').replace('\r', ' ');
    else
        waiting_ += bytes;
    waiting_ += "\r\n";
    if (++linesWaiting_ > kLinesWaiting)
        flush();
}

bool ScriptWriter::flush() {
    if (linesWaiting_ == 0)
        return true;
    const QByteArray lines = std::exchange(waiting_, {});
    linesWaiting_ = 0;
    QFile file(fileName_);
    const bool written = file.open(QIODevice::WriteOnly | QIODevice::Append) &&
                         file.write(lines) == lines.size() && file.flush();
    failed_ = failed_ || !written;
    return written;
}

PrintScript PrintScript::FromFile(const QString& fileName) {
    PrintScript script;
    auto file = std::make_shared<QFile>(fileName);
    if (!file->open(QIODevice::ReadOnly))
        return script;
    if (const uchar* bytes = file->map(0, file->size()))
        script.text_ = QByteArray::fromRawData(reinterpret_cast<const char*>(bytes), file->size());
    script.file_ = std::move(file);
    return script;
}

void PrintScript::walkTo(const std::function<bool()>& farEnough) {
    ScriptWalk walk(text_, walked_);
    while (!farEnough() && walk.next()) {
        Take(walk, state_);
        if (walk.directive() == Directive::StartPage)
            pages_.append({walk.position(), state_});
        walked_ = walk.position();
    }
    if (!farEnough())
        walked_ = text_.size();
}

bool PrintScript::hasPage(int page) {
    walkTo([&] { return pages_.size() >= page; });
    return page >= 1 && pages_.size() >= page;
}

bool PrintScript::walkOn(qsizetype bytes) {
    const qsizetype goal = walked_ + bytes;
    walkTo([&] { return walked_ >= goal; });
    return walked_ < text_.size();
}

int PrintScript::pageCount() {
    walkTo([] { return false; });
    return pagesFound();
}

PrintPage PrintScript::previewPage(int page) {
    PrintPage items;
    if (!hasPage(page))
        return items;
    const PageStart& start = pages_.at(page - 1);
    ScriptState state = start.carried;
    state.font = kDefaultPrintFont;
    state.colour = Qt::black;
    ScriptWalk walk(text_, start.offset);
    while (walk.next() && walk.directive() != Directive::EndPage &&
           walk.directive() != Directive::StartPage) {
        Take(walk, state);
        Draw(walk, state, items);
        if (walk.directive() == Directive::Background)
            items.append(PrintedBackground{walk.text(0)});
    }
    return items;
}

void PrintScript::printPages(int first, int last,
                             const std::function<bool(const PrintPage&)>& sheet) {
    first = qMax(1, first);
    last = qMin(last, pageCount());
    if (first > last)
        return;
    PrintPage items;
    int page = first;
    ScriptState state = pages_.at(first - 1).carried;
    ScriptWalk walk(text_, pages_.at(first - 1).offset);
    while (page <= last && walk.next()) {
        if (walk.directive() == Directive::StartPage) {
            ++page;
        } else if (walk.directive() == Directive::EndPage) {
            if (page == last)
                continue;
            if (!sheet(items))
                return;
            items.clear();
        } else {
            Take(walk, state);
            Draw(walk, state, items);
        }
    }
    sheet(items);
}

} // namespace hotel
