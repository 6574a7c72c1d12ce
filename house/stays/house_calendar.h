#pragma once

// The house by days: which room is taken on which night by guests or for a reservation, and what is free of each
// type. It only reads, and nothing is kept of it; what other desks do meanwhile a new reading shows.
//
// A day stands for the night that begins on it. Guests take the nights up to their expected departure; who should have
// left, and is still there, takes this night too. A reservation that is planned or postponed takes the rooms that it
// holds from its arrival to its departure, one night at least; what is carried out, cancelled or done takes none: its
// guests stand in the rooms by then. Two may hold one room: both are shown, and told to be doubled.
//
// A room that nobody is in, and whose status reception can't sell (under repair, dirty), isn't free this night. Of later
// nights its status says nothing.

#include <QDate>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

#include "house/common/walk_progress.h"
#include "house/rooms/room_record.h"
#include "link/records.h"
#include "session/notice.h"

namespace hotel {

// Who takes a room, or so many rooms of which none is named yet.
struct CalendarSpan {
    bool isStay = false; // guests in the house, and no reservation
    QString number = {}; // of the reservation; of a stay: the folio
    QString name = {};   // the guests, or the company where a reservation names no guest
    QString company = {};
    QString state = {};     // of the reservation
    QDate arrival = {};     // of the first guest; may not be known
    QDate departure = {};   // as expected; may not be known
    QDate from = {};        // the first night taken
    QDate until = {};       // the first one that isn't
    bool isOverdue = false; // still there, though the expected departure has gone by or isn't known
    bool isDoubled = false; // some night of the calendar is taken by somebody else, too
    int lane = 0;           // of its room, from 0: those who take one night stand in different ones

    bool takes(QDate night) const { return from <= night && night < until; }
};

struct CalendarRoom {
    QString number = {};
    QString floor = {};
    QString type = {};
    QString status = {};
    QList<CalendarSpan> spans = {}; // that touch the days shown, by their first night
    int lanes = 1;
    bool isClosed = false; // its status keeps it from being sold this night
    bool isKnown = true;   // false: held by a reservation, and no room of the house

    bool isDoubled(QDate night) const;
};

// Rooms of one type, in the order of their numbers.
struct CalendarType {
    QString name = {};
    std::vector<CalendarRoom> rooms;
    QList<int> free; // by day
};

// A reservation of more rooms than it holds.
struct CalendarOpenPlan {
    CalendarSpan span;
    int rooms = 0; // that it doesn't hold yet
};

struct HouseCalendar {
    QDate today;
    QDate first;
    int days = 0;
    std::vector<CalendarType> types;   // in the order of the category, further ones behind
    std::vector<CalendarRoom> unknown; // held rooms that the house doesn't have
    std::vector<CalendarOpenPlan> open;
    QList<int> free;   // by day, of all types
    QList<int> wanted; // by day, rooms of `open`
    int undated = 0;   // reservations to come without a date of arrival: they stand nowhere
};

// What a calendar is reckoned from, as it was read.
struct CalendarSource {
    QList<RoomEntry> rooms = {};
    QHash<QString, RecordRead> guests = {}; // of the rooms that count guests
    QStringList types = {};
    QStringList sellable = {}; // statuses of 可售房态
    QString reservations = {}; // their project
};

// `days` days from `first` on, which may lie ahead of today or behind it.
HouseCalendar ReckonCalendar(const CalendarSource& source, QDate today, QDate first, int days);

struct CalendarReading {
    std::optional<CalendarSource> source; // nothing when the reading failed or was stopped
    std::optional<Notice> notice;
};

// Reads the house: a handful of commands, and one for each room with guests. A room whose guests can't be read is
// shown as taken; the notice says how many these are.
CalendarReading ReadCalendarSource(const WalkProgress& progress = {});

} // namespace hotel
