#pragma once

// The telephone exchange of the demo hotel, played: the calls of a day as the link program at an exchange writes them
// into the daily files (telephone/call_record.h). Rating them is the desk's.

#include <QDate>
#include <QDateTime>
#include <QList>
#include <QRandomGenerator>
#include <QString>
#include <QStringList>

#include <functional>

#include "telephone/billing_files.h"

namespace hotel {

struct PlayedCall {
    QDateTime end;
    QString record; // without a mark
};

// A call that ends at `end`, by one of these extensions: most of them local and short, in the evening more of them
// far away, a few wrong numbers of no seconds. As with an exchange the length comes in seconds or as a time, and
// one in three calls has its end only.
PlayedCall PlayCall(QRandomGenerator& random, const QStringList& extensions, const QDateTime& end);

// So many calls of a day, up to `until`, by the order of their ends: few at night, most in the evening.
QList<PlayedCall> PlayDay(QRandomGenerator& random, const QStringList& extensions, QDate day,
                          QTime until, int calls);

// Writes calls into the file of their day, numbered on from what stands there. `written` is told of each, and false
// stops. Gives how many were written; less than all of them where the server refused one. (Waits on the server.)
int WriteCalls(const BillingFiles& files, const QList<PlayedCall>& calls,
               const std::function<bool(int done)>& written = {});

// All extensions of the house; those of the demo hotel's desks where it has none. (Waits on the server.)
QStringList PlayedExtensions(const BillingFiles& files);

} // namespace hotel
