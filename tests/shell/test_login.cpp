#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>

#include "app/screens.h"
#include "link/serv_api.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "screen/messages.h"
#include "session/operation_log.h"
#include "session/session.h"
#include "shell/loginfrm.h"
#include "shell/main_menu.h"
#include "shell/mainfrm.h"
#include "tests/hotel_test.h"
#include "tests/test_hotel.h"

using namespace hotel;

namespace {

const QString kRefusal =
    u"用户名与密码不匹配！也有可能是未经许可的IP,还应保持和服务器时间相近，请核对！"_s;

} // namespace

// Login screen and main window through their own controls, against a real server.
class LoginTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void userListIsFilledAndTypedInCapitals();
    void emptyUserIsAskedAgain();
    void outcomes_data();
    void outcomes();
    void refusedPasswordIsSelectedForTyping();
    void mainWindowShowsTheUsersRights_data();
    void mainWindowShowsTheUsersRights();
    void entryIsLoggedBeforeItOpens();
    void nightAuditIsRefusedByDay();
    void leavingIsLoggedAndPicturesAreRemoved();
    void dateOfAnotherDayIsNotedInTheLog_data();
    void dateOfAnotherDayIsNotedInTheLog();
    void workstationFollowsTheServersClock();
    void serverThatComesLaterFillsTheList();
    void serverLostWhileLoggedIn();

private:
    void logIn(const QString& user, const QString& password);
    QString logged(const QString& time, QStringView field);
    template<class Widget>
    Widget* control(QWidget* window, const QString& name) {
        return window->findChild<Widget*>(name);
    }
    QLineEdit* password() { return control<QLineEdit>(login_, u"Password"_s); }

    std::unique_ptr<TestHotel> hotel_;
    std::unique_ptr<MessageRecorder> messages_;
    QPointer<loginfrm> login_;
};

void LoginTest::init() {
    hotel_ = std::make_unique<TestHotel>(TestHotel::Start::NobodyLoggedIn);
    messages_ = std::make_unique<MessageRecorder>();
    RegisterScreens();
    Configuration configuration;
    configuration.port = hotel_->port();
    login_ = new loginfrm(configuration);
    login_->show();
    login_->Load();
}

void LoginTest::cleanup() {
    delete login_->mainWindow();
    delete login_;
    messages_.reset();
    hotel_.reset();
}

void LoginTest::logIn(const QString& user, const QString& typedPassword) {
    auto* users = control<QComboBox>(login_, u"usercmb"_s);
    users->setFocus();
    users->lineEdit()->selectAll();
    QTest::keyClicks(users, user);
    QTest::keyClick(users, Qt::Key_Return);
    QCOMPARE(QApplication::focusWidget(), password());
    QTest::keyClicks(password(), typedPassword);
    QTest::keyClick(password(), Qt::Key_Return);
}

QString LoginTest::logged(const QString& time, QStringView field) {
    const QString record =
        hotel_->stored(u"BglogRec\\26\\03\\260305.qvr"_s, operation_log::kProject.toString(), time);
    return GetTag(record, field);
}

void LoginTest::userListIsFilledAndTypedInCapitals() {
    auto* users = control<QComboBox>(login_, u"usercmb"_s);
    QTRY_VERIFY(users->count() > 10);
    QCOMPARE(users->currentText(), QString());
    QTest::keyClicks(users->lineEdit(), u"shouYin1"_s);
    QCOMPARE(users->currentText(), u"SHOUYIN1"_s);
}

void LoginTest::emptyUserIsAskedAgain() {
    control<QPushButton>(login_, u"Logincmd"_s)->click();
    QCOMPARE(messages_->entries().last().title, u"登录失败！"_s);
    QCOMPARE(messages_->last(), u"用户名不能为空，请重新选择！"_s);
}

void LoginTest::outcomes_data() {
    QTest::addColumn<QString>("user");
    QTest::addColumn<QString>("password");
    QTest::addColumn<QString>("message"); // empty: logged in without one
    QTest::addColumn<bool>("loggedIn");
    QTest::newRow("right password") << u"qiantai"_s << u"111111"_s << QString() << true;
    QTest::newRow("wrong password") << u"qiantai"_s << u"111112"_s << kRefusal << false;
    QTest::newRow("no password typed") << u"qiantai"_s << QString() << kRefusal << false;
    QTest::newRow("unknown user") << u"nobody"_s << u"111111"_s << kRefusal << false;
    QTest::newRow("user without a password, nothing typed")
        << u"chaxun"_s << QString() << u"用户没有密码,必要时请设定操作密码！"_s << true;
    QTest::newRow("user without a password, something typed")
        << u"chaxun"_s << u"abc"_s << u"用户没有密码,必要时请设定操作密码！"_s << true;
    QTest::newRow("user bound to this address") << u"benji"_s << u"654321"_s << QString() << true;
}

void LoginTest::outcomes() {
    QFETCH(QString, user);
    QFETCH(QString, password);
    QFETCH(QString, message);
    QFETCH(bool, loggedIn);
    logIn(user, password);
    QTRY_COMPARE(login_->mainWindow() != nullptr, loggedIn);
    QCOMPARE(messages_->last(), message);
    QCOMPARE(login_->isVisible(), !loggedIn);
    if (loggedIn) {
        QCOMPARE(logged(u"100000"_s, operation_log::kOperation), u"登录系统成功"_s);
        QCOMPARE(logged(u"100000"_s, operation_log::kRemark),
                 u"从[%1]以用户：%2登录"_s.arg(Link().localIP, user.toUpper()));
        QCOMPARE(logged(u"100000"_s, operation_log::kOperator), CurrentSession().userName);
    }
}

void LoginTest::refusedPasswordIsSelectedForTyping() {
    logIn(u"qiantai"_s, u"wrong"_s);
    QTRY_COMPARE(messages_->last(), kRefusal);
    QVERIFY(control<QPushButton>(login_, u"Logincmd"_s)->isEnabled());
    QVERIFY(!control<QPushButton>(login_, u"SetPassCmd"_s)->isEnabled());
    QCOMPARE(password()->selectedText().size(), 5);
    QTest::keyClicks(password(), u"111111"_s);
    QTest::keyClick(password(), Qt::Key_Return);
    QTRY_VERIFY(login_->mainWindow());
    QVERIFY(control<QPushButton>(login_, u"SetPassCmd"_s)->isEnabled());
}

void LoginTest::mainWindowShowsTheUsersRights_data() {
    QTest::addColumn<QString>("rights");
    QTest::addColumn<QStringList>("groups");
    QTest::addColumn<QString>("group"); // the one to open
    QTest::addColumn<QStringList>("entries");
    QTest::newRow("none") << QString() << QStringList() << QString() << QStringList();
    QTest::newRow("without separators") << u"人事管理员工考勤"_s << QStringList{u"Rsgl_cmd"_s}
                                        << u"Rsgl_cmd"_s << QStringList{u"Kq_cmd"_s};
    QTest::newRow("one right, two entries")
        << u"客房中心\r\n住客查询\r\n前台接待\r\n"_s << QStringList{u"Qtjd_cmd"_s, u"Kfzx_cmd"_s}
        << u"Kfzx_cmd"_s << QStringList{u"ZxZkcx_cmd"_s};
    QTest::newRow("entry that no right tests") << u"经理办公"_s << QStringList{u"Jlbg_cmd"_s}
                                               << u"Jlbg_cmd"_s << QStringList{u"Gzjh_cmd"_s};
    QTest::newRow("entry without its group")
        << u"用户管理"_s << QStringList() << QString() << QStringList();
}

void LoginTest::mainWindowShowsTheUsersRights() {
    QFETCH(QString, rights);
    QFETCH(QStringList, groups);
    QFETCH(QString, group);
    QFETCH(QStringList, entries);
    CurrentSession().rights = rights;
    mainfrm window(*login_);
    window.show();
    QStringList enabled;
    for (const MenuGroup& each : MainMenu()) {
        if (control<QPushButton>(&window, each.control.toString())->isEnabled())
            enabled.append(each.control.toString());
    }
    QCOMPARE(enabled, groups);
    if (group.isEmpty())
        return;
    control<QPushButton>(&window, group)->click();
    enabled.clear();
    for (const MenuGroup& each : MainMenu()) {
        for (const MenuEntry& entry : each.entries) {
            auto* button = control<QPushButton>(&window, entry.control.toString());
            if (button->isVisible() && button->isEnabled())
                enabled.append(entry.control.toString());
        }
    }
    QCOMPARE(enabled, entries);
}

void LoginTest::entryIsLoggedBeforeItOpens() {
    logIn(u"renshi"_s, u"123456"_s);
    QTRY_VERIFY(login_->mainWindow());
    Clock::Advance(5000);
    QVERIFY(QTest::qWaitForWindowActive(login_->mainWindow()));
    QTest::keyClick(login_->mainWindow(), Qt::Key_F7);
    QTest::keyClick(login_->mainWindow(), Qt::Key_4);
    QTRY_COMPARE(logged(u"100005"_s, operation_log::kOperation), u"检查修正考勤中的错误纪录"_s);
    QCOMPARE(logged(u"100005"_s, operation_log::kRemark), u"考勤修订"_s);
    QCOMPARE(logged(u"100005"_s, operation_log::kOperator), u"何雅琴"_s);
    QCOMPARE(logged(u"100005"_s, operation_log::kDate), u"2026-03-05"_s);
    QCOMPARE(logged(u"100005"_s, operation_log::kTime), u"10:00:05"_s);
}

void LoginTest::nightAuditIsRefusedByDay() {
    logIn(u"yeshen"_s, u"555555"_s);
    QTRY_VERIFY(login_->mainWindow());
    Clock::Advance(5000);
    control<QPushButton>(login_->mainWindow(), u"Syjs_cmd"_s)->click();
    control<QPushButton>(login_->mainWindow(), u"Ystj_cmd"_s)->click();
    QCOMPARE(messages_->entries().last().title, u"操作时间未到"_s);
    QCOMPARE(messages_->last(), u"夜审时间通常在22：00 - 07：00之间进行"_s);
    QVERIFY(logged(u"100005"_s, operation_log::kOperation).isEmpty());
}

void LoginTest::leavingIsLoggedAndPicturesAreRemoved() {
    const QString folder = QCoreApplication::applicationDirPath() + u'/';
    const QStringList pictures = {u"a.JPG"_s, u"b.jpg"_s, u"c.GIF"_s, u"d.bmp"_s};
    for (const QString& name : pictures + QStringList{u"keep.txt"_s}) {
        QFile file(folder + name);
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    logIn(u"qiantai"_s, u"111111"_s);
    QTRY_VERIFY(login_->mainWindow());
    Clock::Advance(7000);
    control<QPushButton>(login_->mainWindow(), u"exit_cmd"_s)->click();
    QTRY_VERIFY(!login_->mainWindow());
    QCOMPARE(logged(u"100007"_s, operation_log::kOperation), u"退出系统"_s);
    QCOMPARE(logged(u"100007"_s, operation_log::kRemark), u"用户：QIANTAI，姓名：林晓燕退出系统"_s);
    for (const QString& name : pictures)
        QVERIFY2(!QFile::exists(folder + name), qPrintable(name));
    QVERIFY(QFile::remove(folder + u"keep.txt"_s));
}

void LoginTest::dateOfAnotherDayIsNotedInTheLog_data() {
    QTest::addColumn<QString>("rights");
    QTest::addColumn<QString>("remark");
    QTest::newRow("noted") << QString() << u"开始考勤,日期强行从2026-03-05恢复到2026-04-06"_s;
    QTest::newRow("exempt") << u"日期调整"_s << u"开始考勤"_s;
}

// The folders of the log file come from the server's date, its name from the workstation's.
void LoginTest::dateOfAnotherDayIsNotedInTheLog() {
    QFETCH(QString, rights);
    QFETCH(QString, remark);
    hotel_->desk().logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
    CurrentSession().rights = rights;
    hotel_->setServerClock(QDateTime(QDate(2026, 4, 6), QTime(9, 30)));
    SaveLogRec(u"启动考勤功能"_s, u"开始考勤"_s);
    const QString record =
        DbReadRecord(u"BglogRec\\26\\04\\260305.qvr", operation_log::kProject, u"100000");
    QCOMPARE(GetTag(record, operation_log::kRemark), remark);
    QCOMPARE(GetTag(record, operation_log::kDate), u"2026-04-06"_s);
}

void LoginTest::workstationFollowsTheServersClock() {
    hotel_->setServerClock(QDateTime(QDate(2026, 3, 5), QTime(11, 22, 33)));
    logIn(u"qiantai"_s, u"111111"_s);
    QTRY_VERIFY(login_->mainWindow());
    QCOMPARE(Clock::TimeText(), u"11:22:33"_s);
    QCOMPARE(Clock::DateText(), u"2026-03-05"_s);
}

void LoginTest::serverThatComesLaterFillsTheList() {
    delete login_;
    hotel_->stopServer();
    Configuration configuration;
    configuration.port = hotel_->port();
    login_ = new loginfrm(configuration);
    login_->show();
    login_->Load();
    auto* users = control<QComboBox>(login_, u"usercmb"_s);
    QTest::qWait(600);
    QCOMPARE(users->count(), 0);
    hotel_->startServer();
    QTRY_VERIFY_WITH_TIMEOUT(users->count() > 10, 20000);
    logIn(u"qiantai"_s, u"111111"_s);
    QTRY_VERIFY(login_->mainWindow());
}

// The next command opens the link again but is not logged in: it fails with the server's words.
void LoginTest::serverLostWhileLoggedIn() {
    logIn(u"qiantai"_s, u"111111"_s);
    QTRY_VERIFY(login_->mainWindow());
    hotel_->stopServer();
    QTRY_VERIFY(!Link().isUp());
    QCOMPARE(DbReadRecord(u"User.QVR", user_record::kProject, u"QIANTAI"),
             u"<ERROR>无法连接服务器</ERROR>\r\n"_s);
    hotel_->startServer();
    QVERIFY(IsError(DbReadRecord(u"User.QVR", user_record::kProject, u"QIANTAI")));
    QVERIFY(Link().isUp());
    control<QPushButton>(login_->mainWindow(), u"exit_cmd"_s)->click();
    QTRY_VERIFY(!login_->mainWindow());
}

HOTEL_TEST(LoginTest)

#include "test_login.moc"
