#pragma once

// What stands in the cells of the printed registration form; which cell that is,
// tools/paper/print_form_cells.h says. The cells of the guests are the same on the notice of a room change.

#include <QDateTime>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QStringView>

namespace hotel {

using FormCells = QMap<int, QString>; // by cell number, as the print engine takes them

// Block 标题, and block 表头 with the rooms of the party.
FormCells HotelCells();
FormCells PartyCells(const QStringList& rooms);

// On the notice of a room change a guest fills both lines of a block: they lie over each other.
FormCells NoticeCells(QStringView guest);

// Block 表芯: what one of a room's first two guests puts into it (further guests have no cells), and
// all of it for a room of the working set (one field a bed). The stay, with its arrival, is that of the first
// guest; the form is dated by `now`.
FormCells GuestCells(QStringView guest, int n);
FormCells RegistrationCells(QStringView roomGuests, const QDateTime& now);

} // namespace hotel
