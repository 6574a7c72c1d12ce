#pragma once

// The pictures of the reports, made from the rows that the list shows; where these don't tell the course of the
// days, from what was read for them. Charts that have nothing to compare are given all the same: who shows them
// leaves them out (IsWorthDrawing).
//
//     Journal          received by way of payment; charged by name
//     Snapshot         rooms and rooms sold, and the two rates, by type or floor; rooms by status
//     SnapshotPeriod   the two rates by day, then as Snapshot
//     PeriodSum        income by day and class, by class; deposits by way of payment
//
// Days without a snapshot are left out: of them nothing is known.

#include <QList>

#include "cashier/reports/period_walk.h"
#include "cashier/reports/report_table.h"
#include "cashier/reports/reports.h"
#include "tools/charts/chart.h"

namespace hotel {

QList<Chart> JournalCharts(const ReportEntry& report, const Report& made);
QList<Chart> SnapshotCharts(const ReportEntry& report, const Report& made);
QList<Chart> OccupancyCharts(const ReportEntry& report, const Report& made,
                             const OccupancyCourse& course);
QList<Chart> IncomeCharts(const ReportEntry& report, const Report& made,
                          const IncomeCourse& course);

// Classes that a chart shows one by one; the smaller ones are put together at its end (其余3项).
inline constexpr qsizetype kMostBars = 12;
inline constexpr qsizetype kMostLayers = 6;

} // namespace hotel
