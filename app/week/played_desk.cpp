#include "app/week/played_desk.h"

#include <algorithm>
#include <chrono>

#include <QRandomGenerator>

#include "app/demo/exchange.h"
#include "app/demo/expect.h"
#include "cashier/settlement_list.h"
#include "house/common/folio_number.h"
#include "house/folios/folio.h"
#include "house/folios/posting_list.h"
#include "house/guests/departures.h"
#include "house/guests/guest_text.h"
#include "house/guests/offered_rooms.h"
#include "house/rooms/room_status.h"
#include "house/stays/reservations.h"
#include "house/stays/room_change.h"
#include "link/serv_api.h"
#include "personnel/attendance/staff_walk.h"
#include "platform/clock.h"
#include "record/field_walk.h"
#include "record/literals.h"
#include "record/login_digest.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "shell/login.h"
#include "telephone/call_tables.h"
#include "tools/aids/categories.h"
#include "tools/plans/plan_list.h"

namespace hotel {

namespace {

constexpr int kToLogIn = 12; // seconds
constexpr int kTriesToLogIn = 6;
constexpr int kLastSecond = 3000; // of an hour at which something begins that takes its time
constexpr int kRoomsOfAParty = 3;
constexpr int kRoomsKeptFree = 12;
constexpr int kRoomsLookedAt = 4;
constexpr int kCallsAtOnce = 5;
constexpr int kNightEnds = 7;
constexpr int kHourOfAudit = 2;
constexpr int kHourOfFigures = 23;
constexpr int kTriesOfAudit = 3;

class NothingToDo : public std::exception {};

qint64 SteadyNow() {
    return std::chrono::steady_clock::now().time_since_epoch().count();
}

bool IsOccupied(QStringView record) {
    return LeadingNumber(GetTag(record, room_record::kGuests)) > 0;
}

bool IsSoldWhole(QStringView record) {
    return IsOccupied(record) && !IsShared(GetTag(record, room_record::kStatus));
}

bool IsFree(QStringView record) {
    return !IsOccupied(record) && IsVacant(StatusAtSale(GetTag(record, room_record::kStatus)));
}

bool IsDirty(QStringView record) {
    return GetTag(record, room_record::kStatus) == u"脏房";
}

QList<QString> GuestsOf(QStringView guests) {
    QList<QString> all;
    for (FieldWalk guest(guests); guest.next();) {
        if (!guest.value().isEmpty())
            all.append(guest.value().toString());
    }
    return all;
}

QString Field(QStringView record, QStringView tag, const QString& value) {
    return SetTag(record.toString(), tag, value);
}

} // namespace

const QList<PlayedDesk::Habit>& PlayedDesk::Habits() {
    static const QList<Habit> habits = {
        {kDayClerk, u"check-in", 34, 10, &PlayedDesk::arrive},
        {kDayClerk, u"room change", 8, 2, &PlayedDesk::changeRoom},
        {kCashier, u"settlement", 24, 4, &PlayedDesk::settle},
        {kCashier, u"posting", 10, 8, &PlayedDesk::post},
        {kOutlet, u"posting", 30, 14, &PlayedDesk::post},
        {kOutlet, u"reversal", 6, 2, &PlayedDesk::takeBack},
        {kHousekeeper, u"cleaning", 26, 2, &PlayedDesk::clean},
        {kHousekeeper, u"posting", 6, 1, &PlayedDesk::post},
        {kSales, u"reservation", 10, 1, &PlayedDesk::reserve},
        {kExchangeOperator, u"calls", 16, 8, &PlayedDesk::takeCalls},
        {kPunchingDesk, u"punch", 20, 6, &PlayedDesk::punch},
    };
    return habits;
}

PlayedDesk::PlayedDesk(const DeskOrder& order, HouseClock& clock)
    : order_(order), clock_(clock), dice_(order.seed * 7'919 + quint64(order.number)),
      guests_(dice_, words_, order.opening), postings_(dice_, words_, order.opening),
      clerk_(order.opening, [this](int seconds) { moveTo(Clock::Now().addSecs(seconds)); }) {
    clerk_.onPosting = [this](const QString& folio, PostingKind kind, const QString& record) {
        const QString project = PostingProject(kind);
        touch(Place(place::kLedger, folio));
        touch(JournalPlace(project, Clock::Today()));
        act_.items.append(PostingItem(project, folio, record));
    };
}

PlayedDesk::~PlayedDesk() {
    SetLink(nullptr);
}

QStringList PlayedDesk::Users() {
    QStringList users;
    for (const Habit& habit : Habits()) {
        if (const QString login = habit.user.login.toString(); !users.contains(login))
            users.append(login);
    }
    return users;
}

// Few desks share the users out; of many each has one user, in turn.
QList<PlayedDesk::Habit> PlayedDesk::habitsOf(int hour) const {
    const QStringList users = Users();
    const int all = int(users.size());
    QList<Habit> own;
    for (Habit habit : Habits()) {
        const int user = int(users.indexOf(habit.user.login.toString()));
        const bool isOwn = order_.desks <= all ? user % order_.desks == order_.number
                                               : order_.number % all == user;
        if (hour < kNightEnds)
            habit.weight = habit.atNight;
        if (isOwn && habit.weight > 0)
            own.append(habit);
    }
    return own;
}

void PlayedDesk::playHour(const QDateTime& hour, const std::function<void(const DeskAct&)>& tell) {
    const QList<Habit> habits = habitsOf(hour.time().hour());
    QList<int> seconds;
    for (int n = 0; n < order_.actsAnHour && !habits.isEmpty(); ++n)
        seconds.append(dice_.below(kLastSecond));
    std::ranges::sort(seconds);
    const Habit audit{kNightAuditor, u"night audit", 1, 1, &PlayedDesk::auditNight};
    const Habit figures{kNightAuditor, u"figures", 1, 1, &PlayedDesk::keepFigures};
    for (qsizetype n = 0; n < seconds.size(); ++n) {
        const bool isMiddle = n == seconds.size() / 2;
        if (isMiddle && order_.number == 0 && hour.time().hour() == kHourOfAudit) {
            for (int tries = kTriesOfAudit; tries > 0; --tries) {
                play(audit, hour.addSecs(seconds[n]), tell);
                if (act_.result == ActResult::Done)
                    break;
            }
        }
        if (isMiddle && order_.number == 0 && hour.time().hour() == kHourOfFigures)
            play(figures, hour.addSecs(seconds[n]), tell);
        const Habit& habit = dice_.weigh(habits, [](const Habit& entry) { return entry.weight; });
        play(habit, hour.addSecs(seconds[n]), tell);
    }
}

void PlayedDesk::play(const Habit& habit, const QDateTime& moment,
                      const std::function<void(const DeskAct&)>& tell) {
    moveTo(std::max(moment, clock_.ofDesk(order_.number)));
    act_ = {};
    act_.desk = order_.number;
    act_.kind = habit.kind.toString();
    act_.begin = SteadyNow();
    try {
        sitDown(habit.user);
        (this->*habit.act)();
    } catch (const NothingToDo&) {
        act_.result = ActResult::Nothing;
    } catch (const DemoFailure& failure) {
        act_.result = ActResult::Told;
        act_.told = QString::fromUtf8(failure.what());
    }
    act_.end = SteadyNow();
    tell(act_);
}

void PlayedDesk::moveTo(const QDateTime& moment) {
    Clock::Freeze(moment);
    clock_.setDesk(order_.number, moment);
    if (order_.movesHouse)
        clock_.moveTo(moment);
}

void PlayedDesk::sitDown(const DemoUser& user) {
    const QString login = user.login.toString();
    Seat& seat = seats_[login];
    SetLink(&seat.link);
    if (seat.link.ProdID != kProductId) {
        seat.link.ProdID = kProductId.toString();
        seat.link.AliveKp = false;
        QObject::connect(&seat.link, &Wck_comm::loginLost, &seat.link,
                         [&seat] { seat.session = {}; });
        seat.link.ConnectServer(u"127.0.0.1"_s, QString::number(order_.port));
    }
    CurrentSession() = seat.session;
    for (int tries = kTriesToLogIn; tries > 0 && seat.session.userId.isEmpty(); --tries) {
        if (!seat.link.isUp())
            DbServerTime(seat.link); // a login alone doesn't open a closed link
        if (!IsLoggedIn(CheckLogin(login, user.password.toString())))
            continue;
        BeginSession(login);
        if (!CurrentSession().userName.isEmpty())
            seat.session = CurrentSession();
    }
    Expect(!seat.session.userId.isEmpty(), login + u" 不能登录"_s);
    CurrentSession() = seat.session;
}

// --- what it finds ---

QList<RoomEntry> PlayedDesk::roomsThat(bool (*fits)(QStringView record)) const {
    QList<RoomEntry> rooms = LoadRooms();
    rooms.removeIf([fits](const RoomEntry& room) { return !fits(room.record); });
    return rooms;
}

RoomEntry PlayedDesk::occupiedRoom() {
    const QList<RoomEntry> rooms = roomsThat(IsOccupied);
    if (rooms.isEmpty())
        throw NothingToDo();
    return dice_.pick(rooms);
}

// --- acts ---

DemoParty PlayedDesk::madeUpParty(const DemoCustom& custom, const DemoTown& town,
                                  const QList<RoomEntry>& rooms) {
    const int nights = std::min(dice_.between(custom.leastNights, custom.mostNights), 4);
    DemoStay stay{.custom = &custom,
                  .arrives = Clock::Now(),
                  .leaves = Clock::Now().addDays(nights),
                  .party = {}};
    DemoParty party;
    party.leavesIn = int(order_.opening.daysTo(stay.leaves.date()));
    party.status = custom.status;
    party.rate = custom.rate;
    party.price = custom.price;
    party.reason = dice_.pick(custom.reasons);
    party.from = town.name;
    party.to = town.name;
    if (custom.employed)
        party.employer = dice_.pick(DemoEmployers());
    party.deposit = {u"预付现金", u"现金", words_.yuan(100 * dice_.between(3, 12)), {}};
    for (const RoomEntry& room : rooms) {
        const int beds = BedsOfRoom(room.record) - GuestsAtSale(room.record);
        const int guests = std::min(dice_.between(custom.leastGuests, custom.mostGuests), beds);
        party.rooms.append({words_.keep(room.number), guests_.of(stay, town, std::max(guests, 1))});
    }
    return party;
}

void PlayedDesk::arrive() {
    const DemoCustom& custom =
        dice_.weigh(DemoCustoms(), [](const DemoCustom& entry) { return entry.weight; });
    const bool shares = IsShared(custom.status);
    QList<RoomEntry> offered = roomsThat([](QStringView record) {
        return IsFree(record) || (IsOccupied(record) && IsOffered(record, u"散客"));
    });
    offered.removeIf([shares](const RoomEntry& room) {
        return shares ? BedsOfRoom(room.record) < 2 : !IsFree(room.record);
    });
    const int wanted = std::min(dice_.between(custom.leastRooms, custom.mostRooms), kRoomsOfAParty);
    if (offered.size() < wanted + kRoomsKeptFree)
        throw NothingToDo();
    QList<RoomEntry> rooms;
    while (rooms.size() < wanted)
        rooms.append(offered.takeAt(dice_.below(int(offered.size()))));
    const DemoParty party = madeUpParty(custom, dice_.pick(DemoTowns()), rooms);

    const QString folio = NewFolioNumber(Clock::Now());
    act_.items.append(PartyItem(folio));
    touch(Place(place::kFolio, folio));
    touch(DayPlace(place::kRegister, Clock::Today()));
    for (const DemoRoom& room : party.rooms) {
        touch(Place(place::kRoom, room.number));
        for (const DemoGuest& guest : room.guests)
            act_.items.append(
                GuestItem(Field(Field({}, guest_text::kFolio, folio), guest_text::kDocumentNumber,
                                guest.document.toString())));
    }
    clerk_.checkIn(party);
}

void PlayedDesk::changeRoom() {
    const QList<RoomEntry> taken = roomsThat(IsSoldWhole);
    QList<RoomEntry> free = roomsThat(IsFree);
    if (taken.isEmpty() || free.isEmpty())
        throw NothingToDo();
    const RoomEntry old = dice_.pick(taken);
    free.removeIf([&old](const RoomEntry& room) {
        return BedsOfRoom(room.record) < LeadingNumber(GetTag(old.record, room_record::kGuests));
    });
    if (free.isEmpty())
        throw NothingToDo();
    const RoomEntry next = dice_.pick(free);
    const RoomChange change{old.number, next.number, u"客人要求"_s, u"脏房"_s};
    const PreparedChange prepared = PrepareRoomChange(change);
    ExpectNone(prepared.refusal);
    for (const QStringView room : {old.number, next.number})
        touch(Place(place::kRoom, room));
    for (const QString& guest : GuestsOf(GetTag(prepared.workingSet, change.newRoom))) {
        const QString folio = GetTag(guest, guest_text::kFolio);
        touch(Place(place::kFolio, folio));
        touch(Place(place::kLedger, folio));
        act_.items.append(GuestItem(guest));
    }
    const RoomChangeOutcome outcome = ConfirmRoomChange(change, prepared.workingSet);
    ExpectNone(outcome.notice);
    Expect(outcome.confirmed, u"没有换房："_s + old.number);
}

void PlayedDesk::post() {
    const RoomEntry room = occupiedRoom();
    touch(Place(place::kRoom, room.number));
    const QList<QString> guests = GuestsOf(GetKfrzxx(room.number));
    if (guests.isEmpty())
        throw NothingToDo();
    const QString guest = dice_.pick(guests);
    DemoStay stay{.custom = nullptr, .arrives = Clock::Now(), .leaves = Clock::Now(), .party = {}};
    stay.party.from = words_.keep(GetTag(guest, guest_text::kComingFrom));
    stay.party.rooms = {
        {words_.keep(room.number), {{words_.keep(GetTag(guest, guest_text::kName)), {}, {}}}}};
    const EnteredPosting entered = clerk_.post(postings_.one(stay, 0, Clock::Now()));
    posted_.append({entered, act_.items.last()});
}

// Only what still is the last of its folio can be taken back, and only from a folio that is open.
void PlayedDesk::takeBack() {
    while (!posted_.isEmpty()) {
        const auto [posting, item] = posted_.takeLast();
        if (posting.kind == kServicePosting || !FindOpenFolio(posting.folio))
            continue;
        const auto list = LoadPostings(posting.folio, posting.kind);
        const int row = list ? list->rows() - 1 : 0;
        if (row < 1 || list->text(row, posting::kSerial) != posting.key ||
            !MayDelete(*list, row, CurrentSession().userDept, CurrentSession().userName))
            continue;
        touch(Place(place::kLedger, posting.folio));
        touch(JournalPlace(PostingProject(posting.kind), Clock::Today()));
        act_.items.append(item);
        clerk_.takeBack(posting);
        return;
    }
    throw NothingToDo();
}

void PlayedDesk::settle() {
    for (int tries = kRoomsLookedAt; tries > 0; --tries) {
        const RoomEntry room = occupiedRoom();
        const QList<QString> guests = GuestsOf(GetKfrzxx(room.number));
        if (guests.isEmpty())
            continue;
        const QString guest = dice_.pick(guests);
        const bool isDue = GetTag(guest, guest_text::kDeparture) <= Clock::DateText();
        if (!isDue && !dice_.chance(6))
            continue;
        const QString folio = GetTag(guest, guest_text::kFolio);
        act_.items += {SettledItem(folio), GuestItem(guest)};
        for (const QStringView kind : {place::kFolio, place::kLedger})
            touch(Place(kind, folio));
        touch(DayPlace(place::kDepartures, Clock::Today()));
        for (const PostingKind kind : {kDepositPosting, kRoomPosting})
            touch(JournalPlace(PostingProject(kind), Clock::Today()));
        const TextTable list = LoadSettlementFolio(folio).list;
        for (int row = 1; row < list.rows(); ++row)
            touch(Place(place::kRoom, list.text(row, kRoomColumn)));
        clerk_.checkOut({.at = {},
                         .rooms = {words_.keep(room.number)},
                         .everybody = list.dataRows() == 1 || !dice_.chance(20),
                         .way = u"现金",
                         .guest = words_.keep(GetTag(guest, guest_text::kName))});
        return;
    }
    throw NothingToDo();
}

void PlayedDesk::clean() {
    const QList<RoomEntry> rooms = roomsThat(IsDirty);
    if (rooms.isEmpty())
        throw NothingToDo();
    const QString room = dice_.pick(rooms).number;
    touch(Place(place::kRoom, room));
    clerk_.setStatus({{}, Shift::Housekeeping, room, u"空房"});
}

void PlayedDesk::reserve() {
    const PlanKind& kind = ReservationPlans();
    auto list = LoadPlans(kind);
    Expect(list.has_value(), u"预订读取失败"_s);
    touch(Place(place::kPlans));
    const NameCharacters& names = DemoNames();
    const QString guest = QString(dice_.pick(names.surnames)) + dice_.pick(names.maleSecond);
    const QDate arrives = Clock::Today().addDays(dice_.between(1, 20));
    QString record;
    for (const auto& [tag, value] :
         {std::pair(reservation::kGuest, guest),
          {reservation::kArrival, arrives.toString(Qt::ISODate)},
          {reservation::kDeparture, arrives.addDays(dice_.between(1, 3)).toString(Qt::ISODate)},
          {reservation::kRooms, QString::number(dice_.between(1, 4))},
          {reservation::kBookedBy, guest},
          {reservation::kState, reservation::kPlanned.toString()},
          {kind.makerUnit, CurrentSession().userDept},
          {kind.maker, CurrentSession().userName}})
        record = SetTag(record, tag, value);
    const PlanOutcome outcome = AddPlan(kind, *list, record);
    const QString number = list->text(outcome.row, 0);
    if (outcome.done)
        act_.items.append(PlanItem(number));
    Expect(outcome.done, outcome.notice ? outcome.notice->words : u"预订没有保存"_s);
}

void PlayedDesk::punch() {
    if (staff_.isEmpty()) {
        EachDepartment([this](const QString&, QStringView employees) {
            EachEmployee(employees,
                         [this](const QString& number, QStringView) { staff_.append(number); });
        });
    }
    if (staff_.isEmpty())
        throw NothingToDo();
    PreparedPunch prepared = PreparePunch(directory_, dice_.pick(staff_));
    prepared.operatorName = CurrentSession().userName;
    prepared.place = CurrentSession().userName;
    ExpectNone(CheckPunch(prepared));
    touch(DayPlace(place::kPunches, prepared.moment.date()));
    const auto key = punches_.save(prepared);
    Expect(key.has_value(), prepared.person.number + u" 没有登记"_s);
    act_.items.append(PunchItem(*key + u' ' + prepared.person.number));
}

// There is one exchange, at the first of the desks that take calls.
bool PlayedDesk::isExchange() const {
    return order_.number < Users().size();
}

void PlayedDesk::takeCalls() {
    const BillingFiles files;
    const QString file = files.dayFile(Clock::Today());
    touch(Place(place::kCalls, file));
    if (extensions_.isEmpty())
        extensions_ = PlayedExtensions(files);
    if (isExchange()) {
        QList<PlayedCall> calls;
        QRandomGenerator random(quint32(dice_.below(1 << 30)));
        for (int n = dice_.between(1, kCallsAtOnce); n > 0; --n)
            calls.append(PlayCall(random, extensions_, Clock::Now().addSecs(-n)));
        const int written = WriteCalls(files, calls);
        for (int n = 0; n < written; ++n)
            act_.items.append(CallItems(calls[n].record).first());
        Expect(written == calls.size(), u"话单没有保存"_s);
    }
    const CallTables tables = ReadCallTables(files);
    Expect(!tables.unread(), u"费率读取失败"_s);
    const RoundOutcome round = RateWaitingCalls(file, RatingTablesOf(tables, {}), calls_, {});
    ExpectNone(round.failure);
}

void PlayedDesk::auditNight() {
    touch(Place(place::kWholeHouse));
    act_.items.append(AuditedItem(Clock::Today()));
    clerk_.auditNight();
}

void PlayedDesk::keepFigures() {
    clerk_.keepFigures(Clock::Today());
}

} // namespace hotel
