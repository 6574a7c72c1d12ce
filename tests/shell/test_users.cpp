#include <QLineEdit>
#include <QPushButton>

#include "link/serv_api.h"
#include "platform/clock.h"
#include "record/record_text.h"
#include "screen/check_list.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "session/operation_log.h"
#include "shell/SetPass.h"
#include "shell/Userfrm.h"
#include "shell/user_accounts.h"
#include "tests/hotel_test.h"
#include "tests/test_hotel.h"
#include "tests/type_text.h"

using namespace hotel;

namespace {

const QString kFile = u"User.QVR"_s;
const QString kProject = u"操作员定义"_s;

QString Boxes(const QString& id, const QString& name, const QString& department) {
    return u"<用户名>"_s + id + u"</用户名>\r\n<姓名>" + name + u"</姓名>\r\n<部门>" + department +
           u"</部门>\r\n<密码>1</密码>\r\n<岗位码>用户管理\r\n</岗位码>\r\n<IP地址>10.0.0.7</"
           u"IP地址>";
}

} // namespace

// The list of users, the rights, and the change of one's own password, against a real server.
class UsersTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        hotel_ = std::make_unique<TestHotel>();
        messages_ = std::make_unique<MessageRecorder>();
    }
    void cleanup() {
        messages_.reset();
        hotel_.reset();
    }

    void rightsAreTickedWithTheirLineEnds() {
        QCOMPARE(RightsText({u"密码设定"_s, u"前台接待"_s, u" 入住接待"_s}),
                 u"密码设定\r\n前台接待\r\n入住接待\r\n"_s);
        QCOMPARE(RightsText({}), QString());
        const auto row = [](const char* name, const QString& rights, const QString& expected) {
            QStringList ticked;
            const QList<bool> ticks = TicksOf(rights);
            for (int n = 0; n < ticks.size(); ++n) {
                if (ticks[n])
                    ticked.append(OfferedRights()[size_t(n)].toString());
            }
            Check(name, ticked.join(u'|'), expected);
        };
        row("none", {}, {});
        row("first and last", u"打印格式\r\n密码设定\r\n"_s, u"密码设定| 打印格式"_s);
        row("under two groups", u"住客查询\r\n"_s, u" 住客查询| 住客查询"_s);
        row("the last one is lost", u"客房中心\r\n房态信息"_s, u"客房中心"_s);
        QCOMPARE(OfferedRights().size(), 55);
    }

    void addingAsksForWhatIsMissing() {
        UserAccounts users = *LoadUsers();
        const qsizetype before = users.edited.size();
        const auto row = [&](const QString& boxes, const QString& words, const QString& missing) {
            const UserEditOutcome outcome = AddUser(users, boxes);
            QVERIFY(!outcome.done);
            Check(qPrintable(words), outcome.notice->words, words);
            Check(qPrintable(words), outcome.missing.toString(), missing);
        };
        row(Boxes(u"  "_s, u"张三"_s, u"前厅部"_s), u"请输入用户名"_s, u"用户名"_s);
        row(Boxes(u"ZHANG"_s, {}, u"前厅部"_s), u"请输入用户姓名"_s, u"姓名"_s);
        row(Boxes(u"ZHANG"_s, u"张三"_s, {}), u"请输入用户部门"_s, u"部门"_s);
        row(Boxes(u"KEFANG"_s, u"张三"_s, u"前厅部"_s), u"用户已经存在！"_s, u"用户名"_s);
        row(Boxes(u"A/B"_s, u"张三"_s, u"前厅部"_s), u"用户名不能使用这样的文字！"_s, u"用户名"_s);
        row(Boxes(u"密码"_s, u"张三"_s, u"前厅部"_s), u"用户名不能使用这样的文字！"_s, u"用户名"_s);
        QCOMPARE(users.edited.size(), before);
        QVERIFY(!users.changed());
    }

    void whatWasEditedIsThereAfterSaving() {
        UserAccounts users = *LoadUsers();
        QVERIFY(AddUser(users, Boxes(u"ZHANG"_s, u"张三"_s, u"前厅部"_s)).done);
        QCOMPARE(hotel_->logged(operation_log::kOperation), u"增加用户"_s);
        QCOMPARE(hotel_->logged(operation_log::kRemark), u"用户信息：ZHANG"_s);
        QCOMPARE(ChangeUser(users, {}, {}).notice->words, u"请先选择要修改内容的用户"_s);
        QCOMPARE(
            ChangeUser(users, u"KEFANG", Boxes(u"KEFANG2"_s, u"周"_s, u"客房部"_s)).notice->words,
            u"如果要修改用户名，请删除重建！"_s);
        Clock::Advance(1000);
        const auto changed = ChangeUser(users, u"KEFANG", Boxes(u"KEFANG"_s, u"周"_s, u"客房部"_s));
        QCOMPARE(changed.notice->words, u"用户信息已经修改！退出前请注意执行保存操作！"_s);
        QCOMPARE(hotel_->logged(operation_log::kOperation, u"100001"_s), u"修改用户信息"_s);
        Clock::Advance(1000);
        RemoveUser(users, u"SHIXI");
        QCOMPARE(hotel_->logged(operation_log::kOperation, u"100002"_s), u"删除用户"_s);
        QVERIFY(hotel_->stored(kFile, kProject, u"ZHANG"_s).isEmpty()); // nothing is saved yet

        const UserEditOutcome saved = SaveUsers(users);
        QCOMPARE(saved.notice->title, u"提示"_s);
        QCOMPARE(saved.notice->words, u"用户信息清单已经保存成功！"_s);
        QVERIFY(!users.changed());
        QCOMPARE(
            hotel_->stored(kFile, kProject, u"ZHANG"_s),
            u"<姓名>张三</姓名>\r\n<部门>前厅部</部门>\r\n<密码>1</密码>\r\n<岗位码>用户管理\r\n"
            u"</岗位码>\r\n<IP地址>10.0.0.7</IP地址>"_s);
        QCOMPARE(GetTag(hotel_->stored(kFile, kProject, u"KEFANG"_s), u"姓名"), u"周"_s);
        QVERIFY(hotel_->stored(kFile, kProject, u"SHIXI"_s).isEmpty());
        QCOMPARE(GetTag(hotel_->stored(kFile, kProject, u"ADMIN"_s), u"密码"), u"admin888"_s);
        QCOMPARE(DbRecordList(kFile, kProject, 1), u"ADMIN"_s);
    }

    // Between reading and saving, other desks add, delete and change users, and users their passwords.
    void savingKeepsWhatOthersHaveChanged() {
        UserAccounts users = *LoadUsers();
        ChangeUser(users, u"KEFANG", Boxes(u"KEFANG"_s, u"周"_s, u"客房部"_s));
        const QString house = DbReadRecord(kFile, kProject, u"LIBAN");
        DbModifyRecord(kFile, kProject, u"LIBAN", SetTag(house, u"密码", u"new"));
        DbModifyRecord(kFile, kProject, u"WAIBU", u"<姓名>外</姓名>");
        DbDeleteRecord(kFile, kProject, u"CANYIN");
        const QString keeper = DbReadRecord(kFile, kProject, u"KEFANG");
        DbModifyRecord(kFile, kProject, u"KEFANG", SetTag(keeper, u"部门", u"别的部"));
        QVERIFY(SaveUsers(users).done);
        QCOMPARE(GetTag(hotel_->stored(kFile, kProject, u"LIBAN"_s), u"密码"), u"new"_s);
        QCOMPARE(hotel_->stored(kFile, kProject, u"WAIBU"_s), u"<姓名>外</姓名>"_s);
        QVERIFY(hotel_->stored(kFile, kProject, u"CANYIN"_s).isEmpty());
        const QString kept = hotel_->stored(kFile, kProject, u"KEFANG"_s);
        QCOMPARE(GetTag(kept, u"姓名"), u"周"_s);
        QCOMPARE(GetTag(kept, u"部门"), u"别的部"_s);
        QVERIFY(users.find(u"WAIBU") >= 0);
    }

    void nothingIsSavedThatWouldLockTheHouseOut() {
        UserAccounts users = *LoadUsers();
        for (UserAccount& user : users.edited)
            user.record = SetTag(user.record, u"岗位码", u"客房中心\r\n");
        QCOMPARE(SaveUsers(users).notice->words,
                 u"至少要保留一个有“用户管理”权限的用户，没有保存！"_s);
        QVERIFY(users.changed());
        hotel_->stopServer();
        QVERIFY(!LoadUsers());
        QCOMPARE(SaveUsers(users).notice->title, u"没有保存"_s);
        hotel_->startServer();
    }

    void aUserIsMadeByKeys() {
        Userfrm screen;
        ShowActive(&screen);
        screen.load({});
        const auto type = [&](const QString& text) {
            TypeText(QApplication::focusWidget(), text);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        };
        type(u"zhang"_s);
        type(u"张三"_s);
        type(u"前厅部"_s);
        type(u"a1"_s);
        type(u"10.0.0.x7"_s);
        auto* list = screen.findChild<GridView*>(u"QVRTrVw"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return); // the default command
        QTRY_VERIFY(list->table().find(1, u"ZHANG"_s) > 0);
        auto* rights = screen.findChild<CheckList*>(u"PrivList"_s);
        QCOMPARE(rights->tickedEntries(), QStringList());
        rights->setFocus();
        rights->setCurrentRow(3);
        QTest::keyClick(rights, Qt::Key_Space);
        QCOMPARE(rights->tickedEntries(), QStringList({u" 住客查询"_s, u" 住客查询"_s}));
        QTest::keyClick(&screen, Qt::Key_F6);
        QTRY_COMPARE(messages_->last(), u"用户信息已经修改！退出前请注意执行保存操作！"_s);

        messages_->answerNext(u"no"_s); // leaving would lose it
        screen.close();
        QVERIFY(screen.isVisible());
        screen.load({}); // and so would reading anew
        QVERIFY(list->table().find(1, u"ZHANG"_s) > 0);
        QTest::keyClick(&screen, Qt::Key_F8);
        QTRY_COMPARE(messages_->last(), u"用户信息清单已经保存成功！"_s);
        const QString user = hotel_->stored(kFile, kProject, u"ZHANG"_s);
        QCOMPARE(GetTag(user, u"岗位码"), u"住客查询\r\n住客查询\r\n"_s);
        QCOMPARE(GetTag(user, u"IP地址"), u"10.0.0.7"_s);

        QTest::keyClick(&screen, Qt::Key_F7);
        QTRY_COMPARE(messages_->last(), u"这是一个含有许多信息的记录，真的要删除吗？"_s);
        QCOMPARE(messages_->entries().last().title, u"注  意"_s);
        QVERIFY(list->table().find(1, u"ZHANG"_s) > 0); // the question was not answered
        messages_->answerNext(u"ok"_s);
        QTest::keyClick(&screen, Qt::Key_F7);
        QTRY_VERIFY(list->table().find(1, u"ZHANG"_s) < 0);
        messages_->answerNext(u"yes"_s);
        screen.close();
        QVERIFY(!screen.isVisible());
    }

    void aListThatCouldNotBeReadIsNotSaved() {
        Userfrm screen;
        hotel_->stopServer();
        screen.load({});
        QCOMPARE(messages_->last(), u"用户信息读取失败，请关闭本窗口后再试！"_s);
        hotel_->startServer();
        DbServerDate(); // connects anew
        hotel_->desk().logIn(u"ADMIN"_s, u"admin888"_s);
        screen.show();
        screen.command(u"CmdFile")->click();
        QCOMPARE(messages_->entries().last().title, u"没有保存"_s);
        QVERIFY(!hotel_->stored(kFile, kProject, u"ADMIN"_s).isEmpty());
    }

    void theOwnPassword() {
        const auto row = [&](const QString& user, const QString& old, const QString& fresh,
                             const QString& again, const QString& words, const QString& title,
                             const QString& log) {
            Clock::Advance(1000);
            const PasswordOutcome outcome = ChangePassword(user, old, fresh, again);
            Check(qPrintable(words), outcome.notice.words, words);
            Check(qPrintable(words), outcome.notice.title, title);
            const QString second = Clock::Now().toString(u"HHmmss");
            Check(qPrintable(words), hotel_->logged(operation_log::kRemark, second), log);
            return outcome;
        };
        const QString differ = u"新密码和再确认的密码不相同？"_s;
        QVERIFY(row(u"LIBAN"_s, u"222222"_s, u"a"_s, u"b"_s, differ, u"提示"_s, {}).clearsNew);
        const auto changed = row(u"LIBAN"_s, u"222222"_s, u"abc"_s, u"abc"_s, u"密码成功修改！"_s,
                                 u"提示"_s, u"成功"_s);
        QVERIFY(changed.done);
        QCOMPARE(GetTag(hotel_->stored(kFile, kProject, u"LIBAN"_s), u"密码"), u"abc"_s);
        QCOMPARE(GetTag(hotel_->stored(kFile, kProject, u"LIBAN"_s), u"姓名"), u"陈志远"_s);
        QCOMPARE(DbLogin(u"LIBAN"_s, u"abc"_s), 0);
    }

    void aRefusedPasswordChangesNothing() {
        SetPass screen;
        ShowActive(&screen);
        screen.load(u"LIBAN"_s);
        for (const QString& text : {u"222221"_s, u"new"_s, u"new"_s}) {
            TypeText(QApplication::focusWidget(), text);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        }
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return); // the default command
        QTRY_COMPARE(messages_->last(), u"用户名与密码不匹配！"_s);
        QCOMPARE(messages_->entries().last().title, u"验证失败！"_s);
        QVERIFY(screen.isVisible());
        for (const QString& box : {u"OldPass"_s, u"NewPass"_s, u"ReTypePass"_s})
            QCOMPARE(screen.findChild<QLineEdit*>(box)->text(), QString());
        QCOMPARE(GetTag(hotel_->stored(kFile, kProject, u"LIBAN"_s), u"密码"), u"222222"_s);
        QCOMPARE(ChangePassword({}, {}, u"x"_s, u"x"_s).notice.title, u"验证失败！"_s);
        hotel_->stopServer();
        QCOMPARE(ChangePassword(u"LIBAN"_s, u"222222"_s, u"x"_s, u"x"_s).notice.title,
                 u"验证失败！"_s);
        hotel_->startServer();
    }

private:
    std::unique_ptr<TestHotel> hotel_;
    std::unique_ptr<MessageRecorder> messages_;
};

HOTEL_TEST(UsersTest)
#include "test_users.moc"
