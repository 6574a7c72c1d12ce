#include "app/demo/plans.h"

#include <QHash>
#include <QMap>

#include <algorithm>
#include <array>
#include <memory>

#include "app/demo/expect.h"
#include "app/demo/making.h"
#include "app/demo/planned.h"
#include "app/demo/users.h"
#include "app/demo/vocabulary.h"
#include "cashier/receivables.h"
#include "house/common/paths.h"
#include "house/guests/guest_text.h"
#include "house/guests/stay_register.h"
#include "house/stays/house_calendar.h"
#include "house/stays/repairs.h"
#include "house/stays/reservations.h"
#include "link/records.h"
#include "platform/clock.h"
#include "record/field_walk.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "session/session.h"
#include "shell/login.h"
#include "tools/aids/categories.h"

namespace hotel {

namespace {

struct Planner {
    DemoUser user;
    QString name;
};
const Planner kDesk = {kDayClerk, u"林晓燕"_s};
const Planner kNightDesk = {kNightClerk, u"陈志远"_s};
const Planner kHousekeeping = {kHousekeeper, u"周桂兰"_s};
const Planner kEngineering = {kEngineer, u"马大勇"_s};
const Planner kSalesOffice = {kSales, u"黄美玲"_s};

constexpr int kToLogIn = 9; // seconds
constexpr int kToTypeAPlan = 75;
constexpr quint64 kSeed = 20'260'305;
constexpr QStringView kPrice = u"预订房价";
constexpr QStringView kRemark = u"备注信息";

using Fields = std::initializer_list<std::pair<QStringView, QString>>;

QString Iso(QDate day) {
    return day.toString(u"yyyy-MM-dd");
}

QString With(QString record, Fields fields) {
    for (const auto& [tag, value] : fields)
        record = SetTag(record, tag, value);
    return record;
}

void LogIn(const DemoUser& user) {
    const QString login = user.login.toString();
    Expect(CheckLogin(login, user.password.toString()) == LoginResult::LoggedIn,
           login + u" 不能登录"_s);
}

// A plan from its making on. Its number comes about when it is entered.
struct Plan {
    const PlanKind* kind;
    QString record;
    QString number = {};
};

class Book {
public:
    explicit Book(const DemoOpening& opening) : opening_(opening) {}

    void at(const QDateTime& moment, const Planner& by, std::function<void()> happens) {
        if (moment < opening_.at.addSecs(-600))
            events_.append({moment, &by, std::move(happens)});
    }

    // A plan is entered, later changed.
    std::shared_ptr<Plan> enter(const PlanKind& kind, const QDateTime& moment, const Planner& by,
                                const QString& record) {
        auto plan = std::make_shared<Plan>(Plan{&kind, record});
        at(moment, by, [this, plan] {
            TextTable& list = listOf(*plan->kind);
            QString entered = plan->record;
            if (plan->kind == &ReservationPlans())
                entered = With(entered, {{plan->kind->makerUnit, CurrentSession().userDept},
                                         {plan->kind->maker, CurrentSession().userName}});
            const PlanOutcome outcome = AddPlan(*plan->kind, list, entered);
            expectDone(outcome);
            plan->number = list.text(outcome.row, 0);
        });
        return plan;
    }
    void change(const std::shared_ptr<Plan>& plan, const QDateTime& moment, const Planner& by,
                const std::function<QString(const QString& record)>& changed) {
        at(moment, by, [this, plan, changed] {
            TextTable& list = listOf(*plan->kind);
            const int row = list.find(0, plan->number);
            Expect(row > 0, u"没有计划 "_s + plan->number);
            QString record;
            for (int column = 0; column < list.cols(); ++column)
                record = SetTag(record, list.headers()[column], list.text(row, column));
            expectDone(ChangePlan(*plan->kind, list, row, changed(record)));
        });
    }
    void tidy(const PlanKind& kind, const QDateTime& moment, const Planner& by) {
        at(moment, by,
           [this, &kind] { Expect(TidyPlans(kind, listOf(kind)).failed == 0, u"没有整理"_s); });
    }

    void play();

private:
    struct Event {
        QDateTime at;
        const Planner* by;
        std::function<void()> happens;
    };

    TextTable& listOf(const PlanKind& kind) {
        const QString project = kind.project.toString();
        if (!lists_.contains(project)) {
            const auto list = LoadPlans(kind);
            Expect(list.has_value(), project + u" 读取失败"_s);
            lists_.insert(project, *list);
        }
        return lists_[project];
    }
    static void expectDone(const PlanOutcome& outcome) {
        Expect(outcome.done, outcome.notice
                                 ? outcome.notice->title + u"："_s + outcome.notice->words
                                 : u"计划没有保存"_s);
    }
    void moveTo(const QDateTime& moment) {
        opening_.setServerClock(moment);
        Clock::Freeze(moment);
    }
    void sitDown(const Planner& planner);

    const DemoOpening& opening_;
    QList<Event> events_;
    QMap<QString, TextTable> lists_;
    const Planner* seated_ = nullptr;
};

void Book::sitDown(const Planner& planner) {
    if (seated_ == &planner)
        return;
    if (seated_)
        LogLeaving();
    seated_ = &planner;
    LogIn(planner.user);
    BeginSession(planner.user.login.toString());
    moveTo(Clock::Now().addSecs(kToLogIn));
}

// Each event takes its time; one that comes meanwhile waits.
void Book::play() {
    std::ranges::stable_sort(events_, {}, &Event::at);
    QDateTime now;
    for (const Event& event : events_) {
        if (now.isValid() && now.date() != event.at.date() && seated_) {
            LogLeaving();
            seated_ = nullptr;
        }
        moveTo(now.isValid() ? std::max(now, event.at) : event.at);
        sitDown(*event.by);
        event.happens();
        now = Clock::Now().addSecs(kToTypeAPlan);
    }
    if (seated_)
        LogLeaving();
    moveTo(opening_.at);
}

// --- reservations ---

// A party as the register of stays has it.
struct Arrival {
    QString guest; // the first one's text
    QStringList rooms;
};

QList<Arrival> ArrivalsOf(QDate day) {
    QMap<QString, Arrival> byFolio;
    const QString project = ReadProject(StayRegisterFile(Iso(day), day), stay_register::kProject);
    for (FieldWalk walk(project); walk.next();) {
        Arrival& arrival = byFolio[GetTag(walk.value(), guest_text::kFolio)];
        if (arrival.guest.isEmpty())
            arrival.guest = walk.value().toString();
        const QString room = GetTag(walk.value(), guest_text::kRoom);
        if (!arrival.rooms.contains(room))
            arrival.rooms.append(room);
    }
    return byFolio.values();
}

class Reservations {
public:
    Reservations(Book& book, const DemoOpening& opening)
        : book_(book), opening_(opening), today_(opening.at.date()),
          firstDay_(today_.addDays(-opening.days)) {}

    void plan() {
        for (QDate day = firstDay_; day <= today_; day = day.addDays(1)) {
            for (const Arrival& arrival : ArrivalsOf(day))
                bookedAhead(arrival);
            if (dice_.chance(30))
                cancelled(day);
            if (day.dayOfWeek() == Qt::Monday)
                book_.tidy(ReservationPlans(), {day, QTime(9, 40)}, kSalesOffice);
        }
        const CalendarReading reading = ReadCalendarSource();
        Expect(reading.source.has_value(), u"客房日历没有读到"_s);
        house_ = *reading.source;
        for (const DemoBookingToCome& booking : DemoBookingsToCome())
            toCome(booking);
    }

private:
    QString mobile() { return u"13%1"_s.arg(dice_.between(100'000'000, 999'999'999)); }
    QDateTime officeHours(QDate day) {
        return {day, QTime(8, 30).addSecs(60 * dice_.below(9 * 60))};
    }
    QString person() {
        const NameCharacters& names = DemoNames();
        return QString(dice_.pick(names.surnames)) + dice_.pick(names.maleFirst) +
               dice_.pick(names.maleSecond);
    }
    // A group books by way of sales, anybody else where the telephone rings.
    const Planner& taker(int rooms) { return rooms > 3 || dice_.chance(40) ? kSalesOffice : kDesk; }

    // Whoever came with a group, and some of the others, had booked.
    void bookedAhead(const Arrival& arrival) {
        const auto field = [&arrival](QStringView tag) { return GetTag(arrival.guest, tag); };
        const QString status = field(guest_text::kStatus);
        const bool isGroup = status == u"团队" || status == u"会议" || status == u"长包";
        if (status == u"钟点" || (!isGroup && !dice_.chance(35)))
            return;
        const QDate arrives = QDate::fromString(field(guest_text::kArrivalDate), Qt::ISODate);
        const QDate leaves = QDate::fromString(field(guest_text::kDeparture), Qt::ISODate);
        const QDate made = std::max(
            firstDay_, arrives.addDays(-(isGroup ? dice_.between(8, 24) : dice_.between(1, 6))));
        const QDateTime came(
            arrives, QTime::fromString(field(guest_text::kArrivalTime).left(5), u"HH:mm"_s));
        const QDateTime taken = std::min(officeHours(made), came.addSecs(-3600));
        const Planner& by = taker(int(arrival.rooms.size()));
        const bool holds = isGroup || dice_.chance(50);
        const auto plan = book_.enter(
            ReservationPlans(), taken, by,
            With({},
                 {{reservation::kGuest, field(guest_text::kName)},
                  {reservation::kCompany, field(guest_text::kEmployer)},
                  {u"手机号码", mobile()},
                  {reservation::kArrival, Iso(arrives)},
                  {reservation::kDeparture, Iso(leaves)},
                  {reservation::kRooms, QString::number(arrival.rooms.size())},
                  {kPrice, field(guest_text::kPrice)},
                  {reservation::kBookedBy, isGroup ? person() : field(guest_text::kName)},
                  {reservation::kState, reservation::kPlanned.toString()},
                  {u"付款方式", isGroup ? u"单位挂账"_s : u"现金"_s},
                  {u"预定来源", isGroup ? u"销售部"_s : u"电话"_s},
                  {reservation::kHeldRooms, holds ? HeldRoomsText(arrival.rooms) : QString()}}));
        const bool isDay = came.time().hour() >= 7 && came.time().hour() < 19;
        book_.change(
            plan, came.addSecs(900), isDay ? kDesk : kNightDesk,
            [](const QString& record) { return SetTag(record, reservation::kState, u"实施"); });
        if (leaves < today_)
            ends(plan, {std::max(leaves, arrives.addDays(1)), QTime(15, 10)}, u"完成"_s);
    }

    // What has come to its end gets its word where the tidying looks for it; the price goes to the remark.
    void ends(const std::shared_ptr<Plan>& plan, const QDateTime& moment, const QString& word) {
        book_.change(plan, moment, kSalesOffice, [word](const QString& record) {
            const QString price = GetTag(record, kPrice);
            return With(record, {{reservation::kState, word},
                                 {kPrice, word},
                                 {kRemark, price.isEmpty() ? QString() : u"房价"_s + price}});
        });
    }

    void cancelled(QDate made) {
        const QDate arrives = made.addDays(dice_.between(3, 12));
        const auto plan = book_.enter(
            ReservationPlans(), officeHours(made), kDesk,
            With({}, {{reservation::kGuest, person()},
                      {u"手机号码", mobile()},
                      {reservation::kArrival, Iso(arrives)},
                      {reservation::kDeparture, Iso(arrives.addDays(dice_.between(1, 3)))},
                      {reservation::kRooms, QString::number(dice_.between(1, 2))},
                      {kPrice, u"268.00"_s},
                      {reservation::kBookedBy, u"本人"_s},
                      {reservation::kState, reservation::kPlanned.toString()},
                      {u"预定来源", dice_.chance(50) ? u"网络"_s : u"电话"_s}}));
        ends(plan, officeHours(made.addDays(dice_.between(1, 3))), u"取消"_s);
    }

    // The rooms of the type that are free on all its nights.
    QStringList freeRooms(const DemoBookingToCome& booking, QDate arrives) const {
        const HouseCalendar calendar =
            ReckonCalendar(house_, today_, arrives, std::max(1, booking.nights));
        QStringList rooms;
        for (const CalendarType& type : calendar.types) {
            for (const CalendarRoom& room : type.rooms) {
                const bool isFree = std::ranges::all_of(
                    room.spans, [&](const CalendarSpan& span) { return span.until <= arrives; });
                if (type.name == booking.roomType && isFree && !room.isClosed)
                    rooms.append(room.number);
            }
        }
        return rooms.mid(0, booking.held);
    }

    void toCome(const DemoBookingToCome& booking) {
        const QDate arrives = today_.addDays(booking.arrivesIn);
        const QStringList rooms =
            booking.sharesLast ? QStringList{lastRoom_} : freeRooms(booking, arrives);
        Expect(rooms.size() == booking.held, booking.company + u" 没有足够的空房"_s);
        if (!rooms.isEmpty())
            lastRoom_ = rooms.last();
        const QString guest = booking.guest.isEmpty() ? QString() : booking.guest.toString();
        const QString record =
            With({}, {{reservation::kGuest, guest},
                      {reservation::kCompany, booking.company.toString()},
                      {u"手机号码", mobile()},
                      {reservation::kArrival, Iso(arrives)},
                      {reservation::kDeparture, Iso(arrives.addDays(booking.nights))},
                      {reservation::kRooms, QString::number(booking.rooms)},
                      {kPrice, booking.price.toString()},
                      {reservation::kBookedBy, guest.isEmpty() ? person() : guest},
                      {reservation::kState, booking.state.toString()},
                      {u"预定来源", booking.from.toString()},
                      {kRemark, booking.remark.toString()},
                      {reservation::kHeldRooms, HeldRoomsText(rooms)}});
        book_.enter(ReservationPlans(), officeHours(today_.addDays(-booking.madeAgo)),
                    taker(booking.rooms), record);
        house_.reservations += SetTag({}, u"%1"_s.arg(++made_), record);
    }

    Book& book_;
    const DemoOpening& opening_;
    const QDate today_;
    const QDate firstDay_;
    Dice dice_{kSeed};
    CalendarSource house_;
    QString lastRoom_;
    int made_ = 0;
};

// --- repairs ---

class Repairs {
public:
    Repairs(Book& book, const DemoOpening& opening)
        : book_(book), today_(opening.at.date()), firstDay_(today_.addDays(-opening.days)),
          rooms_(LoadRooms()) {}

    void plan() {
        for (QDate day = firstDay_; day < today_; day = day.addDays(1)) {
            if (dice_.chance(65))
                mended({day, QTime(8, 10).addSecs(60 * dice_.below(11 * 60))},
                       dice_.pick(rooms_).number);
            if (day.dayOfWeek() == Qt::Monday)
                book_.tidy(RepairPlans(), {day, QTime(8, 5)}, kEngineering);
        }
        // The rooms that are out of order wait for something.
        struct Wait {
            QStringView state;
            QStringView reason;
        };
        constexpr std::array<Wait, 3> kWaits = {
            {{u"等待外协", u"墙面渗水"}, {u"等待配件", u"空调不制热"}, {u"维修中", u"墙纸脱落"}}};
        size_t waits = 0;
        for (const RoomEntry& room : rooms_) {
            if (GetTag(room.record, room_record::kStatus) != u"维修")
                continue;
            const QDateTime moment(today_.addDays(-dice_.between(1, 6)), QTime(10, 20));
            const Wait& wait = kWaits[waits++ % kWaits.size()];
            report(moment, room.number, wait.state, wait.reason);
        }
        report({today_.addDays(-1), QTime(19, 45)}, dice_.pick(rooms_).number, u"客人在住",
               u"电视无信号");
    }

private:
    std::shared_ptr<Plan> report(const QDateTime& moment, const QString& room, QStringView state,
                                 QStringView reason) {
        return book_.enter(RepairPlans(), moment, kHousekeeping,
                           With({}, {{repair::kRoom, room},
                                     {repair::kState, state.toString()},
                                     {repair::kReason, reason.toString()},
                                     {repair::kReported, Iso(moment.date())},
                                     {u"报修单位", u"客房部"_s},
                                     {u"报修人", kHousekeeping.name}}));
    }

    void mended(const QDateTime& moment, const QString& room) {
        const DemoFault& fault =
            dice_.weigh(DemoFaults(), [](const DemoFault& f) { return f.weight; });
        const auto plan =
            report(moment, room, dice_.chance(40) ? u"客人在住" : u"空闲待修", fault.reason);
        const QDateTime done = moment.addSecs(3600LL * fault.hours + 60 * dice_.below(90));
        const QString outcome = fault.outcome.toString();
        const QString by = dice_.chance(60) ? kEngineering.name : u"丁志强"_s;
        book_.change(plan, done, kEngineering, [=](const QString& record) {
            return With(
                record,
                {{repair::kOutcome, outcome}, {u"维修日期", Iso(done.date())}, {u"维修人", by}});
        });
    }

    Book& book_;
    const QDate today_;
    const QDate firstDay_;
    const QList<RoomEntry> rooms_;
    Dice dice_{kSeed + 1};
};

// --- receivables ---

void PlanReceivables(Book& book, const DemoOpening& opening) {
    const QDate today = opening.at.date();
    for (const DemoReceivable& due : DemoReceivables()) {
        const QDateTime made(today.addDays(-due.madeAgo), QTime(16, 20).addSecs(due.madeAgo * 47));
        const auto plan = book.enter(ReceivablePlans(), made, kSalesOffice,
                                     With({}, {{u"金额", due.amount.toString()},
                                               {u"目前状态", due.state.toString()},
                                               {u"收款原因", due.reason.toString()},
                                               {u"应收日期", Iso(made.date().addDays(due.dueIn))},
                                               {u"应收单位", due.company.toString()},
                                               {u"应收人", due.contact.toString()}}));
        if (due.outcome.isEmpty())
            continue;
        const QDateTime collected = made.addDays(due.paidAfter).addSecs(-3000);
        book.change(plan, collected, kSalesOffice, [&due, collected](const QString& record) {
            return With(record, {{u"收款结果", due.outcome.toString()},
                                 {u"收款日期", Iso(collected.date())}});
        });
    }
    for (QDate day = today.addDays(-opening.days); day < today; day = day.addDays(1)) {
        if (day.dayOfWeek() == Qt::Monday)
            book.tidy(ReceivablePlans(), {day, QTime(10, 30)}, kSalesOffice);
    }
}

} // namespace

void KeepPlans(const DemoOpening& opening) {
    Clock::Freeze(opening.at);
    LogIn(kSales);
    Book book(opening);
    Reservations(book, opening).plan();
    Repairs(book, opening).plan();
    PlanReceivables(book, opening);
    book.play();
}

} // namespace hotel
