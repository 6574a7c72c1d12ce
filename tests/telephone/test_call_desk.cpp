#include <QCheckBox>
#include <QCoreApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

#include "link/records.h"
#include "platform/clock.h"
#include "platform/sound.h"
#include "record/conditions.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "telephone/Accntfrm.h"
#include "telephone/HdfjFrm.h"
#include "telephone/call_search.h"
#include "tests/hotel_test.h"
#include "tests/test_files.h"
#include "tests/test_hotel.h"
#include "tests/type_text.h"
#include "tools/aids/form_tools.h"
#include "tools/lists/CmnGrd.h"
#include "tools/paper/PrtPrev.h"

using namespace hotel;

namespace {

const QString kCalls = u"电话详细话单"_s;
const QString kToday = u"Bill\\26\\03\\260305.QVR"_s;
const QString kYesterday = u"Bill\\26\\03\\260304.QVR"_s;

void Waiting(const QString& file, const QString& name, const QString& extension,
             const QString& number, int seconds, const QString& time = u"09:00:00"_s) {
    SaveRecord(
        file, kCalls, name,
        u"<分机号>%1</分机号>\r\n<被叫号码>%2</被叫号码>\r\n<话始日期>2026-03-05</话始日期>\r\n"
        "<话始时间>%3</话始时间>\r\n<通话时长>%4</通话时长>"_s.arg(extension, number, time)
            .arg(seconds));
}

class CountingLoudspeaker : public Loudspeaker {
public:
    void play(const QString& file) override {
        ++plays;
        tone = FileBytes(file);
    }
    int plays = 0;
    QByteArray tone;
};

template<class Widget>
Widget* In(Screen* screen, const char* name) {
    auto* widget = screen->findChild<Widget*>(QString::fromLatin1(name));
    if (!widget)
        qFatal("no %s", name);
    return widget;
}

} // namespace

// Lets the desk's timer tick until both are the same.
#define TICK_COMPARE(actual, expected)                                                             \
    do {                                                                                           \
        for (int tick = 0; tick < 20 && !((actual) == (expected)); ++tick)                         \
            letTick();                                                                             \
        QCOMPARE(actual, expected);                                                                \
    } while (false)

class CallDeskTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHotel> hotel_;
    std::unique_ptr<Desk> link_; // a new one, where the server was away
    std::unique_ptr<MessageRecorder> messages_;
    WorkingFolder folder_;
    CountingLoudspeaker loudspeaker_;
    Screen* desk_ = nullptr;

    void open() {
        OpenScreen(u"Accntfrm");
        desk_ = FindScreen(u"Accntfrm");
        if (!desk_ || !QTest::qWaitForWindowActive(desk_))
            qFatal("no desk");
    }
    void serverIsBack() {
        hotel_->startServer();
        link_ = std::make_unique<Desk>(hotel_->port());
        link_->logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
    }
    void showPage(int page) { In<QTabWidget>(desk_, "Pages")->setCurrentIndex(page); }
    GridView* live() { return In<GridView>(desk_, "LjjfQd"); }
    QString liveColumn(QStringView header) {
        QStringList cells;
        for (int row = 1; row < live()->table().rows(); ++row)
            cells.append(live()->table().text(row, header));
        return cells.join(u' ');
    }
    void set(const char* box, const QString& text) { In<QLineEdit>(desk_, box)->setText(text); }
    void type(const char* box, const QString& text, Qt::Key key = Qt::Key_Return) {
        auto* edit = In<QLineEdit>(desk_, box);
        edit->setFocus();
        edit->clear();
        TypeText(edit, text);
        QTest::keyClick(edit, key);
    }
    void press(const char* name) { In<QPushButton>(desk_, name)->click(); }
    QString told() {
        const auto& entries = messages_->entries();
        return entries.isEmpty() ? QString()
                                 : entries.last().title + u": "_s + entries.last().words;
    }
    // One more tick at least has run.
    void letTick() {
        QSignalSpy ticks(In<QTimer>(desk_, "Timer1"), &QTimer::timeout);
        In<QTimer>(desk_, "Timer1")->start(0);
        QVERIFY(ticks.wait());
    }

private Q_SLOTS:
    void initTestCase() {
        SetUpForms();
        Loudspeaker::Install(&loudspeaker_);
        RegisterScreen(u"Accntfrm", [] { return new Accntfrm; });
        RegisterScreen(u"HdfjFrm", [] { return new HdfjFrm; });
        RegisterScreen(u"PrtPrev", [] { return new PrtPrev; });
    }
    void cleanupTestCase() { Loudspeaker::Install(nullptr); }
    void init() {
        QFile::remove(AccountingConfigFile());
        hotel_ = std::make_unique<TestHotel>();
        messages_ = std::make_unique<MessageRecorder>();
        loudspeaker_.plays = 0;
    }
    void cleanup() {
        CloseAllScreens();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QFile::remove(AccountingConfigFile());
        link_.reset();
        hotel_.reset();
    }

    // Calls are shown as they come in, those of the day before first; a call that comes later is found, too.
    void showsCallsAsTheyComeIn() {
        Waiting(kYesterday, u"1"_s, u"8201"_s, u"01065881190"_s, 1320);
        Waiting(kToday, u"1"_s, u"6103"_s, u"83331234"_s, 60);
        open();
        QCOMPARE(In<QLineEdit>(desk_, "BillDate")->toolTip(),
                 u"党获得焦点时，系统暂停。注意错误的时间设定，将会导致重复话单收取！"_s);
        TICK_COMPARE(liveColumn(u"分机号"), u"6103"_s);
        QCOMPARE(liveColumn(u"使用者"), u"总机"_s);
        QCOMPARE(loudspeaker_.plays, 1);
        QCOMPARE(loudspeaker_.tone.left(4) + loudspeaker_.tone.mid(8, 4), QByteArray("RIFFWAVE"));
        In<QLineEdit>(desk_, "BillDate")->setFocus();
        set("BillDate", u"2026-03-04"_s);
        In<QCheckBox>(desk_, "BeepOff")->setChecked(true);
        letTick();
        QCOMPARE(liveColumn(u"分机号"), u"6103"_s); // the day is being typed
        live()->setFocus();
        TICK_COMPARE(liveColumn(u"分机号"), u"6103 8201"_s);
        QCOMPARE(liveColumn(u"总话费"), u"0.33 14.52"_s);
        TICK_COMPARE(In<QLineEdit>(desk_, "BillDate")->text(), u"2026-03-05"_s);
        QCOMPARE(loudspeaker_.plays, 1);
        Waiting(kToday, u"2"_s, u"8202"_s, u"114"_s, 10);
        TICK_COMPARE(liveColumn(u"记录号"), u"1 1 2"_s);
        QCOMPARE(GetTag(hotel_->stored(kToday, kCalls, u"2"_s), u"标志"), u"计费处理"_s);
        showPage(1); // another page: calls wait
        Waiting(kToday, u"3"_s, u"8202"_s, u"114"_s, 10);
        letTick();
        QCOMPARE(GetTag(hotel_->stored(kToday, kCalls, u"3"_s), u"标志"), QString());
        showPage(0);
        set("BillDate", u"2026-03-0"_s); // no day
        letTick();
        QCOMPARE(live()->table().dataRows(), 3);
        OpenScreen(u"Accntfrm"); // once more: its list stays
        QCOMPARE(live()->table().dataRows(), 3);
    }

    void ratesOnlyWhatItHasReadTheTablesFor() {
        Waiting(kToday, u"1"_s, u"8201"_s, u"114"_s, 10);
        hotel_->stopServer();
        open();
        letTick();
        serverIsBack();
        letTick();
        QCOMPARE(live()->table().dataRows(), 0);
        press("FreshCmd");
        TICK_COMPARE(liveColumn(u"总话费"), u"0.20"_s);
    }

    void limitsWhatItShows() {
        const QString call =
            u"<分机号>8201</分机号><所有者>客房部</所有者><使用者>8201房间</使用者>"
            "<被叫号码>0106588</被叫号码><通话时长>00:03:00</通话时长>"_s;
        const auto row = [&](const char* name, const CallLimits& limits, bool within) {
            Check(name, IsWithinLimits(call, limits), within);
        };
        row("none", {}, true);
        row("one of the extensions", {u"8200,8201"_s, {}, {}, {}, {}, {}}, true);
        row("part of the extension only", {u"820"_s, {}, {}, {}, {}, {}}, false);
        row("owner", {{}, u"前厅部 客房部"_s, {}, {}, {}, {}}, true);
        row("another owner", {{}, u"前厅部"_s, {}, {}, {}, {}}, false);
        row("user", {{}, {}, u"8202房间"_s, {}, {}, {}}, false);
        row("number begins", {{}, {}, {}, u"010"_s, {}, {}}, true);
        row("number holds", {{}, {}, {}, u"6588"_s, {}, {}}, false);
        row("as long", {{}, {}, {}, {}, u"3"_s, u"3"_s}, true);
        row("longer", {{}, {}, {}, {}, u"3.1"_s, {}}, false);
        row("shorter", {{}, {}, {}, {}, {}, u"2.9"_s}, false);
        open();
        set("XsHm", u"8"_s);
        Waiting(kToday, u"1"_s, u"8201"_s, u"01065881190"_s, 60);
        Waiting(kToday, u"2"_s, u"8202"_s, u"83331234"_s, 60);
        TICK_COMPARE(GetTag(hotel_->stored(kToday, kCalls, u"1"_s), u"标志"), u"计费处理"_s);
        TICK_COMPARE(liveColumn(u"记录号"), u"2"_s);
    }

    void asksForCalls() {
        const QDateTime from(QDate(2026, 3, 1), QTime(8, 0));
        const QDateTime to(QDate(2026, 3, 5), QTime(9, 30));
        const auto text = [](const CallQuestion& question, int day) {
            QStringList parts;
            for (const Condition& c :
                 ParseConditions(CallConditions(question, QDate(2026, 3, day))))
                parts.append(c.relation + u' ' + c.object + u' ' + c.op + u' ' + c.target);
            return parts.join(u'|');
        };
        CallQuestion all;
        all.from = from;
        all.to = to;
        QCOMPARE(text(all, 3), u"并且 费率类别 非空 "_s);
        QCOMPARE(text(all, 1), u"并且 费率类别 非空 |并且 话始时间 不小于 08:00:00"_s);
        QCOMPARE(
            text({u"82"_s,
                  u"客"_s,
                  u"房"_s,
                  u"010"_s,
                  u"1"_s,
                  u"9"_s,
                  {u"国内"_s, u"国际"_s},
                  from,
                  to},
                 5),
            u"并且 分机号 包含 82|并且 所有者 包含 客|并且 使用者 包含 房|并且 被叫号码 包含 010|"
            "并且 总话费 数值不小于 1|并且 总话费 数值不大于 9|并且 话始时间 不大于 09:30:00|"
            "或者 费率类别 包含 国内|或者 费率类别 包含 国际"_s);
    }

    void searchesAPeriod() {
        Waiting(kYesterday, u"1"_s, u"8201"_s, u"01065881190"_s, 1320, u"23:00:00"_s);
        Waiting(kYesterday, u"2"_s, u"8201"_s, u"83331234"_s, 60);
        Waiting(kToday, u"1"_s, u"8202"_s, u"02165881190"_s, 60, u"09:59:59"_s);
        Waiting(kToday, u"2"_s, u"8202"_s, u"02165881190"_s, 60, u"10:00:01"_s);
        open();
        set("BillDate", u"2026-03-04"_s);
        live()->setFocus();
        TICK_COMPARE(live()->table().dataRows(), 4);
        showPage(1);
        QCOMPARE(In<QLineEdit>(desk_, "CxQsrq")->text() + In<QLineEdit>(desk_, "CxQssj")->text() +
                     In<QLineEdit>(desk_, "CxZzrq")->text() +
                     In<QLineEdit>(desk_, "CxZzsj")->text(),
                 u"2026-03-0100:00:002026-03-0510:00:00"_s);
        type("CxHm", u"1065"_s);
        press("CxTjCmd");
        QCOMPARE(hotel_->logged(u"操作内容"), u"快速查询电话详细话单操作"_s);
        auto* list = qobject_cast<CmnGrd*>(FindScreen(u"CmnGrd"));
        QVERIFY(list);
        QCOMPARE(list->Grd().dataRows(), 2);
        QCOMPARE(list->Grd().text(1, u"记录号") + list->Grd().text(1, u"总话费"), u"114.52"_s);
        QCOMPARE(list->Grd().text(2, 0) + list->Grd().text(2, u"总话费") +
                     list->Grd().text(2, u"通话费") + list->Grd().text(2, u"地方费"),
                 u"合计14.5213.200.00"_s);
        list->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        type("CxHm", {});
        press("CxTjCmd"); // up to now: the call of 10:00:01 isn't in it
        list = qobject_cast<CmnGrd*>(FindScreen(u"CmnGrd"));
        QVERIFY(list);
        QCOMPARE(list->Grd().dataRows(), 4);
        list->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        type("CxFjh", u"9999"_s);
        press("CxTjCmd");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!FindScreen(u"CmnGrd"));
        set("CxZzrq", u"2026-02-30"_s);
        press("CxTjCmd");
        QCOMPARE(told(), u"请检查: 请输入正确的查询时段！"_s);
    }

    void keepsExtensions() {
        open();
        showPage(2);
        type("Fjh", u"6999"_s);
        type("Syr", u"新分机"_s);
        type("Jbyz", u"25"_s);
        press("UsrAdd");
        QCOMPARE(
            hotel_->stored(u"Bill\\STATION.QVR"_s, u"分机信息"_s, u"6999"_s),
            u"<使用者>新分机</使用者><收费参数>11111111</收费参数><减免参数>00000000</减免参数>"
            "<基本月租>25.00</基本月租><其他月租>0.00</其他月租><收费起价>0.00</收费起价>"
            "<收费补贴>0.00</收费补贴><其他费用>0.00</其他费用><押金初值>0.00</押金初值>"
            "<押金余额>0.00</押金余额><押金下限>0.00</押金下限>"_s);
        In<QListWidget>(desk_, "MfQd")->item(7)->setCheckState(Qt::Checked);
        press("UsrAdd"); // stands by now; the question is cancelled
        QCOMPARE(told(), u"请确认: 分机：6999已经存在，是否修改其参数？"_s);
        const auto bits = [this] {
            return GetTag(hotel_->stored(u"Bill\\STATION.QVR"_s, u"分机信息"_s, u"6999"_s),
                          u"减免参数");
        };
        QCOMPARE(bits(), u"00000000"_s);
        messages_->answerNext(u"ok"_s);
        press("UsrAdd");
        QCOMPARE(bits(), u"00000001"_s);
        QCOMPARE(In<GridView>(desk_, "UserList")->table().dataRows(), 124);
        messages_->answerNext(u"ok"_s);
        press("UsrDel");
        QCOMPARE(told(), u"请确认: 删除分机：6999？"_s);
        QCOMPARE(In<GridView>(desk_, "UserList")->table().dataRows(), 123);
        type("Fjh", u"8202"_s);
        hotel_->stopServer();
        press("UsrAdd");
        QCOMPARE(told(), u"没有保存: 原有数据读取失败，为避免覆盖，没有保存！请稍候再试！"_s);
    }

    void keepsTheTariff() {
        open();
        showPage(3);
        press("FeeModify"); // nothing to do
        QCOMPARE(hotel_->logged(u"操作内容"), QString());
        type("Ht", u"0999"_s);
        type("Fllb", u"省外"_s);
        type("Fl", u"1"_s);
        press("FeeAdd");
        QCOMPARE(messages_->entries().size(), 1); // no class
        type("Fllb", u"国内新线"_s);
        press("FeeAdd");
        auto* prefixes = In<GridView>(desk_, "FeeList");
        QCOMPARE(prefixes->table().dataRows(), 295);
        press("FeeAdd"); // the same once more replaces it
        QCOMPARE(prefixes->table().dataRows(), 295);
        QCOMPARE(hotel_->stored(u"Bill\\FEE.QVR"_s, u"费率定义"_s, u"0999"_s), QString());
        press("FeeModify");
        QCOMPARE(hotel_->logged(u"操作内容"), u"修改号码费率定义信息"_s);
        QCOMPARE(GetTag(hotel_->stored(u"Bill\\FEE.QVR"_s, u"费率定义"_s, u"0999"_s), u"费率类别"),
                 u"国内新线"_s);

        Clock::Advance(1000);
        auto* parameters = In<GridView>(desk_, "FeePara");
        parameters->setFocus();
        parameters->setCurrent(29, 2);
        QTest::keyClick(parameters, Qt::Key_Backspace);
        QTest::keyClicks(parameters, QStringLiteral("1"));
        parameters->setCurrent(36, 2);
        QTest::keyClick(parameters, Qt::Key_Backspace);
        QTest::keyClicks(parameters, QStringLiteral("0"));
        press("FeeModify");
        QCOMPARE(told(), u"请检查费率参数: 第36行（市话步长或首段（分钟））必须大于零"_s);
        QCOMPARE(GetTag(hotel_->stored(u"Bill\\FEE.QVR"_s, u"系统参数"_s, u"029"_s), u"参数值"),
                 u"3"_s);
        messages_->answerNext(u"yes"_s);
        desk_->close(); // wants to store it, and can't
        QVERIFY(desk_->isVisible());
        QCOMPARE(messages_->entries().at(2).words, u"保存系统计费参数清单"_s);
        QTest::keyClick(parameters, Qt::Key_Backspace);
        QTest::keyClicks(parameters, QStringLiteral("2"));
        messages_->answerNext(u"yes"_s);
        desk_->close();
        QVERIFY(!desk_->isVisible());
        QCOMPARE(GetTag(hotel_->stored(u"Bill\\FEE.QVR"_s, u"系统参数"_s, u"029"_s), u"参数值"),
                 u"1"_s);
        QCOMPARE(hotel_->logged(u"操作内容", u"100001"_s), u"修改系统计费参数"_s);
    }

    void keepsItsConfiguration() {
        open();
        showPage(4);
        auto* list = In<QListWidget>(desk_, "ConfigList");
        QCOMPARE(list->count(), 1);
        QCOMPARE(list->item(0)->text(), QString());
        QCOMPARE(In<QLineEdit>(desk_, "TeldbLj")->text(), u"Bill\\"_s);
        type("ConfigItem", u"codedispleng=5"_s);
        type("ConfigItem", u"COMPORT=7"_s);
        type("ConfigItem", u"TABLEFILE=没有"_s);
        QCOMPARE(told(), u"注  意: 分机转换文件不存在!"_s);
        type("ConfigItem", u"COMPORT=2"_s);
        QCOMPARE(list->count(), 2);
        press("SavItem");
        QCOMPARE(FileText(AccountingConfigFile()).count(u"CODEDISPLENG=5\r\nCOMPORT=2\r\n"), 1);
        list->setCurrentRow(1);
        press("DelItem");
        QCOMPARE(list->count(), 1);
        desk_->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Waiting(kToday, u"1"_s, u"8201"_s, u"01065881190"_s, 60);
        open();
        QCOMPARE(In<QListWidget>(desk_, "ConfigList")->count(), 2);
        TICK_COMPARE(liveColumn(u"被叫号码"), u"01065"_s);
        showPage(4);
        type("TeldbLj", u"Other"_s, Qt::Key_Tab); // nothing stands there
        TICK_COMPARE(In<GridView>(desk_, "UserList")->table().dataRows(), 0);
    }

    void standsALostServer() {
        for (int n = 1; n <= 3; ++n)
            Waiting(kToday, QString::number(n), u"8201"_s, u"114"_s, 10);
        open();
        TICK_COMPARE(live()->table().dataRows(), 3);
        hotel_->stopServer();
        letTick();
        serverIsBack();
        Waiting(kToday, u"4"_s, u"8201"_s, u"114"_s, 10);
        TICK_COMPARE(liveColumn(u"记录号"), u"1 2 3 4"_s);
    }

    void showsADay() {
        Waiting(kToday, u"7"_s, u"8201"_s, u"114"_s, 10);
        OpenScreen(u"HdfjFrm");
        desk_ = FindScreen(u"HdfjFrm");
        QVERIFY(QTest::qWaitForWindowActive(desk_));
        TextTable& calls = In<GridView>(desk_, "HdQd")->table();
        QCOMPARE(calls.dataRows(), 1);
        QCOMPARE(calls.text(1, u"记录号") + calls.text(1, u"分机号"), u"78201"_s);
        type("BillDate", u"3.4"_s);
        QCOMPARE(calls.dataRows(), 0);
        type("BillDate", u"20260305"_s);
        QCOMPARE(calls.dataRows(), 1);
    }
};

HOTEL_TEST(CallDeskTest)

#include "test_call_desk.moc"
