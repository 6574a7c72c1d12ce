#pragma once

// Entering a posting: from what is typed to the record that SaveBills takes.

#include <QDateTime>
#include <QHash>
#include <QString>
#include <QStringView>

#include <optional>

#include "house/folios/posting_kinds.h"
#include "session/notice.h"

namespace hotel {

// What is typed, by control: {"Xyzl", "现金押金"}.
using PostingValues = QHash<QStringView, QString>;

// A kind of guarantee that is money is received and counts as income; any other is a credit.
bool IsMoneyReceipt(QStringView guarantee);

// Why what is typed is no folio's number; nothing when it is one.
std::optional<Notice> RefuseFolioNumber(QStringView typed);

// The first thing that keeps the values from being posted.
struct PostingObjection {
    Notice notice;
    QStringView control;   // where it is to be mended
    QString proposal = {}; // a value for the control: it stands once the operator posts again
};
std::optional<PostingObjection> CheckPosting(PostingKind kind, const PostingValues& values);

// The posting as it is written, the fields in the order of the kind's table. A date or time that is typed
// and stands empty is the moment's.
QString BuildPostingRecord(PostingKind kind, const PostingValues& values, const QDateTime& moment);

// What the two fees come to; one that can't be reckoned, half an expression for instance, counts as 0.
QString SumOfFees(const FeeSum& feeSum, const PostingValues& values);

// Remark of the operation log: the folio and the posting's values, parted by ",".
QString PostingDetail(QStringView folio, QStringView record);

} // namespace hotel
