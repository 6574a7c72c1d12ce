#include "app/demo/clerk.h"

#include <algorithm>

#include "app/demo/expect.h"
#include "cashier/check_out.h"
#include "cashier/settlement.h"
#include "cashier/team_customers.h"
#include "house/common/paths.h"
#include "house/folios/posting_entry.h"
#include "house/guests/guest_form.h"
#include "house/guests/guest_text.h"
#include "house/guests/offered_rooms.h"
#include "house/rooms/rate_table.h"
#include "house/rooms/room_record.h"
#include "house/stays/board.h"
#include "house/stays/check_in.h"
#include "house/stays/day_snapshots.h"
#include "house/stays/night_audit.h"
#include "link/records.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "session/operation_log.h"
#include "session/session.h"
#include "tools/aids/categories.h"
#include "tools/aids/identity_number.h"

namespace hotel {

namespace {

using namespace guest_text;

// How long it takes, in seconds.
constexpr int kToTypeAParty = 140;
constexpr int kToTakeADeposit = 45;
constexpr int kToPost = 20;
constexpr int kALineOfTheAudit = 1; // which nobody types
constexpr int kToTakeBack = 40;

QString With(QString record, std::initializer_list<std::pair<QStringView, QStringView>> fields) {
    for (const auto& [tag, value] : fields)
        record = SetTag(record, tag, value);
    return record;
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

} // namespace

// A word that is on the list from which a clerk picks it; an empty one is none.
QString Clerk::picked(QStringView word, QStringView category) {
    if (word.isEmpty())
        return {};
    QStringList& entries = categories_[category.toString()];
    if (entries.isEmpty())
        entries = LoadCategory(category);
    Expect(entries.contains(word), category + u" 没有 "_s + word);
    return word.toString();
}

QList<ChosenRoom> Clerk::choose(const DemoParty& party) const {
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

QString Clerk::newForm(const DemoParty& party) {
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

QString Clerk::typed(QString form, const DemoGuest& guest) {
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
QString Clerk::priced(const QString& form, const DemoParty& party) const {
    const RateChoice rates = RatesOfType(RatesInUse(), GetTag(form, kRoomType));
    ExpectNone(rates.notice);
    const QString price = rates.price(party.rate);
    Expect(!price.isEmpty(), GetTag(form, kRoomType) + u" 没有 "_s + party.rate);
    Expect(party.price.isEmpty() || IsNegotiable(party.rate), party.rate + u" 不能改"_s);
    return With(form,
                {{kRateKind, party.rate}, {kPrice, party.price.isEmpty() ? price : party.price}});
}

QString Clerk::typedSet(const DemoParty& party, const QList<ChosenRoom>& rooms) {
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
EnteredPosting Clerk::postTyped(const QString& folio, PostingKind kind, const TypedPosting& typed) {
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
    if (onPosting)
        onPosting(folio, kind, record);
    const Posted posted = SaveBills(folio, kind, record);
    Expect(posted.status == 0, u"费用没有保存："_s + folio);
    SaveLogRec(entry.log.added.toString(), PostingDetail(folio, record));
    return {folio, kind, posted.key};
}

void Clerk::takeBack(const EnteredPosting& posted) {
    const auto& [folio, kind, key] = posted;
    const QString record = ReadRecord(LedgerFile(folio), PostingProject(kind), key);
    Expect(DelBills(folio, kind, key) == 0, u"费用没有删除："_s + folio);
    SaveLogRec(PostingKindOf(kind).log.deleted.toString(), PostingDetail(folio, record));
}

void Clerk::takeDeposit(const DemoParty& party, const QString& folio) {
    const DemoDeposit& deposit = party.deposit;
    postTyped(folio, kDepositPosting,
              {{u"信用保证种类", deposit.kind.toString()},
               {u"支付方式", picked(deposit.way, u"支付方式")},
               {posting::kGuest, party.rooms.first().guests.first().name.toString()},
               {posting::kReceived, deposit.amount.toString()},
               {u"备注", deposit.note.toString()}});
}

ArrivedParty Clerk::checkIn(const DemoParty& party) {
    const QList<ChosenRoom> rooms = choose(party);
    const QString set = typedSet(party, rooms);
    goOn_(kToTypeAParty);
    const CheckInOutcome outcome = ConfirmCheckIn(set, rooms);
    ExpectNone(outcome.notice);
    Expect(outcome.confirmed, u"没有登记："_s + party.rooms.first().number);
    goOn_(kToTakeADeposit);
    takeDeposit(party, outcome.firstFolio);
    return {outcome.firstFolio, set};
}

void Clerk::setStatus(const DemoStatusChange& change) {
    const StatusChange changed =
        SetStatusByHand(change.room, picked(change.status, category::kRoomStates));
    ExpectNone(changed.refusal);
    Expect(changed.changed, u"客房 "_s + change.room + u" 的房态没有改变"_s);
}

// As the main menu opens it. Whatever is no success is logged with words of failure or of an error.
void Clerk::auditNight() {
    SaveLogRec(u"处理房间数据，生成报表"_s, u"夜审"_s);
    const NightAudit audit{.auditDate = AuditDate(Clock::Now()),
                           .statuses = LoadCategory(kSettledStatuses),
                           .department = CurrentSession().userDept,
                           .auditor = CurrentSession().userName,
                           .log = [this](const QString& line) {
                               Expect(!line.contains(u"失败") && !line.contains(u"错误"), line);
                               goOn_(kALineOfTheAudit);
                           }};
    for (QString tag = kFirstAuditStep.toString(); !tag.isEmpty();)
        tag = RunAuditStep(tag, audit);
}

void Clerk::keepFigures(QDate day) {
    Expect(Clock::Today() == day, u"统计数据不是当日的："_s + day.toString(Qt::ISODate));
    ExpectNone(TakeSnapshots());
}

// Who posts by mistake takes it back at once.
EnteredPosting Clerk::post(const DemoPosting& posted) {
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
        const EnteredPosting wrong = postTyped(folio, posted.kind, mistyped);
        goOn_(kToTakeBack);
        takeBack(wrong);
        goOn_(kToPost);
    }
    const EnteredPosting entered = postTyped(folio, posted.kind, typed);
    goOn_(kToPost);
    return entered;
}

void Clerk::enter(const DemoCompany& company) {
    const TeamEditOutcome entered = AddTeam(With({}, {{team_customer::kName, company.name},
                                                      {u"联系人", company.contact},
                                                      {u"手机", company.mobile},
                                                      {u"电话", company.telephone},
                                                      {u"地址", company.address},
                                                      {u"简码", company.initials},
                                                      {u"所在地区", company.region},
                                                      {team_customer::kStatus, u"有效"}}));
    ExpectNone(entered.notice);
    goOn_(kToPost);
}

// What is due is paid, or given back; a company signs for it.
Payment Clerk::paymentOf(const DemoDeparture& departure, const SettlementSums& sums) {
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

TextTable Clerk::checkOut(const DemoDeparture& departure) {
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
    goOn_(kToTakeADeposit);
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
    return settlement.list;
}

} // namespace hotel
