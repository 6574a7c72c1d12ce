#include "cashier/reports/reports.h"

#include "record/literals.h"

namespace hotel {

namespace {

QString DayText(QDate day) {
    return day.toString(u"yyyy-MM-dd");
}

} // namespace

std::optional<Notice> CheckPeriod(const ReportEntry& report, const ReportPeriod& period) {
    const bool known = report.isOfNow() || period.first.isValid();
    if (!known || (report.isOfPeriod() && !period.last.isValid()))
        return Notice{u"日期错误"_s, u"请输入正确的日期，如：2026-03-05"_s};
    if (report.isOfPeriod() && period.first > period.last)
        return Notice{u"时段错误"_s, u"统计报表起始日期不能大于终止日期"_s};
    return {};
}

Report MakeReport(const ReportEntry& report, const ReportPeriod& period,
                  const WalkProgress& progress) {
    if (const auto notice = CheckPeriod(report, period))
        return {.list = TextTable(ReportTitles(report)),
                .caption = report.name.toString(),
                .notice = notice};
    switch (report.family) {
    case ReportFamily::Guests:
        return MakeGuestList(report, period.first, progress);
    case ReportFamily::Journal:
        return MakeJournalList(report, period.first, progress);
    case ReportFamily::Snapshot:
        return MakeSnapshotReport(report, period.first, progress);
    case ReportFamily::SnapshotPeriod:
        return MakeSnapshotPeriod(report, period, progress);
    case ReportFamily::PeriodSum:
        return MakePeriodSum(report, period, progress);
    }
    return {};
}

QString PeriodCaption(const ReportEntry& report, const ReportPeriod& period) {
    return report.name + QString(u'(') + DayText(period.first) + u'到' + DayText(period.last) +
           u')';
}

QString DayCaption(const ReportEntry& report, const QString& day) {
    return report.name + QString(u'(') + day + u')';
}

QString WorkingCaption(const ReportEntry& report, QDate day) {
    return report.name + u"(处理"_s + DayText(day) + u')';
}

} // namespace hotel
