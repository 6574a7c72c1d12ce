#include <QSet>
#include <QTest>

#include "app/demo/staff.h"
#include "personnel/staff/staff_list.h"
#include "platform/clock.h"
#include "record/record_text.h"
#include "screen/messages.h"
#include "tests/hotel_test.h"
#include "tests/test_hotel.h"

using namespace hotel;

class DemoStaffTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // Everybody is complete, has a card of his own and shifts, and stands in both files.
    void addsUp() {
        TestHotel hotel(TestHotel::Start::NobodyLoggedIn);
        const MessageRecorder messages;
        const QDateTime opening(QDate(2026, 3, 5), QTime(9, 0));
        BringInStaff(opening, [&hotel](const QDateTime& now) { hotel.setServerClock(now); });
        QVERIFY(Clock::Now() < opening.addDays(-31));
        hotel.desk().logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
        QCOMPARE(messages.words(), QStringList());

        const TextTable everybody = ListStaff(u"所有部门"_s).table;
        QCOMPARE(everybody.dataRows(), 86);
        QSet<QString> cards;
        QSet<QString> documents;
        QSet<QString> shifts;
        QSet<QString> covered; // shift and weekday
        int nights = 0;
        for (int row = 1; row < everybody.rows(); ++row) {
            const EmployeeKey key = EmployeeOfRow(everybody, row);
            const QString record = ReadRecord(u"Ygxx\\Ygxx.QVR", key.department, key.number);
            QCOMPARE(EmployeeValue(record, u"姓名"), everybody.text(row, u"姓名"));
            cards.insert(EmployeeValue(record, u"识别卡号"));
            documents.insert(EmployeeValue(record, u"身份证号"));
            QVERIFY(EmployeeValue(record, u"参加工作") < u"2026-01-01"_s);
            const QStringList periods = EmployeeEntries(record, u"考勤时段");
            QVERIFY(!periods.isEmpty());
            int daysOfWeek = 0;
            for (int weekday = 0; weekday < 7; ++weekday) {
                int due = 0;
                for (const QString& period : periods) {
                    shifts.insert(GetTag(period, u"班次名称"));
                    if (GetTag(period, u"星期设定")[weekday] == u'1') {
                        ++due;
                        covered.insert(GetTag(period, u"班次名称") + QString::number(weekday));
                    }
                }
                QVERIFY(due <= 1); // nobody works round the clock
                daysOfWeek += due;
            }
            QCOMPARE(daysOfWeek, 5);
            nights += GetTag(periods.first(), u"班次名称") == u"夜班";
        }
        QCOMPARE(cards.size(), 86);
        QCOMPARE(documents.size(), 86);
        QCOMPARE(shifts, QSet<QString>({u"早班"_s, u"中班"_s, u"夜班"_s, u"行政班"_s}));
        QCOMPARE(covered.size(), 3 * 7 + 5); // and the offices from Monday to Friday
        QCOMPARE(nights, 5);
        QCOMPARE(StaffDepartments().size(), 12);
        const QString moved = hotel.stored(u"Ygxx\\Ygxx.QVR"_s, u"销售部"_s, u"0059"_s);
        QCOMPARE(EmployeeEntries(moved, u"工作经历").size(), 2);
        QCOMPARE(hotel.stored(u"Ygxx\\Ygxx.QVR"_s, u"前厅部"_s, u"0059"_s), QString());
        QCOMPARE(ListStaff(u"工程部"_s).table.dataRows(), 7); // one of them by a second job
        QVERIFY(!hotel.stored(u"Ygxx\\YgJmxxLs.QVR"_s, u"餐饮部"_s, u"0087"_s).isEmpty());
    }
};

HOTEL_TEST(DemoStaffTest)
#include "test_demo_staff.moc"
