#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "cashier/FyxxFrm.h"
#include "cashier/QdjzFrm.h"
#include "cashier/folio_box.h"
#include "cashier/folio_statement.h"
#include "house/common/paths.h"
#include "house/folios/folio.h"
#include "house/folios/folio_posting.h"
#include "house/folios/posting_list.h"
#include "house/rooms/room_record.h"
#include "link/records.h"
#include "record/record_text.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "session/session.h"
#include "tests/hotel_test.h"
#include "tests/house/small_house.h"
#include "tests/test_files.h"
#include "tests/tools/paper/print_items.h"
#include "tests/type_text.h"
#include "tools/aids/form_tools.h"
#include "tools/paper/PrtPrev.h"

using namespace hotel;

namespace {

const QString kFolio = u"260305100000"_s;
const QString kOther = u"260305100001"_s;
const QString kLedger = u"kzxx\\26\\03\\05\\260305100000.QVR"_s;
const QString kDeposits = u"信用押金信息"_s;
const QString kMeals = u"餐饮娱乐费用"_s;

void OpenFolio(const QString& folio) {
    SaveRecord(OpenFolioFile(), folio_record::kProject, folio,
               u"<基本信息><客人姓名>陈志远</客人姓名></基本信息>"
               "<8101><床位01><客人姓名>陈志远</客人姓名></床位01>"
               "<床位02><客人姓名>林芳</客人姓名></床位02></8101>");
}

template<class Widget>
Widget* In(Screen* screen, const char* name) {
    auto* widget = screen->findChild<Widget*>(QString::fromLatin1(name));
    if (!widget)
        qFatal("no %s", name);
    return widget;
}

Screen* Opened(QStringView name, const QString& folio = kFolio) {
    OpenScreen(name, folio);
    Screen* screen = FindScreen(name);
    if (!screen || !QTest::qWaitForWindowActive(screen))
        qFatal("no %s", qPrintable(name.toString()));
    return screen;
}

// Where the keys go, by name.
QString Focus(Screen* screen) {
    return screen->focusWidget() ? screen->focusWidget()->objectName() : QString();
}

void Press(Screen* screen, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(screen->focusWidget() ? screen->focusWidget() : screen, key, modifiers);
}

// Types each text into the field that has the focus and leaves it with Enter.
void Enter(Screen* screen, const QStringList& texts) {
    for (const QString& text : texts) {
        TypeText(screen->focusWidget(), text);
        Press(screen, Qt::Key_Return);
    }
}

QString TextOf(Screen* screen, const char* name) {
    if (const auto* box = screen->findChild<QComboBox*>(QString::fromLatin1(name)))
        return box->currentText();
    return In<QLineEdit>(screen, name)->text();
}

QStringList Totals(Screen* screen) {
    return {TextOf(screen, "Zhxye"), TextOf(screen, "Zssje"), TextOf(screen, "Zhxfe"),
            TextOf(screen, "Zhye")};
}

TextTable& ListOf(Screen* screen, const char* name) {
    return In<GridView>(screen, name)->table();
}

} // namespace

class PostingScreensTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHotel> hotel_;
    std::unique_ptr<MessageRecorder> messages_;
    WorkingFolder folder_;

    QString told() const {
        const auto& entries = messages_->entries();
        return entries.isEmpty() ? QString()
                                 : entries.last().title + u": "_s + entries.last().words;
    }

private Q_SLOTS:
    void initTestCase() {
        SetUpForms();
        RegisterScreen(u"FyxxFrm", [] { return new FyxxFrm; });
        RegisterScreen(u"QdjzFrm", [] { return new QdjzFrm; });
        RegisterScreen(u"PrtPrev", [] { return new PrtPrev; });
    }
    void init() {
        hotel_ = std::make_unique<TestHotel>();
        messages_ = std::make_unique<MessageRecorder>();
        CurrentSession().userDept = u"前厅部"_s;
        FillRooms({{u"8101"_s}});
        OpenFolio(kFolio);
    }
    void cleanup() {
        CloseAllScreens();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        hotel_.reset();
    }

    // A clerk's hands stay on the keys: the guest is missing, is picked, and the deposit is posted.
    void aDepositByKeys() {
        SaveRecord(RoomDatabaseFile(), u"客房基本信息", u"8101", u"<电话号码>6101</电话号码>");
        Screen* screen = Opened(u"FyxxFrm");
        QCOMPARE(screen->windowTitle(), u"账号账务详细信息清单"_s);
        QCOMPARE(Focus(screen), u"Xyzl"_s);
        Enter(screen, {u"xjyj"_s, u"xj"_s, u"３００＋200"_s, u"收据1"_s});
        QCOMPARE(Focus(screen), u"YjAdd"_s);
        Press(screen, Qt::Key_Return);
        QCOMPARE(told(), u"缺少必须输入的项目: 选择输入客人姓名"_s);
        QCOMPARE(TextOf(screen, "Yje"), u"500.00"_s);
        QCOMPARE(Focus(screen), u"Krxm"_s);
        Press(screen, Qt::Key_Down);
        Press(screen, Qt::Key_Down);
        Press(screen, Qt::Key_Return);
        QCOMPARE(TextOf(screen, "Krxm"), u"林芳"_s);
        QCOMPARE(TextOf(screen, "Fjh"), u"8101"_s);
        QCOMPARE(TextOf(screen, "Fjdh"), u"6101"_s);
        QCOMPARE(Focus(screen), u"Xyzl"_s);
        Press(screen, Qt::Key_F8);
        const QString stored = hotel_->stored(kLedger, kDeposits, u"1"_s);
        QCOMPARE(GetTag(stored, u"实收金额"), u"500.00"_s);
        QCOMPARE(GetTag(stored, u"客人"), u"林芳"_s);
        QCOMPARE(GetTag(stored, u"经办单位") + GetTag(stored, u"经办人"), u"前厅部系统管理员"_s);
        QCOMPARE(Totals(screen), QStringList({u"0.00"_s, u"500.00"_s, u"0.00"_s, u"500.00"_s}));
        QCOMPARE(ListOf(screen, "XyyjQd").row(1).first(4),
                 QStringList({u"1"_s, u"现金押金"_s, u"现金"_s, u"林芳"_s}));
        QCOMPARE(TextOf(screen, "Yje") + TextOf(screen, "Xysm"), QString());
        QCOMPARE(TextOf(screen, "Xyzl"), u"现金押金"_s); // the next one may be of the same kind
        QCOMPARE(Focus(screen), u"Xyzl"_s);
        QCOMPARE(hotel_->logged(u"操作内容"), u"信用押金增加操作"_s);
        QCOMPARE(hotel_->logged(u"备注"),
                 u"260305100000,现金押金,现金,林芳,2026-03-05,10:00:00,500.00,收据1,前厅部,"
                 "系统管理员"_s);

        // a payer who isn't in a room
        In<GridView>(screen, "JzhmxQd")->setCurrent(1);
        In<QLineEdit>(screen, "Krxm")->setFocus();
        Press(screen, Qt::Key_Return);
        QCOMPARE(TextOf(screen, "Krxm") + TextOf(screen, "Fjh") + TextOf(screen, "Fjdh"),
                 u"陈志远"_s);
    }

    void aCreditIsConfirmedByPressingAgain() {
        Screen* screen = Opened(u"FyxxFrm");
        TypeText(In<QLineEdit>(screen, "Krxm"), u"林芳"_s);
        Enter(screen, {u"xyk"_s, u"xj"_s, {}, u"总经理"_s});
        const QString kind = TextOf(screen, "Xyzl");
        Press(screen, Qt::Key_F8);
        QCOMPARE(messages_->entries().size(), 1);
        QVERIFY(told().startsWith(u"请再次确认: 项目被自动确认为信用,默认值是15000.00,"_s));
        QCOMPARE(TextOf(screen, "Yje"), u"15000.00"_s);
        QCOMPARE(StoredRecords(kLedger, kDeposits).size(), 0);
        QCOMPARE(Focus(screen), u"YjAdd"_s);
        Press(screen, Qt::Key_Return);
        QCOMPARE(messages_->entries().size(), 1);
        const QString stored = hotel_->stored(kLedger, kDeposits, u"1"_s);
        QCOMPARE(GetTag(stored, u"信用金额"), u"15000.00"_s);
        QCOMPARE(GetTag(stored, u"信用保证种类"), kind);
        QCOMPARE(Totals(screen), QStringList({u"15000.00"_s, u"0.00"_s, u"0.00"_s, u"15000.00"_s}));
    }

    // Each page posts its own kind, and what it all comes to is the sum.
    void everyPagePostsItsKind() {
        const QStringList pages[] = {
            {u"jc"_s, u"100"_s, u"一张"_s},
            {u"zc"_s, u"早餐厅"_s, u"份"_s, u"2"_s, u"38"_s, {}},
            {u"kd"_s, u"K1"_s, u"95"_s, {}, {}, {}, u"9"_s, u"0.5"_s, {}, {}},
            {u"sh"_s,
             u"6101"_s,
             u"总机"_s,
             u"3"_s,
             {},
             {},
             u"北京"_s,
             u"5.4"_s,
             u"0.6"_s,
             {},
             u"010"_s,
             {}},
            {u"xy"_s, u"衬衣"_s, u"N7"_s, u"件"_s, u"4"_s, u"48"_s, {}}};
        const char* projects[] = {"房费明细信息", "餐饮娱乐费用", "宽带网络费用", "电话计费信息",
                                  "客房服务费用"};
        const char* amounts[] = {"100.00", "38.00", "9.50", "6.00", "48.00"};
        const char* adds[] = {"FfAdd", "XfAdd", "WlAdd", "DhfAdd", "KffwAdd"};
        const char* logs[] = {"特殊房费增加操作", "餐饮娱乐服务增加操作", "宽带网络费用增加操作",
                              "电话费用服务增加操作", "客房服务增加操作"};
        Screen* screen = Opened(u"FyxxFrm");
        TypeText(In<QLineEdit>(screen, "Krxm"), u"林芳"_s);
        for (int n = 0; n < 5; ++n) {
            Press(screen, Qt::Key(Qt::Key_F2 + n));
            Enter(screen, pages[n]);
            QCOMPARE(Focus(screen), QString::fromLatin1(adds[n]));
            Press(screen, Qt::Key_Return);
            QCOMPARE(messages_->words(), QStringList());
            const QString project = QString::fromUtf8(projects[n]);
            QCOMPARE(StoredRecords(kLedger, project).size(), 1);
            QCOMPARE(GetTag(StoredRecords(kLedger, project).first(), u"金额"),
                     QString::fromUtf8(amounts[n]));
            QCOMPARE(hotel_->logged(u"操作内容"), QString::fromUtf8(logs[n]));
        }
        QCOMPARE(Totals(screen), QStringList({u"0.00"_s, u"0.00"_s, u"201.50"_s, u"-201.50"_s}));
    }

    void theLastOwnRowIsTakenBack() {
        SaveBills(kFolio, kFoodPosting,
                  u"<费用名称>早餐</费用名称><金额>8.00</金额><经办单位>前厅部</经办单位>"
                  "<经办人>张伟</经办人>"_s);
        Screen* screen = Opened(u"FyxxFrm");
        TypeText(In<QLineEdit>(screen, "Krxm"), u"林芳"_s);
        Press(screen, Qt::Key_F3);
        Press(screen, Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(told(), u"禁止: 只能删除本人输入的记录，并且必须从最后一行开始删除！"_s);
        messages_->clear();
        for (const QString& amount : {u"38"_s, u"40"_s}) {
            Enter(screen, {u"zc"_s, {}, {}, u"2"_s, amount, u"说明"_s});
            Press(screen, Qt::Key_F8);
        }
        auto* list = In<GridView>(screen, "CyylQd");
        list->setCurrent(2);
        Press(screen, Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(messages_->entries().size(), 1); // not the last one
        list->setCurrent(3);
        In<QLineEdit>(screen, "Krxm")->clear();
        Press(screen, Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(messages_->entries().size(), 1);
        QCOMPARE(TextOf(screen, "Xfje") + TextOf(screen, "Jssl") + TextOf(screen, "Xfsm"),
                 u"40.002说明"_s);
        QCOMPARE(TextOf(screen, "Krxm"), u"林芳"_s);
        QCOMPARE(StoredRecords(kLedger, kMeals).size(), 2);
        QCOMPARE(TextOf(screen, "Zhxfe"), u"46.00"_s);
        QCOMPARE(hotel_->logged(u"操作内容"), u"餐饮娱乐明细删除操作"_s);

        // gone by another hand: it stays on display, and nothing is logged
        DeleteRecord(kLedger, kMeals, u"2");
        const QString log = hotel_->logged(u"备注");
        Press(screen, Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(told(), u"无法删除: 删除操作失败"_s);
        QCOMPARE(list->table().dataRows(), 2);
        QCOMPARE(hotel_->logged(u"备注"), log);
        Press(screen, Qt::Key_F1); // an empty list
        messages_->clear();
        Press(screen, Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(messages_->words(), QStringList());
    }

    void roomServiceStaysPosted() {
        SaveBills(kFolio, kServicePosting,
                  u"<金额>8.00</金额><经办单位>前厅部</经办单位><经办人>系统管理员</经办人>"_s);
        Screen* screen = Opened(u"FyxxFrm");
        Press(screen, Qt::Key_F6);
        Press(screen, Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(told(), u"无法删除: 删除操作失败"_s);
        QCOMPARE(StoredRecords(kLedger, u"客房服务费用"_s).size(), 1);
    }

    void rightsAndRetiredFolios_data() {
        const Columns<QString, bool, int, bool, bool> row("rights", "open", "rows", "adds",
                                                          "prints");
        row("all", u"费用查询签单记账"_s, true, 1, true, true);
        row("viewing", u"费用查询"_s, true, 1, false, true);
        row("retired", u"费用查询签单记账"_s, false, 1, false, false);
        row("none", u"签单记账"_s, true, 0, true, true);
    }
    void rightsAndRetiredFolios() {
        QFETCH(QString, rights);
        QFETCH(bool, open);
        SaveBills(kFolio, kRoomPosting, u"<金额>8.00</金额>"_s);
        if (!open)
            DelJzh(kFolio);
        CurrentSession().rights = rights;
        Screen* screen = Opened(u"FyxxFrm");
        QTEST(ListOf(screen, "FfxxQd").dataRows(), "rows");
        if (!rights.contains(u"费用查询"_s)) {
            QCOMPARE(told(), u"请联系管理员: 您无权浏览客人的费用信息！"_s);
            TypeText(In<QComboBox>(screen, "Jzh"), kFolio);
            QCOMPARE(ListOf(screen, "FfxxQd").dataRows(), 0);
            return;
        }
        for (const QStringView command : {u"YjAdd", u"YjDel", u"FfAdd", u"FfDel", u"KffwAdd"})
            QTEST(screen->command(command)->isEnabled(), "adds");
        for (const QStringView command : {u"YjQdPrint", u"FfPrint", u"XfPrint"})
            QTEST(screen->command(command)->isEnabled(), "prints");
        QCOMPARE(In<FolioBox>(screen, "Jzh")->isRetired(), !open);
        QVERIFY(screen->command(u"StatementCmd")->isEnabled());
    }

    void aFailedSaveKeepsThePanel() {
        Screen* screen = Opened(u"FyxxFrm");
        TypeText(In<QLineEdit>(screen, "Krxm"), u"林芳"_s);
        Press(screen, Qt::Key_F2);
        Enter(screen, {u"jc"_s, u"100"_s, u"一张"_s});
        hotel_->stopServer();
        Press(screen, Qt::Key_F8);
        QCOMPARE(told(), u"偶然错误: 没有保存成功,稍候再试!"_s);
        QCOMPARE(TextOf(screen, "Ffje") + TextOf(screen, "Ffsm"), u"100.00一张"_s);
        QCOMPARE(ListOf(screen, "FfxxQd").dataRows(), 0);
        Press(screen, Qt::Key_F12);
        QVERIFY(!screen->command(u"FfAdd")->isEnabled());
        QCOMPARE(TextOf(screen, "Ffje"), u"100.00"_s);

        hotel_->startServer();
        Desk again(hotel_->port());
        again.logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
        CurrentSession().userDept = u"前厅部"_s;
        Press(screen, Qt::Key_F12);
        Press(screen, Qt::Key_F8);
        QCOMPARE(ListOf(screen, "FfxxQd").dataRows(), 1);
    }

    void numbersThatAreNoFolios() {
        Screen* screen = Opened(u"FyxxFrm", {});
        const auto post = [&](const QString& number) {
            Press(screen, Qt::Key_F2);
            In<FolioBox>(screen, "Jzh")->setFolio(number);
            Press(screen, Qt::Key_F8);
            return told();
        };
        QCOMPARE(Focus(screen), u"Jzh"_s);
        QCOMPARE(post(u"26030510000"_s), u"缺少必须输入的项目: 结账号错误"_s);
        QCOMPARE(post(u"2603051000000"_s), u"缺少必须输入的项目: 结账号错误"_s);
        QCOMPARE(post(u"26030510000A"_s),
                 u"缺少必须输入的项目: 结账号位数错误或含有数字以外的字符"_s);
        QCOMPARE(Focus(screen), u"Jzh"_s);
    }

    // A name found once opens the folio; found twice, the box says so and offers both.
    void aFolioIsSearchedByWhatIsTyped() {
        OpenFolio(kOther);
        SaveRecord(OpenFolioFile(), folio_record::kProject, u"260305100002",
                   u"<8102><床位01><客人姓名>王一</客人姓名></床位01></8102>");
        SaveBills(u"260305100002", kRoomPosting,
                  u"<客人>王一</客人><房间号>8102</房间号><金额>288.00</金额>"_s);
        Screen* screen = Opened(u"FyxxFrm", {});
        auto* Jzh = In<FolioBox>(screen, "Jzh");
        const auto search = [&](const QString& typed) {
            Jzh->setFocus();
            Jzh->clearEditText();
            TypeText(Jzh, typed);
            Press(screen, Qt::Key_Return);
            return Jzh->currentText();
        };
        QCOMPARE(search(u"赵"_s), u"0个相关结账号"_s);
        QCOMPARE(Jzh->count(), 0);
        QCOMPARE(search(u"林"_s), u"2个相关结账号"_s);
        QCOMPARE(search(u"8102"_s), u"260305100002"_s);
        QCOMPARE(Focus(screen), u"Xyzl"_s);
        QCOMPARE(TextOf(screen, "Krxm") + TextOf(screen, "Fjh"), u"王一8102"_s);
        QCOMPARE(TextOf(screen, "Zhxfe"), u"288.00"_s);
        QCOMPARE(search(u"0510000"_s), u"3个相关结账号"_s);
        QCOMPARE(Jzh->count(), 3);
        QCOMPARE(TextOf(screen, "Krxm"), QString()); // nobody's guest below another number
        Jzh->setFolio(kOther);
        QCOMPARE(TextOf(screen, "Krxm"), QString());
    }

    void detailsOfRoomService() {
        Screen* screen = Opened(u"FyxxFrm");
        auto* Fwmx = In<QComboBox>(screen, "Fwmx");
        Press(screen, Qt::Key_F6);
        Enter(screen, {u"xy"_s, u"洗衣服务"_s});
        QCOMPARE(told(), u"错误: 服务明细不能和服务类别相同"_s);
        QCOMPARE(Fwmx->currentText(), QString());
        for (const QString& detail : {u"衬衣"_s, u"大衣衣"_s}) {
            Fwmx->setFocus();
            Fwmx->clearEditText();
            Enter(screen, {detail});
        }
        QCOMPARE(Fwmx->count(), 2);
        Fwmx->setFocus();
        Press(screen, Qt::Key_Escape);
        QCOMPARE(Fwmx->currentText(), QString());
        QCOMPARE(Fwmx->count(), 1);
        TypeText(In<QLineEdit>(screen, "Krxm"), u"林芳"_s); // what is posted is kept, too
        TypeText(Fwmx, u"领带"_s);
        In<QLineEdit>(screen, "Fwje")->setText(u"9"_s);
        Press(screen, Qt::Key_F8);
        OpenScreen(u"FyxxFrm", kFolio);
        screen->close();
        const QString kept = ReadProject(u"QVR\\Kffwmx.QVR", u"客房服务明细信息");
        QCOMPARE(TrimWhite(GetTag(GetTag(kept, u"洗衣服务"), u"服务明细")),
                 u"<2-衬衣> </2-衬衣>\r\n<2-领带> </2-领带>"_s);
        Screen* again = Opened(u"FyxxFrm");
        Press(again, Qt::Key_F6);
        TypeText(again->focusWidget(), u"xy"_s);
        QCOMPARE(In<QComboBox>(again, "Fwmx")->itemText(0), u"衬衣"_s);
    }

    void prints() {
        SaveBills(kFolio, kDepositPosting,
                  u"<信用保证种类>现金押金</信用保证种类><支付方式>现金</支付方式><客人>林芳</客人>"
                  "<日期>2026-03-05</日期><时间>09:00:00</时间><实收金额>500.50</实收金额>"
                  "<备注>收据1</备注>"_s);
        SaveBills(kFolio, kRoomPosting,
                  u"<费用名称>房费</费用名称><客人>林芳</客人><房间号>8101</房间号>"
                  "<日期>2026-03-04</日期><时间>23:00:00</时间><金额>288.00</金额>"_s);
        SaveRecord(RoomDatabaseFile(), u"客房基本信息", u"8101", u"<电话号码>6101</电话号码>");
        Screen* screen = Opened(u"FyxxFrm");
        const auto printed = [&](QStringView command) {
            QStringList texts;
            screen->command(command)->click();
            for (const PrintedText& text : TextsOf(ScriptOfJob().previewPage(1)))
                texts.append(text.text);
            return texts;
        };
        const QStringList voucher = printed(u"YjPrint");
        for (const QString& text :
             {u"2026-03-05 10:00"_s, kFolio, u"林芳"_s, u"8101"_s, u"6101"_s, u"系统管理员"_s,
              u"500.50"_s, u"伍佰元伍角整"_s, u"种类:现金押金, 方式:现金,收据1"_s})
            QVERIFY2(voucher.contains(text), qUtf8Printable(text + u" in " + voucher.join(u'|')));
        QCOMPARE(hotel_->logged(u"操作内容"), u"执行押金预览打印功能"_s);
        QVERIFY(printed(u"FfPrint").contains(u"结账号：260305100000的房费明细清单"_s));
        QCOMPARE(hotel_->logged(u"操作内容"), u"清单打印操作"_s);
        const QStringList statement = printed(u"StatementCmd");
        QVERIFY(statement.contains(u"宾客账单　结账号：260305100000　客人：林芳"_s));
        QVERIFY(statement.contains(u"212.50"_s));
        QCOMPARE(hotel_->logged(u"操作内容"), u"账单打印操作"_s);
    }

    void aStatementByDays() {
        const auto list = [](PostingKind kind, const QStringList& records) {
            TextTable table = EmptyPostingList(kind);
            for (const QString& record : records)
                AppendPosting(kind, table, record);
            return PostingsOfKind{kind, table};
        };
        const TextTable statement = FolioStatement(
            {list(kDepositPosting, {u"<日期>2026-03-04</日期><时间>12:00:00</时间>"
                                    "<信用保证种类>现金押金</信用保证种类><支付方式>现金</支付方式>"
                                    "<实收金额>500.00</实收金额>"_s,
                                    u"<日期>2026-03-05</日期><时间>08:00:00</时间>"
                                    "<信用金额>100.00</信用金额>"_s}),
             list(kFoodPosting,
                  {u"<日期>2026-03-04</日期><时间>11:00:00</时间><费用名称>早餐"
                   "</费用名称><金额>38.00</金额>"_s,
                   u"<日期>2026-03-05</日期><时间>08:00:00</时间><金额>0.00</金额>"_s})});
        QStringList rows;
        for (int row = 0; row < statement.rows(); ++row)
            rows.append(statement.row(row).join(u'|'));
        QCOMPARE(
            rows,
            QStringList(
                {u"日期|时间|项目|说明|客人|房间号|消费|实收|信用"_s,
                 u"2026-03-04|11:00:00|早餐||||38.00||"_s,
                 u"2026-03-04|12:00:00|现金押金|现金||||500.00|"_s,
                 u"||2026-03-04 小计||||38.00|500.00|0.00"_s, u"2026-03-05|08:00:00|||||||100.00"_s,
                 u"2026-03-05|08:00:00|||||0.00||"_s, u"||2026-03-05 小计||||0.00|0.00|100.00"_s,
                 u"||合计||||38.00|500.00|100.00"_s, u"||余额|实收 + 信用 - 消费|||||562.00"_s}));
    }

    void vouchersOfTheOutlets() {
        CurrentSession().rights = u"签单记账"_s;
        SaveBills(kFolio, kRoomPosting,
                  u"<客人>林芳</客人><房间号>8101</房间号><金额>9.00</金额>"_s);
        SaveBills(kFolio, kFoodPosting, u"<金额>8.00</金额>"_s);
        Screen* screen = Opened(u"QdjzFrm");
        QCOMPARE(screen->windowTitle(), u"客人记账号综合消费服务签单记账"_s);
        QCOMPARE(TextOf(screen, "Krxm") + TextOf(screen, "Fjh"), u"林芳8101"_s);
        QCOMPARE(Focus(screen), u"Cymc"_s);
        Enter(screen, {u"zc"_s, u"早餐厅"_s, u"份"_s, u"2"_s, u"38"_s, {}});
        Press(screen, Qt::Key_Return);
        QCOMPARE(TextOf(screen, "Zhxfe"), u"46.00"_s); // of this list alone
        QCOMPARE(hotel_->logged(u"操作内容"), u"签单记账增加操作"_s);
        screen->command(u"XfPrint")->click();
        QCOMPARE(hotel_->logged(u"操作内容"), u"消费签单打印操作"_s);
        screen->command(u"XfDel")->click();
        QCOMPARE(hotel_->logged(u"操作内容"), u"签单记账删除操作"_s);
        QCOMPARE(TextOf(screen, "Zhxfe"), u"8.00"_s);
        SaveBills(kFolio, kFoodPosting, u"<金额>1.00</金额>"_s);
        screen->command(u"FreshCmd")->click();
        QCOMPARE(TextOf(screen, "Zhxfe"), u"9.00"_s);
    }

    void aCategoryWithoutEntries() {
        SaveProject(u"QVR\\Flmcxx.QVR", u"特殊房费项目", {});
        Screen* screen = Opened(u"FyxxFrm");
        Press(screen, Qt::Key_F2);
        Enter(screen, {u"jc"_s, u"100"_s, {}});
        Press(screen, Qt::Key_F8);
        QCOMPARE(told(), u"缺少必须输入的项目: 选择输入特殊房间费用种类"_s);
        QCOMPARE(Focus(screen), u"Tsff"_s);
    }
};

HOTEL_TEST(PostingScreensTest)
#include "test_posting_screens.moc"
