#include "app/demo/demo_guests.h"

#include <QMap>

#include <algorithm>

#include "app/demo/consumption.h"
#include "app/demo/parties.h"
#include "cashier/check_out.h"
#include "cashier/team_customers.h"
#include "house/folios/folio_posting.h"
#include "house/folios/posting_entry.h"
#include "house/guests/guest_form.h"
#include "house/guests/offered_rooms.h"
#include "house/guests/working_set.h"
#include "house/rooms/rate_table.h"
#include "house/rooms/room_record.h"
#include "house/stays/board.h"
#include "house/stays/check_in.h"
#include "house/stays/night_audit.h"
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
constexpr int kToLeave = 30;
constexpr int kForAll = 300;         // so long before the opening the last of them arrives
constexpr int kDaysOfCompanies = 27; // ahead of the first party
const QTime kTimeOfAudit(2, 30);

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

// A word that is on the list from which a clerk picks it; an empty one is none.
QString Picked(QStringView word, QStringView category) {
    Expect(word.isEmpty() || LoadCategory(category).contains(word), category + u" 没有 "_s + word);
    return word.toString();
}

QString With(QString record, std::initializer_list<std::pair<QStringView, QStringView>> fields) {
    for (const auto& [tag, value] : fields)
        record = SetTag(record, tag, value);
    return record;
}

// What is typed for a posting, by the tags under which it is written.
using TypedPosting = QMap<QStringView, QString>;

class Desk {
public:
    Desk(std::function<void(const QDateTime&)> setServerClock, QDate openingDay)
        : setServerClock_(std::move(setServerClock)), openingDay_(openingDay) {}

    void logIn(const Employee& employee, const QDateTime& moment);
    void leave();

    // What the user who is logged in does.
    void checkIn(const DemoParty& party);
    void setStatus(const DemoStatusChange& change);
    void auditNight();
    void post(const DemoPosting& posting);
    void checkOut(const DemoDeparture& departure);
    void enter(const DemoCompany& company);

private:
    void moveTo(const QDateTime& moment);
    void goOn(int seconds) { moveTo(Clock::Now().addSecs(seconds)); }

    QList<ChosenRoom> choose(const DemoParty& party) const;
    QString newForm(const DemoParty& party) const;
    QString typed(QString form, const DemoGuest& guest) const;
    QString priced(const QString& form, const DemoParty& party) const;
    QString typedSet(const DemoParty& party, const QList<ChosenRoom>& rooms);
    void takeDeposit(const DemoParty& party, const QString& folio);
    void postTyped(const QString& folio, PostingKind kind, const TypedPosting& typed);

    std::function<void(const QDateTime&)> setServerClock_;
    QDate openingDay_;
    QString user_;
};

void Desk::moveTo(const QDateTime& moment) {
    setServerClock_(moment);
    Clock::Freeze(moment);
}

void Desk::logIn(const Employee& employee, const QDateTime& moment) {
    moveTo(moment);
    if (user_ == employee.login)
        return;
    user_ = employee.login;
    Expect(CheckLogin(user_, employee.password) == LoginResult::LoggedIn, user_ + u" 不能登录"_s);
    BeginSession(user_);
    goOn(kToLogIn);
}

void Desk::leave() {
    goOn(kToLeave);
    LogLeaving();
    user_.clear();
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

QString Desk::newForm(const DemoParty& party) const {
    const QDate leaves = openingDay_.addDays(party.leavesIn);
    return With(NewGuestForm(Clock::Now()), {{kReceptionist, CurrentSession().userName},
                                             {kStatus, Picked(party.status, u"入住房态")},
                                             {kDeparture, leaves.toString(u"yyyy-MM-dd")},
                                             {kReason, Picked(party.reason, u"停留事由")},
                                             {kComingFrom, Picked(party.from, u"省市名称")},
                                             {kGoingTo, Picked(party.to, u"省市名称")},
                                             {kEmployer, party.employer},
                                             {kReceivedBy, party.reception},
                                             {kRateKind, party.rate}});
}

QString Desk::typed(QString form, const DemoGuest& guest) const {
    for (const QStringView tick : {kSharesRoom, kPays}) {
        if (GetTag(form, tick).isEmpty())
            form = SetTag(form, tick, u"0");
    }
    form = With(form, {{kName, guest.name},
                       {kDocumentKind, Picked(guest.kind, u"证件名称")},
                       {kDocumentNumber, guest.document},
                       {kJobTitle, Picked(guest.job, u"职务职称")},
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
            form = SetTag(form, kRemark, Picked(party.remark, u"注释选择"));
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
void Desk::postTyped(const QString& folio, PostingKind kind, const TypedPosting& typed) {
    const PostingKindEntry& entry = PostingKindOf(kind);
    PostingValues values;
    for (const PostingField& field : entry.fields) {
        if (field.control.isEmpty())
            continue;
        const QString value = typed.value(field.tag);
        values[field.control] =
            field.input == PostingInput::Choice ? Picked(value, field.category) : value;
    }
    values[posting_control::kDepartment] = CurrentSession().userDept;
    values[posting_control::kOperator] = CurrentSession().userName;
    if (entry.feeSum)
        values[entry.feeSum->control] = SumOfFees(*entry.feeSum, values);
    if (const auto objection = CheckPosting(kind, values))
        throw DemoFailure(objection->notice.title + u"："_s + objection->notice.words);
    const QString record = BuildPostingRecord(kind, values, Clock::Now());
    Expect(SaveBills(folio, kind, record).status == 0, u"费用没有保存："_s + folio);
    SaveLogRec(entry.log.added.toString(), PostingDetail(folio, record));
}

void Desk::takeDeposit(const DemoParty& party, const QString& folio) {
    const DemoDeposit& deposit = party.deposit;
    postTyped(folio, kDepositPosting,
              {{u"信用保证种类", deposit.kind.toString()},
               {u"支付方式", Picked(deposit.way, u"支付方式")},
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
        SetStatusByHand(change.room, Picked(change.status, category::kRoomStates));
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

// The first guest of the room signs.
void Desk::post(const DemoPosting& posted) {
    const QString guest = GetTag(GetKfrzxx(posted.room), GuestTag(1));
    const QString room = GetKfjbxx(posted.room);
    TypedPosting typed = {{posting::kRoom, posted.room.toString()},
                          {posting::kGuest, GetTag(guest, kName)},
                          {u"主叫电话", GetTag(room, room_record::kTelephone)},
                          {u"网络端口", GetTag(room, room_record::kNetworkPort)}};
    for (const auto& [tag, value] : posted.fields)
        typed[tag] = value.toString();
    postTyped(GetTag(guest, kFolio), posted.kind, typed);
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
Payment PaymentOf(const DemoDeparture& departure, const SettlementSums& sums) {
    const Money due = sums.due();
    Payment payment{.due = due.text(),
                    .discount = u"0.00"_s,
                    .received = std::max(due, Money()).text(),
                    .change = {},
                    .kind = Picked(departure.way, u"支付方式"),
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
    const QString folio = GetTag(GetTag(GetKfrzxx(room), GuestTag(1)), kFolio);
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
    const CheckOutOutcome outcome = ConfirmCheckOut(
        {folio, settlement.list, Picked(u"脏房", u"使用后房态")},
        {.yes = [&departure](const Notice&) { return !departure.everybody; },
         .payment = [&departure](const SettlementSums& sums) -> std::optional<Payment> {
             return PaymentOf(departure, sums);
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

QList<Event> EventsBefore(const QDateTime& opening) {
    QList<Event> events;
    const auto add = [&](const DemoMoment& moment, Shift shift, auto happens) {
        const QDateTime at = moment.from(opening);
        events.append({at, OnDuty(shift, at.time()), happens});
    };
    for (const DemoParty& party : DemoParties())
        add(party.arrives, Shift::FrontDesk, [&party](Desk& desk) { desk.checkIn(party); });
    for (const DemoCompany& company : DemoCompanies())
        events.append({opening.addDays(-kDaysOfCompanies), kSales,
                       [&company](Desk& desk) { desk.enter(company); }});
    for (const DemoDeparture& departure : DemoDepartures())
        events.append({departure.at.from(opening), kCashier,
                       [&departure](Desk& desk) { desk.checkOut(departure); }});
    for (const DemoStatusChange& change : DemoStatusChanges())
        add(change.at, change.by, [&change](Desk& desk) { desk.setStatus(change); });
    for (const DemoPosting& posting : DemoPostings())
        events.append({posting.at.from(opening), PostsThe(posting.kind),
                       [&posting](Desk& desk) { desk.post(posting); }});
    QDateTime night(std::ranges::min(events, {}, &Event::at).at.date(), kTimeOfAudit);
    while ((night = night.addDays(1)).addSecs(kForAll) <= opening)
        events.append({night, kNightAuditor, [](Desk& desk) { desk.auditNight(); }});
    std::ranges::stable_sort(events, {}, &Event::at);
    return events;
}

// Whoever has more to do on the same day stays at the desk.
bool StaysFor(const Event& next, const Event& event) {
    return next.by.login == event.by.login && next.at.date() == event.at.date();
}

} // namespace

QDateTime DemoMoment::from(const QDateTime& opening) const {
    if (time.isEmpty())
        return opening.addSecs(-60LL * minutes);
    const QDateTime at(opening.date().addDays(-days), QTime::fromString(time, u"HH:mm"));
    return at.addSecs(kForAll) <= opening ? at : at.addDays(-1);
}

void BringInGuests(const QDateTime& opening,
                   const std::function<void(const QDateTime&)>& setServerClock) {
    Desk desk(setServerClock, opening.date());
    const QList<Event> events = EventsBefore(opening);
    for (qsizetype i = 0; i < events.size(); ++i) {
        desk.logIn(events[i].by, events[i].at);
        events[i].happens(desk);
        if (i + 1 == events.size() || !StaysFor(events[i + 1], events[i]))
            desk.leave();
    }
    Clock::Freeze(opening);
    setServerClock(opening);
}

} // namespace hotel
