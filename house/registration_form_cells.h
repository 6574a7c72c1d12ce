#pragma once

// Which cell of the printed registration form gets which text. The form is a print format of the house
// (parameter ZsdjFmt, record 旅客住宿登记单); its blocks 标题, 表头, 表芯, 表芯1 and 表底 are printed
// one under another, 表芯 once for each room.
//
//     标题   1       the rooms of the party, joined with ","
//     表芯   1-13    the first guest: name, sex, age, address, job title, kind of document, document
//                    number, a blank, reason, coming from, going to, a blank, expected departure
//            14-17   the second guest: name, sex, age, address
//            34, 41  folio number
//            37, 52  date, yyyy-MM-dd
//            38      time, HH:mm
//            54      receptionist
//
// The first two ranges are the same on the notice of a room change.

#include <QDateTime>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QStringView>

namespace hotel {

using FormCells = QMap<int, QString>; // by cell number, as the print engine takes them

// What one of a room's first two guests puts into the cells; further guests have none.
FormCells GuestCells(QStringView guest, int n);

FormCells PartyCells(const QStringList& rooms);

// The cells of a room of the working set (one field a bed).
FormCells RegistrationCells(QStringView roomGuests, const QDateTime& now);

} // namespace hotel
