#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "house/common/paths.h"
#include "house/rooms/working_days.h"
#include "link/serv_api.h"
#include "personnel/attendance/FrmKq.h"
#include "personnel/attendance/punch.h"
#include "platform/camera.h"
#include "platform/clock.h"
#include "platform/sound.h"
#include "record/record_text.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "session/parameters.h"
#include "session/session.h"
#include "tests/hotel_test.h"
#include "tests/personnel/staff.h"
#include "tests/test_files.h"
#include "tests/test_hotel.h"
#include "tests/type_text.h"

using namespace hotel;

namespace {

const QString kDay = u"Kqxx\\2603\\260305.qvr"_s; // a Thursday
const QString kPunches = u"上班记录"_s;

class HeardSounds : public Loudspeaker {
public:
    QStringList files;
    HeardSounds() { Install(this); }
    ~HeardSounds() override { Install(nullptr); }
    void play(const QString& file) override { files.append(file); }
};

class NoCamera : public Camera {
public:
    bool present = false;
    NoCamera() { Install(this); }
    ~NoCamera() override { Install(nullptr); }
    bool CamConnect(const QString&) override { return present; }
    QImage seen() const override { return {}; }
    bool TakePhoto(const QString& file) override {
        QImage picture(40, 30, QImage::Format_RGB32);
        picture.fill(Qt::blue);
        return picture.save(file, "JPG");
    }
    void CamDisConnect() override {}
};

// "1 正常 上班": number, state, function as they are stored under a key.
QString Stored(TestHotel& hotel, const QString& key, const QString& file = kDay) {
    const QString record = hotel.stored(file, kPunches, key);
    return GetTag(record, u"编号") + u' ' + GetTag(record, u"状态") + u' ' +
           GetTag(record, u"考勤功能");
}

} // namespace

class PunchingTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHotel> hotel_;
    std::unique_ptr<MessageRecorder> messages_;
    std::unique_ptr<HeardSounds> sounds_;
    std::unique_ptr<NoCamera> camera_;
    WorkingFolder folder_;
    Screen* desk_ = nullptr;

    void setTime(const QString& time, const QString& date = u"2026-03-05"_s) {
        const QDateTime moment = QDateTime::fromString(date + u' ' + time, u"yyyy-MM-dd HH:mm:ss");
        Clock::Freeze(moment);
        hotel_->setServerClock(moment);
    }
    template<class Widget>
    Widget* in(const char* name) {
        auto* widget = desk_->findChild<Widget*>(QString::fromLatin1(name));
        if (!widget)
            qFatal("no %s", name);
        return widget;
    }
    void open() {
        OpenScreen(u"FrmKq");
        desk_ = FindScreen(u"FrmKq");
        if (!desk_ || !QTest::qWaitForWindowActive(desk_))
            qFatal("no desk");
        in<QTimer>("Timer1")->stop();
    }
    void tick() { QMetaObject::invokeMethod(in<QTimer>("Timer1"), "timeout"); }
    // As the queue does it: a number, Enter.
    void punch(const QString& entered) {
        TypeText(desk_->focusWidget(), entered);
        QTest::keyClick(desk_->focusWidget(), Qt::Key_Return);
    }
    QString result() {
        return in<QLabel>("Result")->text() + u"|"_s + in<QLabel>("ResultMore")->text();
    }
    QString told() const {
        const auto& entries = messages_->entries();
        return entries.isEmpty() ? QString()
                                 : entries.last().title + u": "_s + entries.last().words;
    }
    const TextTable& list() { return in<GridView>("Kqqd")->table(); }

private Q_SLOTS:
    void initTestCase() {
        RegisterScreen(u"FrmKq", [] { return new FrmKq; });
    }
    void init() {
        hotel_ = std::make_unique<TestHotel>();
        messages_ = std::make_unique<MessageRecorder>();
        sounds_ = std::make_unique<HeardSounds>();
        camera_ = std::make_unique<NoCamera>();
        CurrentSession().userName = u"考勤台"_s;
        Employ(u"前厅部"_s, u"0012"_s, u"林晓燕"_s, {u"早班 08:00 18:00"_s},
               u"<生日>1990-03-05</生日>"_s);
        Employ(u"保安部"_s, u"0034"_s, u"周强"_s, {u"夜班 22:00 06:00"_s});
        Employ(u"保安部"_s, u"0056"_s, u"吴勇"_s, {});
        setTime(u"07:45:10"_s);
    }
    void cleanup() {
        messages_->answerNext(u"yes"_s);
        CloseAllScreens();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        ResetParameters();
        Clock::Resume();
        camera_.reset();
        sounds_.reset();
        hotel_.reset();
    }

    void whoIsMeant() {
        Employ(u"保安部"_s, u"0078"_s, u"卡号与人同"_s, {}, u"<识别卡号>x</识别卡号>"_s);
        SaveRecord(u"Ygxx\\Ygxx.QVR", u"保安部", u"0079",
                   u"<姓名>卡有空格</姓名><识别卡号> 88 77 </识别卡号>");
        SaveRecord(u"Ygxx\\Ygxx.QVR", u"保安部", u"34A", u"<姓名>带字母</姓名>");
        StaffDirectory directory;
        const auto row = [&](const char* name, const QString& entered, const QString& expected) {
            const auto found = directory.find(entered);
            Check(name, found.member.name + (found.byCard ? u" 卡"_s : QString()), expected);
            Check(name, found.outcome, expected.isEmpty() ? Reading::Absent : Reading::Present);
        };
        row("by number", u"0012"_s, u"林晓燕"_s);
        row("by its value", u" 34 "_s, u"周强"_s);
        row("by the whole text ahead of the value", u"34A"_s, u"带字母"_s);
        row("by card", u"C0012"_s, u"林晓燕 卡"_s);
        row("by a card with blanks around it", u" 88 77"_s, u"卡有空格 卡"_s);
        row("nobody", u"99"_s, {});
        row("0 is nobody's value", u"0"_s, {});
        row("nothing", u" "_s, {});
        QCOMPARE(directory.size(), 6);

        // Who comes newly is found, who is transferred is looked for.
        Employ(u"客房部"_s, u"0100"_s, u"新来"_s, {});
        QCOMPARE(directory.find(u"100").member.department, u"客房部"_s);
        DeleteRecord(u"Ygxx\\Ygxx.QVR", u"客房部", u"0100");
        Employ(u"餐饮部"_s, u"0100"_s, u"新来"_s, {u"早班 07:30 10:00"_s});
        const PreparedPunch moved = PreparePunch(directory, u"100");
        QCOMPARE(moved.person.department + moved.decision.state, u"餐饮部迟到"_s);
        hotel_->stopServer();
        QCOMPARE(directory.find(u"12").member.name, u"林晓燕"_s);
        QCOMPARE(directory.find(u"99").outcome, Reading::Failed);
        QVERIFY(!PreparePunch(directory, u"12").served);
    }

    void aDirectoryHasLimits() {
        const auto fill = [](const QString& department, int people) {
            QString text;
            for (int n = 1; n <= people; ++n)
                text += u"<%1%2><姓名>员%2</姓名></%1%2>\r\n"_s.arg(department.left(1)).arg(n);
            SaveProject(u"Ygxx\\Ygxx.QVR", department, text);
        };
        fill(u"甲部"_s, 501);
        fill(u"乙部"_s, 495);
        StaffDirectory directory;
        directory.refill();
        QCOMPARE(directory.size(), 500 + 495 + 3);
        fill(u"丙部"_s, 3);
        directory.refill();
        QCOMPARE(directory.size(), 1000);
    }

    void whatIsWritten() {
        StaffDirectory directory;
        PunchFile file;
        PreparedPunch punch = PreparePunch(directory, u"C0012");
        QVERIFY(punch.isBirthday());
        punch.note = u"说明"_s;
        punch.operatorName = u"考勤台"_s;
        punch.place = u"员工通道"_s;
        QCOMPARE(file.save(punch), u"260305074510"_s);
        QCOMPARE(hotel_->stored(kDay, kPunches, u"260305074510"_s),
                 u"<编号>0012</编号>\r\n<姓名>林晓燕</姓名>\r\n<所在部门>前厅部</所在部门>\r\n"
                 "<职务>服务员</职务>\r\n<实到时间>07:45:10</实到时间>\r\n<状态>正常</状态>\r\n"
                 "<班次名称>早班</班次名称>\r\n<考勤方式>常规</考勤方式>\r\n<考勤功能>上班</"
                 "考勤功能>\r\n"
                 "<模式>刷卡模式</模式>\r\n<日期>2026-03-05</日期>\r\n<考勤说明>说明</考勤说明>\r\n"
                 "<操作员>考勤台</操作员>\r\n<地点>员工通道</地点>"_s);
        // The same second once more, here and at another desk: the next ones that are free.
        QCOMPARE(file.save(punch), u"260305074511"_s);
        Desk other(hotel_->port());
        other.logIn(u"ADMIN"_s, u"admin888"_s);
        PunchFile elsewhere;
        QCOMPARE(elsewhere.save(punch), u"260305074512"_s);
        QCOMPARE(GetTag(hotel_->stored(kDay, kPunches, u"260305074512"_s), u"实到时间"),
                 u"07:45:10"_s);
        // The last second of the day: the key goes on, the file is the day's.
        punch.moment = QDateTime(QDate(2026, 3, 31), QTime(23, 59, 59));
        QCOMPARE(file.save(punch), u"260331235959"_s);
        QCOMPARE(file.save(punch), u"260401000000"_s);
        QCOMPARE(Stored(*hotel_, u"260401000000"_s, u"Kqxx\\2603\\260331.qvr"_s),
                 u"0012 正常 上班"_s);
        hotel_->stopServer();
        QCOMPARE(file.save(punch), std::nullopt);
    }

    void specialDaysAndFailures() {
        StaffDirectory directory;
        const auto decided = [&](const QString& entered) {
            const PunchDecision decision = PreparePunch(directory, entered).decision;
            return decision.function + decision.state + decision.mode;
        };
        QCOMPARE(decided(u"12"_s), u"上班正常常规"_s);
        SaveRecord(u"Ygxx\\Ygxx.QVR", u"前厅部", u"0012",
                   SetTag(ReadRecord(u"Ygxx\\Ygxx.QVR", u"前厅部", u"0012"), u"考勤时段",
                          ShiftsText({u"早班 08:00 18:00"_s}).replace(u"1111111"_s, u"1000000"_s)));
        QCOMPARE(decided(u"12"_s), u"未知正常加班"_s); // a Thursday
        TextTable days({u"说明"_s, u"日期"_s, u"换算星期"_s});
        days.addRow({u"补班"_s, u"2026-03-05"_s, u"星期一"_s});
        days.addRow({u"补休"_s, u"2026-03-09"_s, u"星期天"_s});
        SaveWorkingDays(days);
        QCOMPARE(decided(u"12"_s), u"上班正常常规"_s);
        setTime(u"07:45:10"_s, u"2026-03-09"_s); // a Monday
        QCOMPARE(RuleWeekday(QDate(2026, 3, 9)), 7);
        QCOMPARE(decided(u"12"_s), u"未知正常加班"_s);
        QCOMPARE(decided(u"56"_s), u"未知正常加班"_s); // has no periods
    }

    void checksInTheirOrder() {
        PreparedPunch punch;
        const auto refusal = [&] {
            const auto notice = CheckPunch(punch);
            return notice ? notice->title + u": "_s + notice->words : QString();
        };
        QCOMPARE(refusal(), u"考勤失败: 编号没有确定"_s);
        punch.person.number = u"1"_s;
        QCOMPARE(refusal(), u"考勤失败: 员工姓名没有确定"_s);
        punch.person.name = u"王"_s;
        QCOMPARE(refusal(), u"考勤失败: 部门没有确定"_s);
        punch.person.department = u"前厅部"_s;
        QCOMPARE(
            refusal(),
            u"考勤失败: 当前时间已经不能自动确定考勤功能，必须手工选择，决定是上班还是下班？"_s);
        punch.decision.function = u"上班"_s;
        QCOMPARE(
            refusal(),
            u"考勤失败: "
            "当前时间已经不能自动确定考勤状态，必须手工选择，决定是事假还是病假，还是其他？"_s);
        punch.decision.state = u"正常"_s;
        QCOMPARE(refusal(), QString());
    }

    void aQueueAtTheDesk() {
        open();
        QCOMPARE(in<QLineEdit>("DevPos")->text(), u"考勤台"_s);
        punch(u"12"_s);
        QCOMPARE(result(), u"林晓燕　上班　正常|林晓燕，今天是您的生日，祝您生日快乐！"_s);
        QCOMPARE(sounds_->files, QStringList({u"Wave\\成功.wav"_s, u"Wave\\生日歌.mid"_s}));
        QCOMPARE(Stored(*hotel_, u"260305074510"_s), u"0012 正常 上班"_s);
        QCOMPARE(GetTag(hotel_->stored(kDay, kPunches, u"260305074510"_s), u"地点"), u"考勤台"_s);
        punch(u"34"_s); // without a touch in between
        QCOMPARE(result(), u"周强　加班|07:45:10　保安部　"_s);
        QCOMPARE(Stored(*hotel_, u"260305074511"_s), u"0034 正常 未知"_s);
        QCOMPARE(in<QLabel>("Ygxm")->text(), QString());
        QVERIFY(!in<QComboBox>("Kqgn")->isEnabled() && !in<QComboBox>("Kqzt")->isEnabled());
        QCOMPARE(list().row(2).join(u'|'), u"2|0034|周强|保安部|服务员|07:45:10|正常||加班|未知|"
                                           u"键盘操作|2026-03-05||考勤台|考勤台|"
                                           "260305074511"_s);

        sounds_->files.clear();
        messages_->clear();
        punch(u"99"_s);
        QCOMPARE(result(), u"考勤失败|员工姓名没有确定"_s);
        QCOMPARE(told(), u"考勤失败: 员工姓名没有确定"_s);
        QVERIFY(messages_->entries().last().kind == MessageRecorder::Kind::Timed);
        QCOMPARE(sounds_->files, QStringList{u"Wave\\失败.wav"_s});
        SetParam(u"ErrPause", u"1"_s);
        punch({});
        QCOMPARE(told(), u"考勤失败: 编号没有确定"_s);
        QVERIFY(messages_->entries().last().kind == MessageRecorder::Kind::Message);
        QCOMPARE(list().dataRows(), 2);

        TypeText(in<QLineEdit>("ComBh"), u";C0056?"_s);
        QTest::mouseClick(desk_->command(u"CmdShb"), Qt::LeftButton);
        QCOMPARE(list().text(3, u"模式"), u"刷卡模式"_s);
        punch(u";56?"_s);
        QCOMPARE(list().text(4, u"模式"), u"磁卡刷卡"_s);
        TypeText(in<QLineEdit>("ComBh"), u"56"_s);
        QTest::mouseClick(desk_->command(u"CmdShb"), Qt::LeftButton);
        QCOMPARE(list().text(5, u"模式"), u"鼠标操作"_s);

        // Esc takes a wrong number back; once more it asks whether the desk is to close.
        TypeText(in<QLineEdit>("ComBh"), u"77"_s);
        messages_->clear();
        QTest::keyClick(in<QLineEdit>("ComBh"), Qt::Key_Escape);
        QCOMPARE(in<QLineEdit>("ComBh")->text(), QString());
        QVERIFY(messages_->entries().isEmpty());
        messages_->answerNext(u"no"_s);
        QTest::keyClick(in<QLineEdit>("ComBh"), Qt::Key_Escape);
        QVERIFY(desk_->isVisible());
        OpenScreen(u"FrmKq"); // it stands
        QCOMPARE(list().dataRows(), 5);

        // Whoever has just punched sees his line.
        auto* grid = in<GridView>("Kqqd");
        for (int row = 6; row <= 30; ++row) {
            punch(u"12"_s);
            QCOMPARE(list().dataRows(), row);
            QCOMPARE(grid->model()->rowCount(), row);
            const QRect line = grid->visualRect(grid->model()->index(row - 1, 0));
            QVERIFY2(line.isValid() && grid->viewport()->rect().contains(line),
                     qPrintable(QString::number(row)));
        }
    }

    // Who types while another one's punch is on its way is not lost; the timer takes one after the other.
    void theQuickBuffer() {
        open();
        QTimer::singleShot(0, desk_, [this] {
            desk_->run([this] {
                TypeText(in<QLineEdit>("ComBh"), u"34"_s);
                QTest::keyClick(in<QLineEdit>("ComBh"), Qt::Key_Return);
                TypeText(in<QLineEdit>("ComBh"), u"56,东门,3"_s);
                QTest::keyClick(in<QLineEdit>("ComBh"), Qt::Key_Return);
                QTest::keyClick(in<QLineEdit>("ComBh"), Qt::Key_Return); // nothing
                TypeText(in<QLineEdit>("ComBh"), u"1"_s);
            });
        });
        QTRY_COMPARE(in<QListWidget>("KqBuf")->count(), 2);
        QCOMPARE(list().dataRows(), 0);
        tick();
        QCOMPARE(list().dataRows(), 1);
        QCOMPARE(in<QListWidget>("KqBuf")->count(), 1);
        tick();
        tick();
        QCOMPARE(list().dataRows(), 2);
        QCOMPARE(list().row(1)[1] + list().text(1, u"模式") + list().text(1, u"地点"),
                 u"0034快速缓冲考勤台"_s);
        QCOMPARE(list().row(2)[1] + list().text(2, u"地点"), u"0056东门"_s);
        QCOMPARE(in<QLineEdit>("ComBh")->text(), u"1"_s); // the one who is typing goes on
        in<QTimer>("Timer1")->stop();
    }

    void theServerIsAway() {
        open();
        hotel_->stopServer();
        QTRY_VERIFY(result().startsWith(u"服务器不通，现在不能考勤！|"_s)); // nobody has tried yet
        punch(u"12"_s);
        QCOMPARE(result(), u"服务器不通，现在不能考勤！|12 没有登记"_s);
        QCOMPARE(told(), u"服务器不通，现在不能考勤！: 12 没有登记"_s);
        QCOMPARE(sounds_->files, QStringList{u"Wave\\失败.wav"_s});
        for (int n = 0; n < 3; ++n)
            tick();
        QVERIFY(result().startsWith(u"服务器不通"_s));
        hotel_->startServer();
        for (int n = 0; n < 3; ++n)
            tick();
        QCOMPARE(result(), u"服务器已经恢复，请登记|"_s);
        QCOMPARE(hotel_->stored(kDay, kPunches, u"260305074510"_s), QString()); // nobody is kept
        punch(u"12"_s);
        QCOMPARE(Stored(*hotel_, u"260305074510"_s), u"0012 正常 上班"_s);
        // Away for a moment in which nobody looked: the punch itself brings the login back.
        hotel_->stopServer();
        hotel_->startServer();
        punch(u"34"_s);
        QCOMPARE(Stored(*hotel_, u"260305074511"_s), u"0034 正常 未知"_s);
        QVERIFY(!result().startsWith(u"服务器"_s));
        in<QTimer>("Timer1")->stop();
    }

    void aPunchThatIsNotWritten() {
        open();
        punch(u"12"_s);
        // Whoever is logged in where he may not write is told so: the record's place is taken by a project.
        hotel_->setServerClock(QDateTime(QDate(2026, 3, 6), QTime(7, 45)));
        SetParam(u"KqxxPath", u"..\\"_s); // a place that the server refuses
        messages_->clear();
        punch(u"12"_s);
        QCOMPARE(told(), u"提示: 信息保存失败，请重新登记！"_s);
        QCOMPARE(list().dataRows(), 2);
        QCOMPARE(list().text(2, kRecordKey), u"没有登记"_s);
        QVERIFY(result().startsWith(u"没有登记|"_s));
        QCOMPARE(sounds_->files.last(), u"Wave\\失败.wav"_s);
    }

    void photographsAndTheList() {
        camera_->present = true;
        SetParam(u"KqQdSx", u"1"_s);
        open();
        for (int n = 0; n < 12; ++n)
            punch(u"56"_s);
        QCOMPARE(list().dataRows(), 12);
        QCOMPARE(list().text(12, kRowNumber), u"12"_s);
        for (const QLabel* label : desk_->findChildren<QLabel*>())
            QVERIFY(label->text() != u"照片没有保存"_s);
        QCOMPARE(DbDownloadFile(u"Kqzp\\2603\\260305\\260305074521.jpg", u"back.jpg"_s), 0);
        QCOMPARE(QImage(u"back.jpg"_s).size(), QSize(40, 30));
        // Another desk's punches come with the list.
        Employ(u"客房部"_s, u"0100"_s, u"郑红"_s, {});
        StaffDirectory directory;
        QVERIFY(PunchFile().save(PreparePunch(directory, u"100")));
        QTest::keyClick(desk_, Qt::Key_F5);
        QCOMPARE(list().dataRows(), 13);
        QCOMPARE(list().text(13, u"姓名"), u"郑红"_s);

        // Every 3000 ticks the clock follows the server.
        hotel_->setServerClock(QDateTime(QDate(2026, 3, 5), QTime(9, 30)));
        in<QTimer>("Timer1")->setProperty("Tag", 2999);
        tick();
        QCOMPARE(Clock::TimeText(), u"07:45:10"_s);
        tick();
        QCOMPARE(Clock::TimeText(), u"09:30:00"_s);
        QCOMPARE(in<QTimer>("Timer1")->property("Tag").toInt(), 0);
    }

    // Other desks' punches come by themselves, within 2000 to 3000 seconds, but never under somebody's fingers.
    void theListRefreshesItself() {
        SetParam(u"KqQdSx", u"1"_s);
        open();
        StaffDirectory directory;
        const auto atAnotherDesk = [&] {
            QVERIFY(PunchFile().save(PreparePunch(directory, u"56")));
        };
        atAnotherDesk();
        for (int second = 1; second < 2000; ++second)
            tick();
        QCOMPARE(list().dataRows(), 0);
        TypeText(desk_->focusWidget(), u"1"_s);
        for (int second = 2000; second <= 3001; ++second)
            tick();
        QCOMPARE(list().dataRows(), 0);
        QTest::keyClick(desk_->focusWidget(), Qt::Key_Backspace);
        tick();
        QCOMPARE(list().dataRows(), 1);
        // And once more.
        atAnotherDesk();
        for (int second = 1; second < 2000; ++second)
            tick();
        QCOMPARE(list().dataRows(), 1);
        for (int second = 2000; second <= 3000; ++second)
            tick();
        QCOMPARE(list().dataRows(), 2);
    }
};

HOTEL_TEST(PunchingTest)
#include "test_punching.moc"
