#pragma once

// Who stays in the demo hotel, and in which rooms housekeeping has been: a table that demo_guests plays
// through the front desk's own acts. Its times are relative to the day on which the hotel is opened.

#include <QDateTime>
#include <QList>
#include <QStringView>

#include "house/guests/guest_text.h"

namespace hotel {

// A moment ahead of the opening.
struct DemoMoment {
    int days = 0;
    QStringView time = {}; // HH:mm on that day; empty: so many minutes ago
    int minutes = 0;

    // A time of today that has not come yet was that of the day before.
    QDateTime from(const QDateTime& opening) const;
};

constexpr DemoMoment DaysAgo(int days, QStringView time) {
    return {.days = days, .time = time};
}
constexpr DemoMoment MinutesAgo(int minutes) {
    return {.minutes = minutes};
}

struct DemoGuest {
    QStringView name;
    QStringView document; // number
    QStringView job;
    QStringView kind = kIdentityCard;
    // What an identity card tells by its number.
    QStringView sex = {};
    QStringView age = {};
    QStringView address = {};
};

struct DemoRoom {
    QStringView number;
    QList<DemoGuest> guests;
};

struct DemoDeposit {
    QStringView kind; // 信用保证种类
    QStringView way;  // 支付方式
    QStringView amount;
    QStringView note;
};

// Guests who arrive together; the first of them pays for all.
struct DemoParty {
    DemoMoment arrives;
    int leavesIn = 0; // days from the opening
    QStringView status;
    QStringView rate;       // kind of rate
    QStringView price = {}; // negotiated; empty: that of the rate
    QStringView reason;
    QStringView from;
    QStringView to;
    QStringView employer = {};
    QStringView reception = {}; // receiving organisation
    QStringView remark = {};
    DemoDeposit deposit;
    QList<DemoRoom> rooms;
};

// Guests of one folio leave: those of these rooms, or, where one room is named and `everybody` is set, all that
// are on its folio. A company settles for its guests later.
struct DemoDeparture {
    DemoMoment at;
    QList<QStringView> rooms;
    bool everybody = true;
    QStringView way;          // 支付方式
    QStringView company = {}; // as in the team customer file
    QStringView guest =
        {}; // in the first room, on whose folio it is; empty: the one in the first bed
};

// A company that may sign for its guests, as the sales department enters it in the team customer file.
struct DemoCompany {
    QStringView name;
    QStringView contact;
    QStringView mobile;
    QStringView telephone;
    QStringView address;
    QStringView initials; // 简码
    QStringView region;
};

// The users who do it.
enum class Shift { FrontDesk, Housekeeping, Engineering };

struct DemoStatusChange {
    DemoMoment at;
    Shift by;
    QStringView room;
    QStringView status;
};

const QList<DemoParty>& DemoParties();
const QList<DemoCompany>& DemoCompanies();
const QList<DemoDeparture>& DemoDepartures();
const QList<DemoStatusChange>& DemoStatusChanges();

} // namespace hotel
