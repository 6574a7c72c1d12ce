// Check-in through its two screens, mostly from the keyboard.

#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "frontoffice/RzdjFrm.h"
#include "frontoffice/RzjdFrm.h"
#include "house/common/paths.h"
#include "house/folios/folio.h"
#include "house/guests/guest_text.h"
#include "house/guests/stay_register.h"
#include "house/rooms/room_record.h"
#include "link/records.h"
#include "link/serv_api.h"
#include "platform/clock.h"
#include "record/field_walk.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "screen/field_form.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "tests/hotel_test.h"
#include "tests/house/small_house.h"
#include "tests/test_hotel.h"
#include "tests/type_text.h"
#include "tools/aids/categories.h"
#include "tools/aids/form_tools.h"

using namespace hotel;

namespace {

constexpr QStringView kNumber = u"510104198503052318"; // born on the test's day: 2026-03-05

void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

// Types into whatever has the focus, as a clerk does, and goes on with Enter.
void TypeLine(const QString& text) {
    TypeText(QApplication::focusWidget(), text);
    Key(Qt::Key_Enter);
}

QString FocusName() {
    return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString();
}

void Show(Screen& screen) {
    screen.show();
    screen.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&screen));
    screen.run([&] { screen.load({}); });
}

const TextTable& List(const Screen& screen, const QString& name) {
    return screen.findChild<GridView*>(name)->table();
}

FieldForm& Form(const Screen& screen) {
    return *screen.findChild<FieldForm*>();
}

// Has `act` done on the guest form as soon as it stands; the step that follows opens it. The form is
// closed behind it if `act` has left it open.
void OnGuestForm(RzjdFrm& desk, const std::function<void(RzdjFrm&)>& act) {
    auto* timer = new QTimer(&desk);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, act, &desk] {
        auto* form = desk.findChild<RzdjFrm*>();
        if (!form || !form->isActiveWindow() || form->busy())
            return;
        timer->stop();
        timer->deleteLater();
        act(*form);
        if (form->isVisible())
            form->close();
    });
    timer->start(5);
}

void TypeGuest(RzdjFrm& form, const QString& name, const QString& number) {
    form.findChild<QWidget*>(u"Krxm"_s)->setFocus();
    form.findChild<QLineEdit*>(u"Krxm"_s)->selectAll();
    TypeLine(name);
    form.findChild<QLineEdit*>(u"Zjhm"_s)->selectAll();
    TypeLine(number);
}

void ChooseRate(RzdjFrm& form, QStringView kind) {
    auto* kinds = form.findChild<QComboBox*>(u"Fjzl"_s);
    kinds->setCurrentIndex(kinds->findText(kind.toString()));
    Q_EMIT kinds->activated(kinds->currentIndex());
}

void GoToRoomBox(RzjdFrm& desk) {
    QVERIFY(QTest::qWaitForWindowActive(&desk));
    desk.findChild<QLineEdit*>(u"RoomBox"_s)->setFocus();
}

// A party of one typed over the lists and left complete.
void Register(RzjdFrm& desk, const QString& rooms, const QString& name, QStringView status = {}) {
    OnGuestForm(desk, [&](RzdjFrm& form) {
        TypeGuest(form, name, kNumber.toString());
        if (!status.isEmpty())
            Form(form).setText(u"Ft", status.toString());
        ChooseRate(form, u"房价");
        Key(Qt::Key_F8);
    });
    GoToRoomBox(desk);
    if (!rooms.isEmpty()) // else those chosen before
        TypeLine(rooms);
    Key(Qt::Key_Enter);
}

// Behind the guest form the way goes on to the confirmation.
void Confirm() {
    QTRY_COMPARE(FocusName(), u"QrCmd"_s);
    Key(Qt::Key_Enter);
}

} // namespace

class CheckInScreensTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { SetUpForms(); }

    // No mouse, from the room's number to the confirmation.
    void walkInFromTheKeyboard() {
        const TestHotel hotel;
        MessageRecorder messages;
        RzjdFrm desk;
        Show(desk);
        QCOMPARE(FocusName(), u"RoomBox"_s);
        OnGuestForm(desk, [&](RzdjFrm& form) {
            QCOMPARE(FocusName(), u"Krxm"_s);
            TypeLine(u"张伟"_s);
            TypeLine(u"５１０１０４１９８５０３０５２３１ｘ"_s);
            QCOMPARE(Form(form).text(u"Zjhm"), u"51010419850305231X"_s);
            QCOMPARE(Form(form).text(u"Hmws"), u"18"_s);
            QCOMPARE(Form(form).text(u"Hkszd"), u"四川省,成都市,锦江区"_s);
            QCOMPARE(Form(form).text(u"Krnl"), u"41"_s);
            QCOMPARE(Form(form).text(u"Krxb"), u"男"_s);
            QCOMPARE(Form(form).text(u"Tssm"), u"生日:2026-03-05"_s);
            QCOMPARE(FocusName(), u"Zhcl"_s);
            TypeLine(u"bj"_s); // an entry by its initials
            QVERIFY2(Form(form).text(u"Zhcl").startsWith(u"北京"),
                     qPrintable(Form(form).text(u"Zhcl")));
            Key(Qt::Key_Enter);
            Key(Qt::Key_Enter);
            TypeLine(u"3"_s); // nights
            QCOMPARE(Form(form).text(u"Yjld"), u"2026-03-08"_s);
            while (FocusName() != u"Fjzl")
                Key(Qt::Key_Enter);
            TypeLine(u"q"_s);
            QCOMPARE(Form(form).text(u"Fjzl"), u"前台价"_s);
            QCOMPARE(FocusName(), u"Qrfj"_s); // a front-desk rate is open to negotiation
            form.findChild<QLineEdit*>(u"Qrfj"_s)->selectAll();
            TypeLine(u"250"_s);
            QTRY_VERIFY(!desk.command(u"QrCmd")->isEnabled()); // refused meanwhile, visibly
            Key(Qt::Key_F8);
        });
        TypeLine(u"８２０３"_s);
        QCOMPARE(List(desk, u"Yxkfqd"_s).text(1, u"房间号"), u"8203"_s);
        Key(Qt::Key_Enter);
        Confirm();
        QCOMPARE(messages.words(), QStringList());

        QCOMPARE(StoredRoom(u"8203"_s, room_record::kStatus), u"包房"_s);
        QCOMPARE(StoredRoom(u"8203"_s, room_record::kGuests), u"1"_s);
        const QString guest = GetTag(GetKfrzxx(u"8203"), GuestTag(1));
        QCOMPARE(GetTag(guest, u"结账号"), u"260305100000"_s);
        QCOMPARE(GetTag(guest, u"确认房价"), u"250.00"_s);
        QCOMPARE(GetTag(guest, u"付费客人"), u"1"_s);
        QCOMPARE(GetTag(guest, u"散住"), u"0"_s);
        QCOMPARE(GetTag(guest, u"入住时间"), u"10:00"_s);
        qsizetype next = 0; // every field stands in the order in which guests are written
        for (FieldWalk field(guest); field.next(); ++next) {
            while (GuestFields()[size_t(next)] != field.name())
                ++next;
        }
        QCOMPARE(StoredRecords(StayRegisterFile(u"2026-03-05", Clock::Today()),
                               stay_register::kProject.toString()),
                 QStringList{guest});
        QCOMPARE(LoadJzhQd(), QStringList{u"260305100000"_s});
        QCOMPARE(List(desk, u"Yxkfqd"_s).dataRows(), 0); // ready for the next party
        QCOMPARE(List(desk, u"Kxkfqd"_s).find(0, u"8203"), -1);
        QCOMPARE(FocusName(), u"RoomBox"_s);
    }

    // Without a camera files are asked for; both photographs are named by the guest and kept with him.
    void photographsOfAGuest() {
        const TestHotel hotel;
        MessageRecorder messages;
        const QTemporaryDir folder;
        const QString face = folder.filePath(u"face.jpg"_s);
        QImage picture(30, 40, QImage::Format_RGB32);
        picture.fill(Qt::darkCyan);
        QVERIFY(picture.save(face));
        RzjdFrm desk;
        Show(desk);
        OnGuestForm(desk, [&](RzdjFrm& form) {
            Key(Qt::Key_F5);
            QCOMPARE(messages.last(), u"请先输入证件号码，再拍摄证件照片！"_s);
            QCOMPARE(FocusName(), u"Zjhm"_s);
            Key(Qt::Key_F6);
            QCOMPARE(messages.last(), u"请先输入客人姓名，再拍摄人像照片！"_s);
            TypeGuest(form, u"王芳"_s, kNumber.toString());
            ChooseRate(form, u"房价");
            for (const Qt::Key key : {Qt::Key_F5, Qt::Key_F6}) {
                messages.answerNext(face);
                Key(key);
            }
            Key(Qt::Key_F8);
        });
        TypeLine(u"8203"_s);
        Key(Qt::Key_Enter);
        Confirm();
        const QString guest = GetTag(GetKfrzxx(u"8203"), GuestTag(1));
        QCOMPARE(GetTag(guest, u"证件照片"), u"510104198503052318.jpg"_s);
        QCOMPARE(GetTag(guest, u"人像照片"), u"王芳2603051000.jpg"_s);
        for (const QStringView file :
             {u"krzp\\510104198503052318.jpg", u"krzp\\王芳2603051000.jpg"})
            QCOMPARE(DbDownloadFile(file.toString(), folder.filePath(u"back.jpg"_s)), 0);
    }

    // What is typed once goes along; who pays, and the photographs, don't.
    void partyIsTypedOnce() {
        const TestHotel hotel;
        MessageRecorder messages;
        RzjdFrm desk;
        Show(desk);
        OnGuestForm(desk, [&](RzdjFrm& form) {
            FieldForm& fields = Form(form);
            Key(Qt::Key_PageDown);
            QCOMPARE(messages.last(), u"客人的主要信息不全，不能继续下一位"_s);
            Key(Qt::Key_PageDown, Qt::ControlModifier);
            QCOMPARE(messages.last(), u"第一个房间的客人都没有正确输入，不能输入下一个房间"_s);
            messages.clear();
            TypeGuest(form, u"张伟"_s, kNumber.toString());
            ChooseRate(form, u"协议价");
            QVERIFY(fields.editor<QLineEdit>(u"Qrfj")->isReadOnly()); // a fixed rate
            fields.setText(u"Gzdw", u"西南机械厂"_s);
            Key(Qt::Key_PageDown);
            QCOMPARE(fields.text(u"Cwh"), u"2"_s);
            QCOMPARE(fields.text(u"Krxm"), QString());
            QCOMPARE(fields.text(u"Jzh"), u"260305100000"_s);
            QCOMPARE(fields.text(u"Ffkr"), u"0"_s);
            QCOMPARE(fields.text(u"Gzdw"), u"西南机械厂"_s);
            QCOMPARE(fields.text(u"Qrfj"), u"228.00"_s);
            TypeGuest(form, u"李秀英"_s, kNumber.toString());
            Key(Qt::Key_F3);
            Key(Qt::Key_PageDown,
                Qt::ControlModifier); // a room of another type: its rate is its own
            QCOMPARE(fields.text(u"Fh"), u"8203"_s);
            QCOMPARE(fields.text(u"Qrfj"), QString());
            QCOMPARE(fields.editor<QComboBox>(u"Fjzl")->itemText(0), u"房价"_s);
            TypeText(fields.editor(u"Krxm"), u"半"_s);
            Key(Qt::Key_PageDown, Qt::ControlModifier); // it is the last room
            QCOMPARE(fields.text(u"Krxm"), u"半"_s);
            Key(Qt::Key_F4);
            QCOMPARE(fields.text(u"Krxm"), u"李秀英"_s);
            QCOMPARE(fields.text(u"Fh"), u"8203"_s);
            // A payer within the same second still gets an account of his own.
            fields.editor<QAbstractButton>(u"Ffkr")->click();
            QCOMPARE(fields.text(u"Jzh"), u"260305100001"_s);
            fields.editor<QAbstractButton>(u"Skhz")->click();
            QCOMPARE(fields.text(u"Ft"), u"散客"_s);
            fields.editor<QAbstractButton>(u"Skhz")->click();
            QCOMPARE(fields.text(u"Ft"), u"包房"_s);
            fields.editor(u"Krnl")->setFocus();
            fields.editor<QLineEdit>(u"Krnl")->selectAll();
            TypeLine(u"130"_s);
            QCOMPARE(messages.entries().last().title, u"客人年龄特别"_s);
            QCOMPARE(fields.text(u"Krnl"), QString());
            QCOMPARE(fields.text(u"Qrfj"), u"228.00"_s); // pasted with the guest
        });
        TypeLine(u"8201 8203"_s);
        Key(Qt::Key_Enter);
        Confirm();
        QCOMPARE(StoredNames(u"8201"_s), QStringList({u"客人01 张伟"_s, u"客人02 李秀英"_s}));
        QCOMPARE(StoredNames(u"8203"_s), QStringList{u"客人01 李秀英"_s});
        QCOMPARE(LoadJzhQd().size(), 2);
    }

    void quickRegistrationPutsAGroupOnOneFolio() {
        const TestHotel hotel;
        RzjdFrm desk;
        MessageRecorder messages;
        Show(desk);
        OnGuestForm(desk, [&](RzdjFrm& form) {
            Key(Qt::Key_F7);
            QCOMPARE(messages.last(), u"第一个房间的客人信息都没有正确输入，不能执行快速设定"_s);
            TypeGuest(form, u"王领队"_s, kNumber.toString());
            Form(form).setText(u"Ft", u"团队"_s);
            ChooseRate(form, u"团队价");
            Key(Qt::Key_F7);
        });
        TypeLine(u"8201-8206，8301"_s);
        QCOMPARE(List(desk, u"Yxkfqd"_s).dataRows(), 7);
        Key(Qt::Key_Enter);
        Confirm();
        QCOMPARE(LoadJzhQd().size(), 1);
        for (const QString& room : {u"8201"_s, u"8206"_s, u"8301"_s}) {
            QCOMPARE(StoredRoom(room, room_record::kStatus), u"团队"_s);
            QCOMPARE(StoredNames(room), QStringList{u"客人01 王领队"_s});
        }

        OnGuestForm(desk, [&](RzdjFrm& form) { // one more of them comes later
            TypeGuest(form, u"迟到者"_s, kNumber.toString());
            auto* folios = form.findChild<QComboBox*>(u"Jzh"_s);
            QCOMPARE(folios->itemText(0), u"260305100000 王领队 8201 8202 8203 共7间"_s);
            folios->setCurrentIndex(0);
            Q_EMIT folios->activated(0);
            QCOMPARE(Form(form).text(u"Jzh"), u"260305100000"_s);
            QCOMPARE(Form(form).text(u"Ffkr"), u"0"_s);
            ChooseRate(form, u"团队价");
            Key(Qt::Key_F8);
        });
        GoToRoomBox(desk);
        TypeLine(u"8302"_s);
        Key(Qt::Key_Enter);
        Confirm();
        QCOMPARE(LoadJzhQd().size(), 1);
    }

    void halfTypedGuestIsNotLostUnasked() {
        const TestHotel hotel;
        RzjdFrm desk;
        MessageRecorder messages;
        Show(desk);
        OnGuestForm(desk, [&](RzdjFrm& form) {
            TypeGuest(form, u"张伟"_s, kNumber.toString());
            form.findChild<QLineEdit*>(u"Krnl"_s)->setFocus();
            form.findChild<QLineEdit*>(u"Krnl"_s)->selectAll();
            TypeText(QApplication::focusWidget(), u"85"_s);
            Key(Qt::Key_F8); // no rate yet
            QVERIFY(form.isVisible());
            QCOMPARE(messages.entries().size(), 2); // the age is told once
            QCOMPARE(messages.entries().last().kind, MessageRecorder::Kind::YesNo);
            QCOMPARE(FocusName(), u"Fjzl"_s);
            messages.answerNext(u"yes"_s);
        });
        TypeLine(u"8201"_s);
        Key(Qt::Key_Enter);
        desk.command(u"QrCmd")->click();
        QCOMPARE(messages.entries().last().title, u"请先登记客人详细信息"_s);
        desk.command(u"DyCmd")->click();
        QCOMPARE(messages.entries().last().title, u"以后再打印"_s);

        Register(desk, {}, u"张伟"_s);
        messages.clear();
        desk.command(u"FreshCmd")->click(); // not confirmed yet, and the question is not answered
        QCOMPARE(messages.entries().size(), 1);
        QCOMPARE(List(desk, u"Yxkfqd"_s).dataRows(), 1);
        QVERIFY(!desk.close());
        GoToRoomBox(desk);
        TypeLine(u"8201 9999"_s);
        QVERIFY(messages.last().contains(u"8201,9999"));
    }

    void withoutStatusesNobodyIsRegistered() {
        const TestHotel hotel;
        MessageRecorder messages;
        DbDeleteProject(CategoryFile(), u"入住房态");
        RzjdFrm desk;
        Show(desk);
        OnGuestForm(desk, [&](RzdjFrm& form) {
            TypeGuest(form, u"张伟"_s, kNumber.toString());
            ChooseRate(form, u"房价");
            QCOMPARE(form.testKrJbxxFail(), int(kLacksStatus));
            messages.answerNext(u"yes"_s);
        });
        TypeLine(u"8201"_s);
        Key(Qt::Key_Enter);
        QCOMPARE(messages.entries().size(), 1);
    }

    // Both desks see the room vacant; each confirms in turn.
    void twoDesksWithStaleLists() {
        TestHotel hotel;
        MessageRecorder messages;
        Desk otherDesk(hotel.port());
        otherDesk.logIn(u"QIANTAI"_s, u"111111"_s);
        RzjdFrm first;
        RzjdFrm second;
        Show(second);
        hotel.desk().use();
        Show(first);
        Register(first, u"8201"_s, u"张伟"_s, u"散客");
        otherDesk.use();
        Clock::Advance(1000);
        second.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&second));
        Register(second, u"8201 8202"_s, u"李秀英"_s, u"散客");
        first.command(u"QrCmd")->click();
        second.command(u"QrCmd")->click(); // 8202 was not typed: nothing is written for either room
        QVERIFY(messages.last().startsWith(u"客房：8202 客人信息还没有输入"));
        QCOMPARE(StoredNames(u"8201"_s), QStringList{u"客人01 张伟"_s});
        second.findChild<GridView*>(u"Yxkfqd"_s)->setCurrent(2);
        second.command(u"UpCmd")->click();
        second.command(u"QrCmd")->click();
        QCOMPARE(StoredNames(u"8201"_s), QStringList{u"客人01 李秀英"_s}); // the last confirm
        QCOMPARE(StoredRoom(u"8201"_s, room_record::kGuests), u"2"_s);     // counted up
        QCOMPARE(LoadJzhQd().size(), 2);
    }

    void deadServerLosesNothingTyped() {
        TestHotel hotel;
        MessageRecorder messages;
        RzjdFrm desk;
        Show(desk);
        Register(desk, u"8201"_s, u"张伟"_s);
        hotel.stopServer();
        desk.command(u"QrCmd")->click();
        QVERIFY(messages.words().contains(u"客房基本数据保存失败，退出系统，重新登录再试！8201"_s));
        QCOMPARE(List(desk, u"Yxkfqd"_s).dataRows(), 1);
        hotel.startServer();
        Desk again(hotel.port());
        again.logIn(u"QIANTAI"_s, u"111111"_s);
        desk.command(u"QrCmd")->click();
        QCOMPARE(StoredNames(u"8201"_s), QStringList{u"客人01 张伟"_s});
        QCOMPARE(List(desk, u"Yxkfqd"_s).dataRows(), 0);
    }
};

HOTEL_TEST(CheckInScreensTest)
#include "test_check_in_screens.moc"
