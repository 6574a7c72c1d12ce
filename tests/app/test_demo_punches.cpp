#include <QTest>

#include "app/demo/punches.h"
#include "personnel/attendance/attendance_report.h"
#include "personnel/attendance/period_statistics.h"
#include "platform/clock.h"
#include "record/numbers.h"
#include "tests/hotel_test.h"
#include "tests/personnel/staff.h"
#include "tests/test_hotel.h"

using namespace hotel;

namespace {

constexpr int kTurnsOfCommit = 1000; // nothing of the store is to be kept

} // namespace

class DemoPunchesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // A month that looks like life: most are there on most days, and everything happens to somebody.
    void aMonthOfAStaff() {
        TestHotel hotel(TestHotel::Start::LoggedIn, kTurnsOfCommit);
        for (int n = 1; n <= 24; ++n)
            Employ(n % 2 ? u"前厅部"_s : u"客房部"_s, u"%1"_s.arg(1000 + n), u"员%1"_s.arg(n),
                   {n % 5 == 0   ? u"夜班 22:00 06:00"_s
                    : n % 2 == 0 ? u"中班 14:00 22:00 倒班"_s
                                 : u"早班 08:00 17:00"_s});
        const QDateTime opening(QDate(2026, 3, 5), QTime(10, 0));
        Link().ConnectServer(u"127.0.0.1"_s, QString::number(hotel.port())); // nobody is logged in
        BringInPunches(opening, [&hotel](const QDateTime& now) { hotel.setServerClock(now); });
        QCOMPARE(Clock::Now(), opening);
        const PeriodStatistics sums =
            SumPeriod(QDate(2026, 2, 1), QDate(2026, 3, 5), u"所有部门"_s);
        QCOMPARE(sums.days.dataRows(), kDaysOfPunches - 1); // today is not over
        QCOMPARE(sums.persons, 24);
        const auto total = [&sums](QStringView column) {
            return int(LeadingNumber(sums.people.text(sums.people.rows() - 1, column)));
        };
        const int due = 24 * 30;
        QVERIFY(total(u"出勤次数") > due * 9 / 10 && total(u"出勤次数") <= due);
        for (const QStringView column : {u"迟到次数", u"早退次数"})
            QVERIFY(total(column) > due / 100 && total(column) < due / 5);
        QVERIFY(total(u"病假次数") > 0 && total(u"事假次数") > 0);
        TextTable punches(QuestionColumns(AttendanceQuestion::Arrivals));
        AskAttendance(AttendanceQuestion::Arrivals,
                      {.first = opening.date(), .last = opening.date(), .number = {}}, punches);
        QVERIFY(punches.dataRows() > 5); // those who are in
    }

    void nobodyIsEmployed() {
        TestHotel hotel(TestHotel::Start::LoggedIn, kTurnsOfCommit);
        const QDateTime opening(QDate(2026, 3, 5), QTime(10, 0));
        BringInPunches(opening, [&hotel](const QDateTime& now) { hotel.setServerClock(now); });
        QCOMPARE(SumPeriod(QDate(2026, 3, 1), QDate(2026, 3, 5), u"所有部门"_s).days.dataRows(), 0);
    }
};

HOTEL_TEST(DemoPunchesTest)
#include "test_demo_punches.moc"
