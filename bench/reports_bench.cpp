// Business reports by the side of the bare commands that they need, against a server in the same program; and
// how long a picture of a year takes to be drawn.

#include "bench/ratio.h"
#include "bench/screenless.h"

#include "cashier/reports/reports.h"
#include "house/common/paths.h"
#include "link/records.h"
#include "link/serv_api.h"
#include "record/literals.h"
#include "screen/theme.h"
#include "tests/test_hotel.h"
#include "tools/charts/draw_chart.h"

using namespace hotel;
using namespace hotel::bench;

namespace {

const QDate kLast(2026, 2, 28);
const ReportPeriod kYear{kLast.addDays(-364), kLast};
const ReportPeriod kMonth{kLast.addDays(-29), kLast};
constexpr int kPostings = 20000;
constexpr int kTypes = 8;

// A house of 400 rooms of eight types.
void FillSnapshots() {
    for (QDate day = kYear.first; day <= kYear.last; day = day.addDays(1)) {
        const int turn = int(kYear.first.daysTo(day));
        QString rows;
        for (int type = 1; type <= kTypes; ++type) {
            const int sold = (turn * 7 + type * 13) % 50;
            rows += u"<%1><房间类型>房型%1</房间类型>\r\n<总房间数>50</总房间数>\r\n"
                    "<总床位数>100</总床位数>\r\n<售出房间数>%2</售出房间数>\r\n"
                    "<售出床位数>%3</售出床位数>\r\n<客房住宿率>%4.0</客房住宿率>\r\n"
                    "<床位住宿率>%4.0</床位住宿率></%1>\r\n"_s.arg(type)
                        .arg(sold)
                        .arg(2 * sold)
                        .arg(2 * sold);
        }
        SaveProject(SnapshotFile(day), u"客房销售日报信息",
                    rows + u"<总计><总房间数>400.0</总房间数></总计>"_s);
    }
}

void FillJournals() {
    const QString project = PostingProject(kFoodPosting);
    const int days = int(kMonth.first.daysTo(kMonth.last)) + 1;
    for (int day = 0; day < days; ++day) {
        QString records;
        for (int n = 1; n <= kPostings / days; ++n)
            records +=
                u"<%1><费用名称>费用%2</费用名称>\r\n<结算地点>中餐厅</结算地点>\r\n"
                "<计量单位>份</计量单位>\r\n<数量>1</数量>\r\n<房间号>%3</房间号>\r\n"
                "<客人>王小明</客人>\r\n<日期>2026-02-01</日期>\r\n<时间>12:30:00</时间>\r\n"
                "<金额>%4.50</金额>\r\n<经办单位>餐饮部</经办单位>\r\n<经办人>徐海波</经办人>\r\n"
                "<序号>%1</序号>\r\n<结账号>260201120000</结账号></%1>\r\n"_s.arg(n)
                    .arg(n % 12)
                    .arg(8101 + n % 100)
                    .arg(n % 300);
        SaveProject(JournalFile(project, kMonth.first.addDays(day)), project, records);
    }
}

int Rows(const QString& report, const ReportPeriod& period) {
    return MakeReport(ReportOf(report), period).list.dataRows();
}

// One read a day.
qsizetype BareReads(const ReportPeriod& period, const QString& project,
                    const std::function<QString(QDate)>& file) {
    qsizetype characters = 0;
    for (QDate day = period.first; day <= period.last; day = day.addDays(1))
        characters += DbReadRecord(file(day), {}, project).size();
    return characters;
}

} // namespace

int main(int argc, char** argv) {
    ScreenlessApplication application(argc, argv);
    ApplyTheme(application);
    ShareOneProcessor();
    const TestHotel hotel;
    FillSnapshots();
    FillJournals();

    const QString food = PostingProject(kFoodPosting);
    PrintRatio("occupancy_of_a_year", // 365 snapshots, by their reads
               MedianRatio([] { return Rows(u"客房住宿率统计表"_s, kYear); },
                           [] { return BareReads(kYear, u"客房销售日报信息"_s, SnapshotFile); }),
               1.5);
    PrintRatio("income_of_a_month", // 20000 postings, by the reads of 30 journals
               MedianRatio([] { return Rows(u"餐饮娱乐收入统计表"_s, kMonth); },
                           [&] {
                               return BareReads(kMonth, food,
                                                [&](QDate day) { return JournalFile(food, day); });
                           }),
               1.5);

    const Report year = MakeReport(ReportOf(u"客房住宿率统计表"), kYear);
    const auto draw = [](const Chart& chart) {
        return Nanoseconds(
                   [&] {
                       return DrawChart(chart, {620, 420}).width();
                   },
                   Time::Processor) /
               1e6;
    };
    Chart bars = year.charts.first();
    bars.kind = ChartKind::StackedBars;
    std::printf("chart of a year by day: lines %.1f ms, bars %.1f ms (limit 100)\n",
                draw(year.charts.first()), draw(bars));
}
