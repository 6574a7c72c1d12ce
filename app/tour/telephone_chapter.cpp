#include <QApplication>
#include <QLineEdit>
#include <QTabWidget>

#include "app/demo/exchange.h"
#include "app/tour/tour.h"
#include "house/folios/folio_summary.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "screen/grid_view.h"
#include "screen/open_screen.h"
#include "shell/mainfrm.h"

namespace hotel {

namespace {

constexpr int kDays = 3;
constexpr int kCallsADay = 25;

// The exchange writes the calls of the last days.
void PlayTheExchange(Tour& tour) {
    const BillingFiles files;
    const QStringList extensions = PlayedExtensions(files);
    QRandomGenerator random(6800);
    for (int ago = kDays - 1; ago >= 0; --ago) {
        const QTime until = ago == 0 ? Clock::Time() : QTime(23, 59, 59);
        const QDate day = Clock::Today().addDays(-ago);
        tour.expect(WriteCalls(files, PlayDay(random, extensions, day, until, kCallsADay)) ==
                        kCallsADay,
                    u"话单没有写入"_s);
    }
}

void ShowPage(Screen& desk, int page, Tour& tour, const QString& name) {
    desk.findChild<QTabWidget*>(u"Pages"_s)->setCurrentIndex(page);
    tour.picture(desk, u"电话计费-"_s + name);
}

// From the day before yesterday on, day after day, as the desk finds them.
void WatchCallsComeIn(Tour& tour, Screen& desk) {
    auto* day = desk.findChild<QLineEdit*>(u"BillDate"_s);
    auto* list = desk.findChild<GridView*>(u"LjjfQd"_s);
    day->setFocus();
    day->setText(Clock::Today().addDays(1 - kDays).toString(Qt::ISODate));
    list->setFocus();
    tour.waitFor([list] { return list->table().dataRows() >= kDays * kCallsADay; },
                 u"话单没有计费"_s);
    tour.expect(day->text() == Clock::DateText(), u"计费日期没有到今天"_s);
    tour.picture(desk, u"电话计费-实时"_s);
}

void SearchTheMonth(Tour& tour, Screen& desk) {
    ShowPage(desk, 1, tour, u"查询"_s);
    desk.findChild<QLineEdit*>(u"CxQsrq"_s)
        ->setText(Clock::Today().addDays(1 - kDays).toString(Qt::ISODate));
    tour.press(desk, u"CxTjCmd"_s);
    Screen& found = tour.opened(u"CmnGrd"_s);
    auto* rows = found.findChild<GridView*>(u"GrdView"_s);
    tour.waitFor([rows] { return rows->isVisible() && rows->table().dataRows() > kCallsADay; },
                 u"话单没有查出"_s);
    tour.picture(found, u"电话话单清单"_s);
    tour.press(found, u"Print_cmd"_s);
    Screen& preview = tour.opened(u"PrtPrev"_s);
    tour.picture(preview, u"预览-电话话单"_s);
    tour.printToPdf(preview, u"电话话单清单"_s);
    preview.close();
    found.close();
}

// A prefix that the house wants at a price of its own.
void KeepTheTables(Tour& tour, Screen& desk) {
    ShowPage(desk, 2, tour, u"分机"_s);
    desk.findChild<GridView*>(u"UserList"_s)->setCurrent(1, 0);
    tour.picture(desk, u"电话计费-分机修改"_s);
    ShowPage(desk, 3, tour, u"费率"_s);
    for (const auto& [field, text] : {std::pair(u"Ht"_s, u"0898"_s),
                                      {u"Fllb"_s, u"国内长途"_s},
                                      {u"Fl"_s, u"0.5"_s},
                                      {u"Thdq"_s, u"海口"_s}})
        tour.type(desk, field, text);
    tour.press(desk, u"FeeAdd"_s);
    tour.press(desk, u"FeeModify"_s);
    tour.picture(desk, u"电话计费-费率修改"_s);
    desk.findChild<QTabWidget*>(u"Pages"_s)->setCurrentIndex(4);
    for (const QString& line :
         {u"AUTOCHECK=600"_s, u"HALFFEE=1111111 1111111  220006590500010"_s}) {
        tour.type(desk, u"ConfigItem"_s, line);
        tour.key(desk, Qt::Key_Return);
    }
    tour.picture(desk, u"电话计费-参数"_s);
}

QString FolioOfOneRoom() {
    QString found;
    const QHash<QString, FolioSummary> folios = LoadFolioSummaries();
    for (auto folio = folios.begin(); folio != folios.end(); ++folio) {
        if (folio->rooms.size() == 1 && (found.isEmpty() || folio.key() < found))
            found = folio.key();
    }
    return found;
}

// The cashier reads a call off the list and posts it by hand.
void PostACall(Tour& tour) {
    tour.logIn(u"SHOUYIN"_s, u"444444"_s);
    tour.press(tour.mainWindow(), u"Syjs_cmd"_s);
    tour.press(tour.mainWindow(), u"Fycx_cmd"_s);
    Screen& charges = tour.opened(u"FyxxFrm"_s);
    tour.type(charges, u"Jzh"_s, FolioOfOneRoom());
    tour.type(charges, u"Krxm"_s, {});
    tour.key(charges, Qt::Key_Return);
    charges.findChild<QTabWidget*>(u"Pages"_s)->setCurrentIndex(4);
    const int before = charges.findChild<GridView*>(u"DhjfQd"_s)->table().dataRows();
    tour.choose(charges, u"DxywMc"_s, u"国内长途"_s);
    tour.choose(charges, u"Dxjsdd"_s, u"总机"_s);
    for (const auto& [field, text] : {std::pair(u"Thsc"_s, u"22"_s),
                                      {u"Tddq"_s, u"北京"_s},
                                      {u"Hfje"_s, u"13.20"_s},
                                      {u"Fwfje"_s, u"1.32"_s},
                                      {u"Bjhm"_s, u"01065881190"_s}})
        tour.type(charges, field, text);
    charges.findChild<QWidget*>(u"Dhbz"_s)->setFocus();
    tour.press(charges, u"DhfAdd"_s);
    tour.expect(charges.findChild<GridView*>(u"DhjfQd"_s)->table().dataRows() == before + 1,
                u"话费没有入账"_s);
    tour.picture(charges, u"费用查询-电话入账"_s);
    charges.close();
    tour.leave();
}

} // namespace

// The exchange writes calls, the desk rates them; a month is searched and printed, the cashier posts a call.
void TourOfTelephone(Tour& tour) {
    tour.logIn(u"ZONGJI"_s, u"888888"_s);
    PlayTheExchange(tour);
    tour.press(tour.mainWindow(), u"SwCy_cmd"_s);
    tour.press(tour.mainWindow(), u"Dhjf_cmd"_s);
    Screen& desk = tour.opened(u"Accntfrm"_s);
    WatchCallsComeIn(tour, desk);
    SearchTheMonth(tour, desk);
    KeepTheTables(tour, desk);
    desk.close();
    tour.press(tour.mainWindow(), u"Hdfj_cmd"_s);
    Screen& calls = tour.opened(u"HdfjFrm"_s);
    tour.picture(calls, u"话单分拣"_s);
    calls.close();
    tour.leave();
    PostACall(tour);
}

} // namespace hotel
