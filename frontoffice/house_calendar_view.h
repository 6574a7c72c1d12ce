#pragma once

// The calendar of the house, painted: a line for each room under its type, a column for each day. A bar runs from the
// middle of the day of arrival to the middle of that of departure, so that one who leaves and one who comes share a day.
// Bars in one another's way stand one below the other, framed in red. Only what is in sight is painted.
//
// Above stand the days, at the left the rooms with the colour of their status, below the rooms that are free in all and
// those that are booked without one being held. The line of a type tells what is free of it. Reservations that lack
// rooms have lines of their own behind the rooms.
//
// Keys: the arrows go from day to day and from line to line, PageUp and PageDown by what is in sight, Home and End to
// the first and the last day, with Ctrl to the first and the last line; digits typed one after the other go to the room
// whose number begins so; Enter asks for what stands in the cell.

#include <QAbstractScrollArea>
#include <QElapsedTimer>

#include <vector>

#include "house/stays/board.h"
#include "house/stays/house_calendar.h"

namespace hotel {

class HouseCalendarView : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit HouseCalendarView(const QString& name, QWidget* parent = nullptr);

    // Shows another calendar. The cursor stays at its room and, where it can, at its day.
    void setCalendar(const HouseCalendar& calendar, const StatusPlaces& statuses);
    const HouseCalendar& calendar() const { return calendar_; }

    // A room, a type or a reservation without rooms; at most one of them is set.
    struct Line {
        const CalendarRoom* room = nullptr;
        const CalendarType* type = nullptr;
        const CalendarOpenPlan* open = nullptr;
        QString title = {}; // of a line that heads others
        int top =
            0; // counted in bars, as what is in sight is: a room with two lanes is twice as high
        int bars() const { return room ? room->lanes : 1; }
    };
    // Where the cursor stands; without lines nowhere.
    Line line() const { return lines_.empty() ? Line() : lines_[size_t(cursor_.line)]; }
    QDate day() const { return calendar_.first.addDays(cursor_.day); }
    // Who stands in the cell of the cursor: who takes the night, and who leaves on the day.
    QList<CalendarSpan> spans() const;

    void goToDay(QDate day);
    // To the first line of the reservation, on its first day in sight; false when it has none.
    bool goToReservation(const QString& number);

    // Where a cell is painted, in the viewport; for a line that is out of sight, where it would be.
    QRect cellRect(int line, int day) const;
    int lines() const { return int(lines_.size()); }

Q_SIGNALS:
    void moved();                                   // the cursor
    void activated();                               // Enter
    void reservationClicked(const QString& number); // on its bar

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    struct Cell {
        int line = 0;
        int day = 0;
        friend bool operator==(Cell, Cell) = default;
    };

    void makeLines();
    void fit();
    void moveTo(Cell cell);
    void bringIntoSight();
    void findTyped(const QString& typed);
    const QList<CalendarSpan> spansOf(const Line& line) const;
    QString reservationAtCursor() const;
    std::optional<Cell> cellAt(QPoint place) const;
    const CalendarSpan* barAt(QPoint place) const;
    QRect barRect(int line, const CalendarSpan& span) const;
    int barsInSight() const;
    int lineOfBar(int bar) const; // counted from the first; -1 without lines
    int dayLeft(int day) const;

    void paintLine(QPainter& painter, int line) const;
    void paintDays(QPainter& painter, int line) const;
    void paintBar(QPainter& painter, int line, const CalendarSpan& span) const;
    void paintHead(QPainter& painter, int line) const;
    void paintTop(QPainter& painter) const;
    void paintFoot(QPainter& painter) const;
    void paintNumber(QPainter& painter, const QRect& cell, int number, bool isShort) const;

    HouseCalendar calendar_;
    StatusPlaces statuses_;
    std::vector<Line> lines_; // look into calendar_
    int bars_ = 0;            // of all lines
    Cell cursor_;
    QString typed_;
    QElapsedTimer sinceTyped_;

    // In pixels, by the font and the window.
    int lineHeight_ = 1; // of a line with one bar
    int dayWidth_ = 1;
    int headWidth_ = 1;
    int topHeight_ = 1;
    int footHeight_ = 1;
};

// "3月5日 周四"
QString DayText(QDate day);

// A span in a line: who, from when until when.
QString SpanText(const CalendarSpan& span);

} // namespace hotel
