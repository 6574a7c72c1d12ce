// The house's acts by the side of the bare commands that they are made of, against a server in the same
// program.

#include "bench/ratio.h"

#include "house/common/paths.h"
#include "house/folios/folio_posting.h"
#include "house/rooms/room_record.h"
#include "house/stays/board.h"
#include "house/stays/check_in.h"
#include "link/records.h"
#include "link/serv_api.h"
#include "record/conditions.h"
#include "record/record_text.h"
#include "session/operation_log.h"
#include "tests/test_hotel.h"

#include <QCoreApplication>

#include <array>

using namespace hotel;
using namespace hotel::bench;

namespace {

const QString kFolio = u"260305100000"_s;

QString Field(const QString& name, const QString& value) {
    return u"<%1>%2</%1>\r\n"_s.arg(name, value);
}

QString RoomNumber(int i) {
    return QString::number(1000 + i);
}

QString Guest(const QString& room, const QString& name = u"王一"_s) {
    return u"<房间号>%1</房间号>\r\n<客人姓名>%3</客人姓名>\r\n<结账号>%2</结账号>\r\n"
           "<床位>1</床位>\r\n<证件号码>P1234567</证件号码>\r\n<证件种类>护照</证件种类>\r\n"
           "<入住日期>2026-03-05</入住日期>\r\n<房态>团队</房态>\r\n<确认房价>258.00</确认房价>"_s
               .arg(room, kFolio, name);
}

// Rooms of which every `oneIn`-th is occupied; none when it is 0.
void FillHouse(int rooms, int oneIn) {
    QString project;
    for (int i = 0; i < rooms; ++i) {
        const bool occupied = oneIn > 0 && i % oneIn == 0;
        const QString room = RoomNumber(i);
        QString record = u"<房间号>%1</房间号><楼层号>%2</楼层号><床位数>2</床位数>"
                         "<客房类型>标准双床房</客房类型>"_s.arg(room)
                             .arg(i / 20);
        record += occupied ? u"<房态>团队</房态><住客数>1</住客数>"_s : u"<房态>空房</房态>"_s;
        project += Field(room, record);
        if (occupied)
            SaveRmRec(room, Field(u"客人01"_s, Guest(room)));
    }
    SaveProject(RoomDatabaseFile(), room_record::kProject, project);
}

// One command and its answer, nothing made of either.
qsizetype Ask(QString request) {
    return Link().DoCommand(request).size();
}

QString ReadRequest(const QString& file, QStringView project) {
    return Field(u"命令"_s, u"读取记录"_s) + Field(u"库文件名"_s, file) + Field(u"项目名"_s, {}) +
           Field(u"记录"_s, project.toString());
}

// --- Posting -----------------------------------------------------------------------------------------

void PostingIntoAFullJournal() {
    const TestHotel hotel;
    const QString charge = u"<费用名称>房费</费用名称><客人>王一</客人><金额>258.00</金额>"_s;
    const QString project = PostingProject(kRoomPosting);
    QString journal;
    for (int i = 1; i <= 20000; ++i)
        journal += Field(QString::number(i), charge);
    SaveProject(JournalFile(project, TestHotel::Moment().date()), project, journal);
    PrintRatio("save_bills_into_20000",
               MedianRatio([&] { return SaveBills(kFolio, kRoomPosting, charge).status; },
                           [&] { return SaveBills(kFolio, kFoodPosting, charge).status; }),
               1.2);
}

// --- Check-in ----------------------------------------------------------------------------------------

QString GreatestNumber() {
    QString conditions;
    int number = 0;
    AddQueryCondition(conditions, u"或者", tag::kRecordName, u"数值最大", {}, number);
    return WrapConditions(conditions);
}

// Another guest each time: a text that stands there already costs the server no flush.
QString GuestName(int run) {
    return run % 2 == 0 ? u"王一"_s : u"李二"_s;
}

// The commands of a check-in of one guest in each room, with texts made beforehand.
class BareCheckIn {
public:
    explicit BareCheckIn(int rooms) : rooms_(rooms) {}

    int run() {
        const QString guest = Guest(u"1000"_s, GuestName(++runs_));
        for (int i = 0; i < rooms_; ++i) {
            DbReadRecord(RoomDatabaseFile(), room_record::kProject, RoomNumber(i));
            DbModifyRecord(RoomDatabaseFile(), room_record::kProject, RoomNumber(i), guest);
        }
        for (int i = 0; i < rooms_; ++i) {
            DbCreateFile(register_);
            DbCreateProject(register_, u"登记");
            DbFieldFind(register_, u"登记"_s, greatest_, 1);
            DbModifyRecord(register_, u"登记", QString::number(++stays_), guest);
            DbReadRecord(RoomFile(RoomNumber(i)), {}, room_record::kStayProject);
            DbModifyRecord(RoomFile(RoomNumber(i)), {}, room_record::kStayProject, guest);
        }
        for (int i = 0; i < rooms_; ++i) {
            DbReadRecord(OpenFolioFile(), u"账", kFolio);
            DbModifyRecord(OpenFolioFile(), u"账", kFolio, guest);
        }
        DbServerDate();
        DbCreateFile(log_);
        DbCreateProject(log_, u"记录");
        return DbModifyRecord(log_, u"记录", u"100000", logEntry_);
    }

private:
    int rooms_;
    int stays_ = 0;
    int runs_ = 0;
    QString logEntry_ = Guest(u"1000"_s);
    QString greatest_ = GreatestNumber();
    QString register_ = u"bare\\register.qvr"_s;
    QString log_ = u"bare\\log.qvr"_s;
};

void CheckIn(const char* name, int count) {
    const TestHotel hotel;
    FillHouse(count, 0);
    QList<ChosenRoom> rooms;
    std::array<QString, 2> sets;
    for (int i = 0; i < count; ++i) {
        rooms.append({RoomNumber(i), u"散客"_s, u"标准双床房"_s, 2});
        for (int run = 0; run < 2; ++run)
            sets[size_t(run)] +=
                Field(RoomNumber(i), Field(u"客人01"_s, Guest(RoomNumber(i), GuestName(run))));
    }
    BareCheckIn bare(count);
    size_t run = 0;
    PrintRatio(name,
               MedianRatio([&] { return ConfirmCheckIn(sets[++run % 2], rooms).confirmed; },
                           [&] { return bare.run(); }),
               1.3);
}

// --- Board -------------------------------------------------------------------------------------------

void BoardRefresh(const char* name, int rooms) {
    const TestHotel hotel;
    FillHouse(rooms, 2);
    const StatusPlaces places = LoadStatusPlaces();
    TextTable list(BoardTitles());
    const QString house = ReadRequest(RoomDatabaseFile(), room_record::kProject);
    QStringList occupied;
    for (int i = 0; i < rooms; i += 2)
        occupied.append(ReadRequest(RoomFile(RoomNumber(i)), room_record::kStayProject));
    const auto refresh = [&] {
        LoadFtQd(list, places);
        return list.rows();
    };
    const auto bare = [&] {
        qsizetype received = Ask(house);
        for (const QString& request : occupied)
            received += Ask(request);
        return received;
    };
    PrintRatio(name, MedianRatio(refresh, bare), 1.3);
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    PostingIntoAFullJournal();
    CheckIn("check_in_of_1_room", 1);
    CheckIn("check_in_of_40_rooms", 40);
    BoardRefresh("board_of_100_rooms", 100);
    BoardRefresh("board_of_1000_rooms", 1000);
}
