#include "house/common/paths.h"
#include "house/folios/folio.h"
#include "house/folios/folio_posting.h"
#include "house/guests/stay_register.h"
#include "house/rooms/room_record.h"
#include "house/stays/today.h"
#include "house/stays/today_sheet.h"
#include "link/records.h"
#include "platform/clock.h"
#include "record/record_text.h"
#include "session/session.h"
#include "tests/hotel_test.h"
#include "tests/house/cut_line.h"
#include "tests/house/small_house.h"

#include <QRandomGenerator>

using namespace hotel;

namespace {

using State = SheetWalk::State;

const QDate kDay(2026, 3, 5);
const TodayParts kAll = {true, true, true, true, true};
const QString kFolio = u"260305100000"_s;
const QString kOther = u"260305100001"_s;
const QString kSheet = u"tjxx\\jrhd\\260305.QVR"_s;

QString Lines(const TextTable& table) {
    QStringList lines;
    for (int row = 1; row < table.rows(); ++row)
        lines.append(table.row(row).join(u' '));
    return lines.join(u'|');
}

struct Stay {
    QString room;
    int bed;
    QString name;
    QString folio;
    QString departure;
};

QString GuestOf(const Stay& stay) {
    return ValidGuest(stay.name, stay.folio, u"包房"_s,
                      u"<房间号>%1</房间号><床位>%2</床位><预计离店>%3</预计离店>"_s.arg(stay.room)
                          .arg(stay.bed)
                          .arg(stay.departure));
}

// Into their rooms, which are taken, and onto their folios.
void CheckIn(const QList<Stay>& stays) {
    QMap<QString, QString> rooms;
    for (const Stay& stay : stays)
        rooms[stay.room] +=
            u"<客人%1>%2</客人%1>\r\n"_s.arg(stay.bed, 2, 10, QChar(u'0')).arg(GuestOf(stay));
    QList<RoomSpec> house;
    for (const QString& room : rooms.keys()) {
        SaveRmRec(room, rooms[room]);
        UpdateJzhByRmRec(rooms[room]);
        house.append({.number = room, .status = u"包房"_s, .guests = 1});
    }
    FillRooms(house);
}

void LookUp(SheetPart part) {
    SheetWalk walk(part, kDay);
    while (walk.step() == State::Running) {
    }
    QCOMPARE(walk.step(), State::Done);
}

void Post(const QString& folio, PostingKind kind, const QString& record) {
    QCOMPARE(SaveBills(folio, kind, record).status, 0);
}

QString Departures() {
    const Today today = LoadToday({.departures = true});
    return today.departures->outcome == Reading::Present ? Lines(today.departures->rows) : u"-"_s;
}

QString Balances(const QString& limit) {
    const Today today = LoadToday({.balances = true}, Money::FromText(limit));
    return today.balances->outcome == Reading::Present ? Lines(today.balances->rows) : u"-"_s;
}

} // namespace

class TodayTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theHouseInFigures() {
        const TestHotel hotel;
        const QString suite = u"豪华套房"_s;
        FillRooms({{u"101"_s, u"包房"_s, 2},
                   {u"102"_s, u"脏房"_s},
                   {u"103"_s, {}, 7}, // a stale count of a vacant room
                   {u"104"_s, u"空房"_s, -1, 2, u"1"_s, suite},
                   {u"105"_s, u"消毒"_s},
                   {u"106"_s, u"包房"_s, 1, 2, u"1"_s, suite},
                   {u"107"_s, u"空房"_s},
                   {u"108"_s, u"包房"_s, 0}});
        const Today today = LoadToday({.house = true});
        QVERIFY(!today.house->failed && !today.arrivals && !today.balances);
        QStringList shares;
        for (const StatusShare& share : today.house->shares)
            shares.append(u"%1 %2 %3 %4"_s.arg(share.status)
                              .arg(share.rooms)
                              .arg(share.guests)
                              .arg(share.colour.value_or(-1)));
        QCOMPARE(shares, (QStringList{u"空房 3 0 10543017"_s, u"包房 3 3 7571956"_s,
                                      u"脏房 1 0 13027014"_s, u"消毒 1 0 -1"_s}));
        QCOMPARE(Lines(today.house->freeByType), u"标准双床房 2 6|豪华套房 1 2"_s);
        QCOMPARE(today.house->rooms, 8);
        QCOMPARE(today.house->occupied, 2);
        QCOMPARE(today.house->guests, 3);
        QCOMPARE(today.readAt, u"10:00"_s);
        QCOMPARE(today.day, kDay);
    }

    void arrivals() {
        const TestHotel hotel;
        QString plans;
        const auto plan = [&](const QString& number, const QString& state, const QString& arrival,
                              const QString& departure) {
            plans +=
                u"<%1><客人姓名>甲</客人姓名><客人单位>乙</客人单位><预计到达>%3</预计到达>"
                "<预计离店>%4</预计离店><订房间数>2</订房间数><预定状态>%2</预定状态></%1>\r\n"_s
                    .arg(number, state, arrival, departure);
        };
        plan(u"1"_s, u"计划"_s, u"2026-03-05"_s, u"2026-03-06"_s);
        plan(u"2"_s, u"延期"_s, u"2026-03-04"_s, u"2026-03-05"_s); // late, and not over yet
        plan(u"3"_s, u"计划"_s, u"2026-03-03"_s, u"2026-03-04"_s); // over
        plan(u"4"_s, u"计划"_s, u"2026-03-04"_s, {});
        plan(u"5"_s, u"计划"_s, u"2026-03-05"_s, {});
        plan(u"6"_s, u"计划"_s, u"2026-03-06"_s, u"2026-03-07"_s);
        plan(u"7"_s, u"计划"_s, u"明天"_s, u"2026-03-07"_s);
        for (const QStringView state : {u"取消", u"实施", u"完成", u"失效"})
            plan(u"8"_s, state.toString(), u"2026-03-05"_s, u"2026-03-06"_s);
        QCOMPARE(Lines(LoadToday(kAll).arrivals->rows), QString()); // no file yet
        SaveProject(u"ydxx\\Kfydxx.QVR", u"客房预订信息", plans);
        const Today today = LoadToday({.arrivals = true});
        QCOMPARE(today.arrivals->outcome, Reading::Present);
        QCOMPARE(
            Lines(today.arrivals->rows),
            u"甲 乙 2 2026-03-04 延期 2|甲 乙 2 2026-03-05 计划 1|甲 乙 2 2026-03-05 计划 5"_s);
        QVERIFY(!today.house && !today.departures && !today.repairs);
    }

    void openRepairs() {
        const TestHotel hotel;
        SaveProject(u"wxzl\\wxzl.QVR", u"维修信息",
                    u"<260301080000><房间号>8203</房间号><维修原因>漏水</维修原因>"
                    "<报修日期>2026-03-01</报修日期><维修结果>已修好</维修结果></260301080000>"
                    "<260302080000><房间号>8301</房间号><维修原因>灯坏</维修原因>"
                    "<报修日期>2026-03-02</报修日期><维修结果></维修结果></260302080000>"
                    "<260303080000><房间号>8302</房间号><报修日期>2026-03-03</报修日期>"
                    "</260303080000>");
        QCOMPARE(Lines(LoadToday({.repairs = true}).repairs->rows),
                 u"8301 灯坏 2026-03-02 260302080000|8302  2026-03-03 260303080000"_s);
    }

    // Who is due, from the sheet that somebody has looked up, as far as they are still here.
    void departures() {
        const TestHotel hotel;
        CheckIn({{u"101"_s, 1, u"王一"_s, kFolio, u"2026-03-05"_s},
                 {u"101"_s, 2, u"王一"_s, kFolio, u"2026-03-05"_s}, // of the same name
                 {u"102"_s, 1, u"李二"_s, kOther, u"2026-03-04"_s}, // late
                 {u"103"_s, 1, u"赵三"_s, kOther, u"2026-03-06"_s},
                 {u"104"_s, 1, u"孙四"_s, kOther, {}}});
        QCOMPARE(LoadToday({.departures = true}).departures->outcome, Reading::Absent);
        LookUp(SheetPart::Departures);
        const QString checked =
            ReadRecord(kSheet, u"离店核对", u"核对"); // as the other desks find it
        QCOMPARE(checked.simplified(), u"<时间>10:00</时间> <经手人>系统管理员</经手人>"_s);
        QCOMPARE(LoadToday({.departures = true}).departures->checkedAt, u"10:00"_s);
        const QString late = u"102 李二 2026-03-04 "_s + kOther;
        const QString first = u"101 王一 2026-03-05 "_s + kFolio;
        QCOMPARE(Departures(), first + u'|' + first + u'|' + late);

        DelKrFromJzh(kFolio, u"101", 1); // one of them leaves
        QCOMPARE(Departures(), first + u'|' + late);
        UpdateJzhByRmRec(u"<客人01>"_s + GuestOf({u"105"_s, 1, u"李二"_s, kOther, {}}) +
                         u"</客人01>");
        DelRmFromJzh(kOther, u"102"); // and the other moves
        QCOMPARE(Departures(), first + u"|105 李二 2026-03-04 "_s + kOther);

        // Came behind the look, one to leave today; who came ahead of it stands once.
        const Stay hours{u"106"_s, 1, u"周五"_s, kOther, u"2026-03-05"_s};
        UpdateJzhByRmRec(u"<客人01>"_s + GuestOf(hours) + u"</客人01>");
        SaveDtRzKrQd(GuestOf(hours));
        SaveDtRzKrQd(GuestOf({u"101"_s, 2, u"王一"_s, kFolio, u"2026-03-05"_s}));
        SaveDtRzKrQd(GuestOf({u"104"_s, 1, u"孙四"_s, kOther, u"2026-03-06"_s}));
        QCOMPARE(Departures(),
                 first + u"|105 李二 2026-03-04 "_s + kOther + u"|106 周五 2026-03-05 " + kOther);
    }

    void balancesBelowALimit() {
        const TestHotel hotel;
        const QString third = u"260305100002"_s;
        CheckIn({{u"101"_s, 1, u"王一"_s, kFolio, {}},
                 {u"102"_s, 1, u"王一"_s, kFolio, {}},
                 {u"103"_s, 1, u"李二"_s, kOther, {}},
                 {u"104"_s, 1, u"赵三"_s, third, {}}});
        Post(kFolio, kDepositPosting, u"<实收金额>100.00</实收金额><信用金额>20.00</信用金额>"_s);
        Post(kFolio, kRoomPosting, u"<金额>258.00</金额>"_s);
        Post(kOther, kFoodPosting, u"<金额>9.50</金额>"_s);
        QCOMPARE(Balances(u"0"_s), u"-"_s);
        LookUp(SheetPart::Balances);
        const QString first = u"王一 101等2间 -138.00 "_s + kFolio;
        const QString second = u"李二 103 -9.50 "_s + kOther;
        QCOMPARE(Balances(u"-9.5"_s), first);
        QCOMPARE(Balances(u"-9.49"_s), first + u'|' + second);
        QCOMPARE(Balances(u"0"_s), first + u'|' + second);
        QCOMPARE(Balances(u"0.01"_s), first + u'|' + second + u"|赵三 104 0.00 " + third);
        QCOMPARE(LoadToday({.balances = true}).balances->checkedAt, u"10:00"_s);
        Post(kFolio, kDepositPosting, u"<实收金额>500.00</实收金额>"_s);
        QCOMPARE(Balances(u"-9.5"_s), first); // as it was looked up
        LookUp(SheetPart::Balances);
        QCOMPARE(Balances(u"0"_s), second);
        DelJzh(kOther);
        QCOMPARE(Balances(u"0"_s), QString());
    }

    // As many commands for three hundred rooms as for ten; what isn't asked for costs none.
    void aHandfulOfCommands() {
        TestHotel hotel;
        QList<int> counts;
        for (const int rooms : {10, 300}) {
            hotel.desk().use();
            QList<Stay> stays;
            for (int n = 0; n < rooms; ++n)
                stays.append({QString::number(1001 + n), 1, u"客%1"_s.arg(n),
                              QString::number(260305100000 + n), u"2026-03-05"_s});
            CheckIn(stays);
            LookUp(SheetPart::Departures);
            LookUp(SheetPart::Balances);
            CutLine line(hotel.port());
            Desk desk(line.port());
            desk.logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
            line.reset();
            const Today today = LoadToday(kAll, Money::FromText(u"1"));
            counts.append(line.requests());
            QCOMPARE(today.departures->rows.dataRows(), rooms);
            QCOMPARE(today.balances->rows.dataRows(), rooms);
            QCOMPARE(today.house->occupied, rooms);
            line.reset();
            LoadToday({});
            QCOMPARE(line.requests(), 0);
            LoadToday({.repairs = true});
            QCOMPARE(line.requests(), 1);
        }
        QCOMPARE(counts, (QList<int>{8, 8}));
    }

    void whatCanNotBeReadIsNoZero() {
        TestHotel hotel;
        CheckIn({{u"101"_s, 1, u"王一"_s, kFolio, u"2026-03-05"_s}});
        LookUp(SheetPart::Departures);
        LookUp(SheetPart::Balances);
        hotel.stopServer();
        const Today today = LoadToday(kAll);
        QVERIFY(today.house->failed);
        for (const auto& list : {today.arrivals, today.departures, today.balances, today.repairs}) {
            QCOMPARE(list->outcome, Reading::Failed);
            QCOMPARE(list->rows.dataRows(), 0);
        }
        SheetWalk walk(SheetPart::Balances, kDay);
        QCOMPARE(walk.step(), State::Failed);
        QCOMPARE(walk.step(), State::Failed);
    }

    // Half a house is not taken for the whole: the sheet of the last look stands.
    void aLookThatIsCutShort() {
        for (const SheetPart part : {SheetPart::Departures, SheetPart::Balances}) {
            TestHotel hotel;
            CheckIn({{u"101"_s, 1, u"王一"_s, kFolio, u"2026-03-05"_s},
                     {u"102"_s, 1, u"李二"_s, kOther, u"2026-03-05"_s}});
            LookUp(part);
            const QString before = LoadTodaySheet(part, kDay).value;
            Clock::Advance(3600'000);
            SheetWalk walk(part, kDay);
            QCOMPARE(walk.step(), State::Running);
            QCOMPARE(walk.step(), State::Running);
            QCOMPARE(walk.done(), 1);
            QCOMPARE(walk.total(), 2);
            hotel.stopServer();
            QCOMPARE(walk.step(), State::Failed);
            hotel.startServer();
            Desk next(hotel.port());
            next.logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
            for (int cut = 1; cut <= 3; ++cut) { // while it is written
                CutLine line(hotel.port());
                Desk desk(line.port());
                desk.logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
                line.reset();
                line.cutBeforeWrite(cut);
                SheetWalk again(part, kDay);
                while (again.step() == State::Running) {
                }
                QCOMPARE(again.step(), State::Failed);
            }
            next.use();
            QCOMPARE(LoadTodaySheet(part, kDay).value, before);
            LookUp(part);
            QVERIFY(LoadTodaySheet(part, kDay).value.contains(u"11:00"_s));
        }
    }

    // A house of a thousand rooms, counted a second time.
    void figuresOfRandomHouses() {
        const TestHotel hotel;
        const QStringList words = {u"空房"_s, u"包房"_s, u"散客"_s, u"脏房"_s, {}, u"闲置"_s};
        QRandomGenerator dice(20260305);
        for (int round = 0; round < 10; ++round) {
            QList<RoomSpec> rooms;
            QMap<QString, QPair<int, int>> expected; // rooms, guests
            QMap<QString, int> freeRooms;
            for (int n = 0; n <= 1000; ++n) {
                const QString word = words[dice.bounded(words.size())];
                const int guests = dice.bounded(4);
                const QString type = u"类型%1"_s.arg(dice.bounded(5));
                rooms.append({QString::number(1000 + n), word, guests, 4, u"1"_s, type});
                if (n == 1000) // the house has no more rooms than a thousand
                    continue;
                auto& [count, inside] = expected[word.isEmpty() ? u"空房"_s : word];
                const bool isFree = word.isEmpty() || word == u"空房" || word == u"闲置";
                ++count;
                inside += isFree ? 0 : guests;
                freeRooms[type] += isFree ? 1 : 0;
            }
            FillRooms(rooms);
            const HouseToday house = *LoadToday({.house = true}).house;
            QMap<QString, QPair<int, int>> counted;
            for (const StatusShare& share : house.shares)
                counted[share.status] = {share.rooms, share.guests};
            QCOMPARE(counted, expected);
            QMap<QString, int> freeCounted;
            for (int row = 1; row < house.freeByType.rows(); ++row)
                freeCounted[house.freeByType.text(row, 0)] = house.freeByType.text(row, 1).toInt();
            QCOMPARE(freeCounted, freeRooms);
        }
    }
};

HOTEL_TEST(TodayTest)

#include "test_today.moc"
