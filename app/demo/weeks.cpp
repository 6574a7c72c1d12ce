#include "app/demo/weeks.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <array>
#include <optional>
#include <random>

#include "app/demo/made_up_guests.h"
#include "app/demo/made_up_postings.h"
#include "app/demo/making.h"
#include "app/demo/vocabulary.h"
#include "house/rooms/room_status.h"
#include "record/literals.h"
#include "record/record_text.h"

namespace hotel {

namespace {

constexpr quint64 kSeed = 20'090'417;
constexpr int kFewestDays = 3;
constexpr int kTriesOfANight = 60;
constexpr int kToBeClean = 120; // minutes at most behind a departure until the room is sold again
constexpr int kToDry = 20;
constexpr int kStandardPrice = 260; // what a deposit is reckoned with, in yuan
constexpr int kSuitePrice = 700;

// Minutes of a day.
constexpr int At(int hour, int minute) {
    return hour * 60 + minute;
}

struct Room {
    QStringView number;
    QString type;
    int beds = 0;
    bool isSuite = false;
    bool dirtyAtFirst = false;
    bool used = false;
    QDateTime kept;     // from then on for the parties of the table; invalid: never
    QDateTime freeFrom; // cleaned by then
    qsizetype lastCleaning = -1;
};

struct Way {
    QStringView guarantee;
    QStringView way;
    int weight;
};
constexpr Way kWays[] = {
    {u"预付扫码", u"微信支付", 30},  {u"预付扫码", u"支付宝", 18}, {u"预付现金", u"现金", 16},
    {u"预付刷卡", u"银行卡", 14},    {u"现金押金", u"现金", 6},    {u"信用卡限额", u"信用卡", 10},
    {u"预付扫码", u"数字人民币", 6},
};

struct Stay : DemoStay {
    QList<Room*> rooms;
};

class Weeks {
public:
    Weeks(const QDateTime& opening, int days, const QList<RoomEntry>& rooms)
        : opening_(opening), first_(opening.date().addDays(-days)), dice_(kSeed + quint64(days)),
          guests_(dice_, made_.words, first_), postings_(dice_, made_.words, opening.date()) {
        for (const RoomEntry& room : rooms)
            takeRoom(room);
        keepTablesRooms();
        for (const SigningCompany& company : SigningCompanies())
            made_.companies.append(company.company);
    }

    DemoWeeks make() {
        for (QDate night = first_; night < lastNight(); night = night.addDays(1)) {
            fillNight(night);
            letByTheHour(night);
        }
        leaveDirtyWhatWas();
        return std::move(made_);
    }

private:
    // --- the house ---

    // All have left on the day ahead of the opening.
    QDate lastNight() const { return opening_.date().addDays(-1); }

    void takeRoom(const RoomEntry& entry) {
        const QString status = GetTag(entry.record, room_record::kStatus);
        const bool dirty = status == u"脏房";
        if (!dirty && !IsVacant(StatusAtSale(status)))
            return;
        const QString type = GetTag(entry.record, room_record::kType);
        rooms_.append({.number = made_.words.keep(entry.number),
                       .type = type,
                       .beds = BedsOfRoom(entry.record),
                       .isSuite = type.endsWith(u"套房") && type != u"家庭套房",
                       .dirtyAtFirst = dirty,
                       .kept = {},
                       .freeFrom = QDateTime(first_, QTime(0, 0))});
    }

    void keepFree(QStringView number, const QDateTime& from) {
        for (Room& room : rooms_) {
            if (room.number == number && (!room.kept.isValid() || from < room.kept))
                room.kept = from;
        }
    }

    void keepTablesRooms() {
        for (const DemoParty& party : DemoParties()) {
            const QDateTime arrives = party.arrives.from(opening_);
            for (const DemoRoom& room : party.rooms) {
                keepFree(room.number, arrives);
                if (party.status == u"钟点")
                    continue;
                const QDate leaves = leavingDay(party, room.number);
                for (QDate night = arrives.date(); night < leaves; night = night.addDays(1))
                    soldTo_[night].insert(room.number.toString());
            }
        }
        for (const DemoStatusChange& change : DemoStatusChanges())
            keepFree(change.room, change.at.from(opening_));
    }

    QDate leavingDay(const DemoParty& party, QStringView room) const {
        for (const DemoDeparture& departure : DemoDepartures()) {
            const bool theirs = std::ranges::any_of(party.rooms, [&](const DemoRoom& other) {
                return departure.rooms.contains(other.number);
            });
            if (theirs && (departure.everybody || departure.rooms.contains(room)))
                return departure.at.from(opening_).date();
        }
        return opening_.date();
    }

    int sold(QDate night) const { return int(soldTo_.value(night).size()); }
    int wanted(QDate night) const { return night < lastNight() ? OccupancyMeant(night) : 0; }

    bool isFree(const Room& room, const QDateTime& from, const QDateTime& until) const {
        return room.freeFrom <= from &&
               (!room.kept.isValid() || until.addSecs(60 * kToBeClean) <= room.kept);
    }

    // Who comes in numbers gets rooms one behind the other, and no suites; others what suits them.
    QList<Room*> freeRooms(int number, int beds, const QDateTime& from, const QDateTime& until) {
        QList<std::pair<int, Room*>> free;
        for (Room& room : rooms_) {
            const bool fits = room.beds >= beds && (number == 1 || !room.isSuite);
            if (!fits || !isFree(room, from, until))
                continue;
            const int tooLarge = (room.beds - beds) * 30 + (room.isSuite ? 60 : 0);
            free.append({dice_.below(100) + tooLarge, &room});
        }
        if (free.size() < number)
            return {};
        qsizetype first = 0;
        if (number > 1)
            first = dice_.below(int(free.size()) - number + 1);
        else
            std::ranges::stable_sort(free, {}, [](const auto& entry) { return entry.first; });
        QList<Room*> rooms;
        for (int n = 0; n < number; ++n)
            rooms.append(free[first + n].second);
        return rooms;
    }

    // --- a night ---

    void fillNight(QDate night) {
        for (int tries = kTriesOfANight; tries > 0 && sold(night) < wanted(night); --tries) {
            if (tryParty(night))
                tries = kTriesOfANight;
        }
    }

    bool tryParty(QDate night) {
        const int day = night.dayOfWeek();
        const bool weekend = day == Qt::Friday || day == Qt::Saturday;
        const DemoCustom& custom = dice_.weigh(DemoCustoms(), [weekend](const DemoCustom& entry) {
            return weekend ? entry.weekendWeight : entry.weight;
        });
        const int room = wanted(night) - sold(night);
        const int number =
            std::min(dice_.between(custom.leastRooms, custom.mostRooms), std::max(room, 1));
        if (number < custom.leastRooms)
            return false;
        const int nights = nightsOnOffer(night, number, custom);
        if (nights < custom.leastNights)
            return false;
        Stay stay{{.custom = &custom,
                   .arrives = arrivalOn(night, custom),
                   .leaves = departureOn(night.addDays(nights)),
                   .party = {}},
                  {}};
        const int guests = dice_.between(custom.leastGuests, custom.mostGuests);
        const bool shared = IsShared(custom.status);
        stay.rooms = freeRooms(number, shared ? 2 : guests, stay.arrives, stay.leaves);
        if (stay.rooms.isEmpty())
            return false;
        moveIn(stay, guests);
        if (shared && dice_.chance(70))
            shareWith(stay);
        return true;
    }

    // As long as no night of it becomes fuller than is meant.
    int nightsOnOffer(QDate night, int rooms, const DemoCustom& custom) {
        const int asked = dice_.between(custom.leastNights, custom.mostNights);
        int nights = 0;
        while (nights < asked &&
               sold(night.addDays(nights)) + rooms <= wanted(night.addDays(nights)))
            ++nights;
        return nights;
    }

    QDateTime arrivalOn(QDate day, const DemoCustom& custom) {
        const bool early = custom.sends == Sends::Conferences && custom.signs;
        const bool together = custom.sends == Sends::TourGroups && custom.signs;
        const int minute = early      ? dice_.between(At(14, 0), At(17, 0))
                           : together ? dice_.between(At(15, 30), At(19, 0))
                                      : dice_.between(At(13, 0), At(22, 30));
        return {day, QTime(minute / 60, minute % 60)};
    }

    QDateTime departureOn(QDate day) {
        const bool late = dice_.chance(8) && day < lastNight();
        const int minute =
            late ? dice_.between(At(12, 20), At(15, 30)) : dice_.between(At(7, 40), At(11, 30));
        return {day, QTime(minute / 60, minute % 60)};
    }

    // --- a party ---

    void moveIn(Stay& stay, int guests) {
        DemoParty& party = stay.party;
        const DemoCustom& custom = *stay.custom;
        const DemoTown& town = dice_.pick(DemoTowns());
        party.arrives = moment(stay.arrives);
        party.leavesIn = -int(stay.leaves.date().daysTo(opening_.date()));
        party.status = custom.status;
        party.rate = custom.rate;
        party.price = custom.price;
        party.reason = dice_.pick(custom.reasons);
        party.from = town.name;
        party.to = dice_.chance(75) ? town.name : dice_.pick(DemoTowns()).name;
        const SigningCompany* company = custom.signs ? companyThat(custom.sends) : nullptr;
        if (company)
            party.employer = company->company.name;
        else if (custom.employed)
            party.employer = dice_.pick(DemoEmployers());
        if (company && custom.sends != Sends::Guests)
            party.remark = u"全部费用由团队结算";
        party.deposit = depositOf(stay);
        for (Room* room : stay.rooms) {
            // Not every bed of a group is taken, and its leader has a room of his own.
            const bool alone =
                stay.rooms.size() > 1 && (room == stay.rooms.first() || dice_.chance(15));
            party.rooms.append({room->number, guests_.of(stay, town, alone ? 1 : guests)});
        }
        made_.parties.append(party);
        leave(stay, company);
        for (Room* room : stay.rooms)
            moveOut(*room, stay);
        made_.postings += postings_.of(stay);
    }

    // The second guest of a shared room, with a folio of his own.
    void shareWith(const Stay& first) {
        Stay second{{.custom = first.custom,
                     .arrives = first.arrives.addSecs(60 * dice_.between(4, 55)),
                     .leaves = first.leaves.addSecs(-60 * dice_.between(5, 20)),
                     .party = {}},
                    first.rooms};
        moveIn(second, 1);
    }

    const SigningCompany* companyThat(Sends sends) {
        QList<const SigningCompany*> companies;
        for (const SigningCompany& company : SigningCompanies()) {
            if (company.sends == sends)
                companies.append(&company);
        }
        return dice_.pick(companies);
    }

    DemoDeposit depositOf(const Stay& stay) {
        const DemoCustom& custom = *stay.custom;
        int price = 0;
        for (const Room* room : stay.rooms)
            price += room->isSuite ? kSuitePrice : kStandardPrice;
        const int hundreds = (price * std::max(stay.nights(), 1) + 199) / 100;
        const QStringView amount = made_.words.yuan(hundreds * 100);
        if (custom.signs)
            return {u"协议单位限额", u"单位挂账", amount,
                    made_.words.keep(u"合同第%1号"_s.arg(dice_.between(20, 98)))};
        if (custom.status == u"免费")
            return {u"内部招待", u"招待", u"500.00", u"刘建华经理批准"};
        const Way& way =
            dice_.weigh(std::span(kWays), [](const Way& entry) { return entry.weight; });
        QStringView note;
        if (way.guarantee == u"现金押金")
            note = made_.words.keep(u"收据%1"_s.arg(30'000 + ++receipts_, 7, 10, QChar(u'0')));
        if (way.guarantee == u"信用卡限额")
            note = u"预授权";
        return {way.guarantee, way.way, amount, note};
    }

    // --- how they leave ---

    // A company's guests may give up one of their rooms a day ahead of the others.
    void leave(Stay& stay, const SigningCompany* company) {
        const DemoRoom& first = stay.party.rooms.first();
        DemoDeparture all{.at = moment(stay.leaves),
                          .rooms = {first.number},
                          .way = wayOf(stay),
                          .guest = first.guests.first().name};
        if (company)
            all.company = company->company.name;
        const bool inPart = company && company->sends == Sends::Guests && stay.rooms.size() > 1 &&
                            stay.nights() > 1 && dice_.chance(40);
        if (inPart) {
            Room* room = stay.rooms.takeLast();
            const DemoRoom& given = stay.party.rooms.last();
            Stay part = stay;
            part.leaves = departureOn(stay.leaves.date().addDays(-1));
            moveOut(*room, part);
            made_.departures.append({.at = moment(part.leaves),
                                     .rooms = {given.number},
                                     .everybody = false,
                                     .way = {},
                                     .guest = given.guests.first().name});
            stay.party.rooms.removeLast();
        }
        made_.departures.append(all);
    }

    static QStringView wayOf(const Stay& stay) {
        const QStringView way = stay.party.deposit.way;
        return way == u"招待" ? QStringView(u"现金") : way;
    }

    // The room is sold for these nights, and cleaned behind them.
    void moveOut(Room& room, const Stay& stay) {
        if (room.dirtyAtFirst && !std::exchange(room.used, true))
            clean(room, QDateTime(stay.arrives.date(), QTime(8, 20)));
        for (QDate night = stay.arrives.date(); night < stay.leaves.date();
             night = night.addDays(1))
            soldTo_[night].insert(room.number.toString());
        if (stay.leaves < room.freeFrom) // the other bed is left later
            return;
        const QDateTime cleaned =
            stay.leaves.addSecs(60 * dice_.between(kToBeClean / 4, kToBeClean - kToDry));
        room.lastCleaning = clean(room, cleaned);
        room.freeFrom = cleaned.addSecs(60 * kToDry);
    }

    qsizetype clean(const Room& room, const QDateTime& at) {
        made_.statusChanges.append({moment(at), Shift::Housekeeping, room.number, u"空房"});
        return made_.statusChanges.size() - 1;
    }

    void leaveDirtyWhatWas() {
        QList<qsizetype> cleanings;
        for (const Room& room : rooms_) {
            if (room.dirtyAtFirst && room.lastCleaning >= 0)
                cleanings.append(room.lastCleaning);
        }
        std::ranges::sort(cleanings, std::greater());
        for (const qsizetype cleaning : cleanings)
            made_.statusChanges.removeAt(cleaning);
    }

    void letByTheHour(QDate day) {
        static const DemoCustom kByTheHour = {.status = u"钟点",
                                              .rate = u"钟点起价",
                                              .weight = 0,
                                              .weekendWeight = 0,
                                              .leastRooms = 1,
                                              .mostRooms = 1,
                                              .leastNights = 0,
                                              .mostNights = 0,
                                              .leastGuests = 1,
                                              .mostGuests = 2,
                                              .reasons = {u"本市休息", u"过境中转"}};
        for (int number = dice_.between(1, 4); number > 0; --number) {
            Stay stay{{.custom = &kByTheHour,
                       .arrives = QDateTime(day, QTime(dice_.between(11, 16), dice_.below(60))),
                       .leaves = {},
                       .party = {}},
                      {}};
            stay.leaves = stay.arrives.addSecs(60 * dice_.between(70, 240));
            const int guests = dice_.between(1, 2);
            stay.rooms = freeRooms(1, guests, stay.arrives, stay.leaves);
            if (!stay.rooms.isEmpty())
                moveIn(stay, guests);
        }
    }

    DemoMoment moment(const QDateTime& at) { return made_.words.moment(at, opening_.date()); }

    const QDateTime opening_;
    const QDate first_;
    Dice dice_;
    QList<Room> rooms_;
    QHash<QDate, QSet<QString>> soldTo_;
    int receipts_ = 0;
    DemoWeeks made_;
    GuestMaker guests_;
    PostingMaker postings_;
};

} // namespace

int OccupancyMeant(QDate night) {
    constexpr std::array kByWeekday = {57, 61, 64, 66, 76, 83, 48}; // Monday first
    constexpr int kSwing = 2;
    const int swing = int(night.toJulianDay() * 7 % (2 * kSwing + 1)) - kSwing;
    return kByWeekday[size_t(night.dayOfWeek() - 1)] + swing;
}

DemoWeeks MakeDemoWeeks(const QDateTime& opening, int days, const QList<RoomEntry>& rooms) {
    return days < kFewestDays ? DemoWeeks() : Weeks(opening, days, rooms).make();
}

} // namespace hotel
