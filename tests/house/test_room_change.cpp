#include "house/common/paths.h"
#include "house/folios/folio.h"
#include "house/guests/guest_text.h"
#include "house/guests/offered_rooms.h"
#include "house/rooms/room_record.h"
#include "house/stays/room_change.h"
#include "link/records.h"
#include "record/record_text.h"
#include "tests/hotel_test.h"
#include "tests/house/cut_line.h"
#include "tests/house/small_house.h"

using namespace hotel;

namespace {

const QString kFolio = u"260305100000"_s;
const QString kOther = u"260305100001"_s;
const RoomChange kChange = {u"101"_s, u"201"_s, u"空调不制冷"_s, u"脏房"_s};

QString Guests(const QStringList& guests) {
    QString text;
    for (int n = 1; n <= guests.size(); ++n)
        text += u"<客人%1>%2</客人%1>\r\n"_s.arg(n, 2, 10, QChar(u'0')).arg(guests[n - 1]);
    return text;
}

// 101 with these guests on their folios, 201 vacant, 301 shared by one guest.
void FillHouse(const QStringList& guests, int bedsOf201 = 2) {
    FillRooms({{u"101"_s, u"包房"_s, int(guests.size()), 3},
               {u"201"_s, u"空房"_s, -1, bedsOf201, u"2"_s, u"豪华套房"_s},
               {u"301"_s, u"散客合住"_s, 1, 3}});
    SaveRmRec(u"101", Guests(guests));
    UpdateJzhByRmRec(Guests(guests));
    SaveRmRec(u"301", u"<客人02>"_s +
                          ValidGuest(u"赵六"_s, kOther, u"散客合住"_s, u"<房间号>301</房间号>"_s) +
                          u"</客人02>");
}

QStringList Couple() {
    return {
        ValidGuest(u"王一"_s, kFolio, u"包房"_s,
                   u"<付费客人>1</付费客人><床位>1</床位><房间号>101</房间号>"_s),
        ValidGuest(u"李二"_s, kFolio, u"包房"_s, u"<特殊说明>加枕头</特殊说明><床位>2</床位>"_s)};
}

QString State(const QString& room) {
    return StoredRoom(room, u"房态") + u' ' + StoredRoom(room, u"住客数");
}

QString Guest(const QString& set, QStringView bed, const RoomChange& change = kChange) {
    return GetTag(GetTag(set, change.newRoom), bed);
}

QString Rooms(const QString& folio) {
    const QString record = FindOpenFolio(folio).value_or(QString());
    QStringList rooms;
    for (const QStringView room : {u"101", u"201", u"301"}) {
        if (!GetTag(record, room).isEmpty())
            rooms.append(room.toString());
    }
    return rooms.join(u',');
}

} // namespace

class RoomChangeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void guestsAreRewrittenForTheNewRoom() {
        const TestHotel hotel;
        FillHouse(Couple());
        const PreparedChange prepared = PrepareRoomChange(kChange);
        QVERIFY(!prepared.refusal);
        const QString first = Guest(prepared.workingSet, u"客人01");
        QCOMPARE(GetTag(first, u"房间号"), u"201"_s);
        QCOMPARE(GetTag(first, u"客房类型"), u"豪华套房"_s);
        QCOMPARE(GetTag(first, u"床位"), u"1"_s);
        QCOMPARE(GetTag(first, u"特殊说明"), u"从101因为:空调不制冷换房"_s);
        QCOMPARE(GetTag(first, u"确认房价"), u"258.00"_s);
        const QString second = Guest(prepared.workingSet, u"客人02");
        QCOMPARE(GetTag(second, u"床位"), u"2"_s);
        QCOMPARE(GetTag(second, u"特殊说明"), u"加枕头,从101因为:空调不制冷换房"_s);
        QCOMPARE(Guest(prepared.workingSet, u"客人03"), QString());
    }

    // Whoever lies alone in the second bed is the first of those who move.
    void guestsAreNumberedAnew() {
        const TestHotel hotel;
        FillHouse({});
        SaveRmRec(u"101", u"<客人02>"_s + Couple().last() + u"</客人02>");
        const QString set = PrepareRoomChange(kChange).workingSet;
        QCOMPARE(GetTag(Guest(set, u"客人01"), u"客人姓名"), u"李二"_s);
        QCOMPARE(GetTag(Guest(set, u"客人01"), u"床位"), u"1"_s);
        QCOMPARE(Guest(set, u"客人02"), QString());
    }

    void aRoomWithoutGuestsGivesABlankOneForEachBed() {
        const TestHotel hotel;
        FillHouse({});
        const QString set = PrepareRoomChange(kChange).workingSet;
        QCOMPARE(GetTag(Guest(set, u"客人03"), u"床位"), u"3"_s);
        QCOMPARE(GetTag(Guest(set, u"客人03"), u"房间号"), u"201"_s);
        QCOMPARE(GetTag(Guest(set, u"客人03"), u"客房类型"), u"豪华套房"_s);
        QCOMPARE(Guest(set, u"客人04"), QString());
    }

    void nothingIsPreparedFromAFailedRead() {
        TestHotel hotel;
        FillHouse(Couple());
        hotel.stopServer();
        const PreparedChange prepared = PrepareRoomChange(kChange);
        QCOMPARE(Words(prepared.refusal),
                 u"没有保存: 原有数据读取失败，为避免覆盖，没有保存！请稍候再试！"_s);
        QCOMPARE(prepared.workingSet, QString());
    }

    void whatIsMissingStopsItAheadOfAnyWrite() {
        const TestHotel hotel;
        FillHouse(Couple());
        const QString set = PrepareRoomChange(kChange).workingSet;
        const auto with = [&](const QString& bed, const QString& tag, const QString& value) {
            const QString guests = GetTag(set, u"201");
            return SetTag(set, u"201",
                          SetTag(guests, bed, SetTag(GetTag(guests, bed), tag, value)));
        };
        const auto row = [](const RoomChange& change, const QString& workingSet,
                            const QString& words) {
            const RoomChangeOutcome outcome = ConfirmRoomChange(change, workingSet);
            QVERIFY2(!outcome.confirmed, qPrintable(words));
            Check(qPrintable(words), Words(outcome.notice), words);
        };
        row({{}, u"201"_s, u"吵"_s, {}}, set, u"必要参数不全: 换房当然要先选择原房间！"_s);
        row({u"101"_s, {}, u"吵"_s, {}}, set, u"必要参数不全: 换房也要选择新房间！"_s);
        row({u"101"_s, u"201"_s, {}, {}}, set, u"必要参数不全: 换房也要选择输入换房原因！"_s);
        row({u"301"_s, u"301"_s, u"吵"_s, {}}, set, u"必要参数不全: 新房间不能就是原房间！"_s);
        const QString unprepared =
            u"请先确认客人详细信息: 还没有再次确认客人信息，或没有有效的换房客人信息，无法操作！"_s;
        row(kChange, {}, unprepared);
        row({u"101"_s, u"301"_s, u"吵"_s, {}}, set, unprepared);
        const QString unverified = u"请确认: 客房：201 客人信息还没有落实验证！不能继续"_s;
        row(kChange, with(u"客人01"_s, u"证件种类"_s, {}), unverified);
        row(kChange, with(u"客人01"_s, u"确认房价"_s, {}), unverified);
        row(kChange, with(u"客人01"_s, u"结账号"_s, {}), unverified);
        row(kChange, with(u"客人02"_s, u"确认房价"_s, {}),
            u"请确定房价: 客房：201 客人房价信息还没有确定！不能继续"_s);
        const QString folio =
            u"请确定结账号: 客房：201 客人结账号还没有确定或结账号错误！不能继续"_s;
        row(kChange, with(u"客人02"_s, u"结账号"_s, {}), folio);
        row(kChange, with(u"客人01"_s, u"结账号"_s, u"26030510000"_s), folio);
        row(kChange, with(u"客人02"_s, u"结账号"_s, u"2603051000001"_s), folio);
        QCOMPARE(State(u"101"_s), u"包房 2"_s);
        QCOMPARE(State(u"201"_s), u"空房 "_s);
        QCOMPARE(StoredNames(u"201"_s), QStringList());
    }

    void theWholeRoomMoves() {
        TestHotel hotel;
        FillHouse(Couple());
        const RoomChangeOutcome outcome =
            ConfirmRoomChange(kChange, PrepareRoomChange(kChange).workingSet);
        QVERIFY(outcome.confirmed);
        QCOMPARE(Words(outcome.notice), QString());
        QCOMPARE(State(u"101"_s), u"脏房 0"_s);
        QCOMPARE(State(u"201"_s), u"包房 2"_s);
        QCOMPARE(StoredNames(u"201"_s), (QStringList{u"客人01 王一"_s, u"客人02 李二"_s}));
        // The next check-in writes over them; until then the file stays as it is.
        QCOMPARE(StoredNames(u"101"_s), (QStringList{u"客人01 王一"_s, u"客人02 李二"_s}));
        QCOMPARE(GetTag(GetTag(GetKfrzxx(u"101"), u"客人01"), u"房间号"), u"101"_s);
        QCOMPARE(Rooms(kFolio), u"201"_s);
        const QString entry = GetTag(*FindOpenFolio(kFolio), u"201");
        QCOMPARE(GetTag(GetTag(entry, u"床位02"), u"客人姓名"), u"李二"_s);
        QCOMPARE(hotel.logged(u"操作内容"), u"客人换房"_s);
        QCOMPARE(hotel.logged(u"备注"), u"从101因为:空调不制冷换房到201"_s);
    }

    // Joining a shared room: its count grows by those who move, each takes the first free bed, and who finds none
    // is counted all the same.
    void guestsTakeTheFreeBeds() {
        const TestHotel hotel;
        const QString shared = u"散客合住"_s;
        const RoomChange change = {u"101"_s, u"301"_s, u"吵"_s, u"空房"_s};
        FillHouse({ValidGuest(u"王一"_s, kFolio, shared), ValidGuest(u"李二"_s, kFolio, shared),
                   u"<客人姓名>未登记</客人姓名>"_s, ValidGuest(u"孙七"_s, kOther, shared)});
        QVERIFY(ConfirmRoomChange(change, PrepareRoomChange(change).workingSet).confirmed);
        QCOMPARE(StoredNames(u"301"_s),
                 (QStringList{u"客人02 赵六"_s, u"客人01 王一"_s, u"客人03 李二"_s}));
        QCOMPARE(State(u"301"_s), u"散客合住 4"_s);
        QCOMPARE(State(u"101"_s), u"空房 0"_s);
        QCOMPARE(Rooms(kFolio), u"301"_s);
        QCOMPARE(Rooms(kOther), u"301"_s); // where 赵六 is; 孙七 found no bed
    }

    // A vacant room counts from what stands there, though a check-in would begin with none; its status is the first
    // guest's; whoever still stands in its file keeps the bed.
    void theOldCountOfTheNewRoomStays() {
        const TestHotel hotel;
        FillHouse({ValidGuest(u"王一"_s, kFolio, u"长包房"_s)});
        SetKfjbxx(u"201", SetTag(GetKfjbxx(u"201"), u"住客数", u"2"));
        SaveRmRec(u"201", u"<客人01><客人姓名>旧客</客人姓名></客人01>");
        QVERIFY(ConfirmRoomChange(kChange, PrepareRoomChange(kChange).workingSet).confirmed);
        QCOMPARE(State(u"201"_s), u"长包房 3"_s);
        QCOMPARE(StoredNames(u"201"_s), (QStringList{u"客人01 旧客"_s, u"客人02 王一"_s}));
    }

    // Who moved out of a room still stands in its file. He takes no bed from those who move in later, and isn't put on
    // his folio there again.
    void whoMovedOutBeforeIsGone() {
        const TestHotel hotel;
        FillHouse({ValidGuest(u"王一"_s, kFolio, u"包房"_s)}, 1);
        SetKfjbxx(u"201", SetTag(GetKfjbxx(u"201"), u"住客数", u"0"));
        SaveRmRec(u"201", u"<客人01>"_s +
                              ValidGuest(u"旧客"_s, kOther, u"包房"_s, u"<房间号>201</房间号>"_s) +
                              u"</客人01>");
        QVERIFY(ConfirmRoomChange(kChange, PrepareRoomChange(kChange).workingSet).confirmed);
        QCOMPARE(StoredNames(u"201"_s), QStringList(u"客人01 王一"_s));
        QCOMPARE(State(u"201"_s), u"包房 1"_s);
        QCOMPARE(Rooms(kFolio), u"201"_s);
        QCOMPARE(Rooms(kOther), QString());
    }

    void tenBedsAreTheMost() {
        const TestHotel hotel;
        QStringList guests;
        for (int n = 1; n <= 12; ++n)
            guests.append(ValidGuest(u"团员%1"_s.arg(n), kFolio, u"团队"_s));
        FillHouse(guests, 12);
        QVERIFY(ConfirmRoomChange(kChange, PrepareRoomChange(kChange).workingSet).confirmed);
        QCOMPARE(StoredNames(u"201"_s).size(), 10);
        QCOMPARE(StoredNames(u"201"_s).last(), u"客人10 团员10"_s);
        QCOMPARE(State(u"201"_s), u"团队 12"_s);
    }

    // The server goes away ahead of each write in turn: what was written stays, and nobody is in both rooms.
    void theServerGoesAwayInTheMiddle() {
        const QString room = u"严重错误: 客房基本状态数据保存失败，退出系统，重新登录再试！"_s;
        const QString guests = u"严重错误: 客房客人入住数据保存失败，退出系统，重新登录再试！201"_s;
        int cut = 0;
        const auto row = [&cut](const char* before, const QString& states, int moved,
                                const QString& rooms, bool confirmed, const QString& told) {
            TestHotel hotel;
            FillHouse(Couple());
            CutLine line(hotel.port());
            {
                Desk desk(line.port());
                desk.logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
                const QString set = PrepareRoomChange(kChange).workingSet;
                line.reset();
                line.cutBeforeWrite(++cut);
                const RoomChangeOutcome outcome = ConfirmRoomChange(kChange, set);
                Check(before, outcome.confirmed, confirmed);
                Check(before, Words(outcome.notice), told);
            }
            hotel.desk().use();
            Check(before, State(u"101"_s) + u' ' + State(u"201"_s), states);
            Check(before, int(StoredNames(u"201"_s).size()), moved);
            Check(before, Rooms(kFolio), rooms);
        };
        row("the new room's record", u"包房 2 空房 "_s, 0, u"101"_s, false, room);
        row("the old room's record", u"包房 2 包房 2"_s, 0, u"101"_s, false, room);
        row("the new room's guests", u"脏房 0 包房 2"_s, 0, u"101"_s, false, guests);
        // From here on the guests are in the new room; what fails is told, and the folios keep what they have.
        row("the folio with the new room", u"脏房 0 包房 2"_s, 2, u"101"_s, true, guests);
    }
};

HOTEL_TEST(RoomChangeTest)

#include "test_room_change.moc"
