#include <QTabWidget>

#include "app/tour/tour.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "screen/grid_view.h"
#include "screen/open_screen.h"
#include "shell/mainfrm.h"

namespace hotel {

namespace {

int PlansOf(const Screen& screen, const QString& list) {
    return screen.findChild<GridView*>(list)->table().dataRows();
}

// A party is booked by telephone, with rooms held for it.
void BookAParty(Tour& tour) {
    tour.logIn(u"QIANTAI"_s, u"111111"_s);
    tour.press(tour.mainWindow(), u"Xsyd_cmd"_s);
    tour.press(tour.mainWindow(), u"Ydgl_cmd"_s);
    Screen& plans = tour.opened(u"frmYD"_s);
    const int before = PlansOf(plans, u"YdxxQd"_s);
    tour.press(plans, u"CmdAdd"_s);
    tour.type(plans, u"Krxm"_s, u"宋建国"_s);
    tour.type(plans, u"Krdw"_s, u"省地质勘探设计院"_s);
    tour.type(plans, u"Yjld"_s, Clock::Today().addDays(3).toString(u"yyyy-MM-dd"));
    tour.type(plans, u"Dfjs"_s, u"3"_s);
    tour.type(plans, u"Ydfj"_s, u"268"_s);
    tour.type(plans, u"Ydr"_s, u"刘秘书"_s);
    tour.type(plans, u"Sjhm"_s, u"13900001234"_s);
    tour.type(plans, u"Bzxx"_s, u"三间相邻，第一天晚到"_s);
    auto* tabs = plans.findChild<QTabWidget*>(u"tabs"_s);
    tabs->setCurrentIndex(1);
    auto* rooms = plans.findChild<GridView*>(u"KfQd"_s);
    for (const QString& room : {u"8506"_s, u"8508"_s, u"8510"_s}) {
        rooms->setCurrent(rooms->table().find(1, room));
        rooms->setFocus();
        tour.key(plans, Qt::Key_Space);
    }
    tour.picture(plans, u"预定计划-预留客房"_s);
    tabs->setCurrentIndex(0);
    tour.picture(plans, u"预定计划-新增"_s);
    tour.press(plans, u"CmdAdd"_s);
    tour.expect(PlansOf(plans, u"YdxxQd"_s) == before + 1, u"预定没有增加"_s);
    tour.picture(plans, u"预定计划"_s);
    tour.press(plans, u"CmdPrint"_s);
    Screen& preview = tour.opened(u"PrtPrev"_s);
    tour.printToPdf(preview, u"客房预定计划信息清单"_s);
    preview.close();
    plans.close();
    tour.leave();
}

// Which rooms are free when, and who has them; from there to a reservation.
void LookAtTheCalendar(Tour& tour) {
    tour.logIn(u"XIAOSHOU"_s, u"777777"_s);
    tour.press(tour.mainWindow(), u"Xsyd_cmd"_s);
    tour.press(tour.mainWindow(), u"Ydgl_cmd"_s);
    Screen& plans = tour.opened(u"frmYD"_s);
    tour.press(plans, u"RlCmd"_s);
    Screen& calendar = tour.opened(u"YdrlFrm"_s);
    tour.picture(calendar, u"客房日历"_s);
    for (const Qt::Key digit : {Qt::Key_8, Qt::Key_5, Qt::Key_0, Qt::Key_6})
        tour.key(calendar, digit); // to the room that the party has
    tour.picture(calendar, u"客房日历-预留"_s);
    tour.key(calendar, Qt::Key_Enter);
    auto* list = plans.findChild<GridView*>(u"YdxxQd"_s);
    tour.expect(list->table().text(list->currentRow(), 1) == u"宋建国", u"日历没有打开预定"_s);
    tour.press(calendar, u"NextCmd"_s);
    tour.key(calendar, Qt::Key_End);
    tour.picture(calendar, u"客房日历-后一周"_s);
    tour.press(calendar, u"TodayCmd"_s);
    tour.choose(calendar, u"Fx"_s, u"行政套房"_s);
    tour.picture(calendar, u"客房日历-重复占用"_s);
    calendar.close();
    plans.close();
    tour.leave();
}

// A tap is reported, mended and filed.
void RepairARoom(Tour& tour) {
    tour.logIn(u"KEFANG"_s, u"333333"_s);
    tour.press(tour.mainWindow(), u"Kfzx_cmd"_s);
    tour.press(tour.mainWindow(), u"Kfwh_cmd"_s);
    Screen& repairs = tour.opened(u"frmWX"_s);
    const int before = PlansOf(repairs, u"WxxxQd"_s);
    tour.type(repairs, u"Fh"_s, u"8303"_s);
    tour.type(repairs, u"Mqzt"_s, u"住客"_s);
    tour.type(repairs, u"Wxyy"_s, u"卫生间水龙头漏水"_s);
    tour.press(repairs, u"CmdAdd"_s);
    tour.expect(PlansOf(repairs, u"WxxxQd"_s) == before + 1, u"报修没有增加"_s);
    tour.picture(repairs, u"客房维修-报修"_s);
    auto* list = repairs.findChild<GridView*>(u"WxxxQd"_s);
    list->setCurrent(before + 1);
    tour.type(repairs, u"Wxjg"_s, u"已修复"_s);
    tour.type(repairs, u"Wxr"_s, u"马大勇"_s);
    tour.press(repairs, u"CmdModify"_s);
    tour.picture(repairs, u"客房维修-完成"_s);
    tour.press(repairs, u"CmdRange"_s);
    tour.expect(list->table().find(1, u"8303") < 0 || before > 0, u"维修没有整理"_s);
    tour.answering(u"CmnQuery"_s, [&tour](Screen& query) {
        tour.type(query, u"BxTj"_s, u"水龙头"_s);
        tour.press(query, u"Search_cmd"_s);
    });
    tour.press(repairs, u"HistCmd"_s);
    Screen& history = tour.opened(u"CmnGrd"_s);
    tour.picture(history, u"客房维修-历史资料"_s);
    history.close();
    repairs.close();
    tour.leave();
}

void CollectAReceivable(Tour& tour) {
    tour.logIn(u"XIAOSHOU"_s, u"777777"_s);
    tour.press(tour.mainWindow(), u"Xsyd_cmd"_s);
    tour.press(tour.mainWindow(), u"Ysk_cmd"_s);
    Screen& due = tour.opened(u"frmYsk"_s);
    const int before = PlansOf(due, u"YskQd"_s);
    tour.type(due, u"Je"_s, u"12800"_s);
    tour.type(due, u"Mqzt"_s, u"未收"_s);
    tour.type(due, u"Yskyy"_s, u"会议场租"_s);
    tour.press(due, u"CmdAdd"_s);
    auto* list = due.findChild<GridView*>(u"YskQd"_s);
    tour.expect(PlansOf(due, u"YskQd"_s) == before + 1, u"应收款没有增加"_s);
    list->setCurrent(before + 1);
    tour.type(due, u"Skjg"_s, u"转账收讫"_s);
    tour.picture(due, u"应收款管理"_s);
    tour.press(due, u"CmdModify"_s);
    tour.expect(list->table().text(before + 1, u"收款人") == u"黄美玲", u"应收款没有收"_s);
    tour.picture(due, u"应收款管理-收讫"_s);
    due.close();
    tour.leave();
}

} // namespace

void TourOfPlans(Tour& tour) {
    BookAParty(tour);
    LookAtTheCalendar(tour);
    RepairARoom(tour);
    CollectAReceivable(tour);
}

} // namespace hotel
