#pragma once

// The query of the guests in the house, from the front desk and from housekeeping: one row a guest,
// over the room files of all rooms that hold somebody.

#include <QDate>
#include <QList>
#include <QString>
#include <functional>

class QWidget;

namespace hotel {

struct InHouseGuest {
    QString name; // what conditions call 记录名: room and bed, "8201-客人01"
    QString text; // guest text
};

// Reads the guests of all occupied rooms, in the order of the room database. `step` is asked after each
// room (rooms done, rooms in all) and ends the walk with false.
QList<InHouseGuest> GuestsInHouse(const std::function<bool(int done, int total)>& step);

// Those that match: numbered conditions, or keywords searched in the whole guest text; and whose stay touches
// the period: it lasts from the arrival to the departure planned, and through `today` at least, since they
// are in the house. An extreme is sought among all of the period.
QList<InHouseGuest> SelectGuests(const QList<InHouseGuest>& guests, const QString& conditionText,
                                 QDate first, QDate last, QDate today);

// Asks, searches and shows, as part of a handler of `parent`'s screen.
void OpenGuestQuery(QWidget* parent);

} // namespace hotel
