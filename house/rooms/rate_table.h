#pragma once

// The house's rates: the category 客房类型 as a table. One row a room type; every column of the
// category but the short key is a rate kind, whose cells are prices. Rows with different kinds share
// one table: a type without a price in a kind has an empty cell, and the kind isn't offered for it.
//
//     序号   row number, "#00"
//     客房类型   the type
//     房价       the standard rate
//     ...        further kinds, in the order in which the category first names them

#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>

#include "record/text_table.h"
#include "session/notice.h"

namespace hotel {

TextTable RateTable(QStringView categoryText);

// The rate table as the category has it now; without the category it has no rows. It is from here on
// the one in use.
const TextTable& LoadRateTable();

// The rate table that was read last; read now when none has been.
const TextTable& RatesInUse();

// The rates of a room type: two lists that run in parallel.
struct RateChoice {
    QStringList kinds;
    QStringList prices;           // "#0.00"
    std::optional<Notice> notice; // the table doesn't know the type

    // The price of a kind; empty where the type has none.
    QString price(QStringView kind) const { return prices.value(kinds.indexOf(kind)); }
};
RateChoice RatesOfType(const TextTable& rateTable, QStringView roomType);

// Only a front-desk rate may be overtyped; every other kind is fixed at its table price.
bool IsNegotiable(QStringView rateKind);

} // namespace hotel
