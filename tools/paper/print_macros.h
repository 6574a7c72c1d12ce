#pragma once

// Date and time inside the texts of print formats.

#include <QDateTime>
#include <QString>

namespace hotel {

// `text` with its codes replaced by the moment `now`:
//
//     $YY year, four digits    $yy year, two digits    $MM month    $DD $dd day
//     $HH hour                 $mm minute              $SS $ss second
//     $DT yyyy/MM/dd           $TM HH:mm:ss
//
// Behind any other letters the "$" becomes a blank and the letters stay. At last the empty amounts go:
// every " 0.00" and every " 0 " becomes blanks, as many as it had characters. A number without a blank
// ahead of it stays.
QString ExpandPrintMacros(const QString& text, const QDateTime& now);

// The same with the time of the house.
QString ExpandPrintMacros(const QString& text);

} // namespace hotel
