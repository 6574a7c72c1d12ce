#pragma once

// What the two families of a period have in common: the walk over its days, and the steps in which a chart
// shows them.

#include <QDate>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

#include "cashier/reports/reports.h"
#include "record/numbers.h"

namespace hotel {

struct PeriodWalk {
    QString caption; // the period, or the day at which the walk was stopped
    QString remark;  // of a walk that was stopped
};
PeriodWalk WalkPeriod(const ReportEntry& report, const ReportPeriod& period,
                      const WalkProgress& progress, const std::function<void(QDate)>& day);

// Days, or months where days would be too many to be told apart.
inline constexpr int kMostDaySteps = 366;

class PeriodSteps {
public:
    explicit PeriodSteps(const ReportPeriod& period);

    qsizetype count() const { return labels_.size(); }
    qsizetype stepOf(QDate day) const;                    // a day of the period
    const QStringList& labels() const { return labels_; } // "11-07", or "2026-11"

private:
    QDate first_;
    bool months_;
    QStringList labels_;
};

// Rooms and beds of a day, or of several: room-nights and bed-nights.
struct DayCounts {
    Money rooms;
    Money beds;
    Money roomsSold;
    Money bedsSold;

    DayCounts& operator+=(const DayCounts& other) {
        rooms += other.rooms;
        beds += other.beds;
        roomsSold += other.roomsSold;
        bedsSold += other.bedsSold;
        return *this;
    }
};

class OccupancyCourse {
public:
    explicit OccupancyCourse(const PeriodSteps& steps) : steps_(steps), counts_(steps.count()) {}

    void add(QDate day, const DayCounts& counts) { counts_[steps_.stepOf(day)] += counts; }

    const PeriodSteps& steps() const { return steps_; }
    const QList<DayCounts>& counts() const { return counts_; }

private:
    PeriodSteps steps_;
    QList<DayCounts> counts_;
};

// Amounts by day, each class of them for itself; and what was received by way of payment.
class IncomeCourse {
public:
    explicit IncomeCourse(const PeriodSteps& steps) : steps_(steps) {}

    void add(QDate day, const QString& name, Money amount);
    void addPaid(const QString& way, Money amount) { paid_[way] += amount; }

    const PeriodSteps& steps() const { return steps_; }
    const QHash<QString, QList<Money>>& classes() const { return classes_; }
    const QHash<QString, Money>& paid() const { return paid_; }

private:
    PeriodSteps steps_;
    QHash<QString, QList<Money>> classes_;
    QHash<QString, Money> paid_;
};

// The class of a charge: its name without the day that a night's charge begins with.
QString FeeClass(const QString& name);

} // namespace hotel
