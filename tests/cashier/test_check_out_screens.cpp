#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

#include "cashier/JztfFrm.h"
#include "cashier/QrtfFrm.h"
#include "cashier/folio_box.h"
#include "cashier/khxxmain.h"
#include "cashier/team_customers.h"
#include "house/common/paths.h"
#include "house/folios/folio.h"
#include "house/folios/folio_posting.h"
#include "house/rooms/room_record.h"
#include "house/stays/check_in.h"
#include "link/records.h"
#include "platform/clock.h"
#include "record/record_text.h"
#include "screen/field_form.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "tests/hotel_test.h"
#include "tests/house/small_house.h"
#include "tests/type_text.h"

using namespace hotel;

namespace {

const QString kFolio = u"260305100000"_s;

template<class Widget>
Widget* In(QWidget* screen, const QString& name) {
    auto* widget = screen->findChild<Widget*>(name);
    if (!widget)
        qFatal("no %s", qPrintable(name));
    return widget;
}

QString Text(QWidget* screen, const QString& box) {
    return In<QLineEdit>(screen, box)->text();
}

Screen* Opened(QStringView name, const QVariant& argument = {}) {
    OpenScreen(name, argument);
    Screen* screen = FindScreen(name);
    if (!screen || !QTest::qWaitForWindowActive(screen))
        qFatal("no %s", qPrintable(name.toString()));
    return screen;
}

// A party in 8201 and on, of the demo hotel's rooms, at 258.00 each.
void CheckIn(const QStringList& names, const QString& changes = {}) {
    QList<ChosenRoom> rooms;
    QStringList guests;
    for (int n = 0; n < names.size(); ++n) {
        rooms.append(Chosen({QString::number(8201 + n)}));
        guests.append(
            ValidGuest(names[n], kFolio, u"团队"_s,
                       u"<入住时间>14:00</入住时间><结算日期>2026-03-06</结算日期>"_s + changes));
    }
    QVERIFY(ConfirmCheckIn(TypedSet(rooms, guests), rooms).confirmed);
}

void Keys(const QList<Qt::Key>& keys) {
    for (const Qt::Key key : keys)
        QTest::keyClick(QApplication::focusWidget(), key);
}

// Does something in the dialog as soon as it stands, however deep the wait is.
void InDialog(const std::function<void(QWidget*)>& act) {
    QTimer::singleShot(150, qApp, [act] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (!dialog)
            qFatal("no dialog");
        act(dialog);
    });
}

void AddCompany(const QString& number, const QString& name, const QString& status = {}) {
    SaveRecord(
        u"tdxx\\TdxxDB.QVR", u"团队客户信息", number,
        u"<编号>%1</编号><单位名称>%2</单位名称><联系人>黄美玲</联系人><状态>%3</状态>"_s.arg(
            number, name, status));
}

} // namespace

class CheckOutScreensTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHotel> hotel_;
    std::unique_ptr<MessageRecorder> messages_;

    GridView* list() { return In<GridView>(FindScreen(u"JztfFrm"), u"Jzdxqd"_s); }
    void at(const char* time) {
        Clock::Freeze(
            QDateTime(QDate(2026, 3, 5), QTime::fromString(QString(QLatin1String(time)))));
    }

private Q_SLOTS:
    void initTestCase() {
        RegisterScreen(u"JztfFrm", [] { return new JztfFrm; });
        RegisterScreen(u"khxxmain", [] { return new khxxmain; });
    }
    void init() {
        hotel_ = std::make_unique<TestHotel>();
        messages_ = std::make_unique<MessageRecorder>();
    }
    void cleanup() {
        CloseAllScreens();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        hotel_.reset();
    }

    // Folio, Enter, Enter reckons, F8 confirms, the amount, Enter, Enter.
    void aWholePartyByKeys() {
        CheckIn({u"王一"_s, u"李二"_s});
        SaveBills(kFolio, kFoodPosting, u"<金额>34.56</金额>"_s);
        at("12:01:00");
        Screen* screen = Opened(u"JztfFrm");
        TypeText(QApplication::focusWidget(), kFolio);
        QCOMPARE(list()->table().dataRows(), 2);
        QVERIFY(In<QRadioButton>(screen, u"Sd2"_s)->isChecked());
        Keys({Qt::Key_Return, Qt::Key_Return});
        QCOMPARE(list()->table().text(2, 7), u"258.00"_s);
        QCOMPARE(Text(screen, u"Zysje"_s), u"550.56"_s);
        QCOMPARE(Text(screen, u"Jzff"_s) + Text(screen, u"Zhxfe"_s) + Text(screen, u"Zssje"_s),
                 u"516.0034.560.00"_s);
        QCOMPARE(Text(screen, u"Yxnum"_s) + Text(screen, u"Krxm"_s), u"2王一"_s);
        InDialog([](QWidget* dialog) {
            QCOMPARE(dialog->windowTitle(), u"260305100000 结账退房"_s);
            QCOMPARE(Text(dialog, u"Ysje"_s) + Text(dialog, u"Zkje"_s), u"550.560.56"_s);
            QCOMPARE(In<QComboBox>(dialog, u"Zffs"_s)->currentText(), u"现金"_s);
            TypeText(QApplication::focusWidget(), u"549.99"_s);
            QVERIFY(!In<QPushButton>(dialog, u"QrCmd"_s)->isEnabled());
            QCOMPARE(Text(dialog, u"Zsje"_s), QString());
            Keys({Qt::Key_Escape});
            TypeText(QApplication::focusWidget(), u"600"_s);
            QCOMPARE(Text(dialog, u"Zsje"_s), u"50.00"_s);
            Keys({Qt::Key_Return, Qt::Key_Return});
        });
        Keys({Qt::Key_F8});
        QCOMPARE(messages_->words(), QStringList(u"账务已经结清"_s));
        QVERIFY(!FindOpenFolio(kFolio));
        QCOMPARE(StoredRoom(u"8201"_s, u"房态"), u"脏房"_s);
        auto* box = In<FolioBox>(screen, u"Jzh"_s);
        QCOMPARE(box->currentText(), QString());
        QCOMPARE(box->findText(kFolio), -1);
        QCOMPARE(GetTag(ReadRecord(LedgerFile(kFolio), u"结账信息", u"1"), u"找赎金额"),
                 u"50.00"_s);
    }

    // A charge typed in its cell; one guest stays; another one is asked for first.
    void partOfAPartyByKeys() {
        CheckIn({u"王一"_s, u"李二"_s, u"张三"_s});
        Screen* screen = Opened(u"JztfFrm", kFolio);
        GridView* rows = list();
        rows->setFocus();
        rows->setCurrent(1, 7);
        TypeText(rows, u"1x0."_s);
        QCOMPARE(rows->table().text(1, 7), u"10."_s);
        rows->setCurrent(2, 7);
        QCOMPARE(rows->table().text(1, 7), u"10.00"_s);
        Keys({Qt::Key_F4}); // the second one stays
        rows->setCurrent(1, 7);
        Keys({Qt::Key_Return});
        QCOMPARE(rows->currentRow(), 3);
        Keys({Qt::Key_F8});
        QCOMPARE(messages_->last(), u"某个或某些房间的结账房价还没有确定,费用无法结清!"_s);
        QCOMPARE(rows->currentRow(), 3);
        TypeText(rows, u"5"_s);
        Keys({Qt::Key_Escape}); // empties the cell
        QCOMPARE(rows->table().text(3, 7), QString());
        TypeText(rows, u"0"_s);
        messages_->answerNext(u"yes"_s);
        Keys({Qt::Key_F8});
        QCOMPARE(messages_->last(), u"只结清部分房间床位,保留其余账务,以后处理?"_s);
        QCOMPARE(rows->table().dataRows(), 1);
        QCOMPARE(rows->table().text(1, 2), u"李二"_s);
        QCOMPARE(Text(screen, u"Zhxfe"_s), u"10.00"_s); // carried onto the folio
        QVERIFY(FindOpenFolio(kFolio));

        Keys({Qt::Key_F3});
        QCOMPARE(Text(screen, u"Yxnum"_s), u"1"_s);
        Q_EMIT rows->rowClicked(1, 0);
        QTRY_COMPARE(Text(screen, u"Yxnum"_s), u"0"_s);
        Keys({Qt::Key_F8});
        QCOMPARE(messages_->last(), u"没有任何房间或床位要结账!?"_s);
    }

    void cancellingWritesNothing() {
        CheckIn({u"王一"_s});
        Screen* screen = Opened(u"JztfFrm", kFolio);
        screen->command(u"DjCmd")->click();
        InDialog([](QWidget*) { Keys({Qt::Key_1, Qt::Key_Escape, Qt::Key_Escape}); });
        screen->command(u"QrCmd")->click();
        QVERIFY(messages_->entries().isEmpty());
        QCOMPARE(list()->table().dataRows(), 1);
        QVERIFY(FindOpenFolio(kFolio));
        QCOMPARE(StoredRecords(LedgerFile(kFolio), u"结账信息"_s), QStringList());
    }

    void remindsOfAnUnauditedDay() {
        CheckIn({u"王一"_s}, u"<结算日期>2026-03-04</结算日期>"_s);
        Screen* screen = Opened(u"JztfFrm", kFolio);
        QCOMPARE(messages_->last(),
                 u"请注意手工计算房费，直接填写房间费用，或者该结账号费用特别结算,!"_s);
        QVERIFY(In<QRadioButton>(screen, u"Sd2"_s)->isChecked());
        QTest::keyClick(screen, Qt::Key_1, Qt::AltModifier);
        screen->command(u"DjCmd")->click();
        QCOMPARE(list()->table().text(1, 7), u"129.00"_s);
    }

    void searchingAFolio() {
        CheckIn({u"陈志远"_s});
        QString many;
        for (int n = 0; n < 1005; ++n)
            many += u"<%1><1></1></%1>"_s.arg(260301000000 + n);
        Screen* screen = Opened(u"JztfFrm");
        auto* box = In<FolioBox>(screen, u"Jzh"_s);
        TypeText(box, u"czy"_s);
        Keys({Qt::Key_Return});
        QCOMPARE(box->currentText(), kFolio);
        QCOMPARE(list()->table().dataRows(), 1);
        Keys({Qt::Key_Escape});
        box->setFocus();
        TypeText(box, u"XYZ"_s);
        Keys({Qt::Key_Return});
        QCOMPARE(box->currentText(), u"0个相关结账号"_s);

        SaveProject(OpenFolioFile(), folio_record::kProject, many);
        TypeText(box, u"2603010"_s); // over what stands there
        Keys({Qt::Key_Return});
        QCOMPARE(box->currentText(), u"1000个相关结账号"_s);
        QCOMPARE(box->count(), 1000);

        box->setFolio(u"000000000001"_s);
        QCOMPARE(messages_->last(), u"结账号：000000000001"_s);
        QCOMPARE(list()->table().dataRows(), 0);
    }

    void theServerIsGone() {
        CheckIn({u"王一"_s});
        Screen* screen = Opened(u"JztfFrm", kFolio);
        screen->command(u"DjCmd")->click();
        hotel_->stopServer();
        screen->command(u"QrCmd")->click();
        QCOMPARE(messages_->last(), u"结账号：260305100000"_s);
        QCOMPARE(list()->table().dataRows(), 1); // nothing typed is lost
        screen->command(u"FreshCmd")->click();
        QCOMPARE(list()->table().dataRows(), 0);
    }

    void aCompanyInThePayment() {
        AddCompany(u"00000001"_s, u"江城旅行社"_s, u"可用"_s);
        AddCompany(u"00000002"_s, u"南湖会议公司"_s, u"停用"_s);
        AddCompany(u"0003"_s, u"短号公司"_s);
        QrtfFrm form(kFolio, u"100.00"_s);
        ShowActive(&form);
        auto* number = In<QLineEdit>(&form, u"Khh"_s);
        const auto enter = [&](const QString& typed) {
            number->setFocus();
            number->clear();
            messages_->clear();
            TypeText(number, typed);
            QTest::keyClick(number, Qt::Key_Return);
            return messages_->entries().isEmpty() ? QString()
                                                  : messages_->entries().first().title + u": "_s +
                                                        messages_->entries().first().words;
        };
        const auto take = [] { InDialog([](QWidget*) { Keys({Qt::Key_Return}); }); };
        QCOMPARE(enter(u"绿野"_s), u"查询结果: 没有类似的单位,请先增加或输入其他关键字试试!"_s);
        take();
        QCOMPARE(enter(u"南湖"_s), u"不能签单: 该单位的状态不是空白或：可用，处于：停用请检查！"_s);
        take();
        QCOMPARE(enter(u"短号"_s), QString());
        QCOMPARE(number->text(), u"短号"_s);
        take();
        QCOMPARE(enter(u"江城"_s), QString());
        QCOMPARE(number->text() + Text(&form, u"Skbz"_s), u"00000001江城旅行社"_s);
        QVERIFY(!number->hasFocus());

        form.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        // by the number; the name isn't written twice; a number of nobody's empties the box
        number->setFocus();
        In<QLineEdit>(&form, u"Ssje"_s)->setFocus();
        QCOMPARE(Text(&form, u"Skbz"_s), u"江城旅行社"_s);
        number->setText(u"00000002"_s);
        number->setFocus();
        In<QLineEdit>(&form, u"Ssje"_s)->setFocus();
        QCOMPARE(Text(&form, u"Skbz"_s), u"江城旅行社,南湖会议公司"_s);
        number->setText(u"00000009"_s);
        number->setFocus();
        In<QLineEdit>(&form, u"Ssje"_s)->setFocus();
        QCOMPARE(number->text(), QString());
        QCOMPARE(messages_->last(), u"没有类似的单位,请先增加或输入其他关键字试试!"_s);
        TypeText(number, u"a"_s);
        QCOMPARE(number->text(), u"A"_s);
    }

    void keepingCompanies() {
        Screen* screen = Opened(u"khxxmain");
        const auto type = [&](const QString& box, const QString& text) {
            In<QLineEdit>(screen, box)->setText(text);
        };
        const auto press = [&](QStringView command) {
            messages_->clear();
            screen->command(command)->click();
            return messages_->last();
        };
        auto* rows = In<GridView>(screen, u"KhQd"_s);
        const int before = rows->table().dataRows();
        press(u"ClearCmd");
        QCOMPARE(press(u"CmdAdd"), u"请输入单位名称！"_s);
        type(u"Dwmc"_s, u"绿野旅行社"_s);
        type(u"Bh"_s, u"123"_s);
        QCOMPARE(press(u"CmdAdd"), u"编号必须是 8 位数字！"_s);
        type(u"Bh"_s, u"00000901"_s);
        QCOMPARE(press(u"CmdAdd"), QString());
        QCOMPARE(rows->table().dataRows(), before + 1);
        QCOMPARE(press(u"CmdAdd"), u"编号：00000901 已经有单位使用！"_s);
        press(u"ClearCmd");
        type(u"Dwmc"_s, u"晴川会议"_s);
        QCOMPARE(press(u"CmdAdd"), QString()); // the next number
        QCOMPARE(Text(screen, u"Bh"_s), u"00000902"_s);
        const auto stored = [&](const QString& number) {
            return hotel_->stored(u"tdxx\\TdxxDB.QVR"_s, u"团队客户信息"_s, number);
        };
        QCOMPARE(GetTag(stored(u"00000902"_s), u"建立日期"), u"2026-03-05"_s);
        type(u"Lxr"_s, u"吴小军"_s);
        QCOMPARE(press(u"CmdModify"), QString());
        QCOMPARE(GetTag(stored(u"00000902"_s), u"联系人"), u"吴小军"_s);
        QCOMPARE(GetTag(stored(u"00000902"_s), u"建立日期"), u"2026-03-05"_s);

        auto* search = In<QLineEdit>(screen, u"Search"_s);
        search->setFocus();
        TypeText(search, u"绿野"_s);
        Keys({Qt::Key_Return});
        QCOMPARE(rows->table().dataRows(), 1);
        rows->setCurrent(1);
        QCOMPARE(Text(screen, u"Bh"_s), u"00000901"_s);
        messages_->answerNext(u"cancel"_s);
        press(u"cmdDel");
        QVERIFY(!stored(u"00000901"_s).isEmpty());
        messages_->answerNext(u"ok"_s);
        press(u"cmdDel");
        QVERIFY(stored(u"00000901"_s).isEmpty());

        rows->setCurrent(rows->table().find(1, u"00000902"));
        type(u"Lxr"_s, u"别人"_s);
        hotel_->stopServer();
        QCOMPARE(press(u"CmdModify"), u"原有数据读取失败，为避免覆盖，没有保存！请稍候再试！"_s);
        QCOMPARE(press(u"CmdAdd"), u"原有数据读取失败，为避免覆盖，没有保存！请稍候再试！"_s);
        QCOMPARE(Text(screen, u"Lxr"_s), u"别人"_s);
    }

    void theFileOfCompaniesIsMissing() {
        SaveProject(TeamCustomerFile(), team_customer::kProject, {});
        QCOMPARE(FindTeams(u"江城"_s).dataRows(), 0);
        QCOMPARE(FindTeams({}).dataRows(), 0);
        QVERIFY(!FindTeam(u"00000001"));
        QVERIFY(AddTeam(u"<单位名称>江城旅行社</单位名称>"_s).done);
        QCOMPARE(FindTeams(u"江城"_s).text(1, 1), u"00000001"_s);
    }
};

HOTEL_TEST(CheckOutScreensTest)
#include "test_check_out_screens.moc"
