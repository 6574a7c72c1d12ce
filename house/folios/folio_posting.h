#pragma once

// Postings: the only way by which a charge, a deposit or a settlement reaches a folio. Each is written
// twice, to the folio's ledger and to the day's journal, from which the reports are made. The kind
// (house/folios/posting_kinds.h) names the project in both.
//
// Records are numbered from 1 in each project of each file. 序号 is the record's own key; a journal
// record has 结账号 as well. Amounts are "#0.00", 日期 "yyyy-MM-dd", 时间 "HH:mm:ss" ("HH:mm" where
// telephone and broadband charges are entered by hand).
//
// The journal is that of the day of the write. A posting that reached the ledger but not the journal
// is on the folio and in no report: the caller only sees a status that isn't 0. Two desks that post to
// one project in the same moment may take the same number; the second then replaces the first.

#include <QString>
#include <QStringView>

#include "house/folios/posting_kinds.h"

namespace hotel {

struct Posted {
    int status = 0; // sum of both writes' results: 0 when ledger and journal have it
    QString key;    // of the ledger record
};
Posted SaveBills(QStringView folio, int kind, const QString& record);

// Deletes a ledger record and answers it in today's journal with a copy whose 金额 is negated: what has been
// reported is never removed. The sum of both writes' results; where the record isn't there or can't be read,
// nothing is written and the result isn't 0 either.
//
// Two limits are deliberate, and the reports are reckoned with them: the reversal acts on 金额 alone, so that a
// deposit's carries 金额 "0.00" and its received or credited amount unchanged; and a charge of room service
// can't be deleted, only answered by a negative one.
int DelBills(QStringView folio, int kind, QStringView key);

} // namespace hotel
