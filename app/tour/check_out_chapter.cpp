#include <QLineEdit>
#include <algorithm>
#include <functional>

#include "app/tour/tour.h"
#include "house/folios/folio.h"
#include "house/folios/folio_summary.h"
#include "house/rooms/room_record.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "screen/grid_view.h"
#include "screen/open_screen.h"
#include "screen/screen.h"
#include "shell/mainfrm.h"

namespace hotel {

namespace {

// The folio of the biggest party, and the newest one of a single room: an old one may owe more than is paid.
QString GroupsFolio(const QHash<QString, FolioSummary>& folios) {
    const QStringList numbers = folios.keys();
    return *std::ranges::max_element(
        numbers, {}, [&](const QString& number) { return folios[number].rooms.size(); });
}

QString FolioOfOneRoom(const QHash<QString, FolioSummary>& folios, const QString& butNot) {
    QStringList numbers = folios.keys();
    std::ranges::sort(numbers, std::greater());
    return *std::ranges::find_if(numbers, [&](const QString& number) {
        return number != butNot && folios[number].rooms.size() == 1;
    });
}

// A folio with a room that is let by the hour.
QString FolioByTheHour(const QHash<QString, FolioSummary>& folios) {
    for (auto folio = folios.begin(); folio != folios.end(); ++folio) {
        for (const QString& room : folio->rooms) {
            if (GetTag(GetKfjbxx(room), room_record::kStatus) == u"钟点")
                return folio.key();
        }
    }
    return {};
}

QString Shown(Screen& screen, const QString& box) {
    return screen.findChild<QLineEdit*>(box)->text();
}

void OpenFolioOf(Tour& tour, Screen& screen, const QString& folio) {
    tour.type(screen, u"Jzh"_s, folio);
    tour.press(screen, u"DjCmd"_s);
}

void PartLeaves(Tour& tour, Screen& screen, const QString& folio) {
    OpenFolioOf(tour, screen, folio);
    auto* list = screen.findChild<GridView*>(u"Jzdxqd"_s);
    const int rooms = list->table().dataRows();
    for (int row = 4; row <= rooms; ++row) {
        list->setCurrent(row);
        tour.press(screen, u"XzCmd"_s);
    }
    list->setCurrent(2, 7);
    tour.key(screen, Qt::Key_Escape);
    for (const Qt::Key digit : {Qt::Key_1, Qt::Key_2, Qt::Key_0})
        tour.key(screen, digit);
    tour.picture(screen, u"结账退房-部分"_s);
    tour.messages().answerNext(u"yes"_s);
    tour.press(screen, u"QrCmd"_s);
    tour.expect(list->table().dataRows() == rooms - 3, u"没有退掉三间"_s);
}

void AllPay(Tour& tour, Screen& screen, const QString& folio) {
    OpenFolioOf(tour, screen, folio);
    tour.picture(screen, u"结账退房"_s);
    tour.answering(u"QrtfFrm"_s, [&](Screen& dialog) {
        tour.type(dialog, u"Ssje"_s, u"2000"_s);
        tour.picture(dialog, u"结账收款"_s);
        tour.press(dialog, u"QrCmd"_s);
    });
    tour.press(screen, u"QrCmd"_s);
    tour.expect(tour.messages().last() == u"账务已经结清", folio + u" 没有结清"_s);
    tour.expect(!FindOpenFolio(folio), folio + u" 没有注销"_s);
}

// Whoever took a room by the hour pays the hours, with what the screen proposes.
void SomebodyPaysByTheHour(Tour& tour, Screen& screen, const QString& folio) {
    tour.expect(!folio.isEmpty(), u"没有钟点房"_s);
    OpenFolioOf(tour, screen, folio);
    tour.picture(screen, u"结账退房-钟点房"_s);
    tour.answering(u"QrtfFrm"_s, [&](Screen& dialog) {
        tour.type(dialog, u"Ssje"_s, u"500"_s);
        tour.press(dialog, u"QrCmd"_s);
    });
    tour.press(screen, u"QrCmd"_s);
    tour.expect(!FindOpenFolio(folio), folio + u" 没有注销"_s);
}

// The company pays for the rest of the group.
void TheTeamSigns(Tour& tour, Screen& screen, const QString& folio) {
    OpenFolioOf(tour, screen, folio);
    tour.answering(u"QrtfFrm"_s, [&](Screen& dialog) {
        tour.answering(u"TeamPicker"_s, [&](Screen& picker) {
            tour.picture(picker, u"选择签单单位"_s);
            tour.key(picker, Qt::Key_Return);
        });
        tour.type(dialog, u"Khh"_s, u"江城"_s);
        tour.key(dialog, Qt::Key_Return);
        tour.type(dialog, u"Ssje"_s, Shown(dialog, u"Ysje"_s));
        tour.picture(dialog, u"结账收款-团队"_s);
        tour.press(dialog, u"QrCmd"_s);
    });
    tour.press(screen, u"QrCmd"_s);
    tour.expect(tour.messages().last() == u"团队账务已经保存", folio + u" 没有签单"_s);
}

} // namespace

// Guests leave: a part of a group, somebody by the hour, somebody with cash, the group on its company's account.
void TourOfCheckOut(Tour& tour) {
    tour.logIn(u"XIAOSHOU"_s, u"777777"_s);
    tour.press(tour.mainWindow(), u"Xsyd_cmd"_s);
    tour.press(tour.mainWindow(), u"Tdkh_cmd"_s);
    Screen& companies = tour.opened(u"khxxmain"_s);
    companies.findChild<GridView*>(u"KhQd"_s)->setCurrent(1);
    tour.picture(companies, u"团队客户"_s);
    companies.close();
    tour.leave();

    tour.logIn(u"SHOUYIN"_s, u"444444"_s);
    tour.press(tour.mainWindow(), u"Syjs_cmd"_s);
    tour.press(tour.mainWindow(), u"Jztf_cmd"_s);
    Screen& screen = tour.opened(u"JztfFrm"_s);
    const QHash<QString, FolioSummary> folios = LoadFolioSummaries();
    const QString group = GroupsFolio(folios);
    PartLeaves(tour, screen, group);
    const QString byTheHour = FolioByTheHour(folios);
    SomebodyPaysByTheHour(tour, screen, byTheHour);
    AllPay(tour, screen, FolioOfOneRoom(folios, byTheHour));
    TheTeamSigns(tour, screen, group);
    screen.close();
    tour.leave();
}

} // namespace hotel
