#pragma once

// The calendar of the house (客房日历): five weeks of rooms by days, from guests and reservations. It only reads. A click
// on a reservation, or Enter, opens it in its list; where several are in a cell, Enter goes to their list below.
//
// Opened with a date, it goes there.

#include <QDate>

#include "house/stays/board.h"
#include "house/stays/house_calendar.h"
#include "screen/screen.h"

namespace hotel {

class FieldForm;
class GridView;
class HouseCalendarView;

class YdrlFrm : public Screen {
    Q_OBJECT

public:
    YdrlFrm();

    void load(const QVariant& day) override;

private:
    void OpenCmd_Click();
    void Rl_Moved();
    void Qsrq_Left();

    void read();
    void showWeeks(QDate first); // the weeks that begin there
    void openReservation(const QString& number);

    CalendarSource source_;
    StatusPlaces statuses_;

    FieldForm* form_;
    HouseCalendarView* Rl;
    GridView* YdQd;
};

} // namespace hotel
