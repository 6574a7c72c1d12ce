#include "app/week/week.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <iostream>
#include <memory>
#include <stdexcept>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QProcess>
#include <QTemporaryDir>

#include "app/demo/demo_guests.h"
#include "app/demo/staff.h"
#include "app/demo/users.h"
#include "app/week/house_books.h"
#include "app/week/played_desk.h"
#include "link/Wck_comm.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "server/server_thread.h"
#include "shell/login.h"

namespace hotel {

namespace {

const QDateTime kOpening(QDate(2026, 3, 1), QTime(23, 50)); // a Sunday
constexpr int kOldestBooks = 40; // days ahead of the opening, from which guests and folios may be
constexpr int kHours = 24;
constexpr QStringView kDone = u"done";
constexpr QStringView kHour = u"yyyy-MM-dd HH:mm";

// A desk's process.
class DeskProcess {
public:
    DeskProcess(const WeekOrder& order, int number, quint16 port, const QString& clock) {
        process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process_.start(order.program,
                       {u"desk"_s, clock, QString::number(number), QString::number(order.desks),
                        QString::number(order.seed), QString::number(port),
                        QString::number(order.actsAnHour), QString::number(int(!order.inTurn))});
    }
    ~DeskProcess() {
        process_.disconnect();
        process_.closeWriteChannel();
        process_.waitForFinished();
    }

    void begin(const QDateTime& hour) { process_.write((hour.toString(kHour) + u'\n').toUtf8()); }

    QProcess& process() { return process_; }

private:
    QProcess process_;
};

class Week {
public:
    Week(const WeekOrder& order, const std::function<void(const DayOfWeek&)>& tell)
        : order_(order), tell_(tell), clockPath_(folder_.filePath(u"clock"_s)) {
        if (log_.setFileName(order.log); !order.log.isEmpty() && !log_.open(QIODevice::WriteOnly))
            throw std::runtime_error("the log can't be written: " + order.log.toStdString());
        HouseClock::make(clockPath_, order.desks, kOpening);
        clock_ = std::make_unique<HouseClock>(clockPath_);
        opens_ = kOpening.toMSecsSinceEpoch();
        for (int server = 0; server < order.servers; ++server)
            serve(server);
        openHouse();
        line_ = std::make_unique<FaultyLine>(
            LineOrder{ports(), order.desks, order.seed, order.requestsAFault, order.inTurn},
            *clock_);
        for (int desk = 0; desk < order.desks; ++desk)
            seat(desk);
    }

    WeekReport play() {
        for (int day = 1; day <= order_.days; ++day)
            playDay(kOpening.date().addDays(day));
        report_.accepted = audit_.accepted();
        report_.requests = line_->requests();
        for (int fault = 0; fault < kLineFaults; ++fault)
            report_.lineFaults[size_t(fault)] = line_->faults(LineFault(fault));
        measure();
        return report_;
    }

private:
    // While the house is opened its clock is moved by hand, backwards too.
    void serve(int number) {
        ServerSettings settings;
        settings.store = order_.store;
        settings.port = 0;
        settings.clock = [this] {
            return isOpen_ ? clock_->now() : QDateTime::fromMSecsSinceEpoch(opens_);
        };
        servers_.push_back(std::make_unique<ServerThread>(std::move(settings)));
        if (number == 0) {
            link_.ProdID = kProductId.toString();
            link_.AliveKp = false;
            SetLink(&link_);
            link_.ConnectServer(u"127.0.0.1"_s, QString::number(servers_.front()->port()));
        }
    }

    QList<quint16> ports() const {
        QList<quint16> ports;
        for (const auto& server : servers_)
            ports.append(server->port());
        return ports;
    }

    void openHouse() {
        const auto setClock = [this](const QDateTime& moment) {
            opens_ = moment.toMSecsSinceEpoch();
        };
        BringInStaff(kOpening, setClock);
        BringInGuests({.at = kOpening, .setServerClock = setClock, .days = 0});
        isOpen_ = true;
    }

    void seat(int number) {
        const bool direct = order_.requestsAFault == 0 && !order_.inTurn;
        const quint16 port = direct ? ports()[number % order_.servers] : line_->portOf(number);
        desks_.push_back(std::make_unique<DeskProcess>(order_, number, port, clockPath_));
        QProcess& process = desks_.back()->process();
        QObject::connect(&process, &QProcess::readyReadStandardOutput, &process,
                         [this, number] { hear(number); });
        QObject::connect(&process, &QProcess::finished, &process, [this, number] {
            gone_ = number;
            hours_.quit();
        });
    }

    void hear(int number) {
        QProcess& process = desks_[size_t(number)]->process();
        while (process.canReadLine()) {
            const QString line = QString::fromUtf8(process.readLine()).chopped(1);
            if (const auto act = ActOfLine(line)) {
                if (log_.isOpen())
                    log_.write((line + u'\n').toUtf8());
                take(*act);
            } else if (line == kDone) {
                line_->end(number);
                if (--busy_ == 0)
                    hours_.quit();
            }
        }
    }

    void take(const DeskAct& act) {
        DayOfWeek& day = report_.days.last();
        switch (act.result) {
        case ActResult::Done:
            ++day.done;
            ++report_.kinds[act.kind];
            break;
        case ActResult::Nothing:
            ++day.nothing;
            return;
        case ActResult::Told:
            ++day.told;
            ++report_.words[act.told];
            break;
        }
        times_.append(double(act.end - act.begin) / 1e6);
        audit_.add(act);
    }

    void playDay(QDate day) {
        report_.days.append({.day = day, .faults = {}});
        QElapsedTimer worked;
        worked.start();
        for (int hour = 0; hour < kHours; ++hour)
            playHour(QDateTime(day, QTime(hour, 0)));
        report_.seconds += double(worked.nsecsElapsed()) / 1e9;
        auditBooks(day);
        tell_(report_.days.last());
    }

    void playHour(const QDateTime& hour) {
        clock_->moveTo(hour);
        busy_ = order_.desks;
        for (int desk = 0; desk < order_.desks; ++desk)
            line_->begin(desk);
        for (const auto& desk : desks_)
            desk->begin(hour);
        hours_.exec();
        if (gone_)
            throw std::runtime_error("desk " + std::to_string(*gone_) + " has ended");
    }

    void auditBooks(QDate day) {
        // Who began late may have gone on behind midnight.
        clock_->moveTo(QDateTime(day, QTime(23, 59, 30)));
        Clock::Freeze(clock_->now());
        SetLink(&link_);
        // An idle connection may have been ended, and the house's day is another one.
        if (!IsLoggedIn(CheckLogin(kDayClerk.login.toString(), kDayClerk.password.toString())))
            throw std::runtime_error("who audits the books can't log in");
        report_.days.last().faults = audit_.faultsAmong(
            ReadDifferences(kOpening.date().addDays(-kOldestBooks), Clock::Today(), audit_.acts()));
    }

    void measure() {
        report_.acts = int(times_.size());
        if (times_.isEmpty())
            return;
        std::ranges::sort(times_);
        report_.median = times_[times_.size() / 2];
        report_.slowest = times_[times_.size() * 99 / 100];
    }

    const WeekOrder order_;
    const std::function<void(const DayOfWeek&)> tell_;
    QFile log_;
    QTemporaryDir folder_;
    const QString clockPath_;
    std::unique_ptr<HouseClock> clock_;
    std::atomic<qint64> opens_ = 0;
    std::atomic<bool> isOpen_ = false;
    std::vector<std::unique_ptr<ServerThread>> servers_;
    Wck_comm link_;
    std::unique_ptr<FaultyLine> line_;
    std::vector<std::unique_ptr<DeskProcess>> desks_;
    QEventLoop hours_;
    int busy_ = 0; // desks in the hour
    std::optional<int> gone_;
    BooksAudit audit_;
    QList<double> times_; // milliseconds
    WeekReport report_;
};

} // namespace

bool WeekReport::isSound() const {
    return std::ranges::all_of(days, [](const DayOfWeek& day) { return day.faults.isEmpty(); });
}

WeekReport PlayWeek(const WeekOrder& order, const std::function<void(const DayOfWeek&)>& tell) {
    return Week(order, tell).play();
}

int PlayDesk(const QStringList& arguments) {
    HouseClock clock(arguments.value(0));
    PlayedDesk desk({.number = arguments.value(1).toInt(),
                     .desks = arguments.value(2).toInt(),
                     .seed = arguments.value(3).toULongLong(),
                     .port = arguments.value(4).toUShort(),
                     .actsAnHour = arguments.value(5).toInt(),
                     .opening = kOpening.date(),
                     .movesHouse = arguments.value(6).toInt() != 0},
                    clock);
    for (std::string line; std::getline(std::cin, line);) {
        const QDateTime hour = QDateTime::fromString(QString::fromStdString(line), kHour);
        desk.playHour(hour, [](const DeskAct& act) {
            std::fprintf(stdout, "%s\n", LineOfAct(act).toUtf8().constData());
            std::fflush(stdout);
        });
        std::fprintf(stdout, "%s\n", kDone.toUtf8().constData());
        std::fflush(stdout);
    }
    return 0;
}

} // namespace hotel
