#include <QTabWidget>

#include "app/tour/tour.h"
#include "house/folios/folio_summary.h"
#include "record/literals.h"
#include "screen/grid_view.h"
#include "screen/open_screen.h"
#include "screen/screen.h"
#include "shell/mainfrm.h"

namespace hotel {

namespace {

// A folio of one room, of the guest who has stayed longest.
QString FolioOfOneRoom() {
    QString found;
    const QHash<QString, FolioSummary> folios = LoadFolioSummaries();
    for (auto folio = folios.begin(); folio != folios.end(); ++folio) {
        if (folio->rooms.size() == 1 && (found.isEmpty() || folio.key() < found))
            found = folio.key();
    }
    return found;
}

int Rows(Screen& screen, const QString& list) {
    return screen.findChild<GridView*>(list)->table().dataRows();
}

void ShowPage(Screen& screen, int page) {
    screen.findChild<QTabWidget*>(u"Pages"_s)->setCurrentIndex(page);
}

void TakeADeposit(Tour& tour, Screen& charges) {
    ShowPage(charges, 0);
    const int before = Rows(charges, u"XyyjQd"_s);
    tour.choose(charges, u"Xyzl"_s, u"现金押金"_s);
    tour.choose(charges, u"Zffs"_s, u"现金"_s);
    tour.type(charges, u"Yje"_s, u"500"_s);
    tour.type(charges, u"Xysm"_s, u"收据 0012345"_s);
    tour.press(charges, u"YjAdd"_s);
    tour.expect(Rows(charges, u"XyyjQd"_s) == before + 1, u"押金没有增加"_s);
    tour.picture(charges, u"费用查询-信用押金"_s);
    tour.press(charges, u"YjPrint"_s);
    Screen& preview = tour.opened(u"PrtPrev"_s);
    tour.printToPdf(preview, u"宾客押金凭证-收押金"_s);
    preview.close();
}

// Dinner is posted, and taken back at once: it was another room's.
void PostAndTakeBack(Tour& tour, Screen& charges) {
    ShowPage(charges, 2);
    const int before = Rows(charges, u"CyylQd"_s);
    tour.choose(charges, u"Cymc"_s, u"中餐"_s);
    tour.type(charges, u"Xfje"_s, u"128.5*2"_s);
    tour.press(charges, u"XfAdd"_s);
    tour.expect(Rows(charges, u"CyylQd"_s) == before + 1, u"餐费没有增加"_s);
    tour.picture(charges, u"费用查询-餐饮娱乐"_s);
    tour.press(charges, u"XfDel"_s);
    tour.expect(Rows(charges, u"CyylQd"_s) == before, u"餐费没有删除"_s);
    tour.picture(charges, u"费用查询-餐饮退回"_s);
    for (const auto& [page, name] :
         {std::pair(1, u"房费"_s), {3, u"宽带网络"_s}, {4, u"电话"_s}, {5, u"客房服务"_s}}) {
        ShowPage(charges, page);
        tour.picture(charges, u"费用查询-"_s + name);
    }
}

void PrintTheStatement(Tour& tour, Screen& charges) {
    tour.press(charges, u"StatementCmd"_s);
    Screen& preview = tour.opened(u"PrtPrev"_s);
    tour.picture(preview, u"预览-账单"_s);
    tour.printToPdf(preview, u"账单"_s);
    preview.close();
}

// The folio of that number with its guest, whom Enter takes from the list beside the pages.
void OpenFolio(Tour& tour, Screen& screen, const QString& folio) {
    tour.type(screen, u"Jzh"_s, folio);
    tour.type(screen, u"Krxm"_s, {});
    tour.key(screen, Qt::Key_Return);
}

} // namespace

// The cashier posts to a folio, takes back, prints; the restaurant has a voucher signed.
void TourOfCharges(Tour& tour) {
    tour.logIn(u"SHOUYIN"_s, u"444444"_s);
    tour.press(tour.mainWindow(), u"Syjs_cmd"_s);
    tour.press(tour.mainWindow(), u"Fycx_cmd"_s);
    Screen& charges = tour.opened(u"FyxxFrm"_s);
    const QString folio = FolioOfOneRoom();
    OpenFolio(tour, charges, folio);
    TakeADeposit(tour, charges);
    PostAndTakeBack(tour, charges);
    PrintTheStatement(tour, charges);
    charges.close();
    tour.leave();

    tour.logIn(u"CANYIN"_s, u"999999"_s);
    tour.press(tour.mainWindow(), u"SwCy_cmd"_s);
    tour.press(tour.mainWindow(), u"Qdjz_cmd"_s);
    Screen& voucher = tour.opened(u"QdjzFrm"_s);
    OpenFolio(tour, voucher, folio);
    tour.choose(voucher, u"Cymc"_s, u"中餐"_s);
    tour.type(voucher, u"Xfje"_s, u"86"_s);
    tour.press(voucher, u"XfAdd"_s);
    tour.picture(voucher, u"签单记账"_s);
    voucher.close();
    tour.leave();
}

} // namespace hotel
