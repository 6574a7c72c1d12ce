#include "house/folios/folio.h"
#include "house/folios/room_charge.h"
#include "house/guests/departures.h"
#include "house/guests/guest_history.h"
#include "house/rooms/room_record.h"
#include "house/stays/release.h"
#include "link/records.h"
#include "record/field_walk.h"
#include "record/record_text.h"
#include "tests/hotel_test.h"
#include "tests/house/cut_line.h"
#include "tests/house/small_house.h"

using namespace hotel;

namespace {

const QString kFolio = u"260305100000"_s;
const QString kOther = u"260305100001"_s;
const QString kToday = u"2026-03-05"_s;
const ChargeTimes kUsual{u"06:00"_s, u"12:00"_s, u"12:00"_s, u"06:00"_s};
const ChargeTimes kWidened{u"06:00"_s, u"12:00"_s, u"18:00"_s, u"06:00"_s};

TextTable Rates() {
    TextTable rates({u"序号"_s, u"客房类型"_s, u"房价"_s, u"钟点起价"_s, u"钟点价"_s});
    rates.addRow({u"01"_s, u"大床房"_s, u"288.00"_s, u"６０"_s, u"20"_s});
    rates.addRow({u"02"_s, u"套房"_s, u"588.00"_s, u"158.50"_s, u"25+25.25"_s});
    return rates;
}

// A minute of the day as "HH:mm".
QString Minute(int minute) {
    return u"%1:%2"_s.arg(minute / 60, 2, 10, QChar(u'0')).arg(minute % 60, 2, 10, QChar(u'0'));
}

// The ten steps one after the other, each overriding those before it.
PeriodChoice PlainPeriod(const QString& now, const ChargeTimes& times,
                         const std::optional<FirstLeaving>& first) {
    int option = 0;
    bool remind = false;
    if (times.dayStart <= now && now <= times.halfUntilNoon)
        option = 0;
    if (times.halfUntilNoon < now && now <= times.halfUntilEve)
        option = 1;
    if (now > times.halfUntilEve)
        option = 2;
    if (first && !first->chargedThrough.isEmpty() && first->chargedThrough < kToday) {
        option = 2;
        remind = now >= times.dayStart;
    } else if (first && first->chargedThrough.isEmpty()) {
        if (first->arrivalTime < times.nightHalf)
            option = 2;
        else if (option == 1)
            option = 2;
        else
            option = 1;
    }
    return {ChargePeriod(option), remind};
}

// Hours counted on the fingers: each sixty minutes begun are one, and two are the least.
int PlainHours(int now, int arrival) {
    int hours = 0;
    for (int minute = arrival; minute % 1440 != now; minute += 60) {
        ++hours;
        for (int step = 1; step < 60; ++step) {
            if ((minute + step) % 1440 == now)
                return std::max(hours, 2);
        }
    }
    return std::max(hours, 2);
}

void PutInRoom(const QString& room, const QStringList& guests) {
    QString stay;
    for (int i = 0; i < guests.size(); ++i) {
        if (!guests[i].isEmpty())
            stay = SetTag(stay, GuestTag(i + 1), guests[i]);
    }
    QCOMPARE(SaveRmRec(room, stay), 0);
}

QStringList Departed(const QString& field) {
    QStringList values;
    for (const QString& guest : StoredRecords(u"kszl\\ldjl\\260305.QVR"_s, u"离店客人记录"_s))
        values.append(GetTag(guest, field));
    return values;
}

const QString kLedger = u"kzxx\\26\\03\\05\\260305100000.QVR"_s;

Leaving Leaves(int bed = 0) {
    return {kFolio, u"8101"_s, bed, u"129.00"_s, kToday, u"13:05"_s};
}

} // namespace

class LeavingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void periodOfTheDay_data() {
        QTest::addColumn<QString>("now");
        QTest::addColumn<bool>("widened");
        QTest::addColumn<QString>("chargedThrough"); // "-": nobody leaves
        QTest::addColumn<QString>("arrival");
        QTest::addColumn<int>("option");
        QTest::addColumn<bool>("remind");
        const auto row = [](const char* name, const char* now, bool widened, const char* through,
                            const char* arrival, int option, bool remind = false) {
            QTest::newRow(name) << QString(QLatin1String(now)) << widened
                                << QString(QLatin1String(through))
                                << QString(QLatin1String(arrival)) << option << remind;
        };
        row("at noon nothing", "12:00", false, "-", "", 0);
        row("a minute later full", "12:01", false, "-", "", 2);
        row("ahead of the day's start", "05:59", false, "-", "", 0);
        row("widened: at noon", "12:00", true, "-", "", 0);
        row("widened: afternoon", "12:01", true, "-", "", 1);
        row("widened: last minute", "18:00", true, "-", "", 1);
        row("widened: evening", "18:01", true, "-", "", 2);
        row("charged yesterday, morning", "06:00", false, "2026-03-04", "14:00", 2, true);
        row("charged yesterday, night", "05:59", false, "2026-03-04", "14:00", 2, false);
        row("charged today", "11:00", false, "2026-03-05", "14:00", 0);
        row("charged through tomorrow", "12:01", false, "2026-03-06", "14:00", 2);
        row("never charged, left in the window", "15:00", true, "", "07:00", 2);
        row("never charged, left behind it", "18:01", true, "", "07:00", 1);
        row("never charged, left in the morning", "11:00", true, "", "07:00", 1);
        row("never charged, came at night", "11:00", true, "", "05:59", 2);
        row("never charged, came with the half price", "11:00", true, "", "06:00", 1);
    }
    void periodOfTheDay() {
        QFETCH(QString, now);
        QFETCH(bool, widened);
        QFETCH(QString, chargedThrough);
        QFETCH(QString, arrival);
        std::optional<FirstLeaving> first;
        if (chargedThrough != u"-")
            first = FirstLeaving{chargedThrough, arrival};
        const PeriodChoice choice =
            SettlementPeriod(now, widened ? kWidened : kUsual, first, kToday);
        QTEST(int(choice.period), "option");
        QTEST(choice.remind, "remind");
    }

    // Settings in any order, one of them without its leading zero, at each minute of a day.
    void periodIsThatOfTheStepsAtEveryMinute() {
        const QList<ChargeTimes> settings = {kUsual,
                                             kWidened,
                                             {u"6:00"_s, u"12:00"_s, u"18:00"_s, u"06:00"_s},
                                             {u"06:00"_s, u"18:00"_s, u"12:00"_s, u"04:30"_s},
                                             {u"06:00"_s, {}, {}, {}}};
        const QList<std::optional<FirstLeaving>> guests = {
            std::nullopt,
            FirstLeaving{u"2026-03-04"_s, u"13:00"_s},
            FirstLeaving{u"2026-03-05"_s, u"13:00"_s},
            FirstLeaving{u"2026-03-06"_s, u"13:00"_s},
            FirstLeaving{{}, u"04:00"_s},
            FirstLeaving{{}, u"06:00"_s},
            FirstLeaving{{}, u"13:00"_s},
            FirstLeaving{{}, {}}};
        for (const ChargeTimes& times : settings) {
            for (const auto& first : guests) {
                for (int minute = 0; minute < 1440; ++minute)
                    QCOMPARE(SettlementPeriod(Minute(minute), times, first, kToday),
                             PlainPeriod(Minute(minute), times, first));
            }
        }
    }

    void timesInUseAreTheParameters() {
        const ChargeTimes times = ChargeTimesInUse();
        QCOMPARE(times.dayStart + times.halfUntilNoon + times.halfUntilEve + times.nightHalf,
                 u"06:0012:0012:0006:00"_s);
    }

    void chargeOfADay() {
        const QList<std::tuple<QString, ChargePeriod, QString>> table = {
            {u"258.00"_s, ChargePeriod::Free, u"0.00"_s},
            {u"258.00"_s, ChargePeriod::Half, u"129.00"_s},
            {u"258.00"_s, ChargePeriod::Full, u"258.00"_s},
            {u"0.01"_s, ChargePeriod::Half, u"0.01"_s},
            {u"0.0099"_s, ChargePeriod::Half, u"0.00"_s},
            {u"258.25"_s, ChargePeriod::Half, u"129.13"_s},
            {u"２００＋５８"_s, ChargePeriod::Half, u"129.00"_s},
            {u"面议"_s, ChargePeriod::Full, u"0.00"_s},
            {{}, ChargePeriod::Full, u"0.00"_s},
            {u"0"_s, ChargePeriod::Full, u"0.00"_s},
        };
        for (const auto& [price, period, charge] : table)
            QCOMPARE(DayCharge(period, price), charge);
    }

    void chargeByTheHour() {
        const auto charge = [](const char* now, const char* arrival, const QString& type) {
            return LastCharge({u"钟点"_s, u"999"_s, QLatin1String(arrival), type},
                              ChargePeriod::Free, QString(QLatin1String(now)), Rates())
                .value_or(u"left"_s);
        };
        QCOMPARE(charge("17:30", "14:05", u"大床房"_s), u"100.00"_s);
        QCOMPARE(charge("15:06", "14:05", u"大床房"_s), u"60.00"_s); // 1:01 is two hours
        QCOMPARE(charge("17:05", "14:05", u"大床房"_s), u"80.00"_s); // exactly three
        QCOMPARE(charge("17:06", "14:05", u"大床房"_s), u"100.00"_s);
        QCOMPARE(charge("00:30", "23:30", u"大床房"_s), u"60.00"_s);
        QCOMPARE(charge("17:06", "14:05", u"套房"_s), u"259.00"_s);
        QCOMPARE(charge("17:30", "14:05", u"帐篷"_s), u"left"_s);
        QCOMPARE(charge("02:00", "", u"大床房"_s), u"60.00"_s);
        QCOMPARE(LastCharge({u"钟点房"_s, u"90"_s, u"14:05"_s, u"大床房"_s}, ChargePeriod::Full,
                            u"17:30", Rates()),
                 u"90.00"_s); // only the very word is by the hour
        for (int now = 0; now < 1440; ++now) {
            for (const int arrival : {0, 59, 60, 845, 1410, 1439})
                QCOMPARE(PaidHours(Minute(now), Minute(arrival)), PlainHours(now, arrival));
        }
    }

    void historyLiesByDocument() {
        const QList<std::tuple<QString, QString, QString>> table = {
            {u"身份证"_s, u"420106850101001"_s, u"kszl\\身份证\\42\\8501.QVR"_s},
            {u"身份证"_s, u"420106198503070012"_s, u"kszl\\身份证\\42\\8503.QVR"_s},
            {u"身份证"_s, u"42010619850307001"_s, {}},
            {u"身份证"_s, u"4201061985030700123"_s, {}},
            {u"军官证"_s, u"南1234567890"_s, u"kszl\\军官证\\南1\\南1234567.QVR"_s},
            {u"军官证"_s, u"123456"_s, u"kszl\\军官证\\12\\123456.QVR"_s},
            {u"军官证"_s, u"12345"_s, {}},
            {u"护照"_s, u"P1234567"_s, {}},
            {u"军官证"_s, u"12:3456"_s, {}},
            {u"军官证"_s, u"12/3456"_s, {}},
            {u"军\\官证"_s, u"123456"_s, {}},
        };
        for (const auto& [kind, number, file] : table)
            QCOMPARE(GuestHistoryFile(kind, number), file);
    }

    void historyGrowsByTheStay() {
        const TestHotel hotel;
        const auto stored = [] {
            return StoredRecords(u"kszl\\身份证\\42\\8503.QVR"_s, u"客史资料信息"_s);
        };
        QCOMPARE(
            UpdateKrLsRec(u"王一", u"身份证", u" 42010619850307001x "_s, u"2026-03-05", kFolio), 0);
        QCOMPARE(stored(),
                 QStringList(u"<姓名>王一</姓名>\r\n<证件号码>42010619850307001X</证件号码>\r\n"
                             "<结账日期>2026-03-05</结账日期>\r\n"
                             "<结账号清单><001>260305100000</001></结账号清单>"_s));
        QCOMPARE(UpdateKrLsRec(u"王一", u"身份证", u"42010619850307001X"_s, u"2026-04-01", kOther),
                 0);
        QCOMPARE(stored().size(), 1);
        QCOMPARE(GetTag(stored().first(), u"结账日期"), u"2026-04-01"_s);
        const QString folios = GetTag(stored().first(), u"结账号清单");
        QCOMPARE(GetTag(folios, u"001") + u' ' + GetTag(folios, u"002"),
                 u"260305100000 260305100001"_s);
        QCOMPARE(UpdateKrLsRec(u"李二", u"身份证", u"42010619850307001"_s, u"2026-03-05", kFolio),
                 0);
        QCOMPARE(stored().size(), 1);
    }

    void historyIsNotWrittenOverAFailedRead() {
        TestHotel hotel;
        const QString number = u"42010619850307001X"_s;
        UpdateKrLsRec(u"王一", u"身份证", number, u"2026-03-05", kFolio);
        hotel.stopServer();
        QCOMPARE(UpdateKrLsRec(u"王一", u"身份证", number, u"2026-04-01", kOther), -1);
        hotel.startServer();
        QVERIFY(hotel.stored(u"kszl\\身份证\\42\\8503.QVR"_s, u"客史资料信息"_s, number)
                    .contains(u"2026-03-05"));
    }

    void departures() {
        const TestHotel hotel;
        QCOMPARE(SaveDtldKrQd(u"<客人姓名>还在</客人姓名>"), 0);
        QCOMPARE(SaveDtldKrQd(u"<客人姓名>王一</客人姓名><结账日期>2026-03-05</结账日期>"), 0);
        QCOMPARE(SaveDtldKrQd(u"<客人姓名>李二</客人姓名><结账日期>2026-03-05</结账日期>"), 0);
        QCOMPARE(Departed(u"客人姓名"_s), QStringList({u"王一"_s, u"李二"_s}));
        QCOMPARE(ReadRecord(u"kszl\\ldjl\\260305.QVR"_s, u"离店客人记录"_s, u"2"_s),
                 u"<客人姓名>李二</客人姓名><结账日期>2026-03-05</结账日期>"_s);
    }

    void aBedIsFreed() {
        const TestHotel hotel;
        FillRooms({{u"8101"_s, u"散客"_s, 2}});
        PutInRoom(u"8101"_s, {ValidGuest(u"王一"_s, kFolio, u"散客"_s),
                              ValidGuest(u"李二"_s, kOther, u"散客"_s)});
        QCOMPARE(ReleaseBed(Leaves(1), u"脏房"), 0);
        QCOMPARE(StoredNames(u"8101"_s), QStringList(u"客人02 李二"_s));
        QCOMPARE(StoredRoom(u"8101"_s, u"住客数") + StoredRoom(u"8101"_s, u"房态"), u"1散客"_s);
        QCOMPARE(Departed(u"客人姓名"_s), QStringList(u"王一"_s));
        QCOMPARE(Departed(u"结账房费"_s) + Departed(u"结账日期"_s) + Departed(u"结账时间"_s),
                 QStringList({u"129.00"_s, kToday, u"13:05"_s}));
        const QString stay = ReadRecord(kLedger, u"住宿信息", u"1");
        QCOMPARE(GetTag(stay, u"房间号"), u"8101"_s);
        QCOMPARE(GetTag(GetTag(stay, u"客人01"), u"结账房费"), u"129.00"_s);
        QVERIFY(GetTag(GetTag(stay, u"客人02"), u"结账房费").isEmpty());

        // nobody lies there any more; the count is wrong, but comes to its end
        QCOMPARE(ReleaseBed(Leaves(1), u"脏房"), 0);
        QCOMPARE(Departed(u"客人姓名"_s), QStringList(u"王一"_s));
        QCOMPARE(ReleaseBed(Leaves(2), u"脏房"), 0);
        QCOMPARE(StoredNames(u"8101"_s), QStringList());
        QCOMPARE(StoredRoom(u"8101"_s, u"住客数") + StoredRoom(u"8101"_s, u"房态"), u"0脏房"_s);
    }

    // Guests lie in the beds 1, 2 and 4: the first empty one ends the room.
    void aRoomIsFreed() {
        const TestHotel hotel;
        FillRooms({{u"8101"_s, u"团队"_s, 3}, {u"8102"_s, u"团队"_s, 1}});
        const QString guest = ValidGuest(u"王一"_s, kFolio, u"团队"_s);
        PutInRoom(u"8101"_s, {guest, SetTag(guest, u"客人姓名", u"李二"), {}, guest});
        QCOMPARE(ReleaseRoom(Leaves(), u"脏房"), 0);
        QCOMPARE(Departed(u"客人姓名"_s), QStringList({u"王一"_s, u"李二"_s}));
        QCOMPARE(Departed(u"结账房费"_s), QStringList({u"129.00"_s, u"129.00"_s}));
        QCOMPARE(Departed(u"结账时间"_s), QStringList({u"13:05"_s, u"13:05"_s}));
        QCOMPARE(StoredNames(u"8101"_s), QStringList());
        QCOMPARE(StoredRoom(u"8101"_s, u"房态"), u"脏房"_s);
        QCOMPARE(StoredRoom(u"8101"_s, u"床位数"), u"2"_s);
        QVERIFY(!GetKfjbxx(u"8101").contains(u"住客数"));
        QCOMPARE(StoredRoom(u"8102"_s, u"房态"), u"团队"_s);
        const QString stay = ReadRecord(kLedger, u"住宿信息", u"1");
        QCOMPARE(GetTag(stay, u"序号") + GetTag(stay, u"房间号"), u"18101"_s);
        QCOMPARE(GetTag(GetTag(stay, u"客人02"), u"结账日期"), kToday);
        QVERIFY(GetTag(GetTag(stay, u"客人04"), u"结账日期").isEmpty());
    }

    // Nobody's room comes to be by a guest's leaving.
    void aRoomThatIsGoneStaysGone() {
        const TestHotel hotel;
        FillRooms({{u"8102"_s}});
        PutInRoom(u"8101"_s, {ValidGuest(u"王一"_s, kFolio, u"团队"_s)});
        QCOMPARE(ReleaseRoom(Leaves(), u"脏房"), 0);
        QCOMPARE(ReleaseBed(Leaves(1), u"脏房"), 0);
        QCOMPARE(LoadRooms().size(), 1);
        QCOMPARE(Departed(u"客人姓名"_s), QStringList(u"王一"_s));
    }

    // Cut anywhere, what is freed of a shared room is never the bed of another guest.
    void aLostServerLeavesTheOthersInTheirBeds() {
        for (int cut = 1; cut <= 8; ++cut) {
            TestHotel hotel;
            FillRooms({{u"8101"_s, u"散客"_s, 2}});
            PutInRoom(u"8101"_s, {ValidGuest(u"王一"_s, kFolio, u"散客"_s),
                                  ValidGuest(u"李二"_s, kOther, u"散客"_s)});
            {
                CutLine line(hotel.port());
                Desk desk(line.port());
                desk.logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
                line.reset();
                line.cutBeforeWrite(cut);
                QCOMPARE(ReleaseBed(Leaves(1), u"脏房") == 0, cut > 7);
            }
            hotel.desk().use();
            QVERIFY(StoredNames(u"8101"_s).contains(u"客人02 李二"_s));
            QCOMPARE(StoredNames(u"8101"_s).size(), cut > 6 ? 1 : 2);
            QCOMPARE(StoredRoom(u"8101"_s, u"住客数"), cut > 7 ? u"1"_s : u"2"_s);
            QCOMPARE(Departed(u"客人姓名"_s).size(), cut > 5 ? 1 : 0);
        }
    }
    void aLostServerFreesNothing() {
        TestHotel hotel;
        FillRooms({{u"8101"_s, u"团队"_s, 1}});
        PutInRoom(u"8101"_s, {ValidGuest(u"王一"_s, kFolio, u"团队"_s)});
        hotel.stopServer();
        QVERIFY(ReleaseRoom(Leaves(), u"脏房") != 0);
        QVERIFY(ReleaseBed(Leaves(1), u"脏房") != 0);
        hotel.startServer();
        QVERIFY(hotel.stored(u"kfxx\\8101.qvr"_s, {}, u"客人入住信息"_s).contains(u"王一"));
    }
};

HOTEL_TEST(LeavingTest)
#include "test_leaving.moc"
