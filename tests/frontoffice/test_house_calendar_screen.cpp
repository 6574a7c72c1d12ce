// The calendar of the house on the screen, from the keyboard and with the mouse.

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

#include "frontoffice/YdrlFrm.h"
#include "frontoffice/frmYD.h"
#include "frontoffice/house_calendar_view.h"
#include "house/guests/guest_text.h"
#include "house/stays/reservations.h"
#include "link/records.h"
#include "record/record_text.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "tests/hotel_test.h"
#include "tests/house/small_house.h"
#include "tests/type_text.h"
#include "tools/aids/form_tools.h"

using namespace hotel;

namespace {

const QDate kToday(2026, 3, 5);

void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

QString FocusName() {
    return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString();
}

void Reserve(const QString& number, const QString& guest, const QString& arrival,
             const QString& departure, const QStringList& rooms) {
    const PlanKind& kind = ReservationPlans();
    EnsureProject(kind.file(), kind.project);
    SaveRecord(kind.file(), kind.project, number,
               u"<客人姓名>%1</客人姓名><预计到达>%2</预计到达><预计离店>%3</预计离店>"
               u"<订房间数>1</订房间数><预定状态>计划</预定状态><预留客房>%4</预留客房>"_s.arg(
                   guest, arrival, departure, HeldRoomsText(rooms)));
}

} // namespace

class HouseCalendarScreenTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        SetUpForms();
        RegisterScreen(u"frmYD", [] { return new frmYD; });
        RegisterScreen(u"YdrlFrm", [] { return new YdrlFrm; });
    }
    void init() {
        hotel_ = std::make_unique<TestHotel>();
        messages_ = std::make_unique<MessageRecorder>();
        FillRooms({{u"8201"_s, u"包房"_s, 1},
                   {u"8202"_s, u"空房"_s, 0},
                   {u"8301"_s, u"空房"_s, 0, 2, u"3"_s, u"豪华大床房"_s},
                   {u"8302"_s, u"维修"_s, 0, 2, u"3"_s, u"豪华大床房"_s}});
        SaveRmRec(u"8201", SetTag({}, GuestTag(1),
                                  u"<客人姓名>王一</客人姓名><入住日期>2026-03-03</入住日期>"
                                  u"<预计离店>2026-03-07</预计离店>"));
        Reserve(u"260301100000"_s, u"李二"_s, u"2026-03-07"_s, u"2026-03-09"_s, {u"8201"_s});
        Reserve(u"260301100001"_s, u"张三"_s, u"2026-03-06"_s, u"2026-03-10"_s, {u"8301"_s});
        Reserve(u"260301100002"_s, u"赵四"_s, u"2026-03-08"_s, u"2026-03-09"_s, {u"8301"_s});
    }
    void cleanup() {
        CloseAllScreens();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        messages_.reset();
        hotel_.reset();
    }

    // The lines: 标准双床房, 8201, 8202, 豪华大床房, 8301, 8302 (types stand as in the category).
    void fromTheKeyboard() {
        open();
        QCOMPARE(FocusName(), u"Rl"_s);
        QCOMPARE(view().day(), kToday);
        for (const Qt::Key key : {Qt::Key_8, Qt::Key_2, Qt::Key_0, Qt::Key_1})
            Key(key);
        QCOMPARE(view().line().room->number, u"8201"_s);
        QCOMPARE(here(), u"8201 住客 王一"_s);
        Key(Qt::Key_Enter); // a guest is no reservation
        QVERIFY(!FindScreen(u"frmYD"));
        Key(Qt::Key_Right);
        Key(Qt::Key_Right); // one leaves, one comes
        QCOMPARE(here(), u"8201 住客 王一,8201 预定 李二"_s);
        Key(Qt::Key_Enter);
        QCOMPARE(shownPlan(), u"李二"_s);

        calendar().activateWindow();
        view().setFocus();
        Key(Qt::Key_End, Qt::ControlModifier);
        QCOMPARE(view().line().room->number, u"8302"_s);
        Key(Qt::Key_Down); // there is none
        Key(Qt::Key_Up);
        Key(Qt::Key_Right);
        QCOMPARE(here(), u"8301 预定 张三,8301 预定 赵四"_s);
        Key(Qt::Key_Enter); // which of them?
        QCOMPARE(FocusName(), u"YdQd"_s);
        Key(Qt::Key_Down);
        Key(Qt::Key_Enter);
        QCOMPARE(shownPlan(), u"赵四"_s);

        view().setFocus();
        Key(Qt::Key_Home);
        QCOMPARE(view().day(), kToday);
        Key(Qt::Key_Left);
        QCOMPARE(view().day(), kToday);
        Key(Qt::Key_End);
        QCOMPARE(view().day(), kToday.addDays(34));
        Key(Qt::Key_Right);
        QCOMPARE(view().day(), kToday.addDays(34));
        Key(Qt::Key_Home, Qt::ControlModifier);
        QVERIFY(view().line().type);
        Key(Qt::Key_PageDown);
        QCOMPARE(view().line().room->number, u"8302"_s);
        Key(Qt::Key_PageUp);
        QVERIFY(view().line().type);
    }

    // A bar begins and ends in the middle of a day; two of one night share the height.
    void barsUnderTheMouse() {
        open();
        const QColor stay(0x3D, 0x5A, 0x80);
        const QColor plan(0xF4, 0xC9, 0x5D);
        const auto row = [&](const char* name, int line, int day, double across, double down,
                             const QColor& expected) {
            const QRect cell = view().cellRect(line, day);
            const QPoint at(cell.left() + int(cell.width() * across),
                            cell.top() + int(cell.height() * down));
            Check(name, view().viewport()->grab().toImage().pixelColor(at), expected);
        };
        row("in the house", 1, 1, 0.5, 0.9, stay);
        row("leaves", 1, 2, 0.25, 0.9, stay);
        row("comes", 1, 2, 0.75, 0.9, plan);
        row("has left", 1, 4, 0.75, 0.9, Qt::white);
        row("the longer one above", 4, 2, 0.6, 0.3, plan);
        row("nobody below", 4, 2, 0.6, 0.75, QColor(0xF1, 0xF3, 0xF6));
        row("the night of two", 4, 3, 0.25, 0.75, QColor(0xF9, 0xD6, 0xD5));

        press(1, 1, 0.5); // a guest
        press(2, 1, 0.5); // nobody
        press(1, 4, 0.75);
        QVERIFY(!FindScreen(u"frmYD"));
        QCOMPARE(view().line().room->number, u"8201"_s);
        press(1, 3, 0.5);
        QCOMPARE(shownPlan(), u"李二"_s);
        QCOMPARE(view().day(), kToday.addDays(3));
    }

    void weeksAndTypes() {
        open();
        press(0, 1, 0.5);
        QCOMPARE(status(), u"3月6日 周五 标准双床房 2 间 空 1 间：8202"_s);
        Key(Qt::Key_F7);
        QCOMPARE(view().calendar().first, kToday.addDays(7));
        QCOMPARE(view().day(), kToday.addDays(7)); // the sixth is out of sight
        Key(Qt::Key_F6);
        Key(Qt::Key_F6);
        QCOMPARE(text(u"Qsrq"_s), u"2026-02-26"_s);
        Key(Qt::Key_F8);
        QCOMPARE(view().calendar().first, kToday);
        QCOMPARE(view().day(), kToday);
        auto* first = calendar().findChild<QLineEdit*>(u"Qsrq"_s);
        const auto typeFirst = [&](const QString& typed) {
            first->setFocus();
            first->selectAll();
            TypeText(first, typed);
            Key(Qt::Key_Enter);
        };
        typeFirst(u"3.20"_s);
        QCOMPARE(view().calendar().first, QDate(2026, 3, 20));
        QCOMPARE(FocusName(), u"Fx"_s);
        typeFirst(u"2.30"_s);
        QCOMPARE(text(u"Qsrq"_s), u"2026-03-20"_s);
        Choose(calendar().findChild<QComboBox*>(u"Fx"_s), u"豪华大床房"_s);
        QCOMPARE(view().lines(), 3);
        QCOMPARE(view().calendar().first, QDate(2026, 3, 20));
    }

    // The list of reservations stands open, with something half typed, and doesn't know the newest.
    void besideTheReservations() {
        QVERIFY(OpenScreen(u"frmYD"));
        Screen& plans = *FindScreen(u"frmYD");
        auto* arrival = plans.findChild<QLineEdit*>(u"Yjdd"_s);
        QVERIFY(QTest::qWaitForWindowActive(&plans));
        QTest::keyClick(&plans, Qt::Key_F5);
        arrival->setText(u"2026-05-01"_s);
        QTest::keyClick(&plans, Qt::Key_F2);
        QCOMPARE(view().day(), QDate(2026, 5, 1));
        QCOMPARE(view().calendar().first, QDate(2026, 4, 24));
        Reserve(u"260305095959"_s, u"周五"_s, u"2026-03-05"_s, u"2026-03-06"_s, {u"8202"_s});
        Key(Qt::Key_F11);
        Key(Qt::Key_F8);
        QVERIFY(view().goToReservation(u"260305095959"_s));
        QVERIFY(!view().goToReservation(u"1"_s));
        messages_->answerNext(u"no"_s);
        Key(Qt::Key_Enter);
        QCOMPARE(messages_->last(), u"新增的记录还没有保存，放弃吗？"_s);
        QCOMPARE(arrival->text(), u"2026-05-01"_s);
        messages_->answerNext(u"yes"_s);
        calendar().activateWindow();
        view().setFocus();
        Key(Qt::Key_Enter);
        QCOMPARE(shownPlan(), u"周五"_s);
    }

    void theServerIsAway() {
        open();
        hotel_->stopServer();
        Key(Qt::Key_F11);
        QCOMPARE(messages_->last(), u"客房日历读取失败，请稍候刷新再试！"_s);
        QCOMPARE(view().lines(), 6); // what was read before
        calendar().close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

        open(); // and from the start
        QCOMPARE(messages_->words().size(), 2);
        QCOMPARE(view().lines(), 0);
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_End, Qt::Key_8, Qt::Key_Enter, Qt::Key_F7})
            Key(key);
        QTest::mouseClick(view().viewport(), Qt::LeftButton, {}, QPoint(200, 100));
        hotel_->startServer();
    }

private:
    void open() {
        QVERIFY(OpenScreen(u"YdrlFrm"));
        QVERIFY(QTest::qWaitForWindowActive(&calendar()));
    }
    Screen& calendar() { return *FindScreen(u"YdrlFrm"); }
    HouseCalendarView& view() { return *calendar().findChild<HouseCalendarView*>(u"Rl"_s); }
    QString text(const QString& control) {
        return calendar().findChild<QLineEdit*>(control)->text();
    }
    QString status() {
        for (const auto* label : calendar().findChildren<QLabel*>()) {
            if (label->text().contains(u"周"))
                return label->text();
        }
        return {};
    }
    // Who stands in the cell: room, use, name.
    QString here() {
        const TextTable& list = calendar().findChild<GridView*>(u"YdQd"_s)->table();
        QStringList lines;
        for (int row = 1; row < list.rows(); ++row)
            lines.append(list.row(row).mid(0, 3).join(u' '));
        return lines.join(u',');
    }
    QString shownPlan() {
        Screen* plans = FindScreen(u"frmYD");
        return plans ? plans->findChild<QLineEdit*>(u"Krxm"_s)->text() : QString();
    }
    void press(int line, int day, double across) {
        const QRect cell = view().cellRect(line, day);
        QTest::mouseClick(view().viewport(), Qt::LeftButton, {},
                          QPoint(cell.left() + int(cell.width() * across), cell.center().y()));
    }

    std::unique_ptr<TestHotel> hotel_;
    std::unique_ptr<MessageRecorder> messages_;
};

HOTEL_TEST(HouseCalendarScreenTest)

#include "test_house_calendar_screen.moc"
