#include <QLineEdit>
#include <QPainter>
#include <QPixmap>
#include <QTabWidget>
#include <QTemporaryDir>

#include "app/tour/tour.h"
#include "record/literals.h"
#include "screen/grid_view.h"
#include "screen/open_screen.h"
#include "shell/mainfrm.h"

namespace hotel {

namespace {

Screen& Opened(Tour& tour, const QString& name) {
    Screen* screen = FindScreen(name);
    tour.expect(screen && screen->isVisible(), name + u" 没有打开"_s);
    return *screen;
}

GridView& Grid(Screen& screen, const QString& name) {
    return *screen.findChild<GridView*>(name);
}

// A photograph as the hotel's camera might have taken it.
QString TakePhotograph(const QString& folder) {
    QPixmap photograph(640, 480);
    QPainter painter(&photograph);
    painter.fillRect(0, 0, 640, 300, QColor(0xE8, 0xDC, 0xC4));
    painter.fillRect(0, 300, 640, 180, QColor(0x8A, 0x60, 0x3C));
    painter.fillRect(380, 60, 180, 160, QColor(0xA8, 0xD0, 0xF0));
    painter.fillRect(80, 200, 360, 180, Qt::white);
    painter.fillRect(80, 280, 360, 100, QColor(0x9C, 0x2A, 0x2A));
    painter.end();
    const QString path = folder + u"/8888.jpg"_s;
    photograph.save(path);
    return path;
}

void TypeRoom(Tour& tour, Screen& rooms, const QStringList& values) {
    const QStringList boxes = {u"Fjh"_s, u"Lch"_s, u"Cws"_s, u"Dhhm"_s, u"Wldk"_s, u"Sm"_s};
    for (int i = 0; i < boxes.size(); ++i) {
        rooms.findChild<QLineEdit*>(boxes[i])->clear();
        tour.type(rooms, boxes[i], values[i]);
    }
    tour.choose(rooms, u"Fjlx"_s, values.last());
}

void TourOfRoomSet(Tour& tour) {
    tour.press(tour.mainWindow(), u"Jlbg_cmd"_s);
    tour.press(tour.mainWindow(), u"Kfcs_cmd"_s);
    Screen& rooms = Opened(tour, u"RoomSet"_s);
    GridView& list = Grid(rooms, u"KfQd"_s);
    const int before = list.table().dataRows();
    const QTemporaryDir folder;
    TypeRoom(tour, rooms,
             {u"8888"_s, u"8"_s, u"2"_s, u"8888"_s, u"A0888"_s, u"江景"_s, u"行政套房"_s});
    tour.messages().answerNext(TakePhotograph(folder.path()));
    tour.press(rooms, u"ZpCmd"_s);
    tour.picture(rooms, u"客房参数-增加"_s);
    tour.press(rooms, u"CmdAdd"_s);
    tour.expect(list.table().dataRows() == before + 1, u"客房没有增加"_s);
    Q_EMIT list.rowClicked(list.currentRow(), 1);
    tour.picture(rooms, u"客房参数-照片"_s);

    tour.press(rooms, u"CmdPrint"_s);
    Screen& preview = Opened(tour, u"PrtPrev"_s);
    tour.picture(preview, u"客房清单打印"_s);
    preview.close();

    tour.messages().answerNext(u"ok"_s);
    tour.press(rooms, u"cmdDel"_s);
    tour.expect(list.table().dataRows() == before, u"客房没有删除"_s);
    rooms.close();
}

void TourOfRates(Tour& tour) {
    OpenScreen(u"Fjxxfrm");
    Screen& rates = Opened(tour, u"Fjxxfrm"_s);
    tour.picture(rates, u"最新房价表"_s);
    rates.close();
}

void TourOfRoomGuests(Tour& tour) {
    OpenScreen(u"KfxxFrm", u"8317"_s); // a family of three
    Screen& guests = Opened(tour, u"KfxxFrm"_s);
    tour.picture(guests, u"客房住客信息"_s);
    guests.close();
}

void TourOfParameters(Tour& tour) {
    tour.press(tour.mainWindow(), u"Xtgl_cmd"_s);
    tour.press(tour.mainWindow(), u"Xtcs_cmd"_s);
    Screen& parameters = Opened(tour, u"ParaFrm"_s);
    auto* tabs = parameters.findChild<QTabWidget*>(u"tabs"_s);
    for (int tab = 0; tab < tabs->count() - 1; ++tab) {
        tabs->setCurrentIndex(tab);
        tour.picture(parameters, u"系统参数-"_s + tabs->tabText(tab));
    }
    tabs->setCurrentIndex(tabs->count() - 1);
    tour.type(parameters, u"Gzrsm"_s, u"国庆节调休"_s);
    tour.choose(parameters, u"Hsxq"_s, u"星期五"_s);
    tour.press(parameters, u"AddRq"_s);
    tour.press(parameters, u"SaveRq"_s);
    tour.picture(parameters, u"系统参数-特殊工作日"_s);
    parameters.close();
}

} // namespace

// What the house is made of: rooms, rates, parameters.
void TourOfRooms(Tour& tour) {
    tour.logIn(u"JINGLI"_s, u"666666"_s);
    TourOfRoomSet(tour);
    TourOfRates(tour);
    TourOfRoomGuests(tour);
    tour.leave();
    tour.logIn(u"ADMIN"_s, u"admin888"_s);
    TourOfParameters(tour);
    tour.leave();
}

} // namespace hotel
