#pragma once

// A desk of a played house: by the hour it does what its users do at such a time, drawn by its own dice, and decides
// by what it finds. Where a link breaks it logs in again and goes on with the next thing, as staff do who were told that
// something wasn't saved.

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <map>
#include <optional>

#include "app/demo/clerk.h"
#include "app/demo/made_up_guests.h"
#include "app/demo/made_up_postings.h"
#include "app/demo/making.h"
#include "app/demo/users.h"
#include "app/week/desk_act.h"
#include "app/week/house_clock.h"
#include "house/rooms/room_record.h"
#include "link/Wck_comm.h"
#include "personnel/attendance/punch.h"
#include "session/session.h"
#include "telephone/call_intake.h"

class QRandomGenerator;

namespace hotel {

struct DeskOrder {
    int number = 0; // from 0; desk 0 audits the nights
    int desks = 1;
    quint64 seed = 1;
    quint16 port = 0;
    int actsAnHour = 4;
    QDate opening;
    bool movesHouse = true; // the house's clock follows this desk at once
};

class PlayedDesk {
public:
    PlayedDesk(const DeskOrder& order, HouseClock& clock);
    ~PlayedDesk();
    PlayedDesk(const PlayedDesk&) = delete;
    PlayedDesk& operator=(const PlayedDesk&) = delete;

    // What the desk does in the hour that begins, each told as it is done.
    void playHour(const QDateTime& hour, const std::function<void(const DeskAct&)>& tell);

private:
    struct Seat {
        Wck_comm link;
        Session session; // without a user: nobody is logged in there
    };
    struct Habit {
        DemoUser user;
        QStringView kind;
        int weight; // by day
        int atNight;
        void (PlayedDesk::*act)();
    };
    static const QList<Habit>& Habits();
    static QStringList Users(); // of the habits
    QList<Habit> habitsOf(int hour) const;

    void play(const Habit& habit, const QDateTime& moment,
              const std::function<void(const DeskAct&)>& tell);
    void sitDown(const DemoUser& user);
    void moveTo(const QDateTime& moment);
    void touch(const QString& place) { act_.places.append(place); }

    // The acts. Each throws DemoFailure where it doesn't come out, NothingToDo where there is nothing.
    void arrive();
    void changeRoom();
    void post();
    void takeBack();
    void settle();
    void clean();
    void reserve();
    void punch();
    void takeCalls();
    void auditNight();
    void keepFigures();

    DemoParty madeUpParty(const DemoCustom& custom, const DemoTown& town,
                          const QList<RoomEntry>& rooms);
    bool isExchange() const;
    QList<RoomEntry> roomsThat(bool (*fits)(QStringView record)) const;
    RoomEntry occupiedRoom();

    const DeskOrder order_;
    HouseClock& clock_;
    Dice dice_;
    DemoWords words_;
    GuestMaker guests_;
    PostingMaker postings_;
    Clerk clerk_;
    std::map<QString, Seat> seats_; // by login
    DeskAct act_;                   // that is under way

    struct Posted {
        EnteredPosting posting;
        QString item;
    };
    QList<Posted> posted_; // by this desk, the last one behind
    QStringList staff_;
    StaffDirectory directory_;
    PunchFile punches_;
    WaitingCalls calls_;
    QStringList extensions_;
};

} // namespace hotel
