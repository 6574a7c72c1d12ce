#pragma once

// The books of a played house, audited from outside: what its registers, rooms, folios, ledgers, journals and lists
// say is read as a stranger would, and what doesn't agree is a difference. A difference is accepted where an act that
// brought the thing about told its staff that it didn't come out, or where two desks worked at one place in the same
// moment and the house has no lock there (kAcceptedBetweenDesks). Any other is a fault.

#include <QDate>
#include <QHash>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

#include <span>

#include "app/week/desk_act.h"

namespace hotel {

struct Difference {
    QString words;      // the same each day that it stands
    QStringList items;  // of the acts by which it may have come about
    QStringList places; // where it may have come about
};

// What the house accepts between desks, as it has no locks: by the place where it happens.
struct AcceptedRace {
    QStringView place;
    QStringView name;
    QStringView words;
};
std::span<const AcceptedRace> AcceptedBetweenDesks();

// All that is booked from `first` to `last`, of which only finished days have no call that waits.
// Throws std::runtime_error when the house can't be read.
QList<Difference> ReadDifferences(QDate first, QDate last, const QList<DeskAct>& acts);

// Sorts differences by why they are accepted, day after day.
class BooksAudit {
public:
    void add(const DeskAct& act) { acts_.append(act); }
    const QList<DeskAct>& acts() const { return acts_; }

    // The differences that nothing explains.
    QStringList faultsAmong(const QList<Difference>& differences);

    // How many differences each name has explained so far, each difference once.
    const QMap<QString, int>& accepted() const { return accepted_; }

    static constexpr QStringView kTold = u"told to the staff";

private:
    QString reasonOf(const Difference& difference) const;

    QList<DeskAct> acts_;
    QHash<QString, QString> known_; // words of an explained difference, and its reason
    QMap<QString, int> accepted_;
};

} // namespace hotel
