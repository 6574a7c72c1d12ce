#include "app/demo/demo_guests.h"

#include <algorithm>
#include <map>
#include <set>

#include "app/demo/clerk.h"
#include "app/demo/consumption.h"
#include "app/demo/expect.h"
#include "app/demo/parties.h"
#include "app/demo/users.h"
#include "app/demo/weeks.h"
#include "house/rooms/room_record.h"
#include "link/Wck_comm.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "session/session.h"
#include "shell/login.h"

namespace hotel {

namespace {

// How long a clerk takes, in seconds.
constexpr int kToLogIn = 12;
constexpr int kToLeave = 30;
constexpr int kForAll = 300;         // so long before the opening the last of them arrives
constexpr int kDaysOfCompanies = 27; // ahead of the first party
const QTime kTimeOfAudit(2, 30);
const QTime kTimeOfReports(23, 40);
const QTime kTimeOfSales(8, 0);

const DemoUser& OnDuty(Shift shift, QTime time) {
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

const DemoUser& PostsThe(PostingKind kind) {
    switch (kind) {
    case kFoodPosting:
        return kOutlet;
    case kTelephonePosting:
        return kExchangeOperator;
    case kServicePosting:
        return kHousekeeper;
    default:
        return kCashier;
    }
}

struct Workstation {
    Wck_comm link;
    Session session; // of who is logged in there; without a user: nobody
};

class Desk {
public:
    explicit Desk(const DemoOpening& opening)
        : setServerClock_(opening.setServerClock), given_(&Link()),
          clerk_(opening.at.date(), [this](int seconds) { goOn(seconds); }) {}
    ~Desk() { SetLink(given_); }
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    // At the moment, or as soon as the one before has done; logged in is who isn't yet.
    void sitDown(const DemoUser& user, const QDateTime& moment);
    void leave();

    // Of who is logged in.
    Clerk& clerk() { return clerk_; }

private:
    void moveTo(const QDateTime& moment);
    void goOn(int seconds) { moveTo(Clock::Now().addSecs(seconds)); }

    std::function<void(const QDateTime&)> setServerClock_;
    QDateTime now_;
    Wck_comm* given_;
    std::map<QString, Workstation> workstations_; // by login
    Workstation* at_ = nullptr;                   // where the one sits who does something
    Clerk clerk_;
};

void Desk::moveTo(const QDateTime& moment) {
    now_ = moment;
    setServerClock_(moment);
    Clock::Freeze(moment);
}

void Desk::sitDown(const DemoUser& user, const QDateTime& moment) {
    moveTo(now_.isValid() ? std::max(now_, moment) : moment);
    at_ = &workstations_[user.login.toString()];
    SetLink(&at_->link);
    CurrentSession() = at_->session;
    if (!at_->session.userId.isEmpty())
        return;
    if (!at_->link.isUp()) {
        at_->link.ProdID = given_->ProdID;
        at_->link.ConnectServer(given_->IPaddr, given_->Port);
    }
    Expect(CheckLogin(user.login.toString(), user.password.toString()) == LoginResult::LoggedIn,
           user.login + u" 不能登录"_s);
    BeginSession(user.login.toString());
    at_->session = CurrentSession();
    goOn(kToLogIn);
}

void Desk::leave() {
    goOn(kToLeave);
    LogLeaving();
    at_->session = {};
}

struct Event {
    QDateTime at;
    DemoUser by;
    std::function<void(Desk&)> happens;
};

class Events {
public:
    explicit Events(const QDateTime& opening) : opening_(opening) {}

    void add(const QDateTime& at, const DemoUser& by, std::function<void(Desk&)> happens) {
        events_.append({at, by, std::move(happens)});
    }
    void add(const QList<DemoParty>& parties) {
        for (const DemoParty& party : parties)
            add(party.arrives, Shift::FrontDesk,
                [&party](Desk& desk) { desk.clerk().checkIn(party); });
    }
    void add(const QList<DemoStatusChange>& changes) {
        for (const DemoStatusChange& change : changes)
            add(change.at, change.by, [&change](Desk& desk) { desk.clerk().setStatus(change); });
    }
    void add(const QList<DemoDeparture>& departures) {
        for (const DemoDeparture& departure : departures)
            add(departure.at.from(opening_), kCashier,
                [&departure](Desk& desk) { desk.clerk().checkOut(departure); });
    }
    void add(const QList<DemoPosting>& postings) {
        for (const DemoPosting& posting : postings)
            add(posting.at.from(opening_), PostsThe(posting.kind),
                [&posting](Desk& desk) { desk.clerk().post(posting); });
    }

    // The companies have signed ahead of the first guest; every evening has its figures, every night its
    // audit.
    QList<Event> withDaysWork(const QList<DemoCompany>& companies) {
        const QDate first = std::ranges::min(events_, {}, &Event::at).at.date();
        for (const DemoCompany& company : companies)
            add(QDateTime(first, QTime(0, 0)), kSales,
                [&company](Desk& desk) { desk.clerk().enter(company); });
        for (QDate day = first; day <= opening_.date(); day = day.addDays(1)) {
            if (day > first)
                addIfPast({day, kTimeOfAudit}, [](Desk& desk) { desk.clerk().auditNight(); });
            addIfPast({day, kTimeOfReports}, [day](Desk& desk) { desk.clerk().keepFigures(day); });
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
        last[i] = seen.emplace(events[i].by.login.toString(), events[i].at.date()).second;
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
