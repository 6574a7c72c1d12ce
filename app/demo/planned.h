#pragma once

// What the demo hotel has planned (plans.h), as tables: reservations to come, faults, receivables. All invented.

#include <QList>
#include <QStringView>

namespace hotel {

struct DemoBookingToCome {
    QStringView guest; // or none, where a company has booked
    QStringView company;
    int madeAgo;   // days
    int arrivesIn; // days from the opening
    int nights;
    int rooms;
    int held; // so many rooms of the type are held for it
    QStringView roomType;
    QStringView price;
    QStringView from; // 预定来源
    QStringView state = u"计划";
    QStringView remark = {};
    bool sharesLast = false; // is promised the last room of the row before
};
const QList<DemoBookingToCome>& DemoBookingsToCome();

struct DemoFault {
    int weight;
    QStringView reason;
    QStringView outcome;
    int hours; // until it is mended
};
const QList<DemoFault>& DemoFaults();

struct DemoReceivable {
    int madeAgo; // days
    QStringView company;
    QStringView contact;
    QStringView reason;
    QStringView amount;
    QStringView state;
    int dueIn;                // days from its making
    QStringView outcome = {}; // empty: still to be collected
    int paidAfter = 0;        // days
};
const QList<DemoReceivable>& DemoReceivables();

} // namespace hotel
