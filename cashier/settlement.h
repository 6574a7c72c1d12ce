#pragma once

// The money of a settlement: what is paid, and what is written of it. All amounts are reckoned with four
// decimals in fixed point and stand as "#0.00".
//
// A settlement is kept as a record of its own in the folio's ledger (SaveJzhJzRec) and posted so that the
// folio's balance comes to nothing:
//
//                 kind  信用保证种类   amount in     amount
//     ordinary    0     结账实收       实收金额      due less discount
//                 0     结账折扣       信用金额      discount
//     team        0     团队结算       信用金额      due
//                 0     团队折扣       信用金额      discount, negative
//                 5                    金额          due less discount, on the company's account
//
// A discount stands positive in an ordinary settlement and negative in a team's; the reports are reckoned
// with it.

#include <QList>
#include <QString>
#include <QStringView>

#include <optional>

#include "session/notice.h"

namespace hotel {

// What was agreed on in the payment dialog, by its boxes.
struct Payment {
    QString due;      // Ysje
    QString discount; // Zkje; may be an expression
    QString received; // Ssje; may be an expression; never empty
    QString change;   // Zsje
    QString kind;     // Zffs
    QString note;     // Skbz
    QString team;     // Khh
};

// The small change of the amount due: "0.50" of "1234.50".
QString DefaultDiscount(const QString& due);

// What is given back of `received`; nothing while that and the discount don't come to what is due, or
// are no amounts.
std::optional<QString> ChangeOf(QStringView received, QStringView discount, QStringView due);

// A company's name in the note, and at least eight characters of its number: the company pays later.
bool IsTeamSettlement(const Payment& payment);

// Writes the settlement's record and its postings, and tells how it went: a failure doesn't stop what
// comes after it.
QList<Notice> PostSettlement(const QString& folio, const QString& guest, const Payment& payment);

// The last room charge of somebody who leaves.
struct FinalCharge {
    QString room;
    QString guest;
    QString date;
    QString time;
    QString amount;
};
std::optional<Notice> PostFinalCharge(const QString& folio, const FinalCharge& charge);

} // namespace hotel
