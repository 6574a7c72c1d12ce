#pragma once

// What a call costs. A pure act: nothing is read but the tables that are handed in, nothing is written.
//
// All amounts are held in four decimals, each product and quotient rounded to that scale; only what goes into the
// record is rounded to cents, so the record's total is the sum of its rounded amounts.

#include <QString>
#include <QStringView>

#include "record/numbers.h"
#include "telephone/extensions.h"
#include "telephone/rate_bands.h"
#include "telephone/tariff.h"

namespace hotel {

// What calls are rated with.
struct RatingTables {
    ExtensionIndex extensions;
    Tariff tariff;
    RateBands bands;
};

struct CallCharges {
    Money call;         // 通话费
    Money handling;     // 手续费
    Money floating;     // 浮动费
    Money lineFee;      // 过线费
    Money surcharge;    // 附加费
    Money construction; // 建设费
    Money local;        // 地方费: 0 on purpose, though it is written and added
    Money total;        // 总话费

    bool operator==(const CallCharges&) const = default;
};

// The charges of a call, or why the tariff can't tell them: a mode that is none, steps of no minutes where they are
// divided by. Then the charges are zero, and the call is to be left as it is.
struct Reckoning {
    CallCharges charges;
    QString problem;
};

// `prefix`: the row of the called number, null where none matches; `seconds`: the length of the call, not negative.
Reckoning ReckonCall(const Tariff& tariff, const PrefixRow* prefix, qint64 seconds,
                     const RateBand& band);

struct RatedCall {
    QString record;  // as it is to be written; where there is a problem, as it was
    QString problem; // see Reckoning
};

// Rates a record (call_record.h). A call whose moment can't be read is rated by the whole rate, one whose length
// can't be read as one of no seconds: neither is lost.
RatedCall RateCall(const QString& record, const RatingTables& tables);

// Seconds of a length: "HH:mm:ss" of any hours, parts behind that are missing being 0, or seconds without a ":".
// Never negative, and not above kLongestCall.
qint64 SecondsOfCall(QStringView length);
inline constexpr qint64 kLongestCall = 100 * 24 * 3600;

} // namespace hotel
