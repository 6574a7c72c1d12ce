#include "cashier/reports/period_walk.h"

#include "record/literals.h"

namespace hotel {

PeriodWalk WalkPeriod(const ReportEntry& report, const ReportPeriod& period,
                      const WalkProgress& progress, const std::function<void(QDate)>& day) {
    const int days = int(period.first.daysTo(period.last)) + 1;
    for (int n = 0; n < days; ++n) {
        const QDate date = period.first.addDays(n);
        if (!GoesOn(progress, n, days))
            return {WorkingCaption(report, date),
                    u"没有做完，只统计到 %1 之前"_s.arg(date.toString(u"yyyy-MM-dd"))};
        day(date);
    }
    return {PeriodCaption(report, period), {}};
}

PeriodSteps::PeriodSteps(const ReportPeriod& period)
    : first_(period.first), months_(period.first.daysTo(period.last) >= kMostDaySteps) {
    const QDate start = months_ ? QDate(first_.year(), first_.month(), 1) : first_;
    for (QDate step = start; step <= period.last;
         step = months_ ? step.addMonths(1) : step.addDays(1))
        labels_.append(step.toString(months_ ? u"yyyy-MM" : u"MM-dd"));
}

qsizetype PeriodSteps::stepOf(QDate day) const {
    if (!months_)
        return first_.daysTo(day);
    return (day.year() - first_.year()) * 12 + day.month() - first_.month();
}

void IncomeCourse::add(QDate day, const QString& name, Money amount) {
    QList<Money>& amounts = classes_[FeeClass(name)];
    amounts.resize(steps_.count());
    amounts[steps_.stepOf(day)] += amount;
}

QString FeeClass(const QString& name) {
    constexpr qsizetype kDate = 10;
    const bool dated =
        name.size() > kDate && QDate::fromString(name.first(kDate), Qt::ISODate).isValid();
    return dated ? name.sliced(kDate) : name;
}

} // namespace hotel
