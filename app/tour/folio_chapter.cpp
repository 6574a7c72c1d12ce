#include <QLineEdit>

#include "app/tour/tour.h"
#include "house/folios/folio.h"
#include "house/folios/folio_posting.h"
#include "house/folios/folio_view.h"
#include "house/guests/guest_text.h"
#include "house/guests/offered_rooms.h"
#include "house/rooms/room_record.h"
#include "house/stays/check_in.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "screen/grid_view.h"
#include "screen/open_screen.h"
#include "session/session.h"
#include "shell/mainfrm.h"
#include "tools/aids/record_tree.h"

namespace hotel {

namespace {

// Fields of a record, in writing order.
QString RecordOf(const QList<std::pair<QString, QString>>& fields) {
    QString record;
    for (const auto& [tag, value] : fields)
        record = SetTag(record, tag, value);
    return record;
}

QString GuestOnFolio(const QString& name, const QString& room, const QString& folio) {
    const QDate today = Clock::Today();
    return RecordOf({{u"房间号"_s, room},
                     {u"客人姓名"_s, name},
                     {u"结账号"_s, folio},
                     {u"床位"_s, u"1"_s},
                     {u"证件号码"_s, u"510104198503052318"_s},
                     {u"证件种类"_s, u"身份证"_s},
                     {u"散住"_s, u"0"_s},
                     {u"付费客人"_s, u"1"_s},
                     {u"入住时间"_s, u"14:20"_s},
                     {u"入住日期"_s, today.toString(u"yyyy-MM-dd")},
                     {u"预计离店"_s, today.addDays(2).toString(u"yyyy-MM-dd")},
                     {u"房态"_s, u"包房"_s},
                     {u"确认房价"_s, u"288.00"_s}});
}

ChosenRoom AVacantRoom(Tour& tour) {
    TextTable rooms({u"房间号"_s, u"房态"_s, u"客房类型"_s, u"床位数"_s});
    LoadKxkfQd(rooms, u"空房");
    tour.expect(rooms.dataRows() > 0, u"没有空房"_s);
    return ChosenRooms(rooms).last();
}

QString CheckIn(Tour& tour, const QString& name, const QString& folio) {
    const ChosenRoom room = AVacantRoom(tour);
    const QString guest = GuestOnFolio(name, room.number, folio);
    const QString set = WithGuest(OpenWorkingSet({}, {room}), room.number, GuestTag(1), guest);
    tour.expect(ConfirmCheckIn(set, {room}).confirmed, name + u" 没有入住"_s);
    return room.number;
}

void Post(Tour& tour, const QString& folio, int kind, const QString& guest,
          const QList<std::pair<QString, QString>>& fields) {
    QString record = RecordOf(fields);
    record = SetTag(record, u"客人", guest);
    record = SetTag(record, u"日期", Clock::Today().toString(u"yyyy-MM-dd"));
    record = SetTag(record, u"时间", Clock::Now().toString(u"HH:mm:ss"));
    record = SetTag(record, u"经办单位", CurrentSession().userDept);
    record = SetTag(record, u"经办人", CurrentSession().userName);
    tour.expect(SaveBills(folio, kind, record).status == 0, u"账务没有保存"_s);
}

void PostDepositAndRoomCharges(Tour& tour, const QString& folio, const QString& guest,
                               const QString& room) {
    Post(tour, folio, kDepositPosting, guest,
         {{u"信用保证种类"_s, u"现金押金"_s},
          {u"支付方式"_s, u"现金"_s},
          {u"实收金额"_s, u"1000.00"_s}});
    Post(tour, folio, kRoomPosting, guest,
         {{u"费用名称"_s, u"夜审房费"_s}, {u"房间号"_s, room}, {u"金额"_s, u"288.00"_s}});
    Post(tour, folio, kFoodPosting, guest,
         {{u"费用名称"_s, u"早餐"_s}, {u"房间号"_s, room}, {u"金额"_s, u"36.00"_s}});
}

// A folio that has been settled: its guest was entered, paid and left.
void RetireAFolio(Tour& tour, const QString& folio) {
    const QString stay = SetTag({}, GuestTag(1), GuestOnFolio(u"马晓东"_s, u"8118"_s, folio));
    tour.expect(UpdateJzhByRmRec(stay) == 0, u"结账号没有建立"_s);
    PostDepositAndRoomCharges(tour, folio, u"马晓东"_s, u"8118"_s);
    tour.expect(DelJzh(folio) == 0, u"结账号没有结清"_s);
}

void FindAndLook(Tour& tour, const QString& folio) {
    tour.press(tour.mainWindow(), u"Syjs_cmd"_s);
    tour.press(tour.mainWindow(), u"Zhgl_cmd"_s);
    Screen& picker = tour.opened(u"Jzhfrm"_s);
    tour.picture(picker, u"账号管理"_s);
    tour.type(picker, u"Search"_s, u"hxm"_s);
    tour.picture(picker, u"账号管理-拼音查找"_s);
    tour.key(picker, Qt::Key_Return);

    Screen& view = tour.opened(u"JzhxxFrm"_s);
    auto* ledger = view.findChild<RecordTree*>(u"QVRTrVw"_s);
    for (const int kind : {kDepositPosting, kRoomPosting, kFoodPosting}) {
        const QTreeWidgetItem* project = ledger->find(PostingProject(kind));
        tour.expect(project && project->childCount() == 1, PostingProject(kind) + u" 不对"_s);
    }
    tour.expect(view.findChild<QWidget*>(u"Jzh"_s)->property("Tag").toString().isEmpty(),
                folio + u" 应当有效"_s);
    QTreeWidgetItem* charge = ledger->find(PostingProject(kRoomPosting))->child(0);
    charge->setExpanded(true);
    ledger->setCurrentItem(charge->child(2));
    tour.picture(view, u"结账号详细信息"_s);
    view.close();
    tour.key(picker, Qt::Key_F10);
}

void LookAtRetired(Tour& tour, const QString& folio) {
    OpenScreen(u"JzhxxFrm");
    Screen& view = tour.opened(u"JzhxxFrm"_s);
    tour.messages().clear();
    tour.type(view, u"Jzh"_s, folio);
    tour.expect(tour.messages().last() == u"该结账号已经过期或结清！", u"没有说明账号已结清"_s);
    tour.expect(view.findChild<QWidget*>(u"Jzh"_s)->property("Tag") == kRetiredFolio.toString(),
                folio + u" 应当失效"_s);
    tour.picture(view, u"结账号详细信息-失效"_s);
    view.close();
}

} // namespace

// The cashier looks at a folio: of a guest in the house, and one that is settled.
void TourOfFolio(Tour& tour) {
    tour.logIn(u"SHOUYIN"_s, u"444444"_s);
    // An hour old: the parties of this moment have the numbers of this moment.
    const QString folio = NewFolioNumber(Clock::Now().addSecs(-3600));
    const QString room = CheckIn(tour, u"韩雪梅"_s, folio);
    PostDepositAndRoomCharges(tour, folio, u"韩雪梅"_s, room);
    const QString settled = NewFolioNumber(Clock::Now().addDays(-3));
    RetireAFolio(tour, settled);
    FindAndLook(tour, folio);
    LookAtRetired(tour, settled);
    tour.leave();
}

} // namespace hotel
