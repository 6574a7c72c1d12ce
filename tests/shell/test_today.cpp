// The day on the main window, by keys.

#include <QApplication>
#include <QLabel>
#include <QPushButton>

#include "house/folios/folio.h"
#include "house/folios/folio_posting.h"
#include "house/rooms/room_record.h"
#include "link/Wck_comm.h"
#include "link/records.h"
#include "platform/clock.h"
#include "record/record_text.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "session/session.h"
#include "shell/loginfrm.h"
#include "shell/main_menu.h"
#include "shell/mainfrm.h"
#include "tests/hotel_test.h"
#include "tests/house/small_house.h"

using namespace hotel;

namespace {

const QString kFolio = u"260305100000"_s;
const QString kOther = u"260305100001"_s;
const QString kLeader =
    u"客房中心 房态信息 客房维护 收银结算 结账退房 余额查验 销售预定 预定管理"_s;

void CheckIn(const QString& room, const QString& name, const QString& folio) {
    const QString guests =
        u"<客人01>"_s +
        ValidGuest(
            name, folio, u"包房"_s,
            u"<房间号>%1</房间号><床位>1</床位><预计离店>2026-03-05</预计离店>"_s.arg(room)) +
        u"</客人01>";
    SaveRmRec(room, guests);
    UpdateJzhByRmRec(guests);
    SaveBills(folio, kFoodPosting, u"<金额>50.00</金额>"_s);
}

} // namespace

class TodayScreenTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        hotel_ = std::make_unique<TestHotel>();
        messages_ = std::make_unique<MessageRecorder>();
        FillRooms({{u"101"_s, u"包房"_s, 1}, {u"102"_s, u"包房"_s, 1}, {u"103"_s, u"脏房"_s}});
        CheckIn(u"101"_s, u"王一"_s, kFolio);
        CheckIn(u"102"_s, u"李二"_s, kOther);
        SaveRecord(u"ydxx\\Kfydxx.QVR", u"客房预订信息", u"260304090000",
                   u"<客人姓名>张三</客人姓名><预计到达>2026-03-05</预计到达>"
                   "<预定状态>计划</预定状态>");
        SaveRecord(u"wxzl\\wxzl.QVR", u"维修信息", u"260304090001", u"<房间号>103</房间号>");
        opened_.clear();
        SetEntryOpener([this](QStringView screen, const QString& argument) {
            opened_.append(screen.toString() + u' ' + argument);
            return true;
        });
        login_ = std::make_unique<loginfrm>(Configuration());
    }
    void cleanup() {
        main_.reset();
        SetEntryOpener({});
        login_.reset();
        messages_.reset();
        hotel_.reset();
    }

    // What is shown, and the commands that it takes: what a right doesn't open isn't read.
    void rightsDecide() {
        const auto row = [this](const QString& rights, const QString& shown, int commands) {
            CurrentSession().rights = rights;
            comeIn();
            QStringList names;
            for (const QString& name :
                 {u"TodayHouse"_s, u"TodayArrivalsHeading"_s, u"TodayDeparturesHeading"_s,
                  u"TodayBalancesHeading"_s, u"TodayRepairsHeading"_s}) {
                if (main_->findChild<QLabel*>(name)->isVisible())
                    names.append(name.mid(5, 3));
            }
            Check(qPrintable(rights), names.join(u' '), shown);
            const qint64 before = Link().commandCounter();
            QTest::keyClick(main_.get(), Qt::Key_F5);
            Check(qPrintable(rights), int(Link().commandCounter() - before), commands);
        };
        row({}, {}, 0);
        row(u"房态信息 结账退房 预定管理"_s, {}, 0); // without their groups
        row(u"客房中心 房态信息"_s, u"Hou"_s, 2);
        row(u"前台接待 入住接待"_s, u"Hou"_s, 2);
        row(u"客房中心 客房维护"_s, u"Rep"_s, 1);
        row(u"销售预定 预定管理"_s, u"Arr"_s, 1);
        row(u"客房中心 住客查询"_s, u"Dep"_s, 3);
        row(kLeader, u"Hou Arr Dep Bal Rep"_s, 8);
    }

    void linesLeadToTheirScreens() {
        CurrentSession().rights = kLeader;
        comeIn();
        QTRY_COMPARE(heading(u"TodayDepartures"_s), u"预计离店　2（10:00 核对）"_s);
        QCOMPARE(heading(u"TodayBalances"_s), u"余额不足　2（低于 0.00，10:00 核对）"_s);
        QCOMPARE(heading(u"TodayArrivals"_s), u"预计到达　1"_s);
        enter(u"TodayDepartures"_s, 2);
        enter(u"TodayBalances"_s, 1);
        enter(u"TodayArrivals"_s, 1);
        enter(u"TodayStatus"_s, 1);
        enter(u"TodayRepairs"_s, 1);
        QCOMPARE(opened_,
                 (QStringList{u"JztfFrm "_s + kOther, u"FyxxFrm "_s + kFolio,
                              u"frmYD 260304090000"_s, u"Ftxxfrm "_s, u"frmWX 260304090001"_s}));
        QCOMPARE(hotel_->logged(u"操作内容"), u"客房维修"_s); // as its button does

        CurrentSession().rights = u"前台接待 住客查询 入住接待"_s; // who doesn't check out looks
        comeIn();
        enter(u"TodayDepartures"_s, 1);
        enter(u"TodayFree"_s, 1);
        QCOMPARE(opened_.mid(5), (QStringList{u"KfxxFrm 101"_s, u"RzjdFrm "_s}));
    }

    // A group is opened, F5 comes back and shows what has changed; the keyboard stands in the first list.
    void readAnew() {
        CurrentSession().rights = kLeader;
        comeIn();
        QTRY_VERIFY(heading(u"TodayBalances"_s).contains(u"核对）"));
        QTest::keyClick(main_.get(), Qt::Key_F11);
        QVERIFY(main_->findChild<QPushButton*>(u"Ydgl_cmd"_s)->isVisible());
        QVERIFY(main_->findChild<QPushButton*>(u"Xsyd_cmd"_s)->isChecked());
        SaveRecord(u"ydxx\\Kfydxx.QVR", u"客房预订信息", u"260304090002",
                   u"<客人姓名>李四</客人姓名><预计到达>2026-03-05</预计到达>");
        DelJzh(kOther);
        Clock::Advance(60'000);
        QTest::keyClick(main_.get(), Qt::Key_F5);
        QCOMPARE(heading(u"TodayArrivals"_s), u"预计到达　2"_s);
        QCOMPARE(heading(u"TodayDepartures"_s), u"预计离店　1（10:00 核对）"_s);
        QVERIFY(!main_->findChild<QPushButton*>(u"Xsyd_cmd"_s)->isChecked());
        QCOMPARE(QApplication::focusWidget()->objectName(), u"TodayArrivals"_s);
        QTest::keyClick(main_.get(), Qt::Key_F12);
        QTRY_COMPARE(heading(u"TodayDepartures"_s), u"预计离店　1（10:01 核对）"_s);

        Clock::Advance(24 * 3600'000); // a new day, as the window comes back
        main_->hide();
        main_->show();
        QTRY_COMPARE(heading(u"TodayDepartures"_s), u"预计离店　1（10:01 核对）"_s);
        QTRY_VERIFY(!ReadRecord(u"tjxx\\jrhd\\260306.QVR", u"离店核对", u"核对").isEmpty());
    }

    void limitOfBalances() {
        CurrentSession().rights = kLeader;
        comeIn();
        QTRY_VERIFY(heading(u"TodayBalances"_s).contains(u"核对）"));
        const auto row = [this](const QString& typed, const QString& shown) {
            messages_->answerNext(typed);
            main_->command(u"Limit_cmd")->click();
            Check(qPrintable(typed), heading(u"TodayBalances"_s), shown);
        };
        row(u"-50"_s, u"余额不足　无（低于 -50.00，10:00 核对）"_s);
        row(u"-49.99"_s, u"余额不足　2（低于 -49.99，10:00 核对）"_s);
        row(u"很多"_s, u"余额不足　2（低于 -49.99，10:00 核对）"_s);
        QVERIFY(messages_->last().startsWith(u"余额下限应当是金额"));
    }

    // What can't be read is no zero, and comes back with the login.
    void theServerGoesAway() {
        CurrentSession().rights = kLeader;
        comeIn();
        QTRY_VERIFY(heading(u"TodayBalances"_s).contains(u"核对）"));
        hotel_->stopServer();
        QTest::keyClick(main_.get(), Qt::Key_F5);
        QCOMPARE(heading(u"TodayArrivals"_s), u"预计到达　读取失败"_s);
        QCOMPARE(heading(u"TodayDepartures"_s), u"预计离店　读取失败"_s);
        QCOMPARE(main_->findChild<QLabel*>(u"TodayHouse"_s)->text(), u"客房　读取失败"_s);
        QVERIFY(!main_->findChild<QWidget*>(u"HouseBar"_s)->isVisible());
        QVERIFY(!main_->findChild<GridView*>(u"TodayArrivals"_s)->isVisible());
    }

    // In the middle of a look the server goes away, or the window.
    void aLookIsCutShort() {
        CurrentSession().rights = kLeader;
        comeIn();
        QCOMPARE(heading(u"TodayDepartures"_s), u"预计离店　正在核对…"_s);
        hotel_->stopServer();
        QTRY_COMPARE(heading(u"TodayDepartures"_s), u"预计离店　今日还没有核对（F12）"_s);
        QVERIFY(!main_->busy());
        QVERIFY(ReadRecord(u"tjxx\\jrhd\\260305.QVR", u"离店核对", u"核对").isEmpty());
    }
    void theWindowIsClosedInALook() {
        CurrentSession().rights = kLeader;
        comeIn();
        QCOMPARE(heading(u"TodayDepartures"_s), u"预计离店　正在核对…"_s);
        main_.reset();
        QTest::qWait(0);
        comeIn(); // and the next one begins anew
        QTRY_VERIFY(heading(u"TodayBalances"_s).contains(u"核对）"));
    }

private:
    void comeIn() {
        main_ = std::make_unique<mainfrm>(*login_);
        main_->show();
        QVERIFY(QTest::qWaitForWindowActive(main_.get()));
        QTRY_VERIFY(!main_->busy());
    }

    QString heading(const QString& list) {
        return main_->findChild<QLabel*>(list + u"Heading"_s)->text();
    }

    void enter(const QString& list, int row) {
        auto* grid = main_->findChild<GridView*>(list);
        QVERIFY(grid->isVisible());
        grid->setFocus();
        grid->setCurrent(1);
        for (int n = 1; n < row; ++n)
            QTest::keyClick(grid, Qt::Key_Down);
        QTest::keyClick(grid, Qt::Key_Return);
    }

    std::unique_ptr<TestHotel> hotel_;
    std::unique_ptr<MessageRecorder> messages_;
    std::unique_ptr<loginfrm> login_;
    std::unique_ptr<mainfrm> main_;
    QStringList opened_;
};

HOTEL_TEST(TodayScreenTest)

#include "test_today.moc"
