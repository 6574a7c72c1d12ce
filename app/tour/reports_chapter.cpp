#include <QDir>
#include <QLabel>

#include "app/tour/tour.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "screen/grid_view.h"
#include "screen/open_screen.h"
#include "shell/mainfrm.h"
#include "tools/charts/ChartBox.h"

namespace hotel {

namespace {

class ReportDesk {
public:
    ReportDesk(Tour& tour, Screen& screen)
        : tour_(tour), screen_(screen), list_(screen.findChild<GridView*>(u"BbQd"_s)),
          charts_(screen.findChild<ChartBox*>()) {}

    // Of a day, or from a day on; an empty one is left as it is proposed.
    void make(const QString& report, const QString& day = {}) {
        tour_.choose(screen_, u"BbZl"_s, report);
        if (!day.isEmpty()) {
            clear(u"StDay"_s);
            tour_.type(screen_, u"StDay"_s, day);
        }
        tour_.press(screen_, u"MakeCmd"_s);
        tour_.waitFor([this] { return screen_.command(u"MakeCmd")->isEnabled(); },
                      report + u" 没有做完"_s);
        const QString caption = screen_.findChild<QLabel*>(u"BbBt"_s)->text();
        tour_.expect(caption.startsWith(report + u'('), report + u" 没有标题"_s);
    }

    void picture(const QString& name, int rows, bool chart) {
        tour_.expect(list_->table().dataRows() >= rows, name + u" 的行数太少"_s);
        tour_.expect(charts_->isVisible() == chart, name + u" 的图表不对"_s);
        tour_.picture(screen_, u"报表-"_s + name);
    }

    void printToPdf(const QString& name) {
        tour_.press(screen_, u"CmdPrint"_s);
        Screen& preview = tour_.opened(u"PrtPrev"_s);
        tour_.picture(preview, u"预览-"_s + name);
        tour_.printToPdf(preview, name);
        preview.close();
    }

private:
    void clear(const QString& box) { screen_.findChild<QLineEdit*>(box)->clear(); }

    Tour& tour_;
    Screen& screen_;
    GridView* list_;
    ChartBox* charts_;
};

void LookAtFamilies(ReportDesk& desk) {
    const QDate today = Clock::Today();
    const QString yesterday = today.addDays(-1).toString(u"yyyy-MM-dd");
    const QString weeks = today.addDays(-30).toString(u"yyyy-MM-dd");
    desk.make(u"在住客人清单"_s);
    desk.picture(u"在住客人"_s, 40, false);
    desk.make(u"客房住宿率日报表"_s, today.toString(u"yyyy-MM-dd"));
    desk.picture(u"客房住宿率"_s, 4, true);
    desk.printToPdf(u"客房住宿率日报表"_s);
    desk.make(u"楼层销售日报表"_s);
    desk.picture(u"楼层销售"_s, 4, true);
    desk.make(u"客房状态明细单"_s);
    desk.picture(u"客房状态"_s, 100, true);
    desk.make(u"餐饮娱乐收入明细单"_s, yesterday);
    desk.picture(u"餐饮明细"_s, 2, true);
    desk.make(u"客房住宿率统计表"_s, weeks);
    desk.picture(u"住宿率统计"_s, 4, true);
    desk.printToPdf(u"客房住宿率统计表"_s);
    desk.make(u"房费收入统计表"_s, weeks);
    desk.picture(u"房费统计"_s, 3, true);
    desk.make(u"信用押金收款统计表"_s);
    desk.picture(u"押金统计"_s, 3, true);
    desk.printToPdf(u"信用押金收款统计表"_s);
}

void UseTheGrid(Tour& tour, Screen& reports) {
    tour.press(reports, u"ListCmd"_s);
    Screen& grid = tour.opened(u"CmnGrd"_s);
    const auto* rows = grid.findChild<GridView*>(u"GrdView"_s);
    tour.waitFor([rows] { return rows->table().dataRows() > 2; }, u"参考清单是空的"_s);
    tour.picture(grid, u"报表-参考清单"_s);
    grid.close();
}

} // namespace

// The cashier's office makes a report of each family, prints and saves what it shows.
void TourOfReports(Tour& tour) {
    tour.logIn(u"SHOUYIN"_s, u"444444"_s);
    tour.press(tour.mainWindow(), u"Syjs_cmd"_s);
    tour.press(tour.mainWindow(), u"Yybb_cmd"_s);
    Screen& reports = tour.opened(u"YybbFrm"_s);
    ReportDesk desk(tour, reports);
    LookAtFamilies(desk);
    const QString chart = QDir(tour.folder()).filePath(u"图表-支付方式.png"_s);
    tour.messages().answerNext(chart);
    tour.press(reports, u"ChartSave"_s);
    tour.expect(QFileInfo::exists(chart), u"图表没有存盘"_s);
    UseTheGrid(tour, reports);
    reports.close();
    tour.leave();
}

} // namespace hotel
