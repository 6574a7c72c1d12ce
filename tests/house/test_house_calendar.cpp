// The calendar of the house: by hand, against a plain reckoning of each night, and as it is read.

#include <random>

#include "house/guests/guest_text.h"
#include "house/stays/house_calendar.h"
#include "house/stays/reservations.h"
#include "link/records.h"
#include "platform/clock.h"
#include "record/record_text.h"
#include "tests/hotel_test.h"
#include "tests/house/small_house.h"

using namespace hotel;

namespace {

const QDate kToday(2026, 3, 5);

QString Text(QDate day) {
    return day.toString(u"yyyy-MM-dd");
}

QString InBed(int bed, const QString& name, const QString& arrival, const QString& departure) {
    const QString guest =
        u"<客人姓名>%1</客人姓名><结账号>260301100000</结账号>"
        u"<入住日期>%2</入住日期><预计离店>%3</预计离店>"_s.arg(name, arrival, departure);
    return SetTag({}, GuestTag(bed), guest);
}

QString Plan(const QString& number, const QString& name, const QString& arrival,
             const QString& departure, const QStringList& rooms, const QString& more = {}) {
    return SetTag({}, number,
                  u"<客人姓名>%1</客人姓名><预计到达>%2</预计到达><预计离店>%3</预计离店>"
                  u"<预留客房>%4</预留客房>"_s.arg(name, arrival, departure, HeldRoomsText(rooms)) +
                      more);
}

// "8201 王一 05-08, 李二 07-09*1": first night, the one behind the last, doubled, its lane.
QString Line(const CalendarRoom& room) {
    QStringList spans;
    for (const CalendarSpan& span : room.spans) {
        spans.append(u"%1 %2-%3%4%5"_s.arg(span.name, span.from.toString(u"dd"),
                                           span.until.toString(u"dd"), span.isOverdue ? u"!" : u"",
                                           span.isDoubled ? u"*%1"_s.arg(span.lane) : QString()));
    }
    return room.number + (room.isClosed ? u"x " : u" ") + spans.join(u", "_s);
}

QString Lines(const HouseCalendar& calendar) {
    QStringList lines;
    for (const CalendarType& type : calendar.types) {
        lines.append(type.name);
        for (const CalendarRoom& room : type.rooms)
            lines.append(Line(room).trimmed());
    }
    return lines.join(u'\n');
}

QString Numbers(const QList<int>& numbers) {
    QStringList texts;
    for (const int number : numbers)
        texts.append(QString::number(number));
    return texts.join(u' ');
}

CalendarSource House(const QList<RoomSpec>& rooms) {
    CalendarSource source{.types = {u"大床"_s, u"双床"_s}, .sellable = {u"空房"_s, u"散客"_s}};
    for (const RoomSpec& room : rooms)
        source.rooms.append({room.number, RoomText(room)});
    return source;
}

RoomSpec Room(const QString& number, const QString& status, int guests,
              const QString& type = u"双床"_s) {
    return {number, status, guests, 2, u"2"_s, type};
}

} // namespace

class HouseCalendarTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void roomsByTypeAndWhoIsInThem() {
        CalendarSource source =
            House({Room(u"1010"_s, u"空房"_s, 2), Room(u"208"_s, u"包房"_s, 1),
                   Room(u"205"_s, {}, -1, u"大床"_s), Room(u"209"_s, u"散客"_s, 2),
                   Room(u"210"_s, u"包房"_s, 1), Room(u"211"_s, u"维修"_s, 0),
                   Room(u"212"_s, u"团队"_s, 1), Room(u"900"_s, u"脏房"_s, -1, u"阁楼"_s)});
        const auto guests = [&](const QString& room, const QString& beds) {
            source.guests.insert(room, {Reading::Present, beds});
        };
        guests(u"1010"_s,
               InBed(1, u"旧客"_s, u"2026-03-01"_s, u"2026-03-20"_s));           // counts as vacant
        guests(u"208"_s, InBed(1, u"王一"_s, u"2026-03-02"_s, u"2026-03-05"_s)); // leaves today
        guests(u"209"_s, InBed(1, u"李二"_s, u"2026-03-04"_s, u"2026-03-07"_s) +
                             u"<客人02></客人02>" +
                             InBed(3, u"张三"_s, u"2026-03-03"_s, u"2026-03-06"_s));
        guests(u"210"_s, InBed(1, u"赵四"_s, u"2026-03-01"_s, u"2026-03-04"_s)); // should have left
        guests(u"212"_s, {});
        source.reservations =
            Plan(u"260301000001"_s, u"周五"_s, u"2026-03-05"_s, u"2026-03-06"_s, {u"208"_s}) +
            Plan(u"260301000002"_s, u"吴六"_s, u"2026-03-06"_s, u"2026-03-08"_s,
                 {u"209"_s, u"205"_s, u"209"_s}, u"<订房间数>2</订房间数>"_s);
        const HouseCalendar calendar = ReckonCalendar(source, kToday, kToday, 4);
        QCOMPARE(Lines(calendar), u"大床\n205 吴六 06-08\n"
                                  u"双床\n208 王一 02-05, 周五 05-06\n"
                                  u"209 李二、张三 03-07*0, 吴六 06-08*1\n"
                                  u"210 赵四 01-06!\n211x\n212 住客不详 05-06!\n1010\n"
                                  u"阁楼\n900x"_s);
        QCOMPARE(Numbers(calendar.types[0].free), u"1 0 0 1"_s);
        QCOMPARE(Numbers(calendar.types[1].free), u"1 5 5 6"_s);
        QCOMPARE(Numbers(calendar.types[2].free), u"0 1 1 1"_s);
        QCOMPARE(Numbers(calendar.free), u"2 6 6 8"_s);
        const CalendarRoom& shared = calendar.types[1].rooms[1];
        QCOMPARE(shared.lanes, 2);
        QVERIFY(shared.isDoubled(QDate(2026, 3, 6)) && !shared.isDoubled(QDate(2026, 3, 5)));
        QVERIFY(shared.spans[0].isStay && !shared.spans[1].isStay);
        QCOMPARE(shared.spans[0].number, u"260301100000"_s);
        QCOMPARE(shared.spans[1].number, u"260301000002"_s);
        // Ahead of the night that both want, and behind it, nothing is doubled; who has left isn't shown.
        const QString later = Lines(ReckonCalendar(source, kToday, QDate(2026, 3, 7), 2));
        QVERIFY2(later.contains(u"209 李二、张三 03-07, 吴六 06-08\n210\n"), qPrintable(later));
    }

    void whatAReservationTakes() {
        const auto row = [](const char* name, const QString& arrival, const QString& departure,
                            const QString& more, const QString& line, const QString& wanted,
                            int undated = 0) {
            CalendarSource source = House({Room(u"208"_s, u"空房"_s, 0)});
            source.reservations = Plan(u"1"_s, {}, arrival, departure, {u"208"_s},
                                       u"<客人单位>华联</客人单位>"_s + more);
            const HouseCalendar calendar = ReckonCalendar(source, kToday, kToday, 3);
            Check(name, Line(calendar.types[0].rooms[0]).trimmed(), line);
            Check(name, Numbers(calendar.wanted), wanted);
            Check(name, calendar.undated, undated);
        };
        const QString two = u"<订房间数>3</订房间数>"_s;
        row("to come", u"2026-03-06"_s, u"2026-03-09"_s, two, u"208 华联 06-09"_s, u"0 2 2"_s);
        row("one room", u"2026-03-06"_s, u"2026-03-09"_s, u"<订房间数>1</订房间数>"_s,
            u"208 华联 06-09"_s, u"0 0 0"_s);
        row("since days", u"2026-03-01"_s, u"2026-03-06"_s, two, u"208 华联 01-06"_s, u"2 0 0"_s);
        row("until today", u"2026-03-01"_s, u"2026-03-05"_s, two, u"208 华联 01-05"_s, u"0 0 0"_s);
        row("until yesterday", u"2026-03-01"_s, u"2026-03-04"_s, two, u"208"_s, u"0 0 0"_s);
        row("the last day", u"2026-03-07"_s, u"2026-03-09"_s, two, u"208 华联 07-09"_s, u"0 0 2"_s);
        row("behind it", u"2026-03-08"_s, u"2026-03-09"_s, two, u"208"_s, u"0 0 0"_s);
        row("no departure", u"2026-03-06"_s, {}, two, u"208 华联 06-07"_s, u"0 2 0"_s);
        row("for the day", u"2026-03-06"_s, u"2026-03-06"_s, two, u"208 华联 06-07"_s, u"0 2 0"_s);
        row("earlier departure", u"2026-03-06"_s, u"2026-03-02"_s, two, u"208 华联 06-07"_s,
            u"0 2 0"_s);
        row("no arrival", {}, u"2026-03-06"_s, two, u"208"_s, u"0 0 0"_s, 1);
        row("no such date", u"2026-02-30"_s, u"2026-03-06"_s, two, u"208"_s, u"0 0 0"_s, 1);
        for (const QString& state : {u"计划"_s, u"延期"_s, u"候补"_s})
            row(qPrintable(state), u"2026-03-06"_s, {}, u"<预定状态>"_s + state + u"</预定状态>",
                u"208 华联 06-07"_s, u"0 0 0"_s);
        for (const QString& state : {u"取消"_s, u"实施"_s, u"完成"_s, u"失效"_s}) {
            row(qPrintable(state), u"2026-03-06"_s, {}, u"<预定状态>"_s + state + u"</预定状态>",
                u"208"_s, u"0 0 0"_s);
            row(qPrintable(state), {}, {}, u"<预定状态>"_s + state + u"</预定状态>", u"208"_s,
                u"0 0 0"_s);
        }
    }

    // What is held though the house doesn't have it, and what is booked and not held, has lines of its own.
    void roomsThatNoneIs() {
        CalendarSource source = House({Room(u"208"_s, u"空房"_s, 0)});
        const QString four = u"<订房间数>4</订房间数>"_s;
        source.reservations =
            Plan(u"1"_s, u"王一"_s, u"2026-03-07"_s, {}, {u"999"_s, u"208"_s}, four) +
            Plan(u"2"_s, u"李二"_s, u"2026-03-06"_s, u"2026-03-08"_s, {u"999"_s}, four);
        const HouseCalendar calendar = ReckonCalendar(source, kToday, kToday, 3);
        QCOMPARE(calendar.unknown.size(), size_t(1));
        QCOMPARE(Line(calendar.unknown[0]), u"999 李二 06-08*0, 王一 07-08*1"_s);
        QVERIFY(!calendar.unknown[0].isKnown && calendar.types[0].rooms[0].isKnown);
        QCOMPARE(calendar.open.size(), size_t(2));
        QCOMPARE(calendar.open[0].span.name, u"李二"_s);
        QCOMPARE(calendar.open[0].rooms, 3);
        QCOMPARE(calendar.open[1].rooms, 2);
        QCOMPARE(Numbers(calendar.wanted), u"0 3 5"_s);
        QCOMPARE(Numbers(calendar.free), u"1 1 0"_s);
    }

    // Thousands of houses: each room's nights one by one.
    void nightByNight() {
        std::mt19937 dice(20260305);
        const auto upTo = [&dice](int most) { return int(dice() % unsigned(most + 1)); };
        const QStringList types = {u"双床"_s, u"大床"_s};
        struct Taker {
            int from;
            int until; // days from today
        };
        for (int round = 0; round < 3000; ++round) {
            const int first = upTo(8) - 3;
            const int days = 1 + upTo(6);
            QList<RoomSpec> rooms;
            QList<QList<Taker>> takers(5);
            QHash<QString, RecordRead> guests;
            for (int n = 0; n < 5; ++n) {
                const QString number = QString::number(n + 201);
                const bool isIn = upTo(2) == 0;
                rooms.append(Room(number,
                                  isIn           ? u"包房"_s
                                  : upTo(3) == 0 ? u"维修"_s
                                                 : u"空房"_s,
                                  isIn ? 1 : 0, types[n % 2]));
                if (!isIn)
                    continue;
                const int arrival = -upTo(5);
                const int departure = arrival + upTo(8);
                guests.insert(number,
                              {Reading::Present, InBed(1, u"客"_s, Text(kToday.addDays(arrival)),
                                                       Text(kToday.addDays(departure)))});
                takers[n].append({arrival, departure < 0 ? 1 : departure});
            }
            QString plans;
            for (int plan = upTo(5); plan > 0; --plan) {
                const int arrival = upTo(10) - 4;
                const int nights = upTo(4);
                QStringList held;
                for (int n = 0; n < 5; ++n) {
                    if (upTo(2) != 0)
                        continue;
                    held.append(rooms[n].number);
                    takers[n].append({arrival, arrival + std::max(nights, 1)});
                }
                plans += Plan(u"26030500000%1"_s.arg(plan), u"订"_s, Text(kToday.addDays(arrival)),
                              Text(kToday.addDays(arrival + nights)), held);
            }
            CalendarSource source = House(rooms);
            source.guests = guests;
            source.reservations = plans;
            const HouseCalendar calendar =
                ReckonCalendar(source, kToday, kToday.addDays(first), days);

            for (int day = 0; day < days; ++day) {
                const int night = first + day;
                int free[2] = {0, 0};
                for (int n = 0; n < 5; ++n) {
                    int taken = 0;
                    for (const Taker& taker : takers[n])
                        taken += taker.from <= night && night < taker.until;
                    free[n % 2] += taken == 0 && (night != 0 || rooms[n].status != u"维修");
                    const CalendarType& type = calendar.types[n % 2 == 0 ? 1 : 0];
                    const CalendarRoom& room = type.rooms[size_t(n / 2)];
                    QCOMPARE(room.number, rooms[n].number);
                    QCOMPARE(room.isDoubled(kToday.addDays(night)), taken > 1);
                    QSet<int> lanes;
                    for (const CalendarSpan& span : room.spans) {
                        if (!span.takes(kToday.addDays(night)))
                            continue;
                        --taken;
                        QVERIFY(!lanes.contains(span.lane) && span.lane < room.lanes);
                        lanes.insert(span.lane);
                        QVERIFY(lanes.size() < 2 || span.isDoubled);
                    }
                    QCOMPARE(taken, 0);
                }
                QCOMPARE(calendar.types[1].free[day], free[0]);
                QCOMPARE(calendar.types[0].free[day], free[1]);
                QCOMPARE(calendar.free[day], free[0] + free[1]);
            }
        }
    }

    void asItIsRead() {
        TestHotel hotel;
        FillRooms(
            {{u"8201"_s, u"包房"_s, 1}, {u"8202"_s, u"空房"_s, 0}, {u"8203"_s, u"脏房"_s, 0}});
        SaveRmRec(u"8201", InBed(1, u"王一"_s, u"2026-03-04"_s, u"2026-03-06"_s));
        TextTable list(ReservationPlans().columns);
        AddPlan(ReservationPlans(), list,
                u"<客人姓名>李二</客人姓名><预定人>李二</预定人><订房间数>1</订房间数>"
                u"<预计到达>2026-03-06</预计到达><预定状态>计划</预定状态>"
                u"<预留客房><001>8202</001></预留客房>"_s);
        QStringList steps;
        const CalendarReading reading = ReadCalendarSource([&steps](int done, int total) {
            steps.append(u"%1/%2"_s.arg(done).arg(total));
            return true;
        });
        QCOMPARE(Words(reading.notice), QString());
        QCOMPARE(steps.join(u' '), u"0/1"_s);
        const HouseCalendar calendar = ReckonCalendar(*reading.source, kToday, kToday, 3);
        QCOMPARE(Lines(calendar), u"标准双床房\n8201 王一 04-06\n8202 李二 06-07\n8203x"_s);
        QVERIFY(!ReadCalendarSource([](int, int) { return false; }).source);

        hotel.stopServer();
        const CalendarReading failed = ReadCalendarSource();
        QVERIFY(!failed.source);
        QCOMPARE(Words(failed.notice), u"错误: 客房日历读取失败，请稍候刷新再试！"_s);
    }

    // A room that nobody knows of isn't free.
    void theServerGoesAwayAmongTheRooms() {
        TestHotel hotel;
        FillRooms({{u"8201"_s, u"包房"_s, 1}, {u"8202"_s, u"包房"_s, 1}});
        for (const QString& room : {u"8201"_s, u"8202"_s})
            SaveRmRec(room, InBed(1, u"王一"_s, u"2026-03-04"_s, u"2026-03-06"_s));
        const CalendarReading reading = ReadCalendarSource([&hotel](int done, int) {
            if (done == 1)
                hotel.stopServer();
            return true;
        });
        QCOMPARE(Words(reading.notice), u"错误: 有 1 间客房的住客没有读到，请稍候刷新再试！"_s);
        const HouseCalendar calendar = ReckonCalendar(*reading.source, kToday, kToday, 2);
        QCOMPARE(Lines(calendar), u"标准双床房\n8201 王一 04-06\n8202 住客未读到 05-07!"_s);
        QCOMPARE(Numbers(calendar.free), u"0 1"_s);
    }
};

HOTEL_TEST(HouseCalendarTest)

#include "test_house_calendar.moc"
