#include <QScrollBar>
#include <QTabWidget>
#include <QTest>

#include "app/tour/tour.h"
#include "frontoffice/room_map.h"
#include "house/rooms/room_record.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "screen/open_screen.h"
#include "shell/mainfrm.h"

namespace hotel {

namespace {

constexpr QStringView kDirty = u"8305";

QString AnOccupiedRoom(const RoomMap& map) {
    for (int row = 1; row < map.table().rows(); ++row) {
        for (int column = 1; column < map.table().cols(); ++column) {
            const QString room = map.room(row, column);
            if (!room.isEmpty() && !GetKfrzxx(room).isEmpty())
                return room;
        }
    }
    return {};
}

void GuestsOfARoom(Tour& tour, RoomMap& map) {
    map.selectRoom(AnOccupiedRoom(map));
    QTest::keyClick(&map, Qt::Key_Return);
    Screen& guests = tour.opened(u"KfxxFrm"_s);
    tour.picture(guests, u"房态-住客"_s);
    guests.close();
}

void StatusByHand(Tour& tour, Screen& board, RoomMap& map) {
    const QString before = GetTag(GetKfjbxx(kDirty), room_record::kStatus);
    board.activateWindow();
    tour.waitFor([&] { return board.isActiveWindow(); }, u"房态图没有到前面"_s);
    map.setFocus();
    QTest::keyClicks(&map, kDirty.toString());
    QTest::keyClick(&board, Qt::Key_1, Qt::AltModifier);
    const auto isVacant = [] { return GetTag(GetKfjbxx(kDirty), room_record::kStatus) == u"空房"; };
    tour.expect(isVacant(), kDirty + u" 的房态没有改变"_s);
    tour.picture(board, u"房态-人工设定"_s);
    SetKfft(kDirty, before);
}

// What is shown, on the last tab beside the board.
void Choices(Tour& tour, Screen& board) {
    auto* figures = board.findChild<QTabWidget*>(u"figures"_s);
    figures->setCurrentIndex(figures->count() - 1);
    tour.picture(board, u"房态-显示选择"_s);
    figures->setCurrentIndex(0);
}

// As the front desk's large display has it.
void LargeDisplay(Tour& tour, Screen& board, RoomMap& map) {
    board.setWindowState(Qt::WindowNoState);
    board.resize(1920, 1040);
    tour.picture(board, u"房态图-1920"_s);
    tour.expect(!map.verticalScrollBar()->isVisible(), u"房态图没有全部显示"_s);
}

} // namespace

// The desk looks at the house.
void TourOfBoard(Tour& tour) {
    tour.logIn(u"QIANTAI"_s, u"111111"_s);
    tour.press(tour.mainWindow(), u"Qtjd_cmd"_s);
    tour.press(tour.mainWindow(), u"Ftxx_cmd"_s);
    Screen& board = tour.opened(u"Ftxxfrm"_s);
    auto& map = *board.findChild<RoomMap*>(u"KfztTb"_s);
    tour.picture(board, u"房态图"_s);
    GuestsOfARoom(tour, map);
    StatusByHand(tour, board, map);
    tour.press(board, u"TabCmd"_s);
    tour.picture(board, u"房态清单"_s);
    tour.press(board, u"TabCmd"_s);
    Choices(tour, board);
    LargeDisplay(tour, board, map);
    board.close();
    tour.leave();
}

} // namespace hotel
