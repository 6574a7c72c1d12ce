#include "frontoffice/house_calendar_view.h"

#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>

#include <algorithm>

#include "record/literals.h"
#include "screen/key_filter.h"
#include "screen/status_colour.h"

namespace hotel {

namespace {

constexpr int kLeastDay = 34; // pixels; narrower ones are scrolled
constexpr int kLeastBar = 6;  // of one who comes and goes on one day
constexpr int kHeadDigits = 15;
constexpr int kFootLines = 2;
constexpr int kTypingPause = 1500; // milliseconds: what is typed later begins a new number

// Guests dark, reservations light: they stand apart in grey, too.
const QColor kStayFill(0x3D, 0x5A, 0x80);
const QColor kPlanFill(0xF4, 0xC9, 0x5D);
const QColor kDoubled(0xC6, 0x28, 0x28);
const QColor kDoubledBack(0xF9, 0xD6, 0xD5);
const QColor kTypeBack(0xE3, 0xE8, 0xEE);
const QColor kWeekend(0xF1, 0xF3, 0xF6);
const QColor kTodayBack(0xFF, 0xF6, 0xD6);
const QColor kRule(0xD5, 0xDA, 0xE0);
const QColor kClosed(0x8A, 0x93, 0x9E);

QString Weekday(QDate day) {
    static constexpr QStringView kDays = u"一二三四五六日";
    return kDays.mid(day.dayOfWeek() - 1, 1).toString();
}

bool IsWeekend(QDate day) {
    return day.dayOfWeek() >= Qt::Saturday;
}

QString DateOrUnknown(QDate day) {
    return day.isValid() ? day.toString(u"yyyy-MM-dd") : u"不详"_s;
}

// As many characters as have room; one of three tells more than a dot.
QString Fitting(const QString& name, const QFontMetrics& metrics, int width) {
    qsizetype characters = name.size();
    while (characters > 0 && metrics.horizontalAdvance(name, int(characters)) > width)
        --characters;
    return name.left(characters);
}

} // namespace

QString DayText(QDate day) {
    return day.toString(u"M月d日 周") + Weekday(day);
}

QString SpanText(const CalendarSpan& span) {
    QString text = span.isStay ? u"住客 "_s : u"预定 "_s + span.number + u' ';
    text += span.name;
    if (!span.company.isEmpty() && span.company != span.name)
        text += u"（"_s + span.company + u"）";
    text += u' ' + DateOrUnknown(span.arrival) + u" 至 " + DateOrUnknown(span.departure);
    return span.isOverdue ? text + u"，应离未离"_s : text;
}

HouseCalendarView::HouseCalendarView(const QString& name, QWidget* parent)
    : QAbstractScrollArea(parent) {
    setObjectName(name);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setMouseTracking(true);
    viewport()->setAutoFillBackground(false);
    verticalScrollBar()->setSingleStep(1);
    fit();
}

// --- lines ---

void HouseCalendarView::setCalendar(const HouseCalendar& calendar, const StatusPlaces& statuses) {
    const Line before = line();
    const QString room = before.room ? before.room->number : QString();
    const QString title = before.title;
    const QDate day = calendar_.days > 0 ? this->day() : calendar.today;
    calendar_ = calendar;
    statuses_ = statuses;
    makeLines();
    const auto same = std::ranges::find_if(lines_, [&](const Line& line) {
        return room.isEmpty() ? line.title == title : line.room && line.room->number == room;
    });
    cursor_.line = same == lines_.end() ? 0 : int(same - lines_.begin());
    fit();
    goToDay(day);
}

void HouseCalendarView::makeLines() {
    lines_.clear();
    for (const CalendarType& type : calendar_.types) {
        const QString name = type.name.isEmpty() ? u"没有房型"_s : type.name;
        lines_.push_back({.type = &type, .title = u"%1 %2 间"_s.arg(name).arg(type.rooms.size())});
        for (const CalendarRoom& room : type.rooms)
            lines_.push_back({.room = &room});
    }
    if (!calendar_.unknown.empty())
        lines_.push_back({.title = u"没有的客房"_s});
    for (const CalendarRoom& room : calendar_.unknown)
        lines_.push_back({.room = &room});
    if (!calendar_.open.empty())
        lines_.push_back({.title = u"未排房的预定"_s});
    for (const CalendarOpenPlan& plan : calendar_.open)
        lines_.push_back({.open = &plan});
    bars_ = 0;
    for (Line& line : lines_) {
        line.top = bars_;
        bars_ += line.bars();
    }
}

const QList<CalendarSpan> HouseCalendarView::spansOf(const Line& line) const {
    if (line.room)
        return line.room->spans;
    return line.open ? QList<CalendarSpan>{line.open->span} : QList<CalendarSpan>();
}

QList<CalendarSpan> HouseCalendarView::spans() const {
    QList<CalendarSpan> here;
    for (const CalendarSpan& span : spansOf(line())) {
        if (span.takes(day()) || span.until == day())
            here.append(span);
    }
    return here;
}

// Who comes on the day is meant rather than who leaves.
QString HouseCalendarView::reservationAtCursor() const {
    for (const CalendarSpan& span : spans()) {
        if (!span.isStay && span.takes(day()))
            return span.number;
    }
    return {};
}

// --- the cursor ---

void HouseCalendarView::moveTo(Cell cell) {
    cell.line = std::clamp(cell.line, 0, std::max(0, lines() - 1));
    cell.day = std::clamp(cell.day, 0, std::max(0, calendar_.days - 1));
    cursor_ = cell;
    bringIntoSight();
    viewport()->update();
    Q_EMIT moved();
}

void HouseCalendarView::goToDay(QDate day) {
    moveTo({cursor_.line, int(calendar_.first.daysTo(day))});
}

bool HouseCalendarView::goToReservation(const QString& number) {
    for (int n = 0; n < lines(); ++n) {
        for (const CalendarSpan& span : spansOf(lines_[size_t(n)])) {
            if (span.isStay || span.number != number)
                continue;
            moveTo({n, int(calendar_.first.daysTo(span.from))});
            return true;
        }
    }
    return false;
}

void HouseCalendarView::bringIntoSight() {
    QScrollBar* down = verticalScrollBar();
    const int last = line().top + line().bars() - barsInSight();
    down->setValue(std::clamp(down->value(), std::min(std::max(0, last), line().top), line().top));
    QScrollBar* across = horizontalScrollBar();
    const int left = cursor_.day * dayWidth_;
    const int width = viewport()->width() - headWidth_;
    across->setValue(std::clamp(across->value(), std::max(0, left + dayWidth_ - width), left));
}

void HouseCalendarView::findTyped(const QString& typed) {
    if (!sinceTyped_.isValid() || sinceTyped_.hasExpired(kTypingPause))
        typed_.clear();
    sinceTyped_.start();
    typed_ += PlainForm(typed).toUpper();
    const auto found = std::ranges::find_if(lines_, [this](const Line& line) {
        return line.room && line.room->number.toUpper().startsWith(typed_);
    });
    if (found != lines_.end())
        moveTo({int(found - lines_.begin()), cursor_.day});
}

void HouseCalendarView::keyPressEvent(QKeyEvent* event) {
    const bool ends = event->modifiers() & Qt::ControlModifier;
    Cell to = cursor_;
    switch (event->key()) {
    case Qt::Key_Left:
        --to.day;
        break;
    case Qt::Key_Right:
        ++to.day;
        break;
    case Qt::Key_Up:
        --to.line;
        break;
    case Qt::Key_Down:
        ++to.line;
        break;
    case Qt::Key_PageUp:
        to.line -= barsInSight();
        break;
    case Qt::Key_PageDown:
        to.line += barsInSight();
        break;
    case Qt::Key_Home:
        (ends ? to.line : to.day) = 0;
        break;
    case Qt::Key_End:
        (ends ? to.line : to.day) = ends ? lines() : calendar_.days;
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT activated();
        return;
    default:
        if (event->text().isEmpty() || !event->text().front().isLetterOrNumber() ||
            (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier)))
            return QAbstractScrollArea::keyPressEvent(event);
        return findTyped(event->text());
    }
    moveTo(to);
}

void HouseCalendarView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void HouseCalendarView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

// --- the mouse ---

std::optional<HouseCalendarView::Cell> HouseCalendarView::cellAt(QPoint place) const {
    if (place.x() < headWidth_ || place.y() < topHeight_ ||
        place.y() >= viewport()->height() - footHeight_)
        return {};
    const int bar = (place.y() - topHeight_) / lineHeight_ + verticalScrollBar()->value();
    const int day = (place.x() - headWidth_ + horizontalScrollBar()->value()) / dayWidth_;
    if (bar >= bars_ || day >= calendar_.days)
        return {};
    return Cell{lineOfBar(bar), day};
}

int HouseCalendarView::lineOfBar(int bar) const {
    return int(std::ranges::upper_bound(lines_, bar, {}, &Line::top) - lines_.begin()) - 1;
}

const CalendarSpan* HouseCalendarView::barAt(QPoint place) const {
    const auto cell = cellAt(place);
    if (!cell)
        return nullptr;
    const Line& line = lines_[size_t(cell->line)];
    if (line.open)
        return barRect(cell->line, line.open->span).contains(place) ? &line.open->span : nullptr;
    if (!line.room)
        return nullptr;
    for (const CalendarSpan& span : line.room->spans) {
        if (barRect(cell->line, span).contains(place))
            return &span;
    }
    return nullptr;
}

void HouseCalendarView::mousePressEvent(QMouseEvent* event) {
    const QPoint place = event->position().toPoint();
    const auto cell = cellAt(place);
    if (!cell || event->button() != Qt::LeftButton)
        return;
    const CalendarSpan* bar = barAt(place);
    const QString number = bar && !bar->isStay ? bar->number : QString();
    moveTo(*cell);
    if (!number.isEmpty())
        Q_EMIT reservationClicked(number);
}

void HouseCalendarView::mouseMoveEvent(QMouseEvent* event) {
    const CalendarSpan* bar = barAt(event->position().toPoint());
    viewport()->setCursor(bar && !bar->isStay ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

bool HouseCalendarView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QAbstractScrollArea::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const CalendarSpan* bar = barAt(help->pos());
    QToolTip::showText(help->globalPos(), bar ? SpanText(*bar) : QString(), this);
    return true;
}

// --- size ---

void HouseCalendarView::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    fit();
}

void HouseCalendarView::scrollContentsBy(int, int) {
    viewport()->update();
}

int HouseCalendarView::barsInSight() const {
    return std::max(1, (viewport()->height() - topHeight_ - footHeight_) / lineHeight_);
}

void HouseCalendarView::fit() {
    const QFontMetrics metrics(font());
    lineHeight_ = metrics.height() + 5;
    topHeight_ = metrics.height() * 2 + 8;
    footHeight_ = kFootLines * lineHeight_;
    headWidth_ = metrics.horizontalAdvance(u'0') * kHeadDigits + 12;
    const int width = viewport()->width() - headWidth_;
    const int days = std::max(1, calendar_.days);
    dayWidth_ = std::max(kLeastDay, width / days);
    verticalScrollBar()->setRange(0, std::max(0, bars_ - barsInSight()));
    verticalScrollBar()->setPageStep(barsInSight());
    horizontalScrollBar()->setRange(0, std::max(0, days * dayWidth_ - width));
    horizontalScrollBar()->setPageStep(std::max(1, width));
    horizontalScrollBar()->setSingleStep(dayWidth_);
    viewport()->update();
}

int HouseCalendarView::dayLeft(int day) const {
    return headWidth_ + day * dayWidth_ - horizontalScrollBar()->value();
}

QRect HouseCalendarView::cellRect(int line, int day) const {
    const Line& at = lines_[size_t(line)];
    return {dayLeft(day), topHeight_ + (at.top - verticalScrollBar()->value()) * lineHeight_,
            dayWidth_, at.bars() * lineHeight_};
}

QRect HouseCalendarView::barRect(int line, const CalendarSpan& span) const {
    const auto middle = [this](QDate day) {
        const qint64 column = std::clamp<qint64>(calendar_.first.daysTo(day), -1, calendar_.days);
        return int(column) * dayWidth_ + dayWidth_ / 2;
    };
    const QRect row = cellRect(line, 0);
    return {row.left() + middle(span.from) + 1, row.top() + span.lane * lineHeight_ + 2,
            std::max(kLeastBar, middle(span.until) - middle(span.from) - 2), lineHeight_ - 4};
}

// --- painting ---

void HouseCalendarView::paintEvent(QPaintEvent*) {
    QPainter painter(viewport());
    const QRect all = viewport()->rect();
    painter.fillRect(all, palette().base());
    const int first = lineOfBar(verticalScrollBar()->value());
    const int last = lineOfBar(verticalScrollBar()->value() + barsInSight());
    painter.setClipRect(QRect(0, topHeight_, all.width(), all.height() - topHeight_ - footHeight_));
    for (int line = std::max(0, first); line <= last; ++line)
        paintLine(painter, line);
    painter.setClipping(false);
    paintTop(painter);
    paintFoot(painter);
}

void HouseCalendarView::paintLine(QPainter& painter, int line) const {
    const Line& shown = lines_[size_t(line)];
    painter.save();
    painter.setClipRect(QRect(headWidth_, topHeight_, viewport()->width() - headWidth_,
                              viewport()->height() - topHeight_ - footHeight_));
    paintDays(painter, line);
    if (shown.room) {
        for (const CalendarSpan& span : shown.room->spans)
            paintBar(painter, line, span);
    } else if (shown.open) {
        paintBar(painter, line, shown.open->span);
    }
    if (line == cursor_.line) {
        painter.setPen(QPen(hasFocus() ? palette().color(QPalette::Text) : kClosed, 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(cellRect(line, cursor_.day).adjusted(1, 1, -1, -1));
    }
    painter.restore();
    paintHead(painter, line);
}

void HouseCalendarView::paintDays(QPainter& painter, int line) const {
    const Line& shown = lines_[size_t(line)];
    const int firstDay = horizontalScrollBar()->value() / dayWidth_;
    const int lastDay = std::min(
        calendar_.days - 1, (horizontalScrollBar()->value() + viewport()->width()) / dayWidth_);
    for (int day = firstDay; day <= lastDay; ++day) {
        const QRect cell = cellRect(line, day);
        const QDate date = calendar_.first.addDays(day);
        const bool isToday = date == calendar_.today;
        if (!shown.title.isEmpty())
            painter.fillRect(cell, kTypeBack);
        else if (shown.room && shown.room->lanes > 1 && shown.room->isDoubled(date))
            painter.fillRect(cell, kDoubledBack);
        else if (isToday || IsWeekend(date))
            painter.fillRect(cell, isToday ? kTodayBack : kWeekend);
        if (isToday && shown.room && shown.room->isClosed) {
            painter.fillRect(cell, QBrush(kClosed, Qt::BDiagPattern));
            painter.setPen(palette().color(QPalette::Text));
            painter.drawText(cell, Qt::AlignCenter, shown.room->status.left(2));
        }
        painter.setPen(kRule);
        painter.drawLine(cell.topRight(), cell.bottomRight());
        painter.drawLine(cell.bottomLeft(), cell.bottomRight());
        if (shown.type)
            paintNumber(painter, cell, shown.type->free[day], shown.type->free[day] == 0);
    }
}

void HouseCalendarView::paintNumber(QPainter& painter, const QRect& cell, int number,
                                    bool isShort) const {
    QFont figures = font();
    figures.setBold(isShort);
    painter.setFont(figures);
    painter.setPen(isShort ? kDoubled : palette().color(QPalette::Text));
    painter.drawText(cell, Qt::AlignCenter, QString::number(number));
    painter.setFont(font());
}

void HouseCalendarView::paintBar(QPainter& painter, int line, const CalendarSpan& span) const {
    const QRect bar = barRect(line, span);
    const QColor fill = span.isStay ? kStayFill : kPlanFill;
    const bool isChosen = !span.isStay && span.number == reservationAtCursor();
    painter.fillRect(bar, fill);
    if (span.isDoubled || span.isOverdue || isChosen) {
        painter.setPen(QPen(isChosen ? palette().color(QPalette::Text) : kDoubled, 2,
                            span.isOverdue ? Qt::DotLine : Qt::SolidLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(bar.adjusted(1, 1, -1, -1));
    }
    // The name stands where the bar comes into sight.
    QRect text = bar.adjusted(4, 0, -2, 0);
    text.setLeft(std::max(text.left(), headWidth_ + 4));
    painter.setPen(ReadableOn(fill));
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter,
                     Fitting(span.name, fontMetrics(), text.width()));
}

void HouseCalendarView::paintHead(QPainter& painter, int line) const {
    const Line& shown = lines_[size_t(line)];
    const QRect head(0, cellRect(line, 0).top(), headWidth_, shown.bars() * lineHeight_);
    const bool isCurrent = line == cursor_.line && shown.title.isEmpty();
    painter.fillRect(head, !shown.title.isEmpty()
                               ? kTypeBack
                               : palette().color(isCurrent ? QPalette::Highlight : QPalette::Base));
    painter.setPen(kRule);
    painter.drawLine(head.topRight(), head.bottomRight());
    painter.drawLine(head.bottomLeft(), head.bottomRight());
    painter.setPen(palette().color(isCurrent ? QPalette::HighlightedText : QPalette::Text));
    QString text = shown.title;
    if (shown.open)
        text = u"缺 %1 间"_s.arg(shown.open->rooms);
    int left = 4;
    if (shown.room) {
        text = shown.room->number;
        const int side = lineHeight_ - 10;
        left += lineHeight_;
        const auto place = std::ranges::find(statuses_, shown.room->status, &StatusPlace::word);
        if (shown.room->isKnown && place != statuses_.end())
            painter.fillRect(QRect(4, head.center().y() - side / 2, side, side),
                             StatusColour(place->colour));
        painter.drawText(head.adjusted(0, 0, -4, 0), Qt::AlignRight | Qt::AlignVCenter,
                         shown.room->status);
    }
    painter.drawText(head.adjusted(left, 0, -2, 0), Qt::AlignLeft | Qt::AlignVCenter, text);
}

void HouseCalendarView::paintTop(QPainter& painter) const {
    painter.fillRect(QRect(0, 0, viewport()->width(), topHeight_), palette().window());
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(QRect(4, 0, headWidth_ - 8, topHeight_), Qt::AlignLeft | Qt::AlignVCenter,
                     calendar_.first.toString(u"yyyy年M月"));
    painter.save();
    painter.setClipRect(QRect(headWidth_, 0, viewport()->width() - headWidth_, topHeight_));
    const int half = topHeight_ / 2;
    for (int day = 0; day < calendar_.days; ++day) {
        const QDate date = calendar_.first.addDays(day);
        const QRect cell(dayLeft(day), 0, dayWidth_, topHeight_);
        if (date == calendar_.today || IsWeekend(date))
            painter.fillRect(cell, date == calendar_.today ? kTodayBack : kWeekend);
        if (day == cursor_.day)
            painter.fillRect(cell.adjusted(0, topHeight_ - 4, 0, 0), palette().highlight());
        const bool isMonth = date.day() == 1 && day > 0;
        painter.setPen(palette().color(QPalette::Text));
        QFont figures = font();
        figures.setBold(isMonth);
        painter.setFont(figures);
        painter.drawText(QRect(cell.left(), 2, cell.width(), half), Qt::AlignCenter,
                         isMonth ? date.toString(u"M/d") : QString::number(date.day()));
        painter.setFont(font());
        painter.setPen(IsWeekend(date) ? kDoubled : kClosed.darker(130));
        painter.drawText(QRect(cell.left(), half, cell.width(), half - 2), Qt::AlignCenter,
                         Weekday(date));
        painter.setPen(kRule);
        painter.drawLine(cell.topRight(), cell.bottomRight());
    }
    painter.restore();
}

void HouseCalendarView::paintFoot(QPainter& painter) const {
    const int top = viewport()->height() - footHeight_;
    painter.fillRect(QRect(0, top, viewport()->width(), footHeight_), palette().window());
    const auto line = [&](int n, const QString& title, const QList<int>& numbers,
                          const std::function<bool(int day)>& isShort) {
        const int y = top + n * lineHeight_;
        painter.setPen(palette().color(QPalette::Text));
        painter.drawText(QRect(4, y, headWidth_ - 8, lineHeight_), Qt::AlignLeft | Qt::AlignVCenter,
                         title);
        painter.save();
        painter.setClipRect(QRect(headWidth_, y, viewport()->width() - headWidth_, lineHeight_));
        for (int day = 0; day < calendar_.days; ++day) {
            paintNumber(painter, {dayLeft(day), y, dayWidth_, lineHeight_}, numbers[day],
                        isShort(day));
        }
        painter.restore();
    };
    line(0, u"空房合计"_s, calendar_.free, [this](int day) { return calendar_.free[day] == 0; });
    line(1, u"未排房"_s, calendar_.wanted,
         [this](int day) { return calendar_.wanted[day] > calendar_.free[day]; });
    painter.setPen(palette().color(QPalette::Text));
    painter.drawLine(0, top, viewport()->width(), top);
}

} // namespace hotel
