// The family of sums over the journals of a period.

#include <QHash>

#include "cashier/reports/period_walk.h"
#include "cashier/reports/report_charts.h"
#include "cashier/reports/reports.h"
#include "house/common/paths.h"
#include "link/records.h"
#include "record/field_walk.h"
#include "record/literals.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "tools/lists/list_totals.h"

namespace hotel {

namespace {

constexpr QStringView kWayOfPayment = u"支付方式";

struct SummedRow {
    QString key;
    QString named;
    QList<Money> sums; // one a column; of counted postings in units of one
};

class JournalSumsOf {
public:
    JournalSumsOf(const ReportEntry& report, const ReportPeriod& period)
        : course(PeriodSteps(period)), report_(report), project_(PostingProject(report.kind)) {}

    void addDay(QDate day) {
        const RecordRead journal = ReadProjectToChange(JournalFile(project_, day), project_);
        unread += journal.failed() ? 1 : 0;
        FieldWalk posting(journal.value);
        for (int n = 0; n < kJournalRecordLimit && posting.next(); ++n)
            add(day, posting.value());
    }

    QList<SummedRow> rows;
    IncomeCourse course;
    int unread = 0; // days

private:
    void add(QDate day, QStringView posting) {
        const QString key = GetTag(posting, report_.key);
        if (key.isEmpty())
            return;
        SummedRow& row = rowOf(key, posting);
        for (size_t column = 0; column < report_.sums.size(); ++column) {
            const SumColumn& sum = report_.sums[column];
            const Money amount =
                Money::FromText(sum.field.isEmpty() ? u"1"_s : GetTag(posting, sum.field));
            row.sums[qsizetype(column)] += amount;
            if (&sum == &report_.mainSum())
                course.add(day, key, amount);
        }
        if (report_.kind == kDepositPosting)
            addPaid(posting);
    }

    SummedRow& rowOf(const QString& key, QStringView posting) {
        const auto place = places_.constFind(key);
        if (place != places_.constEnd())
            return rows[*place];
        places_.insert(key, rows.size());
        const QString named = report_.named.isEmpty() ? QString() : GetTag(posting, report_.named);
        rows.append({key, named, QList<Money>(qsizetype(report_.sums.size()))});
        return rows.last();
    }

    void addPaid(QStringView posting) {
        const Money received = Money::FromText(GetTag(posting, posting::kReceived));
        if (received != Money())
            course.addPaid(GetTag(posting, kWayOfPayment), received);
    }

    const ReportEntry& report_;
    QString project_;
    QHash<QString, qsizetype> places_;
};

QStringView FormatOf(const SumColumn& sum) {
    return sum.field.isEmpty() ? u"#0" : u"#0.00";
}

} // namespace

Report MakePeriodSum(const ReportEntry& report, const ReportPeriod& period,
                     const WalkProgress& progress) {
    JournalSumsOf sums(report, period);
    const PeriodWalk walk =
        WalkPeriod(report, period, progress, [&](QDate day) { sums.addDay(day); });
    Report made{
        .list = TextTable(ReportTitles(report)), .caption = walk.caption, .remark = walk.remark};
    for (const SummedRow& row : sums.rows) {
        QStringList cells = {FormatNumber(made.list.rows(), u"#0"), row.key};
        if (!report.named.isEmpty())
            cells.append(row.named);
        for (size_t column = 0; column < report.sums.size(); ++column)
            cells.append(row.sums[qsizetype(column)].text(FormatOf(report.sums[column])));
        made.list.addRow(cells);
    }
    if (made.remark.isEmpty() && sums.unread > 0)
        made.remark = u"%1 天读取失败"_s.arg(sums.unread);
    made.charts = IncomeCharts(report, made, sums.course);
    for (const SumColumn& sum : report.sums)
        AddReportTotals(made.list, {sum.header.toString()}, FormatOf(sum));
    return made;
}

} // namespace hotel
