#include "house/guests/guest_text.h"
#include "house/guests/offered_rooms.h"
#include "house/guests/registration_form_cells.h"
#include "house/guests/working_set.h"
#include "house/rooms/rate_table.h"
#include "house/rooms/room_record.h"
#include "house/rooms/room_status.h"
#include "record/record_text.h"
#include "tests/hotel_test.h"
#include "tests/house/small_house.h"

using namespace hotel;

class RoomsAndRatesTest : public QObject {
    Q_OBJECT

    const QString rates_ =
        u"<记录01><内容>单人间</内容><快捷键>DRJ</快捷键><前台价>120</前台价>"
        "<房价>138.5</房价></记录01>\r\n"
        "<记录02><内容>套房</内容><快捷键> </快捷键><房价>388</房价><协议价>300</协议价>"
        "<前台价> </前台价></记录02>"_s;

private Q_SLOTS:
    void rowsWithDifferentKindsShareOneTable() {
        const TextTable table = RateTable(rates_);
        QCOMPARE(table.headers(),
                 QStringList({u"序号"_s, u"客房类型"_s, u"房价"_s, u"前台价"_s, u"协议价"_s}));
        QCOMPARE(table.row(1), QStringList({u"01"_s, u"单人间"_s, u"138.5"_s, u"120"_s, {}}));
        QCOMPARE(RateTable({}).rows(), 1);
    }

    void rateChoice() {
        const auto row = [this](const QString& type, const QString& told) {
            const RateChoice choice = RatesOfType(RateTable(rates_), type);
            QStringList offered;
            for (const QString& kind : choice.kinds)
                offered.append(kind + u' ' + choice.price(kind));
            Check(qUtf8Printable(type), offered.join(u',') + Words(choice.notice), told);
        };
        row(u"单人间"_s, u"房价 138.50,前台价 120.00"_s);
        row(u"套房"_s, u"房价 388.00,协议价 300.00"_s); // a blank is no price
        row(u"别墅"_s, u"设定错误: 房型：别墅 没有确定可用房价，请在分类设定中定义！"_s);
        QVERIFY(IsNegotiable(u"前台价"));
        QVERIFY(!IsNegotiable(u"协议价"));
    }
    void offered() {
        const auto row = [](const QString& status, int guests, const QString& filter,
                            bool offered) {
            Check(qUtf8Printable(status), IsOffered(RoomText({u"101"_s, status, guests}), filter),
                  offered);
        };
        const QString both = StatusFilter({u"空房"_s, u"散客"_s});
        row({}, -1, both, true);
        row({}, -1, u"散客"_s, false);
        row(u"空房"_s, 2, both, true); // a stale count
        row(u"散客"_s, 1, both, true);
        row(u"散客"_s, 2, both, false);
        row(u"包房"_s, 1, both, false);
        row(u"客"_s, 0, both, true); // part of a word of the filter
        row(u"散客合住"_s, 0, both, false);
    }

    void cells() {
        QCOMPARE(RoomCells(u"<床位数>02</床位数><房态>空房</房态><住客数>多</住客数>",
                           {u"房态"_s, u"床位数"_s, u"住客数"_s, u"房价"_s}),
                 QStringList({u"空房"_s, u"2"_s, u"多"_s, {}}));
    }

    // Bed 1 of a shared room is taken: it is left alone, and the new guest gets bed 2.
    void bedsOfASharedRoom() {
        const ChosenRoom room{u"105"_s, u"散客"_s, u"三人间"_s, 3};
        const QString set = WithBedsOf({}, room, u"<客人01><客人姓名>王一</客人姓名></客人01>");
        QCOMPARE(BedsOfSet(set, u"105"), QStringList({u"客人02"_s, u"客人03"_s}));
        const QString guest = GuestOfSet(set, u"105", u"客人02");
        QCOMPARE(GetTag(guest, guest_text::kBed), u"2"_s);
        QCOMPARE(GetTag(guest, guest_text::kStatus), u"散客"_s);
        QCOMPARE(GetTag(guest, guest_text::kSharesRoom), u"1"_s);
    }
    void whatWasTypedStays() {
        const ChosenRoom one{u"101"_s, u"空房"_s, u"单人间"_s, 12};
        const ChosenRoom two{u"102"_s, u"空房"_s, u"单人间"_s, 2};
        QString set = WithBedsOf(WithBedsOf({}, one, {}), two, {});
        QCOMPARE(BedsOfSet(set, u"101").size(), kBedLimit);
        set = WithGuest(set, u"102", u"客人02", u"<客人姓名>李二</客人姓名>");
        set = WithBedsOf(KeepRooms(set, {two}), two, {});
        QCOMPARE(RoomsOfSet(set), QStringList{u"102"_s});
        const QString guest = GuestOfSet(set, u"102", u"客人02");
        QCOMPARE(GetTag(guest, guest_text::kName), u"李二"_s);
        QCOMPARE(GetTag(guest, guest_text::kRoom), u"102"_s);
    }

    void quickRegistration() {
        const QList<ChosenRoom> rooms = {{u"101"_s, u"空房"_s, u"单人间"_s, 2},
                                         {u"102"_s, u"空房"_s, u"单人间"_s, 2},
                                         {u"103"_s, u"空房"_s, u"单人间"_s, 2},
                                         {u"104"_s, u"散客"_s, u"单人间"_s, 2}};
        QString set;
        for (const ChosenRoom& room : rooms) {
            const bool hasGuest = room.number == u"104";
            set = WithBedsOf(set, room, hasGuest ? u"<客人01><年龄>30</年龄></客人01>" : u"");
        }
        QCOMPARE(RegisterQuickly(set).refusal->words,
                 u"第一个房间的客人信息都没有正确输入，不能执行快速设定"_s);
        QCOMPARE(RegisterQuickly(set).set, set);

        set =
            WithGuest(set, u"101", u"客人01", ValidGuest(u"王一"_s, u"260305140509"_s, u"团队"_s));
        set =
            WithGuest(set, u"102", u"客人01", ValidGuest(u"李二"_s, u"260305140509"_s, u"团队"_s));
        const QString filled = RegisterQuickly(set).set;
        const auto name = [&filled](QStringView room, QStringView bed) {
            return GetTag(GuestOfSet(filled, room, bed), guest_text::kName);
        };
        QCOMPARE(name(u"102", u"客人01"), u"李二"_s);
        QCOMPARE(name(u"103", u"客人01"), u"王一"_s);
        QCOMPARE(name(u"103", u"客人02"), QString());
        QCOMPARE(name(u"104", u"客人01"), QString()); // somebody lies there
        QCOMPARE(name(u"104", u"客人02"), u"王一"_s);
        QCOMPARE(GetTag(GuestOfSet(filled, u"103", u"客人01"), guest_text::kRoom), u"103"_s);
        QCOMPARE(GetTag(GuestOfSet(filled, u"104", u"客人02"), guest_text::kBed), u"2"_s);
    }

    void registrationForm() {
        const QString stay = u"<入住日期>2026-03-01</入住日期><入住时间>14:20</入住时间>"_s;
        const QString guests = u"<客人02>"_s +
                               ValidGuest(u"王一"_s, u"260305140509"_s, u"散客"_s, stay) +
                               u"</客人02><客人03><客人姓名>李二</客人姓名></客人03>"
                               "<客人04><客人姓名>张三</客人姓名></客人04>"_s;
        const FormCells cells =
            RegistrationCells(guests, QDateTime(QDate(2026, 3, 5), QTime(9, 5)));
        QCOMPARE(cells.value(1), u"王一"_s);
        QCOMPARE(cells.value(14), u"李二"_s);
        QCOMPARE(cells.value(34), u"260305140509"_s);
        QCOMPARE(cells.value(37), u"2026-03-01"_s); // the arrival's, not that of printing
        QCOMPARE(cells.value(38), u"14:20"_s);
        QCOMPARE(cells.value(52), u"2026-03-05"_s);
        QVERIFY(!cells.values().contains(u"张三"_s));
        QCOMPARE(PartyCells({u"101"_s, u"102"_s}).value(1), u"101,102"_s);
    }
};

HOTEL_TEST(RoomsAndRatesTest)

class RoomStatusTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void words() {
        const auto row = [](const QString& status, bool vacant, bool shared, bool fromReception) {
            Check(qUtf8Printable(status), IsVacant(status), vacant);
            Check(qUtf8Printable(status), IsShared(status), shared);
            Check(qUtf8Printable(status), IsReceptionStatus(status), fromReception);
        };
        row(u"空房"_s, true, false, false);
        row(u"空闲"_s, true, false, false);
        row(u"休闲预留"_s, true, false, false);
        row(u"散客"_s, false, true, true);
        row(u"散客合住"_s, false, true, false);
        row(u"包房"_s, false, false, true);
        row(u"钟点"_s, false, false, true);
        row(u"免费"_s, false, false, false);
        row(u"脏房"_s, false, false, false);
    }

    void changeByHand() {
        const QString reception = u"不能操作: 这种房态不能直接设定，必须通过接待等渠道设定！"_s;
        const QString guestsInside =
            u"操作错误: 目前该房间还有客人,不能随便更换房态,请先给客人换房!"_s;
        // The decision is "yes", "" for nothing to do, or title: words.
        const auto row = [](const QString& before, const QString& wished, int guests,
                            const QString& decision) {
            const StatusDecision made = DecideStatusChange(before, wished, guests);
            const QString told = Words(made.refusal) + (made.change ? u"yes" : u"");
            Check(qUtf8Printable(before + u" to " + wished), told, decision);
        };
        row(u"脏房"_s, u"空房"_s, 0, u"yes"_s);
        row(u"脏房"_s, u"脏房"_s, 0, {});
        row(u"包房"_s, u"包房"_s, 2, {});
        row(u"空房"_s, u"散客"_s, 0, reception);
        row(u"空房"_s, u"团队"_s, 0, reception);
        row({}, u"包房"_s, 0, reception);
        row({}, u"空房"_s, 0, u"yes"_s);
        row(u"空房"_s, u"免费"_s, 0, u"yes"_s);
        row(u"空房"_s, u"维修"_s, 3, u"yes"_s); // a stale count hinders nobody
        row(u"散客"_s, u"空房"_s, 1, reception);
        row(u"散客"_s, u"空房"_s, 0, u"yes"_s);
        row(u"散客"_s, u"包房"_s, 0, u"yes"_s); // only the old status counts then
        row(u"免费"_s, u"空房"_s, 0, u"yes"_s);
        row(u"免费"_s, u"空房"_s, 1, guestsInside);
        row(u"免费"_s, u"包房"_s, 0, u"yes"_s);
        row(u"散客合住"_s, u"空房"_s, 1, u"yes"_s); // none of the six words
    }
};

HOTEL_TEST(RoomStatusTest)

#include "test_rooms_and_rates.moc"
