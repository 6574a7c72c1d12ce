#pragma once

// What the guest form decides while a party is typed: what it shows of the next guest, which move is
// allowed, and what it makes of an age, a time, a birthday. The form itself is a guest text here
// (house/guests/guest_text.h).

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>

#include "session/notice.h"

namespace hotel {

// A form that nobody has typed into yet: arriving now, leaving tomorrow, and the usual document,
// reason and job title.
QString NewGuestForm(const QDateTime& now);

// What the form shows of `guest` when `form` is what it shows now. Where the guest has no folio,
// organisation, dates, places, reason, job title, receptionist or status yet, those on the form stay:
// that is how a party is typed once. So does the rate for a room of the same type. All else is the
// guest's own. Without a folio the guest opens a new one and pays it.
QString GuestForForm(QStringView guest, QStringView form, const QDateTime& now);

// Copy and paste between guests: everything but room, bed and who pays.
QString CopyKr(QStringView form);
QString PasteKr(QStringView form, QStringView copied);

// The status that ticking "shares the room" selects among those on offer; empty when there is none.
QString SharedStatusAmong(const QStringList& statuses);

enum class FormMove { NextGuest, LastGuest, NextRoom, LastRoom };

struct FormPlace {
    int room = 1; // counted from 1, in the order of the chosen rooms
    int guest = 1;

    bool operator==(const FormPlace&) const = default;
};

struct FormStep {
    FormPlace to;
    bool store = false; // the form goes into the working set first
    std::optional<Notice> refusal;

    bool operator==(const FormStep&) const = default;
};

// A move of the form over `rooms` rooms, the present one with `guests` beds on offer; `complete` tells
// whether the guest on the form passes the test. The first room may not be left for the next one until
// its guest is correct. In later rooms a guest that isn't is left without being stored.
FormStep DecideFormStep(FormMove move, FormPlace from, int rooms, int guests, bool complete);

struct AgeCheck {
    QString age; // emptied when it can't be one
    std::optional<Notice> notice;

    bool operator==(const AgeCheck&) const = default;
};
AgeCheck CheckAge(QStringView age);

// "HH:mm" of a time as typed ("9:5", "14:05:30"); the clock's where it is none.
QString ArrivalTime(QStringView typed, QTime now);

// The departure as typed; a count of nights ("3") becomes the date so many days behind the arrival.
QString DepartureDate(QStringView typed, QDate arrival);

// `remark` with a note of the guest's birthday when that is today or in the next two days; a birth
// date is "yyyy-MM-dd". Only this year's birthday is looked at: on the last days of December nobody is
// reminded of January.
QString WithBirthday(QStringView remark, QStringView birthDate, QDate today);

// File names of photographs; empty while number or name is too short to name one.
QString DocumentPhotographName(QStringView documentNumber);
QString PortraitName(QStringView guestName, const QDateTime& now);

} // namespace hotel
