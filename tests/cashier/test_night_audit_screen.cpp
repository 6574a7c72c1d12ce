#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QTest>
#include <QTimer>

#include "cashier/YstjFrm.h"
#include "cashier/audit_log.h"
#include "house/guests/guest_text.h"
#include "house/rooms/room_record.h"
#include "link/records.h"
#include "platform/clock.h"
#include "record/record_text.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "session/parameters.h"
#include "session/session.h"
#include "tests/hotel_test.h"
#include "tests/house/small_house.h"
#include "tests/test_files.h"
#include "tests/tools/paper/print_items.h"
#include "tools/paper/PrtPrev.h"

using namespace hotel;

namespace {

const QString kFolio = u"260304200000"_s;

// A house of so many rooms, one guest in each, all on one folio.
void FillHouse(int rooms) {
    QList<RoomSpec> house;
    for (int n = 0; n < rooms; ++n) {
        house.append({QString::number(101 + n), u"团队"_s});
        SaveRmRec(
            house.last().number,
            SetTag({}, u"客人01",
                   ValidGuest(u"客%1"_s.arg(101 + n), kFolio, u"团队"_s,
                              u"<入住日期>2026-03-04</入住日期><入住时间>20:00</入住时间>"_s)));
    }
    FillRooms(house);
}

int Charges() {
    return int(StoredRecords(u"kzxx\\26\\03\\04\\260304200000.QVR"_s, u"房费明细信息"_s).size());
}

int SettledRooms(int rooms) {
    int settled = 0;
    for (int n = 0; n < rooms; ++n)
        settled += GetTag(GetTag(GetKfrzxx(QString::number(101 + n)), u"客人01"), u"结算日期") ==
                   u"2026-03-05";
    return settled;
}

template<class Widget>
Widget* In(Screen* screen, const char* name) {
    return screen->findChild<Widget*>(QString::fromLatin1(name));
}

QTimer* TimerOf(Screen* screen) {
    return In<QTimer>(screen, "Timer1");
}

// The audit as the main menu opens it, its steps without the pauses between them.
Screen* Begun() {
    OpenScreen(u"YstjFrm");
    Screen* screen = FindScreen(u"YstjFrm");
    if (!screen || TimerOf(screen)->interval() != 100)
        qFatal("no night audit");
    TimerOf(screen)->setInterval(0);
    return screen;
}

bool HasEnded(Screen* screen) {
    return TimerOf(screen)->property("Tag").toString().isEmpty();
}

QStringList LogOf(Screen* screen) {
    QStringList lines;
    auto* list = In<QListWidget>(screen, "YsStat");
    for (int row = 0; row < list->count(); ++row)
        lines.append(list->item(row)->text());
    return lines;
}

} // namespace

class NightAuditScreenTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHotel> hotel_;
    std::unique_ptr<MessageRecorder> messages_;
    WorkingFolder folder_;

private Q_SLOTS:
    void initTestCase() {
        RegisterScreen(u"YstjFrm", [] { return new YstjFrm; });
        RegisterScreen(u"PrtPrev", [] { return new PrtPrev; });
    }
    void init() {
        hotel_ = std::make_unique<TestHotel>();
        messages_ = std::make_unique<MessageRecorder>();
    }
    void cleanup() {
        CloseAllScreens();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        ResetParameters();
        hotel_.reset();
    }

    void runsAsSoonAsItIsOpened() {
        FillHouse(3);
        const QDateTime evening(QDate(2026, 3, 4), QTime(22, 0));
        Clock::Freeze(evening);
        hotel_->setServerClock(evening);
        CurrentSession().userDept = u"财务部"_s;
        Screen* audit = Begun();
        QTest::keyClicks(In<QLineEdit>(audit, "Jsrq"), u"1"_s); // is shown, not typed
        QCOMPARE(In<QLineEdit>(audit, "Jsrq")->text(), u"2026-03-05"_s);
        QCOMPARE(In<QLineEdit>(audit, "Jsr")->text(), u"系统管理员"_s);
        QCOMPARE(In<QLineEdit>(audit, "Jbdw")->text(), u"财务部"_s);
        QStringList statuses;
        for (int row = 0; row < In<QListWidget>(audit, "Jsft")->count(); ++row)
            statuses.append(In<QListWidget>(audit, "Jsft")->item(row)->text());
        QCOMPARE(statuses, QStringList({u"散客"_s, u"包房"_s, u"长包"_s, u"会议"_s, u"团队"_s}));
        QCOMPARE(TimerOf(audit)->property("Tag").toString(), u"0"_s);
        QCOMPARE(LogOf(audit), QStringList());
        QTRY_VERIFY(HasEnded(audit));
        QCOMPARE(LogOf(audit).size(), 14);
        QCOMPARE(LogOf(audit).first(), u" 2026-03-04 22:00:00夜审开始："_s);
        QCOMPARE(LogOf(audit)[2], u"    结算101房间的客101的房费成功"_s);
        QCOMPARE(In<QListWidget>(audit, "YsStat")->currentRow(), 13);
        QCOMPARE(In<QLabel>(audit, "Percent")->text(), u"100%"_s);
        QCOMPARE(In<QProgressBar>(audit, "PercentBar")->value(), 100);
        QVERIFY(!TimerOf(audit)->isActive());
        QCOMPARE(SettledRooms(3), 3);
        const QString charge =
            hotel_->stored(u"kzxx\\26\\03\\04\\260304200000.QVR"_s, u"房费明细信息"_s, u"3"_s);
        QCOMPARE(GetTag(charge, u"经办人") + GetTag(charge, u"经办单位"), u"系统管理员财务部"_s);

        OpenScreen(u"YstjFrm"); // it stands: nothing begins anew
        QVERIFY(HasEnded(audit));
        QCOMPARE(LogOf(audit).size(), 14);
        QTest::keyClick(audit, Qt::Key_Escape);
        QVERIFY(!audit->isVisible());
    }

    // In the middle of the rooms: keys are answered, progress moves; Esc ends the run, and so does closing.
    // A later run settles the rest.
    void canBeEnded() {
        constexpr int kRooms = 120;
        FillHouse(kRooms);
        int steps = 0;
        for (const bool byEscape : {true, false}) {
            Screen* audit = Begun();
            QString percent;
            QTimer press;
            connect(&press, &QTimer::timeout, audit, [&] {
                if (!audit->busy() || LogOf(audit).size() < 6)
                    return;
                press.stop();
                ++steps;
                percent = In<QLabel>(audit, "Percent")->text();
                if (byEscape)
                    QTest::keyClick(audit, Qt::Key_Escape);
                else
                    audit->close();
            });
            press.start(1);
            const QPointer<Screen> window = audit;
            QTRY_VERIFY(!window || HasEnded(audit));
            QVERIFY(percent >= u"10%"_s && percent < u"20%"_s);
            QCOMPARE(Charges(), SettledRooms(kRooms)); // none that is charged and not dated
            if (byEscape) {
                QVERIFY(LogOf(audit).last().endsWith(u"夜审中断！"_s));
                QVERIFY(audit->isVisible());
                QTest::keyClick(audit, Qt::Key_Escape);
            }
            QTRY_VERIFY(!FindScreen(u"YstjFrm"));
        }
        QCOMPARE(steps, 2);
        QVERIFY(Charges() > 0 && Charges() < kRooms);
        Screen* rest = Begun();
        QTRY_VERIFY(HasEnded(rest));
        QCOMPARE(Charges(), kRooms);
    }

    void survivesALostServer() {
        FillHouse(2);
        Screen* audit = Begun();
        hotel_->stopServer();
        QTRY_VERIFY(HasEnded(audit));
        QCOMPARE(LogOf(audit).size(), 12);
        QCOMPARE(LogOf(audit)[2], u"    没有读到客房清单"_s);
        QCOMPARE(messages_->words(), QStringList());
    }

    // A line is 5.5 mm of the 25.9 cm below the top edge: 47 a page.
    void printsTheLog() {
        const auto print = [](int lines) {
            QStringList log;
            for (int n = 1; n <= lines; ++n)
                log.append(u"    第%1行\r\n"_s.arg(n));
            PrintAuditLog(log, u"赵国强"_s);
            return ScriptOfJob();
        };
        QCOMPARE(print(94).pageCount(), 2);
        PrintScript script = print(95);
        QCOMPARE(script.pageCount(), 3);
        const QStringList first = ItemTexts(script.previewPage(1));
        QCOMPARE(first[0], u"text 1134,1304 宋体10     第1行"_s);
        QCOMPARE(first[1], u"text 1134,1615 宋体10     第2行"_s);
        QVERIFY(first.last().endsWith(u"黑体8 共3页，第1页　制表人：赵国强"_s));
        const QStringList last = ItemTexts(script.previewPage(3));
        QCOMPARE(last.size(), 3); // the line, the foot's rule, the foot
        QVERIFY(last[0].endsWith(u"第95行"_s));
        QVERIFY(last[2].endsWith(u"共3页，第3页　制表人：赵国强"_s));

        SaveRecord(u"dygs\\half.QVR", u"正文", u"夜审记录清单",
                   u"<字体>楷体</字体><粗体>1</粗体><左边界>1</左边界>");
        SetParam(u"YsjlFmt", u"half.QVR"_s);
        QCOMPARE(ItemTexts(print(1).previewPage(1)).first(), u"text 1417,850 楷体12B     第1行"_s);
        SetParam(u"YsjlFmt", u"missing.QVR"_s);
        const QStringList plain = ItemTexts(print(2).previewPage(1));
        QCOMPARE(plain[0], u"text 850,850 黑体12     第1行"_s);
        QCOMPARE(plain[1], u"text 850,1134 黑体12     第2行"_s);
        QCOMPARE(messages_->words(), QStringList());
        print(0);
        QCOMPARE(messages_->last(), u"没有可以打印的内容!"_s);
    }

    void savesTheLog() {
        QCOMPARE(ProposedAuditLogFile(), u"Txt\\夜审纪录260305.txt"_s);
        Screen* audit = Begun();
        TimerOf(audit)->stop();
        QTest::keyClick(audit, Qt::Key_F8); // nothing in the log
        QCOMPARE(messages_->entries().size(), 0);
        TimerOf(audit)->start();
        QTRY_VERIFY(HasEnded(audit));
        auto* list = In<QListWidget>(audit, "YsStat");
        const auto press = [&](const std::optional<QString>& answer) {
            messages_->clear();
            messages_->answerNext(answer);
            QTest::keyClick(audit, Qt::Key_F8);
            QStringList told;
            for (const auto& entry : messages_->entries())
                told.append(entry.title + u": "_s + entry.words);
            return told.join(u'|');
        };
        const QString asks = u"保存文件提示: 本次夜审记录的存放文件名："_s;
        const auto status = [audit] {
            QStringList texts;
            for (const QLabel* label : audit->findChildren<QLabel*>())
                texts.append(label->text());
            return texts.join(u'|');
        };
        QVERIFY(status().contains(u"夜审记录共 11 行"_s));
        QCOMPARE(press({}), asks);
        QCOMPARE(press(QString()), asks);
        QVERIFY(QDir(u"Txt"_s).isEmpty());
        QVERIFY(!status().contains(u"已经保存"_s));
        QCOMPARE(press(u"Txt\\夜审.txt"_s), asks);
        QVERIFY(status().contains(u"已经保存"_s));
        const QString text = FileText(u"Txt/夜审.txt"_s);
        QVERIFY(text.startsWith(u" 2026-03-05 10:00:00夜审开始：\r\n 1:结算房费：\r\n"_s));
        QVERIFY(text.endsWith(u" 9:数据备份\r\n 2026-03-05 10:00:00夜审结束！\r\n\r\n"_s));
        QCOMPARE(press(u"/proc/夜审.txt"_s), asks + u"|错误: 文件无法生成!"_s);
        list->item(1)->setText(u"短"_s);
        list->setCurrentRow(1);
        QCOMPARE(press(u"Txt\\短.txt"_s), QString());
        list->item(1)->setText(u"不短"_s);
        QCOMPARE(press(u"Txt\\短.txt"_s), asks);
    }
};

HOTEL_TEST(NightAuditScreenTest)
#include "test_night_audit_screen.moc"
