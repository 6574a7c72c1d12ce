#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "link/records.h"
#include "link/serv_api.h"
#include "record/record_text.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "session/operation_log.h"
#include "session/session.h"
#include "shell/ReloginFrm.h"
#include "shell/loginfrm.h"
#include "shell/mainfrm.h"
#include "tests/hotel_test.h"
#include "tests/test_hotel.h"

using namespace hotel;

namespace {

const QString kNobody = u"<ERROR>没有登录</ERROR>"_s;
const QString kRefusal =
    u"用户名与密码不匹配！也有可能是未经许可的IP,还应保持和服务器时间相近，请核对！"_s;
const QString kNoLink = u"网络未连接或不可预料的错误！"_s;

// A form in the middle of its work, over the main window.
class WorkFrm : public Screen {
public:
    WorkFrm() : Screen(u"WorkFrm"_s, u"登记"_s), guest(new QLineEdit) {
        auto* content = new QVBoxLayout;
        content->addWidget(guest);
        setContent(content);
        addCommands({{u"SaveCmd"_s, u"保存"_s, [this] {
                          saved = SaveRecord(u"work.qvr", u"登记", u"001", guest->text());
                      }}});
        resize(600, 400);
    }
    QLineEdit* guest;
    int saved = -1;
};

Screen* Question() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->objectName() == u"ReloginFrm")
            return static_cast<Screen*>(window);
    }
    return nullptr;
}

} // namespace

// The desk whose login is lost, by its keys.
class ReloginTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        hotel_ = std::make_unique<TestHotel>(TestHotel::Start::NobodyLoggedIn);
        hotel_->desk().logIn(u"QIANTAI"_s, u"111111"_s);
        messages_ = std::make_unique<MessageRecorder>();
        login_ = std::make_unique<loginfrm>(Configuration());
        main_ = std::make_unique<mainfrm>(*login_);
        main_->show();
        QVERIFY(QTest::qWaitForWindowActive(main_.get()));
    }
    void cleanup() {
        CloseAllScreens();
        main_.reset();
        login_.reset();
        messages_.reset();
        hotel_.reset();
    }

    // Password by password, Esc behind the last one: what is said, and whether the user is in again.
    void passwords_data() {
        const Columns<QStringList, QStringList, bool> row("typed", "said", "loggedIn");
        row("right", {u"111111"_s}, {}, true);
        row("wrong, then right", {u"111112"_s, u"111111"_s}, {kRefusal}, true);
        row("cancelled at once", {}, {}, false);
        row("wrong twice, then cancelled", {u"1"_s, u"2"_s}, {kRefusal, kRefusal}, false);
    }
    void passwords() {
        QFETCH(QStringList, typed);
        QFETCH(bool, loggedIn);
        loseServer();
        QVERIFY(button()->isEnabled());
        hotel_->startServer();
        QCOMPARE(DbReadRecord(u"User.QVR", u"操作员定义", u"QIANTAI"), kNobody);
        askAndType(typed);
        QCOMPARE(Question(), nullptr);
        QTEST(messages_->words(), "said");
        QCOMPARE(Link().UserName, loggedIn ? u"QIANTAI"_s : QString());
        QCOMPARE(button()->isEnabled(), !loggedIn);
        QCOMPARE(notice() != nullptr, !loggedIn);
        if (!loggedIn) {
            QCOMPARE(hotel_->logged(operation_log::kOperation),
                     typed.isEmpty() ? QString() : u"登录失败"_s);
            return;
        }
        QCOMPARE(hotel_->logged(operation_log::kOperation), u"登录系统成功"_s);
        QCOMPARE(hotel_->logged(operation_log::kOperator), u"林晓燕"_s);
        QVERIFY(!IsError(DbReadRecord(u"User.QVR", u"操作员定义", u"QIANTAI")));
        loseServer(); // a second time
        QVERIFY(button()->isEnabled() && notice());
        hotel_->startServer();
        askAndType({u"111111"_s});
        QVERIFY(!button()->isEnabled() && !notice());
    }

    void serverIsStillAway() {
        loseServer();
        askAndType({u"111111"_s, u"111111"_s}, [this](int said) {
            if (said == 1 && !Link().isUp())
                hotel_->startServer();
        });
        QCOMPARE(messages_->words(), QStringList{kNoLink});
        QCOMPARE(Link().UserName, u"QIANTAI"_s);
    }

    // The link stands, and the server knows of no login.
    void answerThatNobodyIsLoggedIn() {
        const QString port = QString::number(hotel_->port());
        Link().UserName.clear(); // else the end of the old connection would tell
        Link().ConnectServer(u"127.0.0.1"_s, port);
        Link().UserName = u"QIANTAI"_s;
        QVERIFY(!button()->isEnabled());
        QCOMPARE(DbReadRecord(u"User.QVR", u"操作员定义", u"QIANTAI"), kNobody);
        QVERIFY(button()->isEnabled() && notice());
        QCOMPARE(Link().UserName, QString());
        askAndType({u"111111"_s});
        QVERIFY(!button()->isEnabled() && !notice());
    }

    // What is typed stands, the key and the notice work where the main window takes no input, and the
    // work goes on.
    void overAModalForm() {
        QTimer::singleShot(0, main_.get(), [this] { workOnModalForm(); });
        ModalScreen<WorkFrm> form(main_.get());
        work_ = form.get();
        form.show();
        QCOMPARE(work_->saved, 0);
        QCOMPARE(hotel_->stored(u"work.qvr"_s, u"登记"_s, u"001"_s), u"wangping"_s);
        QTest::keyClick(main_.get(), Qt::Key_L, Qt::ControlModifier); // nothing to ask any longer
        QVERIFY(!Question());
    }

    // The notice comes along to the window that the user turns to, and stays off the question.
    void noticeIsWhereTheUserIs() {
        auto* work = new WorkFrm;
        loseServer();
        QCOMPARE(notice()->window(), main_.get());
        ShowScreen(work);
        QTRY_COMPARE(notice()->window(), work);
        work->resize(700, 500);
        QTRY_COMPARE(notice()->geometry().bottomRight(), QPoint(693, 493));
        work->close();
        main_->activateWindow();
        QTRY_COMPARE(notice() ? notice()->window() : nullptr, main_.get());
    }

    // The rights of this moment hold; who has been deleted stays out and keeps what stands on the screen.
    void rightsAreThoseOfNow() {
        QTest::keyClick(main_.get(), Qt::Key_F1);
        QVERIFY(main_->findChild<QPushButton*>(u"Rzjd_cmd"_s)->isVisible());
        changeUser([](QString record) {
            record = SetTag(record, u"部门", u"收银处");
            return SetTag(record, u"岗位码", u"收银结算 账号管理");
        });
        loseServer();
        hotel_->startServer();
        askAndType({u"111111"_s});
        QCOMPARE(CurrentSession().rights, u"收银结算 账号管理"_s);
        QVERIFY(!main_->findChild<QPushButton*>(u"Qtjd_cmd"_s)->isEnabled());
        QVERIFY(!main_->findChild<QPushButton*>(u"Rzjd_cmd"_s)->isVisible());
        QVERIFY(main_->findChild<QPushButton*>(u"Syjs_cmd"_s)->isEnabled());
        QTest::keyClick(main_.get(), Qt::Key_F3);
        QVERIFY(main_->findChild<QPushButton*>(u"Zhgl_cmd"_s)->isEnabled());
        QVERIFY(!main_->findChild<QPushButton*>(u"Jztf_cmd"_s)->isEnabled());

        changeUser([](const QString&) { return QString(); });
        loseServer();
        hotel_->startServer();
        askAndType({u"111111"_s});
        QCOMPARE(messages_->words(), QStringList{kRefusal});
        QCOMPARE(CurrentSession().rights, u"收银结算 账号管理"_s);
        QVERIFY(notice());
    }

    // The clock of the workstation, on which the login depends, follows the server first.
    void serverComesBackOnAnotherDay() {
        loseServer();
        hotel_->setServerClock(QDateTime(QDate(2026, 3, 6), QTime(7, 0)));
        hotel_->startServer();
        askAndType({u"111111"_s});
        QCOMPARE(messages_->words(), QStringList());
        QCOMPARE(Link().UserName, u"QIANTAI"_s);
    }

private:
    void workOnModalForm() {
        QTRY_COMPARE(QApplication::activeWindow(), work_);
        QTest::keyClicks(work_->guest, u"wang"_s);
        loseServer();
        QTest::keyClicks(work_->guest, u"ping"_s);
        QCOMPARE(notice()->window(), work_);
        QVERIFY(QRect(QPoint(), work_->size()).contains(notice()->geometry()));
        hotel_->startServer();
        work_->command(u"SaveCmd")->click();
        QVERIFY(work_->saved != 0);
        askAndType({}); // by key, and cancelled
        QVERIFY(work_->isVisible());
        answering({u"111111"_s}, [this] { QTest::mouseClick(notice(), Qt::LeftButton); });
        QVERIFY(!notice());
        QCOMPARE(work_->guest->text(), u"wangping"_s);
        work_->command(u"SaveCmd")->click();
        work_->close();
    }
    QPushButton* button() { return main_->command(u"Relogin_cmd"); }
    QPushButton* notice() {
        for (QWidget* widget : QApplication::allWidgets()) {
            if (widget->isVisible() && widget->objectName() == u"reloginNotice")
                return static_cast<QPushButton*>(widget);
        }
        return nullptr;
    }
    void loseServer() {
        hotel_->stopServer();
        QTRY_VERIFY(!Link().isUp());
    }

    // Has `ask` bring the question up, types into it password by password, and Esc where it still stands
    // then. `said` is told how many messages there are behind each.
    void answering(QStringList passwords, const std::function<void()>& ask,
                   const std::function<void(int)>& said = {}) {
        bool asked = false;
        bool typing = false;
        QTimer typist;
        connect(&typist, &QTimer::timeout, this, [&] {
            if (typing || !Question() || QApplication::activeWindow() != Question())
                return;
            asked = typing = true;
            if (passwords.isEmpty()) {
                QTest::keyClick(Question(), Qt::Key_Escape);
            } else {
                QTest::keyClicks(QApplication::focusWidget(), passwords.takeFirst());
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
                if (said)
                    said(int(messages_->entries().size()));
            }
            typing = false;
        });
        typist.start(2);
        ask();
        QTRY_VERIFY(asked && !typing && !Question());
    }
    void askAndType(const QStringList& passwords, const std::function<void(int)>& said = {}) {
        answering(
            passwords,
            [] {
                QWidget* focus = QApplication::focusWidget();
                QTest::keyClick(focus ? focus : QApplication::activeWindow(), Qt::Key_L,
                                Qt::ControlModifier);
            },
            said);
    }

    // Another desk changes this user's record; an empty one deletes the user.
    void changeUser(const std::function<QString(const QString&)>& change) {
        Desk other(hotel_->port());
        const Session session = CurrentSession();
        other.logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
        const QString record = DbReadRecord(u"User.QVR", u"操作员定义", u"QIANTAI");
        const QString changed = change(record);
        QCOMPARE(changed.isEmpty() ? DeleteRecord(u"User.QVR", u"操作员定义", u"QIANTAI")
                                   : SaveRecord(u"User.QVR", u"操作员定义", u"QIANTAI", changed),
                 0);
        CurrentSession() = session;
        hotel_->desk().use();
    }

    std::unique_ptr<TestHotel> hotel_;
    std::unique_ptr<MessageRecorder> messages_;
    std::unique_ptr<loginfrm> login_;
    std::unique_ptr<mainfrm> main_;
    QPointer<WorkFrm> work_;
};

HOTEL_TEST(ReloginTest)

#include "test_relogin.moc"
