#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>

#include "app/screens.h"
#include "link/serv_api.h"
#include "platform/clock.h"
#include "record/record_text.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "screen/theme.h"
#include "session/operation_log.h"
#include "session/parameters.h"
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
    void init() {
        hotel_ = std::make_unique<TestHotel>(TestHotel::Start::NobodyLoggedIn);
        messages_ = std::make_unique<MessageRecorder>();
        RegisterScreens();
        showLogin();
    }

    void cleanup() {
        delete login_->mainWindow();
        delete login_;
        messages_.reset();
        hotel_.reset();
    }

    // Leaving has ended the event loops of the program; a run that ends lets others begin.
    void cleanupTestCase() {
        QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(); });
        QApplication::exec();
    }

    void userListIsFilledAndTypedInCapitals() {
        auto* users = control<QComboBox>(login_, u"usercmb"_s);
        QTRY_VERIFY(users->count() > 10);
        QCOMPARE(users->currentText(), QString());
        QTest::keyClicks(users->lineEdit(), u"shouYin1"_s);
        QCOMPARE(users->currentText(), u"SHOUYIN1"_s);
    }

    // What is typed is the user, whether it begins the name of another one, is a part of a name or no
    // name at all; the list only offers. The key behind the name leads to the password.
    void typedNameStands() {
        auto* box = control<QComboBox>(login_, u"usercmb"_s);
        QTRY_VERIFY(box->count() > 0);
        const auto row = [&](const char* name, const QStringList& users, const QString& typed,
                             const QList<Qt::Key>& keys, const QString& user) {
            box->clear();
            box->addItems(users);
            box->setCurrentIndex(-1);
            password()->clear();
            box->setFocus();
            QTest::keyClicks(QApplication::focusWidget(), typed);
            for (Qt::Key key : keys)
                QTest::keyClick(QApplication::focusWidget(), key);
            QTest::keyClicks(QApplication::focusWidget(), u"111111"_s);
            Check(name, box->currentText(), user);
            Check(name, password()->text(), u"111111"_s);
        };
        const QStringList house = {u"QIANTAI"_s, u"LIBAN"_s, u"QIAN"_s, u"QI"_s};
        row("half a name", house, u"qiant"_s, {Qt::Key_Return}, u"QIANT"_s);
        row("a whole name", house, u"qiantai"_s, {Qt::Key_Return}, u"QIANTAI"_s);
        row("a name that begins others", house, u"qi"_s, {Qt::Key_Return}, u"QI"_s);
        row("a name between others, Tab", house, u"qian"_s, {Qt::Key_Tab}, u"QIAN"_s);
        row("half a name, Tab", house, u"lib"_s, {Qt::Key_Tab}, u"LIB"_s);
        row("the only user's half name", {u"ADMIN"_s}, u"adm"_s, {Qt::Key_Return}, u"ADM"_s);
        row("nobody to offer", {}, u"adm"_s, {Qt::Key_Return}, u"ADM"_s);
        row("chosen by key", house, {}, {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}, u"LIBAN"_s);
    }

    // A quick clerk types before the list is there.
    void listThatComesLeavesTheTypingAlone() {
        auto* box = control<QComboBox>(login_, u"usercmb"_s);
        QTRY_VERIFY(box->count() > 0);
        box->clear();
        box->setFocus();
        QTest::keyClicks(box->lineEdit(), u"qt"_s);
        QTest::keyClick(box->lineEdit(), Qt::Key_Left);
        QTest::keyClicks(box->lineEdit(), u"ian"_s);
        password()->setFocus();
        box->setFocus();
        QTRY_VERIFY(box->count() > 0);
        QTest::keyClicks(box->lineEdit(), u"1"_s);
        QCOMPARE(box->currentText(), u"QIAN1T"_s);
    }

    void emptyUserIsAskedAgain() {
        control<QPushButton>(login_, u"Logincmd"_s)->click();
        QCOMPARE(messages_->entries().last().title, u"登录失败！"_s);
        QCOMPARE(messages_->last(), u"用户名不能为空，请重新选择！"_s);
    }

    void outcomes_data() {
        const Columns<QString, QString, QString> row("user", "password", "message");
        const QString noPassword = u"用户没有密码,必要时请设定操作密码！"_s;
        row("right password", u"qiantai"_s, u"111111"_s, {});
        row("wrong password", u"qiantai"_s, u"111112"_s, kRefusal);
        row("no password typed", u"qiantai"_s, {}, kRefusal);
        row("unknown user", u"nobody"_s, u"111111"_s, kRefusal);
        row("user without a password, nothing typed", u"chaxun"_s, {}, noPassword);
        row("user without a password, something typed", u"chaxun"_s, u"abc"_s, noPassword);
        row("user bound to this address", u"benji"_s, u"654321"_s, {});
    }
    void outcomes() {
        QFETCH(QString, user);
        QFETCH(QString, password);
        QFETCH(QString, message);
        const bool loggedIn = message != kRefusal;
        logIn(user, password);
        QTRY_COMPARE(login_->mainWindow() != nullptr, loggedIn);
        QCOMPARE(messages_->last(), message);
        QCOMPARE(login_->isVisible(), !loggedIn);
        if (!loggedIn) {
            const QString entry = logEntry(u"100000"_s);
            QCOMPARE(GetTag(entry, u"操作内容"), u"登录失败"_s);
            QCOMPARE(GetTag(entry, u"备注"),
                     u"从[%1]尝试以用户：%2登录，失败"_s.arg(Link().localIP, user.toUpper()));
            QCOMPARE(GetTag(entry, u"操作员"), QString());
        } else {
            const QString entry = logEntry(u"100000"_s);
            QCOMPARE(GetTag(entry, u"操作内容"), u"登录系统成功"_s);
            QCOMPARE(GetTag(entry, u"备注"),
                     u"从[%1]以用户：%2登录"_s.arg(Link().localIP, user.toUpper()));
            QCOMPARE(GetTag(entry, u"操作员"), CurrentSession().userName);
            const auto* change = control<QPushButton>(login_, u"SetPassCmd"_s);
            QCOMPARE(change->isEnabled(), user != u"chaxun"_s); // who has no right to it
        }
    }

    // Who may change a password is known from the rights alone, so nobody is kept from it before the
    // first failure.
    void passwordMayBeChangedUntilALoginFails() {
        QTest::keyClicks(QApplication::focusWidget(), u"liban"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F4);
        QPointer<Screen> change = FindScreen(u"SetPass");
        QVERIFY(change && change->isVisible());
        QCOMPARE(control<QLineEdit>(change, u"UserID"_s)->text(), u"LIBAN"_s);
        change->close();
        QTRY_VERIFY(!change);
        login_->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(login_));
        logIn(u"qiantai"_s, u"wrong"_s);
        QTRY_COMPARE(messages_->last(), kRefusal);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F4);
        QVERIFY(!FindScreen(u"SetPass"));
    }

    void refusedPasswordIsSelectedForTyping() {
        logIn(u"qiantai"_s, u"wrong"_s);
        QTRY_COMPARE(messages_->last(), kRefusal);
        QVERIFY(control<QPushButton>(login_, u"Logincmd"_s)->isEnabled());
        QCOMPARE(password()->selectedText().size(), 5);
        QTest::keyClicks(password(), u"111111"_s);
        QTest::keyClick(password(), Qt::Key_Return);
        QTRY_VERIFY(login_->mainWindow());
    }

    // The words don't wait for the log, which a silent server would keep for minutes.
    void refusalIsTakenDownBehindItsWords() {
        QTRY_VERIFY(control<QComboBox>(login_, u"usercmb"_s)->count() > 0);
        messages_.reset(); // the words come in a box
        const int before = Link().commandCounter();
        int commands = 0;
        QTimer watch;
        connect(&watch, &QTimer::timeout, this, [&] {
            if (auto* box = QApplication::activeModalWidget()) {
                commands = Link().commandCounter() - before;
                box->close();
            }
        });
        watch.start(5);
        logIn(u"qiantai"_s, u"wrong"_s);
        QTRY_COMPARE(commands, 2); // with no password, and with the one typed
        QTRY_COMPARE(password()->selectedText().size(), 5);
        QVERIFY(Link().commandCounter() - before > 2);
    }

    // A small display of 1366 by 768, less a task bar and the window's own frame.
    void mainWindowFitsASmallDisplay() {
        ApplyTheme(*qApp);
        CurrentSession().rights = u"人事管理"_s;
        QCOMPARE(mainfrm(*login_).windowTitle(), u"宾馆管理工作站"_s);
        SetParam(u"Yhdwmc", u"海天宾馆"_s);
        mainfrm window(*login_);
        QCOMPARE(window.windowTitle(), u"海天宾馆 管理工作站"_s);
        QCOMPARE(control<QLabel>(&window, u"Bgmc"_s)->text(), u"海天宾馆"_s);
        window.show();
        control<QPushButton>(&window, u"Rsgl_cmd"_s)->click();
        const QSize room(1366 - 16, 768 - 88);
        QCOMPARE(window.size().boundedTo(room), window.size());
        QCOMPARE(window.minimumSizeHint().boundedTo(room), window.minimumSizeHint());
    }

    void mainWindowShowsTheUsersRights() {
        // The groups that can be opened, the one that is, and the entries that can be chosen then.
        const auto row = [this](const QString& rights, const QString& groups, const QString& group,
                                const QString& entries) {
            CurrentSession().rights = rights;
            mainfrm window(*login_);
            window.show();
            QStringList mayOpen;
            QStringList mayChoose;
            const auto note = [&](const QString& name, QStringList& names) {
                auto* button = control<QPushButton>(&window, name);
                if (button->isVisible() && button->isEnabled())
                    names.append(name);
            };
            for (const MenuGroup& each : MainMenu())
                note(each.control.toString(), mayOpen);
            if (!group.isEmpty())
                control<QPushButton>(&window, group)->click();
            for (const MenuGroup& each : MainMenu())
                for (const MenuEntry& entry : each.entries)
                    note(entry.control.toString(), mayChoose);
            Check(qPrintable(rights), mayOpen.join(u' '), groups);
            Check(qPrintable(rights), mayChoose.join(u' '), entries);
        };
        row({}, {}, {}, {});
        row(u"人事管理员工考勤"_s, u"Rsgl_cmd"_s, u"Rsgl_cmd"_s, u"Kq_cmd"_s);
        row(u"客房中心\r\n住客查询\r\n前台接待\r\n"_s, u"Qtjd_cmd Kfzx_cmd"_s, u"Kfzx_cmd"_s,
            u"ZxZkcx_cmd"_s);                                            // one right, two entries
        row(u"经理办公"_s, u"Jlbg_cmd"_s, u"Jlbg_cmd"_s, u"Gzjh_cmd"_s); // that no right tests
        row(u"用户管理"_s, {}, {}, {}); // an entry without its group
    }

    void entryIsLoggedBeforeItOpens() {
        comeIn(u"renshi"_s, u"123456"_s);
        Clock::Advance(5000);
        QVERIFY(QTest::qWaitForWindowActive(login_->mainWindow()));
        QString entry;
        QTest::keyClick(login_->mainWindow(), Qt::Key_F7);
        QTest::keyClick(login_->mainWindow(), Qt::Key_4);
        QTRY_VERIFY(!(entry = logEntry(u"100005"_s)).isEmpty());
        QCOMPARE(GetTag(entry, u"操作内容"), u"检查修正考勤中的错误纪录"_s);
        QCOMPARE(GetTag(entry, u"备注"), u"考勤修订"_s);
        QCOMPARE(GetTag(entry, u"操作员"), u"何雅琴"_s);
        QCOMPARE(GetTag(entry, u"日期"), u"2026-03-05"_s);
        QCOMPARE(GetTag(entry, u"时间"), u"10:00:05"_s);
    }

    void nightAuditIsRefusedByDay() {
        comeIn(u"yeshen"_s, u"555555"_s);
        Clock::Advance(5000);
        press(u"Syjs_cmd"_s);
        press(u"Ystj_cmd"_s);
        QCOMPARE(messages_->entries().last().title, u"操作时间未到"_s);
        QCOMPARE(messages_->last(), u"夜审时间通常在22：00 - 07：00之间进行"_s);
        QCOMPARE(logEntry(u"100005"_s), QString());
    }

    void leavingIsLoggedAndPicturesAreRemoved() {
        const QString folder = QCoreApplication::applicationDirPath() + u'/';
        const QStringList pictures = {u"a.JPG"_s, u"b.jpg"_s, u"c.GIF"_s, u"d.bmp"_s};
        for (const QString& name : pictures + QStringList{u"keep.txt"_s}) {
            QFile file(folder + name);
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        comeIn(u"qiantai"_s, u"111111"_s);
        Clock::Advance(7000);
        press(u"exit_cmd"_s);
        QTRY_VERIFY(!login_->mainWindow());
        const QString entry = logEntry(u"100007"_s);
        QCOMPARE(GetTag(entry, u"操作内容"), u"退出系统"_s);
        QCOMPARE(GetTag(entry, u"备注"), u"用户：QIANTAI，姓名：林晓燕退出系统"_s);
        for (const QString& name : pictures)
            QVERIFY2(!QFile::exists(folder + name), qPrintable(name));
        QVERIFY(QFile::remove(folder + u"keep.txt"_s));
    }

    // The folders of the log file come from the server's date, its name from the workstation's.
    void dateOfAnotherDayIsNotedInTheLog() {
        hotel_->desk().logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
        hotel_->setServerClock(QDateTime(QDate(2026, 4, 6), QTime(9, 30)));
        for (const QString& rights : {QString(), u"日期调整"_s}) {
            CurrentSession().rights = rights;
            SaveLogRec(u"启动考勤功能"_s, u"开始考勤"_s);
            const QString record =
                DbReadRecord(u"BglogRec\\26\\04\\260305.qvr", operation_log::kProject, u"100000");
            QCOMPARE(GetTag(record, operation_log::kRemark),
                     rights.isEmpty() ? u"开始考勤,日期强行从2026-03-05恢复到2026-04-06"_s
                                      : u"开始考勤"_s);
            QCOMPARE(GetTag(record, operation_log::kDate), u"2026-04-06"_s);
        }
    }

    void workstationFollowsTheServersClock() {
        hotel_->setServerClock(QDateTime(QDate(2026, 3, 5), QTime(11, 22, 33)));
        comeIn(u"qiantai"_s, u"111111"_s);
        QCOMPARE(Clock::TimeText(), u"11:22:33"_s);
        QCOMPARE(Clock::DateText(), u"2026-03-05"_s);
    }

    // Only where the configuration asks for it; a machine that refuses is told of, and stops nobody.
    void machinesClockFollows_data() {
        const Columns<bool, QString> row("may", "told");
        row("set", true, {});
        row("refused", false,
            u"本机时钟没有校准（当前系统用户无权设定），程序按服务器的时间运行。"_s);
    }
    void machinesClockFollows() {
        QFETCH(bool, may);
        QList<QDateTime> set;
        Clock::LetMachineFollow([&](const QDateTime& moment) {
            set += moment;
            return may;
        });
        const QDateTime server(QDate(2026, 3, 5), QTime(11, 22, 33));
        hotel_->setServerClock(server);
        comeIn(u"qiantai"_s, u"111111"_s);
        Clock::LetMachineFollow({});
        QCOMPARE(set, QList<QDateTime>{server});
        QTEST(messages_->last(), "told");
        QCOMPARE(Clock::TimeText(), u"11:22:33"_s);
    }

    void serverThatComesLaterFillsTheList() {
        delete login_;
        hotel_->stopServer();
        QTimer::singleShot(100, [] { Clock::Advance(3500); }); // the wait for a server is over
        showLogin();
        auto* users = control<QComboBox>(login_, u"usercmb"_s);
        QCOMPARE(users->count(), 0);
        hotel_->startServer();
        QTRY_VERIFY_WITH_TIMEOUT(users->count() > 10, 20000);
        comeIn(u"qiantai"_s, u"111111"_s);
    }

private:
    // What the day's operation log holds of that second.
    QString logEntry(const QString& second) {
        return hotel_->stored(u"BglogRec\\26\\03\\260305.qvr"_s, u"操作记录信息"_s, second);
    }
    void showLogin() {
        Configuration configuration;
        configuration.port = hotel_->port();
        login_ = new loginfrm(configuration);
        login_->show();
        login_->Load();
    }
    void logIn(const QString& user, const QString& typedPassword) {
        auto* users = control<QComboBox>(login_, u"usercmb"_s);
        users->setFocus();
        users->lineEdit()->selectAll();
        QTest::keyClicks(users, user);
        QTest::keyClick(users, Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget(), password());
        QTest::keyClicks(password(), typedPassword);
        QTest::keyClick(password(), Qt::Key_Return);
    }
    void comeIn(const QString& user, const QString& password) {
        logIn(user, password);
        QTRY_VERIFY(login_->mainWindow());
    }
    // A button of the main window.
    void press(const QString& name) { control<QPushButton>(login_->mainWindow(), name)->click(); }

    template<class Widget>
    Widget* control(QWidget* window, const QString& name) {
        return window->findChild<Widget*>(name);
    }
    QLineEdit* password() { return control<QLineEdit>(login_, u"Password"_s); }

    std::unique_ptr<TestHotel> hotel_;
    std::unique_ptr<MessageRecorder> messages_;
    QPointer<loginfrm> login_;
};

HOTEL_TEST(LoginTest)

#include "test_login.moc"
