#pragma once

// Making a business report: one function a family (cashier/reports/report_table.h), none of which has a window.
//
// What can't be read counts as empty: a day without postings and a day without a snapshot add nothing. The
// report says in its remark of how many days nothing is known, so that nobody takes a gap for a bad day.
//
// Amounts keep their sign: the reversal of a charge, which stands in the journal of the day on which it was
// made, reduces that day's sum. A list ends in a row 总计 (in its column 序号).

#include <QDate>
#include <QList>
#include <QString>

#include <optional>

#include "cashier/reports/report_table.h"
#include "house/common/walk_progress.h"
#include "record/text_table.h"
#include "session/notice.h"
#include "tools/charts/chart.h"

namespace hotel {

// Postings of one day and kind that a period sum reads; further ones are left out.
inline constexpr int kJournalRecordLimit = 20000;

struct ReportPeriod {
    QDate first;
    QDate last; // included; not looked at by reports of a day
};

struct Report {
    TextTable list;
    QString caption;
    QList<Chart> charts = {};          // of its rows, or of what was read for them
    QString remark = {};               // what is to be known of it; empty: all is well
    std::optional<Notice> notice = {}; // to be told in a box
};

// Why the report can't be made of that period.
std::optional<Notice> CheckPeriod(const ReportEntry& report, const ReportPeriod& period);

// By its family. `progress` is told the days, rooms or files that are done; a report that was stopped has what
// was read until then, and its caption says where that was. A snapshot that was stopped is not kept.
Report MakeReport(const ReportEntry& report, const ReportPeriod& period,
                  const WalkProgress& progress = {});

// What MakeReport makes, family by family.
Report MakeGuestList(const ReportEntry& report, QDate day, const WalkProgress& progress);
Report MakeJournalList(const ReportEntry& report, QDate day, const WalkProgress& progress);
Report MakeSnapshotReport(const ReportEntry& report, QDate day, const WalkProgress& progress);
Report MakeSnapshotPeriod(const ReportEntry& report, const ReportPeriod& period,
                          const WalkProgress& progress);
Report MakePeriodSum(const ReportEntry& report, const ReportPeriod& period,
                     const WalkProgress& progress);

// "客房住宿率统计表(2026-11-01到2026-11-30)", "…(2026-11-30)", and while a period is being read
// "…(处理2026-11-07)".
QString PeriodCaption(const ReportEntry& report, const ReportPeriod& period);
QString DayCaption(const ReportEntry& report, const QString& day);
QString WorkingCaption(const ReportEntry& report, QDate day);

} // namespace hotel
