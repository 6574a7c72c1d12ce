#include <QListWidget>
#include <QTime>
#include <QTimer>

#include "app/tour/tour.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "screen/grid_view.h"
#include "screen/open_screen.h"
#include "shell/mainfrm.h"

namespace hotel {

namespace {

// The desk's clock at this time of the day: the night is not waited for.
void MoveTo(QTime time, QDate day = Clock::Today()) {
    Clock::Freeze(QDateTime(day, time));
}

void TryTooEarly(Tour& tour) {
    MoveTo(QTime(21, 59, 59));
    tour.messages().clear();
    tour.press(tour.mainWindow(), u"Ystj_cmd"_s);
    tour.expect(tour.messages().last() == u"夜审时间通常在22：00 - 07：00之间进行",
                u"夜审没有等到时间"_s);
}

void AuditTheNight(Tour& tour) {
    MoveTo(QTime(23, 10));
    tour.press(tour.mainWindow(), u"Ystj_cmd"_s);
    Screen& audit = tour.opened(u"YstjFrm"_s);
    const auto* log = audit.findChild<QListWidget*>(u"YsStat"_s);
    tour.waitFor([log] { return log->count() > 4; }, u"夜审没有开始"_s);
    tour.picture(audit, u"夜审进行中"_s);
    const auto* steps = audit.findChild<QTimer*>(u"Timer1"_s);
    tour.waitFor([steps] { return steps->property("Tag").toString().isEmpty(); },
                 u"夜审没有结束"_s);
    tour.expect(log->count() > 40, u"夜审没有结算房费"_s);
    tour.picture(audit, u"夜审结束"_s);

    tour.press(audit, u"CmdPrint"_s);
    Screen& preview = tour.opened(u"PrtPrev"_s);
    tour.picture(preview, u"预览-夜审记录"_s);
    tour.printToPdf(preview, u"夜审记录"_s);
    preview.close();
    audit.close();
}

// The next night; its log goes to a file.
void AuditTheNextNight(Tour& tour) {
    MoveTo(QTime(22, 40), Clock::Today().addDays(1));
    tour.press(tour.mainWindow(), u"Ystj_cmd"_s);
    Screen& audit = tour.opened(u"YstjFrm"_s);
    const auto* log = audit.findChild<QListWidget*>(u"YsStat"_s);
    const auto* steps = audit.findChild<QTimer*>(u"Timer1"_s);
    tour.waitFor([&] { return log->count() > 4 && steps->property("Tag").toString().isEmpty(); },
                 u"第二夜的夜审没有结束"_s);
    tour.expect(log->count() > 40, u"第二夜没有结算房费"_s);
    tour.picture(audit, u"夜审-第二夜"_s);
    audit.close();
}

// Who has used up his credit after these nights?
void LookAtBalances(Tour& tour) {
    tour.messages().answerNext(u"600"_s);
    tour.press(tour.mainWindow(), u"Yecy_cmd"_s);
    Screen& list = tour.opened(u"CmnGrd"_s);
    const auto* rows = list.findChild<GridView*>(u"GrdView"_s);
    tour.waitFor([rows] { return rows->isVisible() && rows->table().dataRows() > 5; },
                 u"余额没有列出"_s);
    tour.picture(list, u"余额查验"_s);
    const int last = rows->table().cols() - 1;
    tour.expect(rows->columnViewportPosition(last) + rows->columnWidth(last) <=
                    rows->viewport()->width(),
                u"信用余额看不见"_s);
    list.close();
}

} // namespace

// The night auditor comes too early first, then charges two nights, prints a log and looks at the balances.
void TourOfNightAudit(Tour& tour) {
    tour.logIn(u"YESHEN"_s, u"555555"_s);
    tour.press(tour.mainWindow(), u"Syjs_cmd"_s);
    TryTooEarly(tour);
    AuditTheNight(tour);
    AuditTheNextNight(tour);
    LookAtBalances(tour);
    Clock::Resume();
    tour.leave();
}

} // namespace hotel
