#include <QLineEdit>

#include "app/tour/tour.h"
#include "record/literals.h"
#include "screen/field_form.h"
#include "screen/grid_view.h"
#include "screen/open_screen.h"
#include "shell/mainfrm.h"

namespace hotel {

namespace {

// A room with two guests who share it on one folio; the first in the list.
QString RoomOfACouple(Tour& tour, const TextTable& rooms) {
    for (int row = 1; row < rooms.rows(); ++row) {
        if (rooms.text(row, u"房态") == u"包房" && rooms.text(row, u"住客数") == u"2")
            return rooms.text(row, u"房间号");
    }
    tour.expect(false, u"没有两人同住的包房"_s);
    return {};
}

} // namespace

// A couple moves away from a noisy street, with the notice for housekeeping and the cashier.
void TourOfRoomChange(Tour& tour) {
    tour.logIn(u"QIANTAI"_s, u"111111"_s);
    tour.press(tour.mainWindow(), u"Qtjd_cmd"_s);
    tour.press(tour.mainWindow(), u"Krhf_cmd"_s);
    Screen& move = tour.opened(u"KrhfFrm"_s);
    const TextTable& occupied = move.findChild<GridView*>(u"KrfjQd"_s)->table();
    const TextTable& offered = move.findChild<GridView*>(u"Kxkfqd"_s)->table();
    const QString from = RoomOfACouple(tour, occupied);
    const QString to = offered.text(offered.find(offered.column(u"房态"), u"空房"), u"房间号");
    tour.type(move, u"Yfjh"_s, from);
    tour.key(move, Qt::Key_Return);
    tour.type(move, u"Xfjh"_s, to);
    tour.key(move, Qt::Key_Return);
    tour.type(move, u"Hfyy"_s, u"外界噪音"_s);
    tour.picture(move, u"客人换房"_s);

    tour.answering(u"RzdjFrm"_s, [&tour](Screen& guest) {
        tour.picture(guest, u"住客信息-换房核实"_s);
        tour.press(guest, u"ExitCmd"_s);
    });
    tour.press(move, u"XgCmd"_s);
    tour.press(move, u"DyCmd"_s);
    Screen& preview = tour.opened(u"PrtPrev"_s);
    tour.picture(preview, u"预览-换房通知单"_s);
    tour.printToPdf(preview, u"换房通知单"_s);
    preview.close();

    tour.press(move, u"QrCmd"_s);
    tour.expect(occupied.find(0, to) > 0 && occupied.find(0, from) < 0, u"客人没有换房"_s);
    tour.picture(move, u"客人换房-完成"_s);
    move.close();
    tour.leave();
}

} // namespace hotel
