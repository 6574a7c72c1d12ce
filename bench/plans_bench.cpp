// A list of 20000 plans: opened, sorted.

#include "bench/ratio.h"
#include "bench/screenless.h"

#include "frontoffice/frmWX.h"
#include "house/stays/repairs.h"
#include "link/records.h"
#include "record/literals.h"
#include "screen/grid_view.h"
#include "screen/theme.h"
#include "tests/test_hotel.h"
#include "tools/aids/categories.h"
#include "tools/lists/CmnGrd.h"

using namespace hotel;
using namespace hotel::bench;

namespace {

constexpr int kPlans = 20000;

QString Repair(int n) {
    return u"<房间号>%1</房间号><目前状态>空房</目前状态><维修原因>空调故障</维修原因>"
           u"<报修日期>2026-03-05</报修日期><报修单位>客房部</报修单位><报修人>周桂兰</报修人>"_s
               .arg(8000 + (n * 7919) % 997);
}

void FillPlans() {
    QString project;
    for (int n = 0; n < kPlans; ++n)
        project += u"<%1>%2</%1>\r\n"_s.arg(250101000000 + n).arg(Repair(n));
    SaveProject(RepairPlans().file(), RepairPlans().project, project);
}

} // namespace

int main(int argc, char** argv) {
    ScreenlessApplication application(argc, argv);
    ApplyTheme(application);
    const TestHotel hotel;
    FillPlans();
    const TextTable plans = *LoadPlans(RepairPlans());
    PrintRatio(
        "open_20000_plans", // by one read and the result grid with the same rows
        MedianRatio<9>(
            [&] {
                frmWX screen;
                screen.show();
                screen.run([&] { screen.load({}); });
                return screen.width();
            },
            [&] {
                const qsizetype read =
                    ReadProjectToChange(RepairPlans().file(), RepairPlans().project).value.size();
                qsizetype entries = 0;
                for (const QStringView name : {u"目前状态", u"维修原因", u"经办单位", u"维修结果"})
                    entries += LoadCategory(name).size();
                CmnGrd result(u"客房维修计划信息清单"_s, plans.headers());
                result.show();
                result.Grd() = plans;
                result.setTask(GridTask::Check);
                while (result.task() != GridTask::None)
                    QCoreApplication::processEvents();
                return int(read + entries);
            }),
        1.5);

    frmWX screen;
    screen.show();
    screen.run([&] { screen.load({}); });
    auto* list = screen.findChild<GridView*>(u"WxxxQd"_s);
    TextTable table = plans;
    bool descending = false;
    PrintRatio("sort_20000_plans", // by the table alone
               MedianRatio<9>(
                   [&] {
                       descending = !descending;
                       list->sortBy(1, descending);
                       return list->viewport()->grab().width();
                   },
                   [&] {
                       descending = !descending;
                       table.sort(1, TextTable::Order::Natural, descending);
                       return table.rows();
                   }),
               3.0);
}
