#include "app/demo/demo_guests.h"

#include <QMap>

#include <algorithm>
#include <map>
#include <memory>
#include <set>

#include "app/demo/consumption.h"
#include "app/demo/parties.h"
#include "app/demo/weeks.h"
#include "cashier/check_out.h"
#include "cashier/team_customers.h"
#include "house/common/paths.h"
#include "house/folios/folio_posting.h"
#include "house/folios/posting_entry.h"
#include "house/guests/guest_form.h"
#include "house/guests/offered_rooms.h"
#include "house/guests/working_set.h"
#include "house/rooms/rate_table.h"
#include "house/rooms/room_record.h"
#include "house/stays/board.h"
#include "house/stays/check_in.h"
#include "house/stays/day_snapshots.h"
#include "house/stays/night_audit.h"
#include "link/Wck_comm.h"
#include "link/records.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "session/operation_log.h"
#include "session/session.h"
#include "shell/login.h"
#include "tools/aids/categories.h"
#include "tools/aids/identity_number.h"

namespace hotel {

namespace {

using namespace guest_text;

struct Employee {
    QString login;
    QString password;
};
const Employee kDayClerk = {u"QIANTAI"_s, u"111111"_s};
const Employee kNightClerk = {u"LIBAN"_s, u"222222"_s};
const Employee kHousekeeper = {u"KEFANG"_s, u"333333"_s};
const Employee kEngineer = {u"GONGCHENG"_s, u"121212"_s};
const Employee kNightAuditor = {u"YESHEN"_s, u"555555"_s};
const Employee kCashier = {u"SHOUYIN"_s, u"444444"_s};
const Employee kExchange = {u"ZONGJI"_s, u"888888"_s};
const Employee kSales = {u"XIAOSHOU"_s, u"777777"_s};
const Employee kOutlet = {u"CANYIN"_s, u"999999"_s};

// How long a clerk takes, in seconds.
constexpr int kToLogIn = 12;
constexpr int kToTypeAParty = 140;
constexpr int kToTakeADeposit = 45;
constexpr int kToPost = 20;
constexpr int kALineOfTheAudit = 1; // which nobody types
constexpr int kToTakeBack = 40;
constexpr int kToLeave = 30;
constexpr int kForAll = 300;         // so long before the opening the last of them arrives
constexpr int kDaysOfCompanies = 27; // ahead of the first party
const QTime kTimeOfAudit(2, 30);
const QTime kTimeOfReports(23, 40);
const QTime kTimeOfSales(8, 0);

const Employee& OnDuty(Shift shift, QTime time) {
    switch (shift) {
    case Shift::Housekeeping:
        return kHousekeeper;
    case Shift::Engineering:
        return kEngineer;
    case Shift::FrontDesk:
        break;
    }
    return time.hour() >= 7 && time.hour() < 19 ? kDayClerk : kNightClerk;
}

const Employee& PostsThe(PostingKind kind) {
    switch (kind) {
    case kFoodPosting:
        return kOutlet;
    case kTelephonePosting:
        return kExchange;
    case kServicePosting:
        return kHousekeeper;
    default:
        return kCashier;
    }
}

void Expect(bool came, const QString& words) {
    if (!came)
        throw DemoFailure(words);
}

void ExpectNone(const std::optional<Notice>& notice) {
    if (notice)
        throw DemoFailure(notice->title + u"："_s + notice->words);
}

QString With(QString record, std::initializer_list<std::pair<QStringView, QStringView>> fields) {
    for (const auto& [tag, value] : fields)
        record = SetTag(record, tag, value);
    return record;
}

// What is typed for a posting, by the tags under which it is written.
using TypedPosting = QMap<QStringView, QString>;

struct Workstation {
    Wck_comm link;
    Session session; // of who is logged in there; without a user: nobody
};

class Desk {
public:
    explicit Desk(const DemoOpening& opening)
        : setServerClock_(opening.setServerClock), openingDay_(opening.at.date()), given_(&Link()) {
    }
    ~Desk() { SetLink(given_); }
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    // At the moment, or as soon as the one before has done; logged in is who isn't yet.
    void sitDown(const Employee& employee, const QDateTime& moment);
    void leave();

    // What the user who is logged in does.
    void checkIn(const DemoParty& party);
    void setStatus(const DemoStatusChange& change);
    void auditNight();
    void keepFigures(QDate day);
    void post(const DemoPosting& posting);
    void checkOut(const DemoDeparture& departure);
    void enter(const DemoCompany& company);

private:
    void moveTo(const QDateTime& moment);
    void goOn(int seconds) { moveTo(Clock::Now().addSecs(seconds)); }

    QString picked(QStringView word, QStringView category);
    QList<ChosenRoom> choose(const DemoParty& party) const;
    QString newForm(const DemoParty& party);
    QString typed(QString form, const DemoGuest& guest);
    QString priced(const QString& form, const DemoParty& party) const;
    QString typedSet(const DemoParty& party, const QList<ChosenRoom>& rooms);
    void takeDeposit(const DemoParty& party, const QString& folio);
    QString postTyped(const QString& folio, PostingKind kind, const TypedPosting& typed);
    void takeBack(const QString& folio, PostingKind kind, const QString& key);
    Payment paymentOf(const DemoDeparture& departure, const SettlementSums& sums);

    std::function<void(const QDateTime&)> setServerClock_;
    QDate openingDay_;
    QDateTime now_;
    Wck_comm* given_;
    std::map<QString, Workstation> workstations_; // by login
    Workstation* at_ = nullptr;                   // where the one sits who does something
    QHash<QString, QStringList> categories_; // nobody changes them while the guests come and go
};

void Desk::moveTo(const QDateTime& moment) {
    now_ = moment;
    setServerClock_(moment);
    Clock::Freeze(moment);
}

void Desk::sitDown(const Employee& employee, const QDateTime& moment) {
    moveTo(now_.isValid() ? std::max(now_, moment) : moment);
    at_ = &workstations_[employee.login];
    SetLink(&at_->link);
    CurrentSession() = at_->session;
    if (!at_->session.userId.isEmpty())
        return;
    if (!at_->link.isUp()) {
        at_->link.ProdID = given_->ProdID;
        at_->link.ConnectServer(given_->IPaddr, given_->Port);
    }
    Expect(CheckLogin(employee.login, employee.password) == LoginResult::LoggedIn,
           employee.login + u" 不能登录"_s);
    BeginSession(employee.login);
    at_->session = CurrentSession();
    goOn(kToLogIn);
}

void Desk::leave() {
    goOn(kToLeave);
    LogLeaving();
    at_->session = {};
}

// A word that is on the list from which a clerk picks it; an empty one is none.
QString Desk::picked(QStringView word, QStringView category) {
    if (word.isEmpty())
        return {};
    QStringList& entries = categories_[category.toString()];
    if (entries.isEmpty())
        entries = LoadCategory(category);
    Expect(entries.contains(word), category + u" 没有 "_s + word);
    return word.toString();
}

QList<ChosenRoom> Desk::choose(const DemoParty& party) const {
    TextTable offered;
    offered.setHeaders({room_record::kNumber.toString(), room_record::kStatus.toString(),
                        room_record::kType.toString(), room_record::kBeds.toString()});
    LoadKxkfQd(offered, StatusFilter(LoadCategory(u"可售房态")));
    const QList<ChosenRoom> rooms = ChosenRooms(offered);
    QList<ChosenRoom> chosen;
    for (const DemoRoom& wanted : party.rooms) {
        const auto room = std::ranges::find(rooms, wanted.number, &ChosenRoom::number);
        Expect(room != rooms.end(), u"客房 "_s + wanted.number + u" 不能出售"_s);
        chosen.append(*room);
    }
    return chosen;
}

QString Desk::newForm(const DemoParty& party) {
    const QDate leaves = openingDay_.addDays(party.leavesIn);
    return With(NewGuestForm(Clock::Now()), {{kReceptionist, CurrentSession().userName},
                                             {kStatus, picked(party.status, u"入住房态")},
                                             {kDeparture, leaves.toString(u"yyyy-MM-dd")},
                                             {kReason, picked(party.reason, u"停留事由")},
                                             {kComingFrom, picked(party.from, u"省市名称")},
                                             {kGoingTo, picked(party.to, u"省市名称")},
                                             {kEmployer, party.employer},
                                             {kReceivedBy, party.reception},
                                             {kRateKind, party.rate}});
}

QString Desk::typed(QString form, const DemoGuest& guest) {
    for (const QStringView tick : {kSharesRoom, kPays}) {
        if (GetTag(form, tick).isEmpty())
            form = SetTag(form, tick, u"0");
    }
    form = With(form, {{kName, guest.name},
                       {kDocumentKind, picked(guest.kind, u"证件名称")},
                       {kDocumentNumber, guest.document},
                       {kJobTitle, picked(guest.job, u"职务职称")},
                       {kSex, guest.sex},
                       {kAge, guest.age},
                       {kAddress, guest.address}});
    if (guest.kind != kIdentityCard)
        return form;
    const auto identity = AnalyseIdentityNumber(guest.document);
    Expect(identity.has_value(), guest.document + u" 不是身份证号码"_s);
    const QString remark = WithBirthday(GetTag(form, kRemark), identity->birthDate, Clock::Today());
    return With(form, {{kSex, identity->sex},
                       {kAge, identity->age},
                       {kAddress, identity->address()},
                       {kRemark, remark}});
}

// The rate is that of the room's type.
QString Desk::priced(const QString& form, const DemoParty& party) const {
    const RateChoice rates = RatesOfType(RatesInUse(), GetTag(form, kRoomType));
    ExpectNone(rates.notice);
    const QString price = rates.price(party.rate);
    Expect(!price.isEmpty(), GetTag(form, kRoomType) + u" 没有 "_s + party.rate);
    Expect(party.price.isEmpty() || IsNegotiable(party.rate), party.rate + u" 不能改"_s);
    return With(form,
                {{kRateKind, party.rate}, {kPrice, party.price.isEmpty() ? price : party.price}});
}

QString Desk::typedSet(const DemoParty& party, const QList<ChosenRoom>& rooms) {
    QString set = OpenWorkingSet({}, rooms);
    QString form = newForm(party);
    bool quickly = false;
    for (const DemoRoom& room : party.rooms) {
        const QStringList beds = BedsOfSet(set, room.number);
        Expect(beds.size() >= room.guests.size(), u"客房 "_s + room.number + u" 床位不够"_s);
        for (qsizetype i = 0; i < room.guests.size(); ++i) {
            form = GuestForForm(GuestOfSet(set, room.number, beds[i]), form, Clock::Now());
            form = SetTag(form, kRemark, picked(party.remark, u"注释选择"));
            form = InWritingOrder(priced(typed(form, room.guests[i]), party));
            set = WithGuest(set, room.number, beds[i], form);
        }
        quickly = quickly || room.guests.isEmpty();
    }
    if (!quickly)
        return set;
    const QuickRegistration registered = RegisterQuickly(set);
    ExpectNone(registered.refusal);
    return registered.set;
}

// As a clerk types it: what is chosen stands in its category.
QString Desk::postTyped(const QString& folio, PostingKind kind, const TypedPosting& typed) {
    const PostingKindEntry& entry = PostingKindOf(kind);
    PostingValues values;
    for (const PostingField& field : entry.fields) {
        if (field.control.isEmpty())
            continue;
        const QString value = typed.value(field.tag);
        values[field.control] =
            field.input == PostingInput::Choice ? picked(value, field.category) : value;
    }
    values[posting_control::kDepartment] = CurrentSession().userDept;
    values[posting_control::kOperator] = CurrentSession().userName;
    if (entry.feeSum)
        values[entry.feeSum->control] = SumOfFees(*entry.feeSum, values);
    if (const auto objection = CheckPosting(kind, values))
        throw DemoFailure(objection->notice.title + u"："_s + objection->notice.words);
    const QString record = BuildPostingRecord(kind, values, Clock::Now());
    const Posted posted = SaveBills(folio, kind, record);
    Expect(posted.status == 0, u"费用没有保存："_s + folio);
    SaveLogRec(entry.log.added.toString(), PostingDetail(folio, record));
    return posted.key;
}

void Desk::takeBack(const QString& folio, PostingKind kind, const QString& key) {
    const QString record = ReadRecord(LedgerFile(folio), PostingProject(kind), key);
    Expect(DelBills(folio, kind, key) == 0, u"费用没有删除："_s + folio);
    SaveLogRec(PostingKindOf(kind).log.deleted.toString(), PostingDetail(folio, record));
}

void Desk::takeDeposit(const DemoParty& party, const QString& folio) {
    const DemoDeposit& deposit = party.deposit;
    postTyped(folio, kDepositPosting,
              {{u"信用保证种类", deposit.kind.toString()},
               {u"支付方式", picked(deposit.way, u"支付方式")},
               {posting::kGuest, party.rooms.first().guests.first().name.toString()},
               {posting::kReceived, deposit.amount.toString()},
               {u"备注", deposit.note.toString()}});
}

void Desk::checkIn(const DemoParty& party) {
    const QList<ChosenRoom> rooms = choose(party);
    const QString set = typedSet(party, rooms);
    goOn(kToTypeAParty);
    const CheckInOutcome outcome = ConfirmCheckIn(set, rooms);
    ExpectNone(outcome.notice);
    Expect(outcome.confirmed, u"没有登记："_s + party.rooms.first().number);
    goOn(kToTakeADeposit);
    takeDeposit(party, outcome.firstFolio);
}

void Desk::setStatus(const DemoStatusChange& change) {
    const StatusChange changed =
        SetStatusByHand(change.room, picked(change.status, category::kRoomStates));
    ExpectNone(changed.refusal);
    Expect(changed.changed, u"客房 "_s + change.room + u" 的房态没有改变"_s);
}

// As the main menu opens it. Whatever is no success is logged with words of failure or of an error.
void Desk::auditNight() {
    SaveLogRec(u"处理房间数据，生成报表"_s, u"夜审"_s);
    const NightAudit audit{.auditDate = AuditDate(Clock::Now()),
                           .statuses = LoadCategory(kSettledStatuses),
                           .department = CurrentSession().userDept,
                           .auditor = CurrentSession().userName,
                           .log = [this](const QString& line) {
                               Expect(!line.contains(u"失败") && !line.contains(u"错误"), line);
                               goOn(kALineOfTheAudit);
                           }};
    for (QString tag = kFirstAuditStep.toString(); !tag.isEmpty();)
        tag = RunAuditStep(tag, audit);
}

void Desk::keepFigures(QDate day) {
    Expect(Clock::Today() == day, u"统计数据不是当日的："_s + day.toString(Qt::ISODate));
    ExpectNone(TakeSnapshots());
}

// The guest of that name in the room; without a name the one in the first bed.
QString GuestIn(QStringView room, QStringView name) {
    const QString guests = GetKfrzxx(room);
    if (name.isEmpty())
        return GetTag(guests, GuestTag(1));
    for (int bed = 1; bed <= kBedLimit; ++bed) {
        const QString guest = GetTag(guests, GuestTag(bed));
        if (GetTag(guest, kName) == name)
            return guest;
    }
    throw DemoFailure(u"客房 "_s + room + u" 没有 "_s + name);
}

// Who posts by mistake takes it back at once.
void Desk::post(const DemoPosting& posted) {
    const QString guest = GuestIn(posted.room, posted.guest);
    const QString room = GetKfjbxx(posted.room);
    TypedPosting typed = {{posting::kRoom, posted.room.toString()},
                          {posting::kGuest, GetTag(guest, kName)},
                          {u"主叫电话", GetTag(room, room_record::kTelephone)},
                          {u"网络端口", GetTag(room, room_record::kNetworkPort)}};
    for (const auto& [tag, value] : posted.fields)
        typed[tag] = value.toString();
    const QString folio = GetTag(guest, kFolio);
    if (!posted.mistyped.isEmpty()) {
        TypedPosting mistyped = typed;
        mistyped[posting::kAmount] = posted.mistyped.toString();
        const QString key = postTyped(folio, posted.kind, mistyped);
        goOn(kToTakeBack);
        takeBack(folio, posted.kind, key);
        goOn(kToPost);
    }
    postTyped(folio, posted.kind, typed);
    goOn(kToPost);
}

void Desk::enter(const DemoCompany& company) {
    const TeamEditOutcome entered = AddTeam(With({}, {{team_customer::kName, company.name},
                                                      {u"联系人", company.contact},
                                                      {u"手机", company.mobile},
                                                      {u"电话", company.telephone},
                                                      {u"地址", company.address},
                                                      {u"简码", company.initials},
                                                      {u"所在地区", company.region},
                                                      {team_customer::kStatus, u"有效"}}));
    ExpectNone(entered.notice);
    goOn(kToPost);
}

// What is due is paid, or given back; a company signs for it.
Payment Desk::paymentOf(const DemoDeparture& departure, const SettlementSums& sums) {
    const Money due = sums.due();
    Payment payment{.due = due.text(),
                    .discount = u"0.00"_s,
                    .received = std::max(due, Money()).text(),
                    .change = {},
                    .kind = picked(departure.way, u"支付方式"),
                    .note = {},
                    .team = {}};
    payment.change = ChangeOf(payment.received, payment.discount, payment.due).value_or(QString());
    if (departure.company.isEmpty())
        return payment;
    const TextTable companies = FindTeams(departure.company.toString());
    Expect(companies.dataRows() == 1, u"没有团队客户 "_s + departure.company);
    payment.note = WithTeamName({}, departure.company.toString());
    payment.team = companies.text(1, team_customer::kNumber);
    return payment;
}

void Desk::checkOut(const DemoDeparture& departure) {
    const QString room = departure.rooms.first().toString();
    const QString folio = GetTag(GuestIn(room, departure.guest), kFolio);
    SettlementFolio settlement = LoadSettlementFolio(folio);
    ExpectNone(settlement.notice);
    for (int row = 1; row < settlement.list.rows(); ++row) {
        const QString of = settlement.list.text(row, kRoomColumn);
        SetChosen(settlement.list, row, departure.everybody || departure.rooms.contains(of));
    }
    const QString now = Clock::TimeText().left(5);
    const PeriodChoice period = PeriodOf(settlement.list, now, Clock::DateText());
    CalculateCharges(settlement.list, period.period, now, RatesInUse());
    goOn(kToTakeADeposit);
    const CheckOutOutcome outcome =
        ConfirmCheckOut({folio, settlement.list, picked(u"脏房", u"使用后房态")},
                        {.yes = [&departure](const Notice&) { return !departure.everybody; },
                         .payment = [&](const SettlementSums& sums) -> std::optional<Payment> {
                             return paymentOf(departure, sums);
                         },
                         .progress = [](int, int) {}});
    for (const Notice& notice : outcome.notices)
        Expect(notice.title == u"处理完成", notice.title + u"："_s + notice.words);
    Expect(outcome.done && outcome.retired == departure.everybody, room + u" 没有结账"_s);
}

struct Event {
    QDateTime at;
    Employee by;
    std::function<void(Desk&)> happens;
};

class Events {
public:
    explicit Events(const QDateTime& opening) : opening_(opening) {}

    void add(const QDateTime& at, const Employee& by, std::function<void(Desk&)> happens) {
        events_.append({at, by, std::move(happens)});
    }
    void add(const QList<DemoParty>& parties) {
        for (const DemoParty& party : parties)
            add(party.arrives, Shift::FrontDesk, [&party](Desk& desk) { desk.checkIn(party); });
    }
    void add(const QList<DemoStatusChange>& changes) {
        for (const DemoStatusChange& change : changes)
            add(change.at, change.by, [&change](Desk& desk) { desk.setStatus(change); });
    }
    void add(const QList<DemoDeparture>& departures) {
        for (const DemoDeparture& departure : departures)
            add(departure.at.from(opening_), kCashier,
                [&departure](Desk& desk) { desk.checkOut(departure); });
    }
    void add(const QList<DemoPosting>& postings) {
        for (const DemoPosting& posting : postings)
            add(posting.at.from(opening_), PostsThe(posting.kind),
                [&posting](Desk& desk) { desk.post(posting); });
    }

    // The companies have signed ahead of the first guest; every evening has its figures, every night its
    // audit.
    QList<Event> withDaysWork(const QList<DemoCompany>& companies) {
        const QDate first = std::ranges::min(events_, {}, &Event::at).at.date();
        for (const DemoCompany& company : companies)
            add(QDateTime(first, QTime(0, 0)), kSales,
                [&company](Desk& desk) { desk.enter(company); });
        for (QDate day = first; day <= opening_.date(); day = day.addDays(1)) {
            if (day > first)
                addIfPast({day, kTimeOfAudit}, [](Desk& desk) { desk.auditNight(); });
            addIfPast({day, kTimeOfReports}, [day](Desk& desk) { desk.keepFigures(day); });
        }
        std::ranges::stable_sort(events_, {}, &Event::at);
        return events_;
    }

private:
    void add(const DemoMoment& moment, Shift shift, std::function<void(Desk&)> happens) {
        const QDateTime at = moment.from(opening_);
        add(at, OnDuty(shift, at.time()), std::move(happens));
    }
    void addIfPast(const QDateTime& at, std::function<void(Desk&)> happens) {
        if (at.addSecs(kForAll) <= opening_)
            add(at, kNightAuditor, std::move(happens));
    }

    const QDateTime opening_;
    QList<Event> events_;
};

// Whoever has more to do on the same day stays logged in. Tells for each event whether it is the last of its
// employee on the day.
QList<bool> LastOfTheDay(const QList<Event>& events) {
    QList<bool> last(events.size());
    std::set<std::pair<QString, QDate>> seen;
    for (qsizetype i = events.size() - 1; i >= 0; --i)
        last[i] = seen.emplace(events[i].by.login, events[i].at.date()).second;
    return last;
}

} // namespace

QDateTime DemoMoment::from(const QDateTime& opening) const {
    if (time.isEmpty())
        return opening.addSecs(-60LL * minutes);
    const QDateTime at(opening.date().addDays(-days), QTime::fromString(time, u"HH:mm"));
    return at.addSecs(kForAll) <= opening ? at : at.addDays(-1);
}

void BringInGuests(const DemoOpening& opening) {
    Desk desk(opening);
    desk.sitDown(kSales, {opening.at.date().addDays(-std::max(opening.days, kDaysOfCompanies)),
                          kTimeOfSales});
    const DemoWeeks weeks = MakeDemoWeeks(opening.at, opening.days, LoadRooms());
    Events planned(opening.at);
    planned.add(weeks.parties);
    planned.add(DemoParties());
    planned.add(weeks.departures);
    planned.add(DemoDepartures());
    planned.add(weeks.statusChanges);
    planned.add(DemoStatusChanges());
    planned.add(weeks.postings);
    planned.add(DemoPostings());
    const QList<DemoCompany> companies = DemoCompanies() + weeks.companies;
    const QList<Event> events = planned.withDaysWork(companies);
    const QList<bool> last = LastOfTheDay(events);
    for (qsizetype i = 0; i < events.size(); ++i) {
        opening.progress(int(i), int(events.size()));
        desk.sitDown(events[i].by, events[i].at);
        events[i].happens(desk);
        if (last[i])
            desk.leave();
    }
    Clock::Freeze(opening.at);
    opening.setServerClock(opening.at);
}

} // namespace hotel
