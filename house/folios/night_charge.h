#pragma once

// What one night costs a bed, and through which date the bed is settled then. The night audit asks this for
// every bed that it comes to; the charge is the factor times the agreed price.
//
//     the bed                                                        charge   settled through
//     settled through the audit date, or beyond it                   none     as it was: it isn't written
//     settled through an earlier date                                full     one day further
//     never settled, came ahead of Yjbj                              full     the date of arrival
//     never settled, came from Yjbj to XYtks, both included          half     the date of arrival
//     never settled, came later, on a day ahead of the audit date    full     the day behind his arrival
//     never settled, came later, on the audit date                   none     the date of arrival
//
// The first line that fits holds. Whether a guest came ahead of the noon limit (Bjsx1) or behind it makes no
// difference to his night: that is reckoned when he leaves.
//
// All dates and times are compared as the texts that they are, settings too: "6:00" sorts behind "12:00". A
// guest who came ahead of Yjbj is settled through the day of his arrival and no further, deliberately: a second
// audit that night charges the night that he stays on.

#include <QString>
#include <QStringView>

#include "record/numbers.h"

namespace hotel {

struct NightBed {
    QStringView settledThrough; // 结算日期, "yyyy-MM-dd"; empty: never settled
    QStringView arrivalDate;    // 入住日期, likewise
    QStringView arrivalTime;    // 入住时间, of which HH:mm counts
    QStringView auditDate;
};

// Settings, "HH:mm".
struct NightLimits {
    QString nightHalfPrice; // Yjbj
    QString dayBegins;      // XYtks
};

struct NightCharge {
    Money factor; // 0, 0.5 or 1
    QString settledThrough;
    bool writesBed = false;

    bool operator==(const NightCharge&) const = default;
};

// A date that has to move on but is none becomes the audit date: it would stand for ever otherwise.
NightCharge ChargeOfNight(const NightBed& bed, const NightLimits& limits);

} // namespace hotel
