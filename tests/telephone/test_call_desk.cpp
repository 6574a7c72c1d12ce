#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
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
#include "screen/check_list.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "telephone/Accntfrm.h"
#include "telephone/HdfjFrm.h"
#include "telephone/call_search.h"
#include "telephone/call_tables.h"
#include "tests/hotel_test.h"
#include "tests/house/cut_line.h"
#include "tests/test_files.h"
#include "tests/test_hotel.h"
#include "tests/type_text.h"
#include "tools/aids/form_tools.h"
#include "tools/lists/CmnGrd.h"
#include "tools/paper/PrtPrev.h"
#include "tools/queries/CmnQuery.h"

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

bool IsToTheRight(GridView* list, QStringView header) {
    const QModelIndex cell = list->model()->index(0, list->table().column(header));
    return Qt::Alignment(list->model()->data(cell, Qt::TextAlignmentRole).toInt())
        .testFlag(Qt::AlignRight);
}

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
    QWidget* focus() { return desk_->focusWidget() ? desk_->focusWidget() : desk_; }
    void key(Qt::Key key) { QTest::keyClick(focus(), key); }
    void keys(const QString& text, Qt::Key end) {
        TypeText(focus(), text);
        key(end);
    }
    bool says(const QString& words) {
        const auto labels = desk_->findChildren<QLabel*>();
        return std::ranges::any_of(labels,
                                   [&](const QLabel* label) { return label->text() == words; });
    }
    QString mark(const QString& file, int name) {
        return GetTag(hotel_->stored(file, kCalls, QString::number(name)), u"标志");
    }
    QStringList marks(const QString& file, int calls) {
        QStringList marks;
        for (int n = 1; n <= calls; ++n)
            marks.append(mark(file, n));
        return marks;
    }
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
        QVERIFY(says(u"已计费 3 条话单"_s));
        QCOMPARE(GetTag(hotel_->stored(kToday, kCalls, u"2"_s), u"标志"), u"计费处理"_s);
        showPage(1); // another page: calls wait
        Waiting(kToday, u"3"_s, u"8202"_s, u"114"_s, 10);
        letTick();
        QCOMPARE(GetTag(hotel_->stored(kToday, kCalls, u"3"_s), u"标志"), QString());
        showPage(0);
        set("BillDate", u"2026-03-0"_s); // no day
        letTick();
        QCOMPARE(live()->table().dataRows(), 3);
        OpenScreen(u"Accntfrm"); // once more: it goes on as it was
        QCOMPARE(live()->table().dataRows(), 3);
        QCOMPARE(In<QLineEdit>(desk_, "BillDate")->text(), u"2026-03-0"_s);
    }

    void ratesOnlyWhatItHasReadTheTablesFor() {
        Waiting(kToday, u"1"_s, u"8201"_s, u"114"_s, 10);
        hotel_->stopServer();
        open();
        letTick();
        serverIsBack();
        letTick();
        QCOMPARE(live()->table().dataRows(), 0);
        key(Qt::Key_F4); // nor is a tariff that wasn't read written over
        type("Ht", u"0999"_s);
        type("Fllb", u"国内"_s);
        type("Fl", u"1"_s);
        key(Qt::Key_F6);
        messages_->answerNext(u"yes"_s);
        desk_->close();
        QCOMPARE(told(), u"没有保存: 原有数据读取失败，为避免覆盖，没有保存！请稍候再试！"_s);
        QVERIFY(desk_->isVisible());
        QCOMPARE(ReadCallTables(BillingFiles()).prefixes.dataRows(), 294);
        key(Qt::Key_F1);
        messages_->answerNext(u"ok"_s);
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
        auto* classes = In<CheckList>(desk_, "CxLb");
        classes->setTicks({false, false, false, false, true, false, false}); // abroad only
        press("CxTjCmd");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(says(u"查到0条信息"_s) && !FindScreen(u"CmnGrd"));
        classes->setTicks({true, true, true, true, true, true, true});
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
        QVERIFY(says(u"分机 6999 已删除"_s));
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
        QCOMPARE(told(), QString());
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

    // A clerk in a hurry, by keys alone: half a word and Enter, a key of another page, a key twice.
    void worksTheCardsByKeys() {
        open();
        auto* users = In<GridView>(desk_, "UserList");
        auto* prefixes = In<GridView>(desk_, "FeeList");
        QCOMPARE(focus()->objectName(), u"LjjfQd"_s);
        QVERIFY(IsToTheRight(users, u"基本月租") && !IsToTheRight(users, u"使用者"));
        key(Qt::Key_F8); // of other pages
        QCOMPARE(messages_->entries().size(), 0);

        key(Qt::Key_F3);
        QCOMPARE(focus()->objectName(), u"Fjh"_s);
        key(Qt::Key_F8);
        QCOMPARE(told(), u"不能保存: 请输入分机号！"_s);
        QCOMPARE(focus()->objectName(), u"Fjh"_s);
        keys(u"69"_s, Qt::Key_Return);
        QCOMPARE(focus()->objectName(), u"Syz"_s);
        keys(u"客"_s, Qt::Key_Tab);
        QCOMPARE(focus()->objectName(), u"Syr"_s);
        key(Qt::Key_F6);
        QCOMPARE(prefixes->table().dataRows(), 294);
        key(Qt::Key_F8);
        QVERIFY(says(u"分机 69 已保存"_s));
        QCOMPARE(focus()->objectName(), u"Fjh"_s);
        key(Qt::Key_F8);
        QCOMPARE(told(), u"请确认: 分机：69已经存在，是否修改其参数？"_s);
        QCOMPARE(users->table().dataRows(), 124);
        In<QLineEdit>(desk_, "Yjxx")->setFocus();
        key(Qt::Key_Return);
        QCOMPARE(focus()->objectName(), u"UsrAdd"_s);
        users->setCurrent(1);
        QCOMPARE(In<QLineEdit>(desk_, "Fjh")->text(), users->table().text(1, 0));
        set("Fjh", u"70"_s);
        key(Qt::Key_F7);
        QCOMPARE(told(), u"提示: 请选择要删除的分机！"_s);

        key(Qt::Key_F4);
        QCOMPARE(focus()->objectName(), u"Ht"_s);
        QVERIFY(IsToTheRight(prefixes, u"费率") && !IsToTheRight(prefixes, u"通话地区"));
        QVERIFY(IsToTheRight(In<GridView>(desk_, "FeePara"), u"参数值"));
        key(Qt::Key_F6);
        QCOMPARE(told(), u"请检查: 号头只能由数字、*和#组成！"_s);
        key(Qt::Key_F7);
        QCOMPARE(told(), u"提示: 请选择要删除的号头！"_s);
        prefixes->setCurrent(prefixes->table().find(0, u"010"));
        QCOMPARE(In<QLineEdit>(desk_, "Thdq")->text(), u"北京"_s);
        key(Qt::Key_F7);
        QCOMPARE(prefixes->table().dataRows(), 293);
        QCOMPARE(In<QLineEdit>(desk_, "Ht")->text(), QString());
        key(Qt::Key_F7); // none is chosen any more
        QCOMPARE(prefixes->table().dataRows(), 293);
        key(Qt::Key_F8);
        QCOMPARE(hotel_->stored(u"Bill\\FEE.QVR"_s, u"费率定义"_s, u"010"_s), QString());
        key(Qt::Key_F8);
        QVERIFY(says(u"没有修改"_s));
        In<QLineEdit>(desk_, "Sm")->setFocus();
        key(Qt::Key_Return);
        QCOMPARE(focus()->objectName(), u"FeeAdd"_s);

        key(Qt::Key_F5);
        QCOMPARE(focus()->objectName(), u"ConfigItem"_s);
        keys(u"COMP"_s, Qt::Key_Return);
        QVERIFY(says(u"没有这个参数，请按“参数=值”输入"_s));
        keys(u"COMPORT=2"_s, Qt::Key_Return); // typed over it
        keys({}, Qt::Key_Return);
        QCOMPARE(In<QListWidget>(desk_, "ConfigList")->count(), 1);
        QCOMPARE(In<QListWidget>(desk_, "ConfigList")->item(0)->text(), u"COMPORT=2"_s);
        key(Qt::Key_F7); // no line chosen
        QVERIFY(says(u"请选择要删除的参数"_s));
        In<QListWidget>(desk_, "ConfigList")->setCurrentRow(0);
        key(Qt::Key_F7);
        QCOMPARE(In<QListWidget>(desk_, "ConfigList")->item(0)->text(), QString());
        In<QListWidget>(desk_, "ConfigList")->setCurrentRow(0);
        key(Qt::Key_F7); // the blank line is none
        QVERIFY(says(u"请选择要删除的参数"_s));

        key(Qt::Key_F2);
        QCOMPARE(focus()->objectName(), u"CxFjh"_s);
        In<QLineEdit>(desk_, "CxZdhf")->setFocus();
        key(Qt::Key_Return);
        QCOMPARE(focus()->objectName(), u"CxTjCmd"_s);
        key(Qt::Key_F1);
        QCOMPARE(focus()->objectName(), u"LjjfQd"_s);
        key(Qt::Key_Escape);
        QVERIFY(!desk_->isVisible());
    }

    void putsTheLiveListAway() {
        Waiting(kToday, u"1"_s, u"8201"_s, u"114"_s, 10);
        open();
        TICK_COMPARE(live()->table().dataRows(), 1);
        QVERIFY(IsToTheRight(live(), u"总话费") && IsToTheRight(live(), u"地方费"));
        QVERIFY(!IsToTheRight(live(), u"分机号"));
        messages_->answerNext(folder_.filePath(u"话单.txt"_s));
        key(Qt::Key_F10);
        QCOMPARE(messages_->entries().first().proposed, u"实时话单260305.txt"_s);
        QVERIFY(FileText(folder_.filePath(u"话单.txt"_s)).contains(u"8201"_s));
        key(Qt::Key_F9);
        QVERIFY(FindScreen(u"PrtPrev"));
        FindScreen(u"PrtPrev")->close();
        key(Qt::Key_F7);
        QCOMPARE(live()->table().dataRows(), 0);
    }

    // A call that the tariff can't rate waits for another tariff.
    void ratesByTheTariffAsItIsMended() {
        TextTable parameters = ReadCallTables(BillingFiles()).parameters;
        parameters.setText(29, 2, u"1"_s);
        parameters.setText(36, 2, u"0"_s);
        SaveParameters(BillingFiles(), parameters);
        Waiting(kToday, u"1"_s, u"8201"_s, u"83331234"_s, 181);
        open();
        letTick();
        QVERIFY(says(u"有话单不能计费：系统参数第36行的分钟数为零"_s));
        QCOMPARE(mark(kToday, 1), QString());
        key(Qt::Key_F4);
        auto* cells = In<GridView>(desk_, "FeePara");
        cells->setFocus();
        cells->setCurrent(36, 2);
        QTest::keyClick(cells, Qt::Key_Backspace);
        QTest::keyClicks(cells, QStringLiteral("3"));
        key(Qt::Key_F8); // the cell is still being typed in
        QVERIFY(says(u"费率已保存"_s));
        key(Qt::Key_F1);
        TICK_COMPARE(liveColumn(u"通话费"), u"0.45"_s);
    }

    void takesOverTheFilesOfItsConfiguration() {
        open();
        key(Qt::Key_F4);
        type("Ht", u"0999"_s);
        type("Fllb", u"国内"_s);
        type("Fl", u"1"_s);
        key(Qt::Key_F6);
        key(Qt::Key_F5);
        auto* users = In<GridView>(desk_, "UserList");
        keys(u"FEEFILE=other.qvr"_s, Qt::Key_Return); // a change would be lost: not yet
        QCOMPARE(told(), u"请确认: 费率的修改还没有保存，重新加载会丢失这些修改，继续吗？"_s);
        QCOMPARE(In<GridView>(desk_, "FeeList")->table().dataRows(), 295);
        messages_->answerNext(u"ok"_s);
        keys(u"FEEFILE=another.qvr"_s, Qt::Key_Return);
        QCOMPARE(In<GridView>(desk_, "FeeList")->table().dataRows(), 0);
        QCOMPARE(users->table().dataRows(), 123);
        keys(u"STATIONFILE=none.qvr"_s, Qt::Key_Return);
        QCOMPARE(users->table().dataRows(), 0);
        In<QListWidget>(desk_, "ConfigList")->setCurrentRow(0);
        press("DelItem");
        QCOMPARE(In<GridView>(desk_, "FeeList")->table().dataRows(), 294);
        keys(u"DIALCODEFILE=yyMMdd.tel"_s, Qt::Key_Return);
        const QString other = u"Bill\\26\\03\\260305.tel"_s;
        Waiting(other, u"1"_s, u"8201"_s, u"114"_s, 10);
        key(Qt::Key_F1);
        TICK_COMPARE(liveColumn(u"总话费"), u"0.20"_s);
        QCOMPARE(liveColumn(u"使用者"), QString());
    }

    // A tariff that the server doesn't take holds the desk open, until it is stored or given up.
    void holdsATariffThatCannotBeStored() {
        open();
        key(Qt::Key_F4);
        type("Ht", u"0999"_s);
        type("Fllb", u"国内"_s);
        type("Fl", u"1"_s);
        key(Qt::Key_F6);
        hotel_->stopServer();
        messages_->answerNext(u"yes"_s);
        desk_->close();
        QCOMPARE(messages_->words(),
                 QStringList({u"保存号码费率定义信息清单"_s, u"修改号码费率定义信息失败"_s}));
        QVERIFY(desk_->isVisible());
        key(Qt::Key_F8);
        QCOMPARE(told(), u"数据库错误: 修改号码费率定义信息失败"_s);
        serverIsBack();
        messages_->answerNext(u"yes"_s);
        desk_->close();
        QVERIFY(!desk_->isVisible());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        open();
        auto* prefixes = In<GridView>(desk_, "FeeList");
        QCOMPARE(prefixes->table().dataRows(), 295);
        key(Qt::Key_F4);
        prefixes->setCurrent(prefixes->table().find(0, u"0999"));
        key(Qt::Key_F7);
        messages_->clear();
        messages_->answerNext(u"no"_s);
        desk_->close();
        QVERIFY(!desk_->isVisible());
        QCOMPARE(messages_->words(), QStringList(u"保存号码费率定义信息清单"_s));
        QCOMPARE(ReadCallTables(BillingFiles()).prefixes.dataRows(), 295);
    }

    // The desk is closed between two calls: the next one goes on with those that wait.
    void isClosedInTheMiddleOfARound() {
        constexpr int kMany = 60;
        for (int n = 1; n <= kMany; ++n)
            Waiting(kToday, QString::number(n), u"8201"_s, u"114"_s, 10);
        open();
        connect(live()->model(), &QAbstractItemModel::rowsInserted, desk_,
                [this] { desk_->close(); });
        TICK_COMPARE(desk_->isVisible(), false);
        const int first = loudspeaker_.plays;
        QVERIFY(first > 0 && first < kMany);
        QCOMPARE(marks(kToday, kMany).count(u"计费处理"_s), first);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        open();
        TICK_COMPARE(live()->table().dataRows(), kMany - first);
        QCoreApplication::processEvents(); // the new rows are laid out
        QVERIFY(live()->verticalScrollBar()->maximum() > 0);
        QCOMPARE(live()->verticalScrollBar()->value(), live()->verticalScrollBar()->maximum());
        QCOMPARE(marks(kToday, kMany).count(u"计费处理"_s), kMany);
        letTick();
        QCOMPARE(loudspeaker_.plays, kMany); // each was rated once
    }

    void goesOnWhereTheServerWentAway() {
        for (int n = 1; n <= 6; ++n)
            Waiting(kYesterday, QString::number(n), u"8201"_s, u"114"_s, 10);
        CutLine line(hotel_->port());
        Desk desk(line.port());
        desk.logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
        open();
        set("BillDate", u"2026-03-04"_s);
        line.reset();
        line.cutBeforeWrite(3);
        TICK_COMPARE(told(), u"意外错误: 数据不能保存，请重新链接数据库服务器!"_s);
        letTick();
        QCOMPARE(messages_->entries().size(), 1);
        QCOMPARE(In<QLineEdit>(desk_, "BillDate")->text(), u"2026-03-04"_s);
        hotel_->desk().use();
        TICK_COMPARE(live()->table().dataRows(), 6);
        QCOMPARE(loudspeaker_.plays, 6);
        TICK_COMPARE(In<QLineEdit>(desk_, "BillDate")->text(), u"2026-03-05"_s);
    }

    // A day that the clerk chooses while a round goes on isn't passed over.
    void leavesTheDayToTheClerk() {
        Waiting(kYesterday, u"1"_s, u"8201"_s, u"114"_s, 10);
        open();
        letTick();
        set("BillDate", u"2026-03-04"_s);
        connect(live()->model(), &QAbstractItemModel::rowsInserted, desk_,
                [this] { set("BillDate", u"2026-03-02"_s); });
        letTick();
        QCOMPARE(live()->table().dataRows(), 1);
        QCOMPARE(In<QLineEdit>(desk_, "BillDate")->text(), u"2026-03-02"_s);
        letTick();
        QCOMPARE(In<QLineEdit>(desk_, "BillDate")->text(), u"2026-03-03"_s);
    }

    void searchesByAForm() {
        Waiting(kToday, u"1"_s, u"8201"_s, u"01065881190"_s, 60);
        Waiting(kToday, u"2"_s, u"8202"_s, u"114"_s, 60);
        open();
        TICK_COMPARE(live()->table().dataRows(), 2);
        key(Qt::Key_F2);
        QString caption;
        QTimer clerk;
        connect(&clerk, &QTimer::timeout, [&] {
            for (QWidget* window : QApplication::topLevelWidgets()) {
                auto* form = qobject_cast<CmnQuery*>(window);
                if (!form || !form->isVisible())
                    continue;
                clerk.stop();
                Clock::Advance(1000); // the form has an entry of its own in the log
                caption = form->windowTitle();
                form->findChild<QComboBox*>(u"BxTj"_s)->setEditText(u"8202"_s);
                form->command(u"Search_cmd")->setEnabled(true);
                form->command(u"Search_cmd")->click();
            }
        });
        clerk.start(20);
        key(Qt::Key_F7);
        QCOMPARE(caption, u"请输入电话详细话单查询组合条件"_s);
        QVERIFY(says(u"查到1条信息"_s));
        auto* list = qobject_cast<CmnGrd*>(FindScreen(u"CmnGrd"));
        QVERIFY(list);
        QCOMPARE(list->Grd().text(1, u"记录号") + list->Grd().text(2, u"总话费"), u"20.20"_s);
        QCOMPARE(hotel_->logged(u"操作内容"), u"查询电话详细话单操作"_s);
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
        type("BillDate", u"2026-03-06"_s, Qt::Key_Tab); // none yet
        QVERIFY(says(u"共 0 条话单"_s));
        set("BillDate", u"2026-02-30"_s);
        hotel_->stopServer();
        type("BillDate", u"2026-03-05"_s);
        QVERIFY(says(u"话单没有读出，请稍候再试"_s));
    }
};

HOTEL_TEST(CallDeskTest)

#include "test_call_desk.moc"
