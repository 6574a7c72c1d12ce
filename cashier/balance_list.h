#pragma once

// The balances of the open folios (余额查验): who has used up his credit. Asks for a limit and lists the folios
// whose balance lies below it, or all of them, in the result grid; a click on one opens its charges (FyxxFrm).
//
//     结账号      folio
//     房间号      its rooms; of more than three the first, and how many they are
//     客人姓名    who pays it
//     电话号码    the extensions of its rooms, likewise
//     房费类, 餐饮娱乐, 宽带网络, 电话费   charges by class
//     总消费      all charges, room service among them
//     总信用额    credit granted
//     总实收额    money received
//     信用余额    总信用额 + 总实收额 - 总消费
//
// A folio whose ledger can't be read is listed whatever the limit, with 读取失败 in place of its sums.

#include <QDate>
#include <QString>
#include <QStringList>

#include <optional>

#include "house/folios/folio_summary.h"
#include "house/folios/folio_totals.h"

class QWidget;

namespace hotel {

struct FolioBalance {
    QString folio;
    FolioSummary summary;
    QStringList telephones;
    std::optional<FolioTotals> totals; // nothing: its ledger could not be read
};

const QStringList& BalanceTitles();
QStringList BalanceCells(const FolioBalance& balance);
QString BalanceListTitle(std::optional<Money> limit, QDate today);

// Whether the balance is below the limit; without a limit all are.
bool IsBelow(const FolioBalance& balance, std::optional<Money> limit);

// Asks, walks and shows, as part of a handler of `parent`'s screen. The walk can be stopped, and shows what it
// has found so far.
void OpenBalanceList(QWidget* parent);

} // namespace hotel
