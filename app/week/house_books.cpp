#include "app/week/house_books.h"

#include <QSet>

#include <algorithm>
#include <functional>
#include <stdexcept>

#include "house/common/paths.h"
#include "house/folios/folio.h"
#include "house/folios/folio_posting.h"
#include "house/folios/folio_totals.h"
#include "house/guests/departures.h"
#include "house/guests/guest_text.h"
#include "house/guests/stay_register.h"
#include "house/rooms/room_record.h"
#include "house/rooms/room_status.h"
#include "house/stays/reservations.h"
#include "link/records.h"
#include "personnel/attendance/day_records.h"
#include "record/field_walk.h"
#include "record/literals.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "telephone/billing_files.h"
#include "telephone/call_record.h"

namespace hotel {

namespace {

constexpr AcceptedRace kAcceptedBetweenDesks[] = {
    {place::kJournal, u"journal number taken twice",
     u"two postings of one kind take one number of the day's journal; the later one stands there, "
     u"both are on their "
     u"folios"},
    {place::kLedger, u"ledger number taken twice",
     u"two postings to one folio take one number; the later one stands on it, both are in the "
     u"journal"},
    {place::kRoom, u"room written twice",
     u"two desks sell, exchange, free or mark one room; the record and the guests of the later one "
     u"stand"},
    {place::kFolio, u"folio written twice",
     u"two desks enter guests in one folio, or take them off it; the record of the later one "
     u"stands"},
    {place::kRegister, u"number of the register of stays taken twice",
     u"two desks register a guest under one number; the later one stands there"},
    {place::kDepartures, u"number of the register of departures taken twice",
     u"two desks file a departure under one number; the later one stands there"},
    {place::kPlans, u"number of a reservation taken twice",
     u"two reservations of one second; the later one stands"},
    {place::kPunches, u"second of a punch taken twice",
     u"two punching desks write in one second; the later punch stands"},
};

QString ReadWhole(const QString& file, QStringView project) {
    const RecordRead read = ReadProjectToChange(file, project);
    if (read.failed())
        throw std::runtime_error("the books can't be read: " + file.toStdString());
    return read.value;
}

void EachRecord(QStringView project,
                const std::function<void(const QString& key, const QString& record)>& use) {
    for (FieldWalk record(project); record.next();) {
        if (!record.value().isEmpty())
            use(record.name().toString(), record.value().toString());
    }
}

Money Amount(QStringView record, QStringView tag) {
    return Money::FromText(GetTag(record, tag));
}

const QString kRoomPlace = Place(place::kRoom);

bool IsAt(const DeskAct& act, const QString& place) {
    return std::ranges::any_of(act.places,
                               [&](const QString& at) { return IsSamePlace(at, place); });
}

// The accepted race of two acts that were at one of the places at once; empty where there is none.
QString RaceOf(const DeskAct& one, const DeskAct& other, const QStringList& places) {
    for (const AcceptedRace& race : kAcceptedBetweenDesks) {
        for (const QString& place : places) {
            if (place.startsWith(Place(race.place)) && IsAt(one, place) && IsAt(other, place))
                return race.name.toString();
        }
    }
    return {};
}

class Books {
public:
    Books(QDate first, QDate last) : first_(first), last_(last) {}

    QList<Difference> differences(const QList<DeskAct>& acts) {
        readGuests();
        checkGuests();
        checkRooms();
        checkFolios();
        checkPostings();
        checkBalances(acts);
        checkLists(acts);
        return found_;
    }

private:
    struct Stay {
        QString guest;
        int registered = 0;
        int departed = 0;
        QStringList rooms; // in which he is
    };
    struct Room {
        QString status;
        int count = 0;
        QStringList guests; // items
    };

    template<typename Use>
    void eachDay(Use use) const {
        for (QDate day = first_; day <= last_; day = day.addDays(1))
            use(day);
    }

    void differs(const QString& words, const QStringList& items, const QStringList& places) {
        found_.append({words, items, places});
    }

    Stay& stayOf(const QString& guest) {
        Stay& stay = stays_[GuestItem(guest)];
        if (stay.guest.isEmpty())
            stay.guest = guest;
        return stay;
    }

    void readGuests() {
        eachDay([&](QDate day) {
            EachRecord(ReadWhole(StayRegisterFile(day.toString(Qt::ISODate), day),
                                 stay_register::kProject),
                       [&](const QString&, const QString& guest) {
                           ++stayOf(guest).registered;
                           folios_.insert(GetTag(guest, guest_text::kFolio));
                       });
            EachRecord(ReadWhole(DepartureFile(day.toString(Qt::ISODate)), departures::kProject),
                       [&](const QString&, const QString& guest) {
                           ++stayOf(guest).departed;
                           folios_.insert(GetTag(guest, guest_text::kFolio));
                       });
        });
        const QString house = ReadWhole(RoomDatabaseFile(), room_record::kProject);
        EachRecord(house, [&](const QString& number, const QString& record) {
            Room& room = rooms_[number];
            room.status = GetTag(record, room_record::kStatus);
            room.count = int(LeadingNumber(GetTag(record, room_record::kGuests)));
            if (room.count == 0) // who moved out of it may still stand in its file
                return;
            EachRecord(ReadWhole(RoomFile(number), room_record::kStayProject),
                       [&](const QString&, const QString& guest) {
                           stayOf(guest).rooms.append(number);
                           room.guests.append(GuestItem(guest));
                       });
        });
        EachRecord(ReadWhole(OpenFolioFile(), folio_record::kProject),
                   [&](const QString& folio, const QString& record) {
                       open_[folio] = record;
                       folios_.insert(folio);
                   });
    }

    // Who is registered is in one bed, or has left once.
    void checkGuests() {
        for (auto stay = stays_.cbegin(); stay != stays_.cend(); ++stay) {
            const QString folio = GetTag(stay->guest, guest_text::kFolio);
            const QString arrived = GetTag(stay->guest, guest_text::kArrivalDate);
            QStringList places =
                placesOfRooms(stay->rooms + QStringList(GetTag(stay->guest, guest_text::kRoom)));
            places += {Place(place::kRegister, arrived), Place(place::kFolio, folio)};
            eachDay([&](QDate day) { places.append(DayPlace(place::kDepartures, day)); });
            if (stay->registered != stay->departed + stay->rooms.size())
                differs(u"%1: registered %2 times, left %3 times, now in [%4]"_s.arg(stay.key())
                            .arg(stay->registered)
                            .arg(stay->departed)
                            .arg(stay->rooms.join(u' ')),
                        {stay.key(), SettledItem(folio), PartyItem(folio)}, places);
        }
    }

    static QStringList placesOfRooms(const QStringList& rooms) {
        QStringList places;
        for (const QString& room : rooms)
            places.append(Place(place::kRoom, room));
        return places;
    }

    // An occupied room has its guests and says so.
    void checkRooms() {
        for (auto room = rooms_.cbegin(); room != rooms_.cend(); ++room) {
            const bool isSold = IsReceptionStatus(room->status) || room->status == u"免费";
            if (room->count != room->guests.size() || isSold != (room->count > 0))
                differs(u"room %1, %2: counts %3, has %4"_s.arg(room.key(), room->status)
                            .arg(room->count)
                            .arg(room->guests.size()),
                        {}, {Place(place::kRoom, room.key())});
        }
    }

    // Who is here stands on his folio, and a folio's beds are taken by its guests.
    void checkFolios() {
        for (auto stay = stays_.cbegin(); stay != stays_.cend(); ++stay) {
            const QString folio = GetTag(stay->guest, guest_text::kFolio);
            for (const QString& room : stay->rooms) {
                if (!holds(open_.value(folio), room, stay->guest))
                    differs(u"%1 is in room %2, but not on his folio"_s.arg(stay.key(), room),
                            {stay.key(), PartyItem(folio), SettledItem(folio)},
                            {Place(place::kFolio, folio), Place(place::kRoom, room)});
            }
        }
        for (auto folio = open_.cbegin(); folio != open_.cend(); ++folio) {
            EachRecord(*folio, [&](const QString& room, const QString& beds) {
                if (room == folio_record::kPayer)
                    return;
                EachRecord(beds, [&](const QString&, const QString& entry) {
                    checkEntry(folio.key(), room, entry);
                });
            });
        }
    }

    static bool holds(const QString& folio, const QString& room, const QString& guest) {
        bool found = false;
        EachRecord(GetTag(folio, room), [&](const QString&, const QString& entry) {
            found = found || GetTag(entry, guest_text::kDocumentNumber) ==
                                 GetTag(guest, guest_text::kDocumentNumber);
        });
        return found;
    }

    void checkEntry(const QString& folio, const QString& room, const QString& entry) {
        const QString guest = GuestItem(SetTag(entry, guest_text::kFolio, folio));
        if (!stays_.value(guest).rooms.contains(room))
            differs(u"%1 is on his folio in room %2, but not there"_s.arg(guest, room),
                    {guest, PartyItem(folio), SettledItem(folio)},
                    {Place(place::kFolio, folio), Place(place::kRoom, room)});
    }

    // Every posting of a ledger stands once in a journal. What a journal has besides was taken back.
    void checkPostings() {
        struct Booked {
            int ledger = 0;
            int journal = 0; // less those that were taken back
            QDate day;
        };
        for (int kind = kDepositPosting; kind <= kServicePosting; ++kind) {
            const QString project = PostingProject(kind);
            QMap<QString, Booked> booked;
            QHash<QString, QString> folioOf;
            eachDay([&](QDate day) {
                EachRecord(ReadWhole(JournalFile(project, day), project),
                           [&](const QString&, const QString& record) {
                               const QString folio = GetTag(record, folio_record::kFolio);
                               const Money amount = Amount(record, posting::kAmount);
                               const bool isBack = kind != kDepositPosting && amount < Money();
                               const QString item = PostingItem(
                                   project, folio,
                                   isBack ? SetTag(record, posting::kAmount, (-amount).text())
                                          : record);
                               booked[item].journal += isBack ? -1 : 1;
                               booked[item].day = day;
                               folioOf[item] = folio;
                               folios_.insert(folio); // of which nothing else may tell any more
                           });
            });
            for (const QString& folio : std::as_const(folios_)) {
                EachRecord(ReadWhole(LedgerFile(folio), project),
                           [&](const QString&, const QString& record) {
                               const QString item = PostingItem(project, folio, record);
                               ++booked[item].ledger;
                               booked[item].day =
                                   QDate::fromString(GetTag(record, posting::kDate), Qt::ISODate);
                               folioOf[item] = folio;
                           });
            }
            for (auto entry = booked.cbegin(); entry != booked.cend(); ++entry) {
                if (entry->ledger == entry->journal)
                    continue;
                const QString folio = folioOf[entry.key()];
                QStringList places = {Place(place::kLedger, folio)};
                // What is taken back is so in the journal of another day.
                eachDay([&](QDate day) { places.append(JournalPlace(project, day)); });
                differs(u"%1: %2 in the ledger, %3 in the journal"_s.arg(entry.key())
                            .arg(entry->ledger)
                            .arg(entry->journal),
                        {entry.key(), SettledItem(folio),
                         AuditedItem(kind == kRoomPosting ? entry->day : QDate())},
                        places);
            }
        }
    }

    // Who has left owes nothing. A posting is for whoever is found in a room.
    void checkBalances(const QList<DeskAct>& acts) {
        for (const QString& folio : std::as_const(folios_)) {
            if (open_.contains(folio))
                continue;
            const auto totals = LoadFolioTotals(folio);
            if (!totals)
                throw std::runtime_error("a folio can't be read: " + folio.toStdString());
            Money signedFor;
            EachRecord(ReadWhole(LedgerFile(folio), PostingProject(kTeamPosting)),
                       [&](const QString&, const QString& record) {
                           signedFor += Amount(record, posting::kAmount);
                       });
            const Money paid = totals->received + signedFor;
            if (paid == totals->charges)
                continue;
            QStringList places = {Place(place::kLedger, folio), Place(place::kFolio, folio)};
            for (const DeskAct& act : acts) {
                if (act.places.contains(places[0]) || act.places.contains(places[1]))
                    places += act.places.filter(Place(place::kRoom));
            }
            differs(u"folio %1 is closed: paid %2, charged %3"_s.arg(folio, paid.text(),
                                                                     totals->charges.text()),
                    {}, places);
        }
    }

    // What desks were told is written stands there.
    void checkLists(const QList<DeskAct>& acts) {
        QSet<QString> listed;
        EachRecord(ReadWhole(ReservationPlans().file(), ReservationPlans().project),
                   [&](const QString& number, const QString&) { listed.insert(PlanItem(number)); });
        eachDay([&](QDate day) {
            EachRecord(ReadWhole(AttendanceFile(day), punch_record::kProject),
                       [&](const QString& key, const QString& record) {
                           listed.insert(
                               PunchItem(key + u' ' + GetTag(record, punch_record::kNumber)));
                       });
            EachRecord(ReadWhole(BillingFiles().dayFile(day), kCallProject),
                       [&](const QString&, const QString& record) {
                           for (const QString& item : CallItems(record))
                               listed.insert(item);
                       });
        });
        for (const DeskAct& act : acts) {
            for (const QString& item : act.items) {
                const bool isListed = item.startsWith(u"plan ") || item.startsWith(u"punch ") ||
                                      item.startsWith(u"call ");
                if (isListed && !listed.contains(item))
                    differs(item + u" is not there"_s, {item}, act.places);
            }
        }
    }

    const QDate first_;
    const QDate last_;
    QMap<QString, Stay> stays_; // by item
    QMap<QString, Room> rooms_;
    QMap<QString, QString> open_; // folios
    QSet<QString> folios_;        // that were ever open
    QList<Difference> found_;
};

} // namespace

std::span<const AcceptedRace> AcceptedBetweenDesks() {
    return kAcceptedBetweenDesks;
}

QList<Difference> ReadDifferences(QDate first, QDate last, const QList<DeskAct>& acts) {
    return Books(first, last).differences(acts);
}

QStringList BooksAudit::faultsAmong(const QList<Difference>& differences) {
    QStringList faults;
    for (const Difference& difference : differences) {
        if (known_.contains(difference.words))
            continue;
        const QString reason = reasonOf(difference);
        if (reason.isEmpty()) {
            faults.append(difference.words);
            continue;
        }
        known_[difference.words] = reason;
        ++accepted_[reason];
    }
    return faults;
}

// Rooms are followed further than the difference tells: who was put into a room with others, or stands in one that he
// has left, moves and leaves with them later.
QString BooksAudit::reasonOf(const Difference& difference) const {
    const auto isIts = [&](const DeskAct& act) {
        return std::ranges::any_of(difference.items,
                                   [&](const QString& item) { return act.items.contains(item); });
    };
    QList<const DeskAct*> suspects;
    for (const DeskAct& act : acts_) {
        if (isIts(act))
            suspects.append(&act);
    }
    QStringList places = difference.places;
    if (!places.filter(kRoomPlace).isEmpty()) {
        for (const DeskAct* suspect : suspects)
            places += suspect->places.filter(kRoomPlace);
    }
    const bool isTraced = !suspects.isEmpty();
    for (const DeskAct& act : acts_) {
        const bool isAtIts = std::ranges::any_of(places, [&](const QString& place) {
            return (!isTraced || place.startsWith(kRoomPlace)) && act.places.contains(place);
        });
        if (act.result == ActResult::Told && (isAtIts || isIts(act)))
            return kTold.toString();
        if (!isTraced && isAtIts)
            suspects.append(&act);
    }
    for (const DeskAct* suspect : suspects) {
        for (const DeskAct& other : acts_) {
            if (other.desk == suspect->desk || !suspect->overlaps(other))
                continue;
            if (const QString race = RaceOf(*suspect, other, places); !race.isEmpty())
                return race;
        }
    }
    return {};
}

} // namespace hotel
