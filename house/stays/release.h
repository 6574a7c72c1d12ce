#pragma once

// Freeing what guests leave: the last thing that is written of a stay. The status of the room afterwards
// is chosen by the cashier (dirty, mostly).
//
// Each step is done whatever became of those before it; only what was not read is not written back, so
// that nobody else's stay is lost. A status is 0 when all is done.

#include <QString>
#include <QStringView>

namespace hotel {

// What a guest leaves with.
struct Leaving {
    QString folio;
    QString room;
    int bed = 0; // of a guest who shares the room
    QString charge;
    QString date; // yyyy-MM-dd
    QString time; // HH:mm
};

// One bed of a shared room: the departure is noted in the bed's guest text, the stay goes to the folio's
// ledger, the guest to the register of departures; then the bed is cleared and the room counts one guest
// less. The last one leaves the room in its new status.
int ReleaseBed(const Leaving& leaving, QStringView statusAfter);

// A room sold as a whole: so with all its guests, from the first bed to the first empty one; then the
// room counts no guests and gets its new status.
int ReleaseRoom(const Leaving& leaving, QStringView statusAfter);

} // namespace hotel
