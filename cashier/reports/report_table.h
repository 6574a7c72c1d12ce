#pragma once

// The 23 business reports as one table over five families (cashier/reports/reports.h makes them):
//
//     family           reads                                       of
//     Guests           room files, or a day's register             the present moment, or a day
//     Journal          a day's journal of a kind of posting        a day
//     Snapshot         today the board, and keeps what it says;    a day
//                      else what was kept on the day
//     SnapshotPeriod   what was kept on the days                   a period
//     PeriodSum        the journals of the days                    a period

#include <QString>
#include <QStringList>
#include <QStringView>

#include <span>

#include "house/folios/posting_kinds.h"
#include "house/stays/day_snapshots.h"

namespace hotel {

enum class ReportFamily { Guests, Journal, Snapshot, SnapshotPeriod, PeriodSum };

enum class GuestSource { InHouse, Arrivals, Departures };

// A column of a period sum.
struct SumColumn {
    QStringView header;
    QStringView field; // of the posting; empty: the postings are counted
};

struct ReportEntry {
    QStringView name;
    ReportFamily family;
    GuestSource guests = GuestSource::InHouse;
    PostingKind kind = kDepositPosting;
    DaySnapshot snapshot = DaySnapshot::SoldByType;
    QStringView key = {};   // of a period sum: the field by which postings are put together
    QStringView named = {}; // and one that a row takes from its first posting
    std::span<const SumColumn> sums = {};

    bool isOfPeriod() const {
        return family == ReportFamily::SnapshotPeriod || family == ReportFamily::PeriodSum;
    }
    // The column of money that the pictures show: what was charged, or came in.
    const SumColumn& mainSum() const {
        return sums.front().field.isEmpty() ? sums[1] : sums.front();
    }
    // Of the present moment: no day is asked for.
    bool isOfNow() const {
        return family == ReportFamily::Guests && guests == GuestSource::InHouse;
    }
};

inline constexpr QStringView kReportNumber = u"序号"; // column 0 of every report

// In the order in which they are offered.
std::span<const ReportEntry> Reports();
const ReportEntry& ReportOf(QStringView name); // one of the table

// All columns, 序号 first.
QStringList ReportTitles(const ReportEntry& report);

// The columns that a journal list sums up.
QStringList JournalSums(PostingKind kind);

} // namespace hotel
