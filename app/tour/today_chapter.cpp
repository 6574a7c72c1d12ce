#include <QLabel>

#include "app/tour/tour.h"
#include "record/literals.h"
#include "screen/grid_view.h"
#include "shell/mainfrm.h"

namespace hotel {

namespace {

// The heading tells when the sheet of the day was made, by this desk if nobody was ahead of it.
void WaitForTheSheet(Tour& tour, const QString& list) {
    const auto* heading = tour.mainWindow().findChild<QLabel*>(list + u"Heading"_s);
    tour.waitFor([heading] { return heading->text().contains(u"核对）"); }, list + u" 没有核对"_s);
}

} // namespace

// The shift leader comes in: who leaves today, and who has used up his credit.
void TourOfToday(Tour& tour) {
    tour.logIn(u"LIBAN"_s, u"222222"_s);
    WaitForTheSheet(tour, u"TodayDepartures"_s);
    WaitForTheSheet(tour, u"TodayBalances"_s);
    tour.picture(tour.mainWindow(), u"今日"_s);

    auto* leaving = tour.mainWindow().findChild<GridView*>(u"TodayDepartures"_s);
    tour.expect(leaving->table().dataRows() > 1, u"今天没有客人离店"_s);
    leaving->setFocus();
    leaving->setCurrent(1);
    tour.key(tour.mainWindow(), Qt::Key_Down);
    tour.key(tour.mainWindow(), Qt::Key_Return);
    Screen& checkOut = tour.opened(u"JztfFrm"_s);
    tour.picture(checkOut, u"今日-离店客人结账"_s);
    checkOut.close();

    tour.press(tour.mainWindow(), u"Syjs_cmd"_s);
    tour.press(tour.mainWindow(), u"Today_cmd"_s);
    tour.expect(leaving->isVisible(), u"没有回到今日"_s);
    tour.leave();
}

} // namespace hotel
