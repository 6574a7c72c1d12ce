#include <QTest>

#include "frontoffice/guest_query.h"
#include "house/rooms/room_record.h"
#include "link/serv_api.h"
#include "record/conditions.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "tests/hotel_test.h"
#include "tests/test_hotel.h"
#include "tools/queries/query_text.h"

namespace hotel {

class GuestQueryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsOnlyOccupiedRooms() {
        TestHotel house;
        putGuest(u"8201"_s, 1, u"张三"_s, u"2026-03-01"_s);
        putGuest(u"8201"_s, 2, u"李四"_s, u"2026-03-02"_s);
        putGuest(u"8305"_s, 1, u"王五"_s, u"2026-02-20"_s);
        SetKfjbxx(u"8305", SetTag(GetKfjbxx(u"8305"), room_record::kGuests, {}));
        putGuest(u"8402"_s, 1, u"赵六"_s, u"2026-03-04"_s);
        QStringList names;
        QList<int> steps;
        int rooms = 0;
        for (const InHouseGuest& guest : GuestsInHouse([&](int done, int total) {
                 steps.append(done);
                 rooms = total;
                 return true;
             }))
            names.append(guest.name);
        QCOMPARE(names, (QStringList{u"8201-客人01"_s, u"8201-客人02"_s, u"8402-客人01"_s}));
        QVERIFY(rooms > 50 && steps.size() == rooms && steps.first() == 1 && steps.last() == rooms);
        // Stopped behind the first room.
        QCOMPARE(GuestsInHouse([](int, int) { return false; }).size(), 2);
    }

    // Who is in the house is found whatever the day of arrival; a period means that the stay touches it.
    void thePeriodOfAStay() {
        const auto row = [](const char* name, const QString& arrival, const QString& departure,
                            QDate first, QDate last, bool found) {
            const InHouseGuest guest{
                u"8201-客人01"_s,
                u"<入住日期>%1</入住日期>\r\n<预计离店>%2</预计离店>"_s.arg(arrival, departure)};
            Check(name, SelectGuests({guest}, {}, first, last, QDate(2026, 3, 5)).size() == 1,
                  found);
        };
        const QDate march1(2026, 3, 1);
        const QDate march5(2026, 3, 5);
        row("arrived long ago", u"2025-11-20"_s, u"2026-03-09"_s, march1, march5, true);
        row("should have left", u"2026-02-20"_s, u"2026-02-22"_s, march1, march5, true);
        row("no day known", {}, {}, march1, march5, true);
        row("arrives behind the period", u"2026-03-05"_s, u"2026-03-09"_s, march1,
            QDate(2026, 3, 4), false);
        row("arrives on its last day", u"2026-03-04"_s, u"2026-03-09"_s, march1, QDate(2026, 3, 4),
            true);
        row("leaves on its first day", u"2026-03-01"_s, u"2026-03-09"_s, QDate(2026, 3, 9),
            QDate(2026, 3, 20), true);
        row("leaves ahead of it", u"2026-03-01"_s, u"2026-03-09"_s, QDate(2026, 3, 10),
            QDate(2026, 3, 20), false);
    }

    void selects_data() {
        QTest::addColumn<QString>("conditionText");
        QTest::addColumn<QString>("names");
        auto condition = [](QStringView object, QStringView op, QStringView target) {
            QString body;
            int number = 0;
            AddQueryCondition(body, u"并且", object, op, target, number);
            return WrapConditions(body);
        };
        QTest::newRow("field") << condition(u"性别", u"等于", u"女") << u"b d"_s;
        QTest::newRow("own name") << condition(u"记录名", u"首部等于", u"b") << u"b"_s;
        QTest::newRow("extreme within the period") << condition(u"年龄", u"数值最大", {}) << u"c"_s;
        QTest::newRow("keywords") << KeywordText(
                                         {.required = u"女"_s, .optional = {}, .excluded = u"44"_s})
                                  << u"d"_s;
        QTest::newRow("nothing asked") << QString() << u"a b c d"_s;
    }
    void selects() {
        QFETCH(QString, conditionText);
        auto guest = [](const QString& name, const QString& sex, int age, const QString& arrival) {
            return InHouseGuest{
                name, u"<性别>%1</性别>\r\n<年龄>%2</年龄>\r\n<入住日期>%3</入住日期>"_s.arg(
                          sex, QString::number(age), arrival)};
        };
        const QList<InHouseGuest> guests = {guest(u"a"_s, u"男"_s, 30, u"2026-03-01"_s),
                                            guest(u"b"_s, u"女"_s, 44, u"2026-03-05"_s),
                                            guest(u"c"_s, u"男"_s, 80, u"2026-02-28"_s),
                                            guest(u"d"_s, u"女"_s, 9, u"2026-03-03"_s)};
        QStringList names;
        for (const InHouseGuest& found : SelectGuests(guests, conditionText, QDate(2026, 3, 1),
                                                      QDate(2026, 3, 5), QDate(2026, 3, 5)))
            names.append(found.name);
        QTEST(names.join(u' '), "names");
    }

private:
    static void putGuest(const QString& room, int bed, const QString& name,
                         const QString& arrival) {
        QString guest = SetTag({}, u"房间号", room);
        guest = SetTag(guest, u"客人姓名", name);
        guest = SetTag(guest, u"入住日期", arrival);
        QCOMPARE(SaveRmRec(room, SetTag(GetKfrzxx(room), GuestTag(bed), guest)), 0);
        QCOMPARE(
            SetKfjbxx(room, SetTag(GetKfjbxx(room), room_record::kGuests, QString::number(bed))),
            0);
    }
};

HOTEL_TEST(GuestQueryTest)

} // namespace hotel

#include "test_guest_query.moc"
