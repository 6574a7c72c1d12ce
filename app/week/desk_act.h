#pragma once

// What a desk of a played house did, as it tells it: what it was about, whether it came out, and when.
//
// `places` are the records and numbers that it read and wrote back, where another desk that works there in the same
// moment may come between. `items` are the things of the house that it brought about or moved, by which the books are
// traced back to it.

#include <QDate>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>

namespace hotel {

enum class ActResult {
    Done,
    Nothing, // there was nothing to do
    Told,    // it didn't come out, wholly or in part, and the staff were told
};

struct DeskAct {
    int desk = 0;
    QString kind;
    ActResult result = ActResult::Done;
    qint64 begin = 0; // nanoseconds of the machine's steady clock, which all desks share
    qint64 end = 0;
    QStringList places;
    QStringList items;
    QString told; // words

    bool overlaps(const DeskAct& other) const { return begin < other.end && other.begin < end; }
};

// One line, without its end; and back, nothing where it is none.
QString LineOfAct(const DeskAct& act);
std::optional<DeskAct> ActOfLine(const QString& line);

namespace place {
inline constexpr QStringView kRoom = u"room";
inline constexpr QStringView kFolio = u"folio";
inline constexpr QStringView kLedger = u"ledger";
inline constexpr QStringView kJournal = u"journal";
inline constexpr QStringView kRegister = u"register";
inline constexpr QStringView kDepartures = u"departures";
inline constexpr QStringView kPlans = u"plans";
inline constexpr QStringView kPunches = u"punches";
inline constexpr QStringView kCalls = u"calls";
inline constexpr QStringView kWholeHouse = u"house"; // every room, folio, ledger and journal
} // namespace place

QString Place(QStringView kind, QStringView name = {});
QString DayPlace(QStringView kind, QDate day);
QString JournalPlace(QStringView project, QDate day);
// Whether acts at these two places may come between each other.
bool IsSamePlace(QStringView place, QStringView other);

QString GuestItem(QStringView guest);   // a guest text
QString PartyItem(QStringView folio);   // that came in on it
QString SettledItem(QStringView folio); // everything that settling it wrote
QString AuditedItem(QDate day);         // every room charge that the audit of that night wrote
QString PostingItem(QStringView project, QStringView folio, QStringView record);
QString PlanItem(QStringView number);
QString PunchItem(QStringView key);
// By each end of the call that the record tells: the exchange tells one, rating adds the other.
QStringList CallItems(QStringView record);

} // namespace hotel
