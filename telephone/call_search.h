#pragma once

// Which calls the desk shows as they come in, and which it looks for in the daily files.

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QStringView>

#include "telephone/billing_files.h"
#include "tools/queries/query_walk.h"

namespace hotel {

class CmnGrd;

// Limits of the live list; an empty one doesn't count.
struct CallLimits {
    QString extensions;   // the call's extension occurs in this text
    QString owners;       // its owner likewise
    QString users;        // its user likewise
    QString numberStart;  // the called number begins with it
    QString leastMinutes; // of the call's length
    QString greatestMinutes;
};
bool IsWithinLimits(QStringView record, const CallLimits& limits);

// What the quick search asks for; what is empty isn't asked.
struct CallQuestion {
    QString extension; // contains, as the next three
    QString owner;
    QString user;
    QString number;
    QString leastTotal; // 总话费
    QString greatestTotal;
    QStringList classes; // the class text contains one of these
    QDateTime from;      // start of the call, both ends included
    QDateTime to;
};

// The conditions for the file of a day. The times of `from` and `to` count on the first and on the last day
// only: the period goes from moment to moment.
QString CallConditions(const CallQuestion& question, QDate day);

// Walks through the daily files from the first day to the last and puts the sums below what was found.
// `list` shows CallColumns. Gives the number of calls. Runs as a handler of the list's screen (Screen::Running).
int SearchCalls(const CallQuestion& question, const BillingFiles& files, CmnGrd& list);

// Puts the sums below, once the list is complete; gives the number of calls in it.
int SumUpCalls(CmnGrd& list);

} // namespace hotel
