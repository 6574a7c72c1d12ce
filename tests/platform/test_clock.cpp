#include "platform/clock.h"
#include "tests/hotel_test.h"

using namespace hotel;

class TestClock : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { Clock::Freeze(QDateTime(QDate(2006, 4, 12), QTime(23, 59, 58, 250))); }
    void cleanup() { Clock::Resume(); }

    void standsUntilItIsAdvanced() {
        QCOMPARE(Clock::DateText(), u"2006-04-12"_s);
        QCOMPARE(Clock::TimeText(), u"23:59:58"_s);
        QCOMPARE(Clock::SecondsSinceMidnight(), 86398.25);
        Clock::Advance(2000);
        QCOMPARE(Clock::DateText(), u"2006-04-13"_s);
        QCOMPARE(Clock::SecondsSinceMidnight(), 0.25);
    }

    void takesOnlyFullTexts() {
        const auto row = [](const char* name, const QString& date, const QString& time,
                            bool taken) {
            const QDateTime before = Clock::Now();
            Check(name, Clock::SetDate(date), taken);
            Check(name, Clock::SetTime(time), taken);
            if (taken)
                QCOMPARE(Clock::DateText() + Clock::TimeText(), date + time);
            else
                Check(name, Clock::Now(), before);
        };
        row("both", u"2007-12-31"_s, u"08:30:00"_s, true);
        row("no such day or minute", u"2007-02-30"_s, u"08:60:00"_s, false);
        row("other form", u"2007/12/31"_s, u"083000"_s, false);
        row("something behind", u"2007-12-31 "_s, u"08:30:00.5"_s, false);
        row("error", u"<ERROR>"_s, u"<ERROR>"_s, false);
        row("empty", u""_s, u""_s, false);
    }

    void goesOnFromTheServersTime() {
        Clock::Resume();
        QVERIFY(Clock::SetDate(u"2031-05-06"));
        QVERIFY(Clock::SetTime(u"10:00:00"));
        const QDateTime set = Clock::Now();
        QCOMPARE(set.date(), QDate(2031, 5, 6));
        QTRY_VERIFY(Clock::Now() > set);
        QVERIFY(Clock::SetTime(u"23:59:59"));
        QVERIFY(Clock::SecondsSinceMidnight() >= 86399 || Clock::SecondsSinceMidnight() < 3600);
        QVERIFY(Clock::SetTime(u"00:00:00"));
        QVERIFY(Clock::SecondsSinceMidnight() < 3600);
        QVERIFY(Clock::SetDate(QDate::currentDate().toString(u"yyyy-MM-dd"_s)));
        QVERIFY(Clock::SetTime(QTime::currentTime().toString(u"HH:mm:ss"_s)));
    }
};

HOTEL_TEST(TestClock)

#include "test_clock.moc"
