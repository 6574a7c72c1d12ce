#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QTemporaryDir>

#include "app/tour/tour.h"
#include "house/rooms/room_record.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "screen/field_form.h"
#include "screen/grid_view.h"
#include "screen/open_screen.h"
#include "shell/mainfrm.h"

namespace hotel {

namespace {

struct Guest {
    QString name;
    QString number; // of a resident identity card
};

// The front desk with its check-in screen open.
class FrontDesk {
public:
    explicit FrontDesk(Tour& tour) : tour_(tour) {
        tour.logIn(u"QIANTAI"_s, u"111111"_s);
        tour.press(tour.mainWindow(), u"Qtjd_cmd"_s);
        tour.press(tour.mainWindow(), u"Rzjd_cmd"_s);
        screen_ = &tour.opened(u"RzjdFrm"_s);
    }

    Screen& screen() { return *screen_; }

    // The first so many rooms of a type on offer in a status; a type that is empty takes any.
    QStringList offered(const QString& type, const QString& status, int count) {
        const TextTable& list = screen_->findChild<GridView*>(u"Kxkfqd"_s)->table();
        QStringList rooms;
        for (int row = 1; row < list.rows() && rooms.size() < count; ++row) {
            const bool isWanted = (type.isEmpty() || list.text(row, u"客房类型") == type) &&
                                  list.text(row, u"房态") == status;
            if (isWanted)
                rooms.append(list.text(row, u"房间号"));
        }
        tour_.expect(rooms.size() == count, u"可选的%1不够"_s.arg(type));
        return rooms;
    }

    void chooseRooms(const QStringList& rooms) {
        tour_.type(*screen_, u"RoomBox"_s, rooms.join(u' '));
        tour_.key(*screen_, Qt::Key_Return);
        tour_.expect(screen_->findChild<GridView*>(u"Yxkfqd"_s)->table().dataRows() == rooms.size(),
                     u"客房没有选中"_s);
    }

    // Opens the guest form on the rooms chosen and has the party typed; F8 or F7 ends it.
    void typeParty(const std::function<void(Screen& form)>& typing) {
        tour_.answering(u"RzdjFrm"_s, typing);
        tour_.press(*screen_, u"DjCmd"_s);
    }

    void confirm(const QStringList& rooms, const QString& status) {
        tour_.press(*screen_, u"QrCmd"_s);
        for (const QString& room : rooms) {
            tour_.expect(GetTag(GetKfjbxx(room), room_record::kStatus) == status,
                         room + u" 没有登记为"_s + status);
        }
    }

private:
    Tour& tour_;
    Screen* screen_;
};

void TypeGuest(Tour& tour, Screen& form, const Guest& guest) {
    tour.type(form, u"Krxm"_s, guest.name);
    tour.key(form, Qt::Key_Return);
    tour.type(form, u"Zjhm"_s, guest.number);
    tour.key(form, Qt::Key_Return);
    tour.expect(!form.findChild<QLineEdit*>(u"Hkszd"_s)->text().isEmpty(),
                guest.name + u" 的证件号码没有读出地址"_s);
}

// A portrait as a camera might have taken it.
QString DrawPortrait(const QString& folder) {
    QPixmap portrait(480, 640);
    QPainter painter(&portrait);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.fillRect(portrait.rect(), QColor(0xB8, 0xC8, 0xD8));
    painter.setBrush(QColor(0x2C, 0x3E, 0x50));
    painter.drawEllipse(QRect(60, 430, 360, 400));
    painter.setBrush(QColor(0x20, 0x1A, 0x18));
    painter.drawEllipse(QRect(140, 130, 200, 220));
    painter.setBrush(QColor(0xE8, 0xC0, 0xA0));
    painter.drawEllipse(QRect(155, 175, 170, 240));
    painter.end();
    const QString path = folder + u"/portrait.jpg"_s;
    portrait.save(path);
    return path;
}

void CheckInWalkIn(Tour& tour, FrontDesk& desk) {
    const QStringList rooms = desk.offered(u"标准大床房"_s, u"空房"_s, 1);
    tour.picture(desk.screen(), u"入住登记-选择客房"_s);
    desk.chooseRooms(rooms);
    const QTemporaryDir folder;
    desk.typeParty([&](Screen& form) {
        tour.picture(form, u"住客信息-新客人"_s);
        TypeGuest(tour, form, {u"周建国"_s, u"510104198503052318"_s});
        tour.type(form, u"Zhcl"_s, u"bj"_s);
        tour.key(form, Qt::Key_Return);
        tour.choose(form, u"Fjzl"_s, u"前台价"_s);
        tour.messages().answerNext(DrawPortrait(folder.path()));
        tour.press(form, u"Rxpz"_s);
        tour.picture(form, u"住客信息-散客"_s);
        tour.press(form, u"ExitCmd"_s);
    });
    tour.picture(desk.screen(), u"入住登记-待确认"_s);
    tour.press(desk.screen(), u"DyCmd"_s);
    Screen& preview = tour.opened(u"PrtPrev"_s);
    tour.picture(preview, u"住宿登记单"_s);
    tour.printToPdf(preview, u"旅客住宿登记单-散客"_s);
    preview.close();
    desk.confirm(rooms, u"包房"_s);
}

void CheckInCouple(Tour& tour, FrontDesk& desk) {
    const QStringList rooms = desk.offered(u"标准双床房"_s, u"空房"_s, 1);
    desk.chooseRooms(rooms);
    desk.typeParty([&](Screen& form) {
        TypeGuest(tour, form, {u"许志强"_s, u"310104197811203612"_s});
        tour.choose(form, u"Fjzl"_s, u"协议价"_s);
        tour.press(form, u"NextC"_s);
        TypeGuest(tour, form, {u"郭晓梅"_s, u"310104198002143628"_s});
        tour.picture(form, u"住客信息-同住客人"_s);
        tour.press(form, u"ExitCmd"_s);
    });
    tour.press(desk.screen(), u"DyCmd"_s);
    Screen& preview = tour.opened(u"PrtPrev"_s);
    tour.printToPdf(preview, u"旅客住宿登记单-夫妻"_s);
    preview.close();
    desk.confirm(rooms, u"包房"_s);
}

void CheckInGroup(Tour& tour, FrontDesk& desk) {
    const QStringList rooms = desk.offered({}, u"空房"_s, 12);
    desk.chooseRooms(rooms);
    desk.typeParty([&](Screen& form) {
        TypeGuest(tour, form, {u"邓领队"_s, u"440106197006181534"_s});
        tour.choose(form, u"Ft"_s, u"团队"_s);
        tour.choose(form, u"Fjzl"_s, u"团队价"_s);
        tour.type(form, u"Jddw"_s, u"岭南旅行社"_s);
        tour.picture(form, u"住客信息-团队"_s);
        tour.press(form, u"KsCmd"_s);
    });
    tour.picture(desk.screen(), u"入住登记-团队"_s);
    desk.confirm(rooms, u"团队"_s);
}

// Two strangers in one room: the second finds it on offer again, and his own bed free.
void CheckInSharedRoom(Tour& tour, FrontDesk& desk) {
    const QStringList rooms = desk.offered(u"三人房"_s, u"空房"_s, 1);
    const auto join = [&](const Guest& guest) {
        desk.chooseRooms(rooms);
        desk.typeParty([&](Screen& form) {
            TypeGuest(tour, form, guest);
            form.findChild<QAbstractButton*>(u"Skhz"_s)->setChecked(false);
            form.findChild<QAbstractButton*>(u"Skhz"_s)->click();
            tour.choose(form, u"Fjzl"_s, u"房价"_s);
            tour.picture(form, u"住客信息-散客合住-"_s + guest.name);
            tour.press(form, u"ExitCmd"_s);
        });
        desk.confirm(rooms, u"散客"_s);
    };
    join({u"方文涛"_s, u"330102199002021519"_s});
    join({u"邱海峰"_s, u"370202199107080935"_s});
    tour.expect(GetTag(GetKfjbxx(rooms.first()), room_record::kGuests) == u"2",
                u"散客合住的住客数不对"_s);
}

void CheckInLongStay(Tour& tour, FrontDesk& desk) {
    const QStringList rooms = desk.offered(u"商务套房"_s, u"空房"_s, 1);
    desk.chooseRooms(rooms);
    desk.typeParty([&](Screen& form) {
        TypeGuest(tour, form, {u"钟立群"_s, u"110101196909093016"_s});
        auto* departure = form.findChild<QLineEdit*>(u"Yjld"_s);
        departure->selectAll();
        tour.type(form, u"Yjld"_s, u"30"_s);
        tour.key(form, Qt::Key_Return);
        tour.choose(form, u"Ft"_s, u"长包"_s);
        tour.choose(form, u"Fjzl"_s, u"长包价"_s);
        tour.picture(form, u"住客信息-长包"_s);
        tour.press(form, u"ExitCmd"_s);
    });
    desk.confirm(rooms, u"长包"_s);
}

} // namespace

// The front desk of a busy afternoon: five parties arrive.
void TourOfParties(Tour& tour) {
    FrontDesk desk(tour);
    CheckInWalkIn(tour, desk);
    CheckInCouple(tour, desk);
    CheckInGroup(tour, desk);
    CheckInSharedRoom(tour, desk);
    CheckInLongStay(tour, desk);
    desk.screen().close();
    tour.leave();
}

} // namespace hotel
