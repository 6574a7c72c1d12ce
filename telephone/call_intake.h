#pragma once

// The calls that wait in a day's file are rated by rounds: records without a mark are read, rated and written back.
// Nothing tells another desk that this one is at work, so a second desk at the same file may rate a call as well,
// with the same result; this one never rates a call that bears its mark.

#include <QDate>
#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

#include "session/notice.h"
#include "telephone/call_rating.h"

namespace hotel {

inline constexpr int kCallsARound = 20;

struct RoundOutcome {
    bool present = false; // the file is there
    int found = 0;        // calls without a mark, at most kCallsARound
    int rated = 0;
    // A call could not be written: the round has ended there, the call waits for the next one.
    std::optional<Notice> failure;
    // Why calls were left unrated; empty when none was. They keep waiting.
    QString problem;
    // The server was away: more calls may be waiting than were found.
    bool cut = false;
};

// What goes on between two calls: `record` was rated and written. False ends the round.
using CallRated = std::function<bool(const QString& name, const QString& record)>;

// What a desk knows of a day's calls from round to round.
struct WaitingCalls {
    QString dayFile;
    // Found without a mark and not looked at yet: the server is asked anew when they don't fill a round, so that
    // a long backlog isn't searched for every twenty calls.
    QStringList names;
    // Calls that the tariff could not rate, and records that hold nothing: they aren't looked at again, so that
    // the calls behind them get their turn. To be emptied for another tariff.
    QSet<QString> leftOut;
};

// One round. `waiting` begins anew with another file. A call that can't be read is passed over; one that bears a mark
// by now is left alone.
RoundOutcome RateWaitingCalls(const QString& dayFile, const RatingTables& tables,
                              WaitingCalls& waiting, const CallRated& rated);

// The day to look at next: behind a round that found less than it could take, the next one up to today. A day on which
// the server was away stays, or its calls would never be charged.
QDate NextCallDay(const RoundOutcome& round, QDate day, QDate today);

} // namespace hotel
