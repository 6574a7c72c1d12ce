#include "house/common/paths.h"
#include "house/folios/folio.h"
#include "house/guests/guest_text.h"
#include "house/guests/offered_rooms.h"
#include "house/guests/stay_register.h"
#include "house/rooms/room_record.h"
#include "house/stays/check_in.h"
#include "link/records.h"
#include "link/serv_api.h"
#include "record/record_text.h"
#include "session/operation_log.h"
#include "tests/hotel_test.h"
#include "tests/house/cut_line.h"
#include "tests/house/small_house.h"
#include "tests/test_files.h"

using namespace hotel;

namespace {

const QString kFolio = u"260305100000"_s;
const QString kOther = u"260305100001"_s;

QStringList RegisteredNames(const QString& file = u"kszl\\rzjl\\260305.qvr"_s) {
    QStringList names;
    for (const QString& stay : StoredRecords(file, stay_register::kProject.toString()))
        names.append(GetTag(stay, guest_text::kName));
    return names;
}

// "散客 2": status and count of a room.
QString State(const QString& room) {
    return StoredRoom(room, room_record::kStatus) + u' ' + StoredRoom(room, room_record::kGuests);
}

QString RoomOfFolio(const QString& folio, const QString& room) {
    return GetTag(FindOpenFolio(folio).value_or(QString()), room);
}

// Sells the rooms to the guests, as a desk does that has the rooms in this state on its list.
CheckInOutcome Sell(const QList<ChosenRoom>& rooms, const QStringList& guests,
                    int guestsPerRoom = 1) {
    return ConfirmCheckIn(TypedSet(rooms, guests, guestsPerRoom), rooms);
}

// A group on one folio, and its rooms, which are those of the house from here on.
struct Group {
    Group(int roomCount, int guestsPerRoom) {
        QList<RoomSpec> planned;
        for (int i = 0; i < roomCount; ++i) {
            planned.append({QString::number(201 + i)});
            rooms.append(Chosen(planned.last()));
        }
        for (int i = 0; i < roomCount * guestsPerRoom; ++i)
            guests.append(ValidGuest(u"团员%1"_s.arg(i), kFolio, u"团队"_s));
        FillRooms(planned);
    }
    QList<ChosenRoom> rooms;
    QStringList guests;
};

// The party of the tests that cut the line: a couple in 101, a guest with a photograph in 102.
struct Party {
    QTemporaryDir folder;
    QString photograph = WriteBytes(folder.filePath(u"P1234.jpg"_s), "jpeg");
    QList<ChosenRoom> rooms = {Chosen({u"101"_s}), Chosen({u"102"_s})};
    QStringList guests = {
        ValidGuest(u"王一"_s, kFolio, u"包房"_s, u"<付费客人>1</付费客人>"_s),
        ValidGuest(u"李二"_s, kFolio, u"包房"_s),
        ValidGuest(u"张三"_s, kOther, u"包房"_s, u"<证件照片>"_s + photograph + u"</证件照片>"_s)};

    CheckInOutcome sell() const { return Sell(rooms, guests, 2); }
};

} // namespace

class CheckInTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void walkIn() {
        TestHotel hotel;
        FillRooms({{u"101"_s, u"空房"_s, 2}}); // a stale count
        // A room change leaves its guests behind in the file of the old room.
        SaveRmRec(u"101", u"<客人01><客人姓名>旧一</客人姓名></客人01>"
                          "<客人02><客人姓名>旧二</客人姓名></客人02>");
        const CheckInOutcome outcome =
            Sell({Chosen({u"101"_s})},
                 {ValidGuest(u"王一"_s, kFolio, u"包房"_s, u"<付费客人>1</付费客人>"_s)});
        QVERIFY(outcome.confirmed && !outcome.notice);
        QCOMPARE(outcome.firstFolio, kFolio);
        QCOMPARE(State(u"101"_s), u"包房 1"_s);
        QCOMPARE(StoredRoom(u"101"_s, room_record::kFloor), u"1"_s);
        QCOMPARE(StoredNames(u"101"_s),
                 QStringList{u"客人01 王一"_s}); // the untyped bed is dropped
        QCOMPARE(RegisteredNames(), QStringList{u"王一"_s});
        QCOMPARE(GetTag(RoomOfFolio(kFolio, u"基本信息"_s), u"客人姓名"), u"王一"_s);
        QCOMPARE(hotel.logged(operation_log::kOperation), u"入住登记"_s);
        QCOMPARE(hotel.logged(operation_log::kRemark), u"1间客房:101"_s);
    }

    void groupOfTwelveOnOneFolio() {
        TestHotel hotel;
        const Group group(6, 2);
        const CheckInOutcome outcome = Sell(group.rooms, group.guests, 2);
        QVERIFY(outcome.confirmed);
        QCOMPARE(outcome.roomsWithGuests.size(), 6);
        QCOMPARE(RegisteredNames().size(), 12);
        QCOMPARE(LoadJzhQd(), QStringList{kFolio});
        for (const ChosenRoom& room : group.rooms) {
            QCOMPARE(State(room.number), u"团队 2"_s);
            QVERIFY(!GetTag(RoomOfFolio(kFolio, room.number), u"床位02").isEmpty());
        }
    }

    // The second guest joins the first: own bed, own folio, one more in the count.
    void sharedRoomBedByBed() {
        TestHotel hotel;
        FillRooms({{u"105"_s, u"空房"_s, -1, 3}});
        Sell({Chosen({u"105"_s, {}, -1, 3})}, {ValidGuest(u"王一"_s, kFolio, u"散客"_s)});
        QCOMPARE(State(u"105"_s), u"散客 1"_s);

        TextTable offered({u"房间号"_s, u"房态"_s, u"客房类型"_s, u"床位数"_s, u"住客数"_s});
        LoadKxkfQd(offered, StatusFilter({u"空房"_s, u"散客"_s}));
        QCOMPARE(offered.row(1),
                 QStringList({u"105"_s, u"散客"_s, u"标准双床房"_s, u"3"_s, u"1"_s}));
        const QList<ChosenRoom> again = ChosenRooms(offered);
        const CheckInOutcome outcome = Sell(again, {ValidGuest(u"李二"_s, kOther, u"散客"_s)});
        QVERIFY(outcome.confirmed);
        QCOMPARE(State(u"105"_s), u"散客 2"_s);
        QCOMPARE(StoredNames(u"105"_s), QStringList({u"客人01 王一"_s, u"客人02 李二"_s}));
        QCOMPARE(RegisteredNames(), QStringList({u"王一"_s, u"李二"_s}));
        QCOMPARE(LoadJzhQd(), QStringList({kFolio, kOther}));
        LoadKxkfQd(offered, StatusFilter({u"散客"_s}), again);
        QCOMPARE(offered.dataRows(), 0); // on the other list already
    }

    void theGuestsDateNamesTheRegister() {
        TestHotel hotel;
        FillRooms({{u"101"_s}});
        Sell({Chosen({u"101"_s})},
             {ValidGuest(u"王一"_s, kFolio, u"包房"_s, u"<入住日期>2026-03-04</入住日期>"_s)});
        QCOMPARE(RegisteredNames(), QStringList());
        QCOMPARE(RegisteredNames(u"kszl\\rzjl\\260304.qvr"_s), QStringList{u"王一"_s});
    }

    void refusals() {
        // The status is that of the room on the list.
        const auto row = [](const char* name, const QString& status, const QStringList& guests,
                            const QString& told) {
            TestHotel hotel;
            const RoomSpec good{u"102"_s};
            const RoomSpec room{u"101"_s, status};
            FillRooms({good, room});
            QString set = TypedSet({Chosen(good)}, {ValidGuest(u"好客"_s, kOther, u"包房"_s)});
            set += TypedSet({Chosen(room)}, guests, 2);
            const CheckInOutcome outcome = ConfirmCheckIn(set, {Chosen(good), Chosen(room)});
            Check(name, Words(outcome.notice), told);
            QCOMPARE(outcome.confirmed, told.isEmpty());
            QCOMPARE(StoredRoom(u"102"_s, room_record::kGuests),
                     told.isEmpty() ? u"1"_s : QString());
            Check(name, RegisteredNames().isEmpty(), !told.isEmpty());
        };
        const QString good = ValidGuest(u"王一"_s, kFolio, u"包房"_s);
        const QString shared = ValidGuest(u"王一"_s, kFolio, u"散客"_s);
        const QString bad = ValidGuest(u"王一"_s, u"1"_s, u"包房"_s);
        const QString missing = u"请确认: 客房：101 客人信息还没有输入! 不能完成登记!"_s;
        const QString mixed =
            u"请确定房间使用状态: 客房：101 不能同时处于散客合住与包房类状态！不能继续"_s;
        row("nothing typed", u"空房"_s, {}, missing);
        row("only the second bed", u"空房"_s, QStringList({bad, good}), missing);
        row("shared, nobody", u"散客"_s, QStringList({bad}), missing);
        row("shared, the second bed", u"散客"_s, QStringList({bad, shared}), {});
        row("mixed", u"空房"_s, QStringList({good, shared}), mixed);
        row("the other way round", u"散客"_s, QStringList({shared, good}), mixed);
        row("half a couple", u"空房"_s, QStringList({good, bad}), {});
    }
    void nothingToConfirm() {
        TestHotel hotel;
        QVERIFY(!ConfirmCheckIn(u"<101></101>"_s, {}).notice);
        QCOMPARE(Words(ConfirmCheckIn({}, {Chosen({u"101"_s})}).notice),
                 u"请先登记客人详细信息: 还没有登记客人信息，或没有有效的登记信息，无法操作！"_s);
    }

    void photographsMove() {
        TestHotel hotel;
        QTemporaryDir folder;
        const QString guest = u"<证件照片>"_s +
                              WriteBytes(folder.filePath(u"P1234.jpg"_s), "jpeg") +
                              u"</证件照片><人像照片>王一.jpg</人像照片>"_s;
        const QString moved = WithUploadedPhotographs(guest);
        QCOMPARE(GetTag(moved, guest_text::kDocumentPhotograph), u"P1234.jpg"_s);
        QCOMPARE(GetTag(moved, guest_text::kPortrait), u"王一.jpg"_s); // moved before
        QCOMPARE(WithUploadedPhotographs(guest), moved);               // a copy of the same guest
        QVERIFY(!QFile::exists(folder.filePath(u"P1234.jpg"_s)));
        QCOMPARE(DbDownloadFile(GuestPhotographFile(u"P1234.jpg"), folder.filePath(u"back"_s)), 0);

        const QString lost = u"<证件照片>"_s + WriteBytes(folder.filePath(u"P5678.jpg"_s), "jpeg") +
                             u"</证件照片>"_s;
        hotel.stopServer();
        QCOMPARE(GetTag(WithUploadedPhotographs(lost), guest_text::kDocumentPhotograph), QString());
        QVERIFY(!QFile::exists(folder.filePath(u"P5678.jpg"_s)));
    }

    // Nothing reserves a room: the last confirm overwrites.
    void twoDesksSellTheSameRoom() {
        TestHotel hotel;
        FillRooms({{u"101"_s}});
        Desk second(hotel.port());
        second.logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
        const QList<ChosenRoom> rooms = {Chosen({u"101"_s})};
        const QString setOfSecond = TypedSet(rooms, {ValidGuest(u"李二"_s, kOther, u"包房"_s)});
        hotel.desk().use();
        QVERIFY(Sell(rooms,
                     {ValidGuest(u"王一"_s, kFolio, u"包房"_s),
                      ValidGuest(u"王妻"_s, kFolio, u"包房"_s)},
                     2)
                    .confirmed);
        second.use();
        QVERIFY(ConfirmCheckIn(setOfSecond, rooms).confirmed);
        QCOMPARE(StoredNames(u"101"_s), QStringList({u"客人01 李二"_s, u"客人02 王妻"_s}));
        QCOMPARE(State(u"101"_s), u"包房 3"_s); // both counts added up
        QCOMPARE(RegisteredNames(), QStringList({u"王一"_s, u"王妻"_s, u"李二"_s}));
        QCOMPARE(LoadJzhQd(), QStringList({kFolio, kOther}));
    }

    void twoDesksSellBedsOfOneRoom() {
        // The room's status on both desks' lists, and the bed that the second desk fills.
        const auto row = [](const char* name, const QString& status, int firstBed) {
            TestHotel hotel;
            const RoomSpec room{u"105"_s, status, 0, 4};
            FillRooms({room});
            const QList<ChosenRoom> rooms = {Chosen(room)};
            const QString guest = ValidGuest(u"王一"_s, kFolio, u"散客"_s);
            Desk second(hotel.port());
            second.logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
            QString setOfSecond = OpenWorkingSet({}, rooms);
            if (status == u"空房") // a room sold as a whole needs its first bed
                setOfSecond = WithGuest(setOfSecond, u"105", u"客人01", guest);
            setOfSecond = WithGuest(setOfSecond, u"105", GuestTag(firstBed),
                                    ValidGuest(u"李二"_s, kOther, u"散客"_s));
            hotel.desk().use();
            Sell(rooms, {guest, ValidGuest(u"张三"_s, kFolio, u"散客"_s)},
                 status == u"空房" ? 2 : 1);
            second.use();
            QVERIFY2(ConfirmCheckIn(setOfSecond, rooms).confirmed, name);
            const QStringList names = StoredNames(u"105"_s);
            QVERIFY2(names.contains(u"客人01 王一"_s), name);
            QVERIFY2(names.contains(GuestTag(firstBed) + u" 李二"_s), name);
            Check(name, names.contains(u"客人02 张三"_s), status == u"空房");
        };
        row("shared already", u"散客"_s, 2);
        row("vacant when both looked", u"空房"_s, 3);
    }

    // Whatever is on the server when the line goes dead stays, the desk is told, and the next start
    // can go on from there.
    void theServerGoesAway() {
        const QString room = u"严重错误: 客房基本数据保存失败，退出系统，重新登录再试！"_s;
        const QString guests = u"严重错误: 客房客人入住数据保存失败，退出系统，重新登录再试！"_s;
        int cut = 0;
        // Rooms whose record is written, guests in the register, rooms whose file is written.
        const auto row = [&cut](const char* before, int occupied, int registered, int withGuests,
                                int folios, const QString& told) {
            TestHotel hotel;
            FillRooms({{u"101"_s}, {u"102"_s}});
            CutLine line(hotel.port());
            {
                const Party party;
                Desk desk(line.port());
                desk.logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
                line.reset();
                line.cutBeforeWrite(++cut);
                const CheckInOutcome outcome = party.sell();
                Check(before, Words(outcome.notice), told);
                Check(before, outcome.occupiedRooms.size(), occupied);
                Check(before, outcome.roomsWithGuests.size(), withGuests);
            }
            hotel.desk().use();
            Check(before, RegisteredNames().size(), registered);
            Check(before, LoadJzhQd().size(), folios);
            Check(before, State(u"101"_s), occupied >= 1 ? u"包房 2"_s : u" "_s);
            Check(before, State(u"102"_s), occupied == 2 ? u"包房 1"_s : u" "_s);

            const Party again;
            QVERIFY2(again.sell().confirmed, before);
            Check(before, StoredNames(u"101"_s), {u"客人01 王一"_s, u"客人02 李二"_s});
            Check(before, StoredNames(u"102"_s), {u"客人01 张三"_s});
            Check(before, LoadJzhQd().size(), 2);
        };
        row("room record 101", 0, 0, 0, 0, room + u"101"_s);
        row("room record 102", 1, 0, 0, 0, room + u"102"_s);
        row("register file, first guest", 2, 0, 0, 0, guests + u"101"_s);
        row("register project, first guest", 2, 0, 0, 0, guests + u"101"_s);
        row("first guest", 2, 0, 0, 0, guests + u"101"_s);
        row("register file, second guest", 2, 1, 0, 0, guests + u"101"_s);
        row("register project, second guest", 2, 1, 0, 0, guests + u"101"_s);
        row("second guest", 2, 1, 0, 0, guests + u"101"_s);
        row("room file 101", 2, 2, 0, 0, guests + u"101"_s);
        row("register file, third guest", 2, 2, 1, 0, guests + u"102"_s);
        row("register project, third guest", 2, 2, 1, 0, guests + u"102"_s);
        row("third guest", 2, 2, 1, 0, guests + u"102"_s);
        row("photograph", 2, 3, 1, 0, guests + u"102"_s);
        row("room file 102", 2, 3, 1, 0, guests + u"102"_s);
        row("folio of 101", 2, 3, 2, 0, guests + u"102"_s);
        row("folio of 102", 2, 3, 2, 1, guests + u"102"_s);
        row("log file", 2, 3, 2, 2, {});
        row("log project", 2, 3, 2, 2, {});
        row("log entry", 2, 3, 2, 2, {});
        row("nothing more", 2, 3, 2, 2, {});
    }

    // Every room costs the same number of commands, however many are sold at once.
    void commandsPerRoomAreConstant() {
        TestHotel hotel;
        CutLine line(hotel.port());
        Desk desk(line.port());
        desk.logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
        const auto commands = [&line](int count) {
            const Group group(count, 1);
            line.reset();
            Sell(group.rooms, group.guests);
            return line.requests();
        };
        const int one = commands(1);
        const int two = commands(2);
        QCOMPARE(two - one, 10); // room 2, register 5, room file 1, folio 2
        QCOMPARE(commands(12) - one, 11 * (two - one));
    }
};

HOTEL_TEST(CheckInTest)
#include "test_check_in.moc"
