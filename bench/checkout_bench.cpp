// Check-out by the side of the bare commands that it is made of, against a server in the same program.

#include "bench/ratio.h"
#include "bench/screenless.h"

#include "cashier/check_out.h"
#include "house/common/paths.h"
#include "house/folios/folio.h"
#include "house/folios/folio_posting.h"
#include "house/rooms/room_record.h"
#include "link/next_number.h"
#include "link/records.h"
#include "link/serv_api.h"
#include "record/record_text.h"
#include "tests/house/cut_line.h"
#include "tests/test_hotel.h"

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

QString Guest(const QString& room) {
    return u"<房间号>%1</房间号>\r\n<客人姓名>王一</客人姓名>\r\n<结账号>%2</结账号>\r\n"
           "<床位>1</床位>\r\n<证件号码>南1234%1</证件号码>\r\n<证件种类>军官证</证件种类>\r\n"
           "<散住>0</散住>\r\n<入住时间>09:00</入住时间>\r\n<入住日期>2026-03-05</入住日期>\r\n"
           "<房态>团队</房态>\r\n<确认房价>258.00</确认房价>"_s.arg(room, kFolio);
}

// A group of one guest a room, on one folio.
void LetRooms(int rooms) {
    QString house;
    QString folio;
    for (int i = 0; i < rooms; ++i) {
        const QString room = RoomNumber(i);
        house += Field(room, u"<房间号>%1</房间号><客房类型>标准双床房</客房类型><房态>团队</房态>"
                             "<住客数>1</住客数>"_s.arg(room));
        SaveRmRec(room, Field(u"客人01"_s, Guest(room)));
        folio += Field(room, Field(u"床位01"_s, u"<客人姓名>王一</客人姓名>"_s));
    }
    SaveProject(RoomDatabaseFile(), room_record::kProject, house);
    SaveRecord(OpenFolioFile(), folio_record::kProject, kFolio, folio);
}

TextTable List() {
    TextTable list = LoadSettlementFolio(kFolio).list;
    for (int row = 1; row < list.rows(); ++row)
        list.setText(row, kChargeColumn, u"129.00"_s);
    return list;
}

bool LeaveAll(const TextTable& list) {
    const CheckOutQuestions cashier{
        [](const Notice&) { return true; },
        [](const SettlementSums& sums) -> std::optional<Payment> {
            return Payment{
                sums.due().text(), u"0.00"_s, sums.due().text(), u"0.00"_s, u"现金"_s, {}, {}};
        },
        [](int, int) {}};
    return ConfirmCheckOut({kFolio, list, u"脏房"_s}, cashier).retired;
}

// The commands of a check-out, with texts made beforehand, of as many bytes as those of the act.
class BareCheckOut {
public:
    explicit BareCheckOut(int rooms) : rooms_(rooms) {}

    int run() {
        readFolio();
        for (int kind = 0; kind < 6; ++kind)
            DbReadRecord(ledger_, {}, u"账");
        append(ledger_, u"结账"_s);
        for (int line = 0; line < 2; ++line)
            post(u"押金"_s);
        for (int i = 0; i < rooms_; ++i)
            post(u"房费"_s);
        for (int i = 0; i < rooms_; ++i)
            keepHistory(i);
        for (int i = 0; i < rooms_; ++i)
            release(RoomNumber(i));
        for (int i = 0; i < rooms_; ++i) {
            readFolio();
            append(ledger_, u"底账"_s, folioText_);
            DbModifyRecord(OpenFolioFile(), u"账", kFolio, folioText_);
        }
        readFolio();
        append(ledger_, u"底账"_s, folioText_);
        DbDeleteRecord(OpenFolioFile(), u"账", u"x");
        DbCreateFile(retired_);
        append(retired_, u"账"_s, folioText_);
        DbServerDate();
        DbCreateFile(log_);
        DbCreateProject(log_, u"记录");
        return DbModifyRecord(log_, u"记录", u"100000", posting_ + unique());
    }

private:
    // Another text each time: one that stands there already costs the server no flush.
    QString unique() { return u"<次>%1</次>"_s.arg(++writes_); }

    void readFolio() { DbReadRecord(OpenFolioFile(), folio_record::kProject, kFolio); }

    void append(const QString& file, const QString& project, const QString& text = {}) {
        DbCreateProject(file, project);
        const QString key = NextNumberInProject(file, project);
        DbModifyRecord(file, project, key, (text.isEmpty() ? posting_ : text) + unique());
    }

    void post(const QString& project) {
        append(ledger_, project);
        append(journal_, project);
    }

    void keepHistory(int i) {
        const QString file = u"bare\\history%1.qvr"_s.arg(i);
        DbReadRecord(file, u"客史", u"A");
        DbModifyRecord(file, u"客史", u"A", posting_ + unique());
    }

    void release(const QString& room) {
        const QString file = u"bare\\"_s + room + u".qvr"_s;
        DbReadRecord(RoomFile(room), {}, room_record::kStayProject);
        DbCreateFile(departures_);
        append(departures_, u"离店"_s, guest_);
        append(ledger_, u"住宿"_s, guest_);
        DbModifyRecord(file, {}, u"客人", unique());
        for (int write = 0; write < 2; ++write) {
            DbReadRecord(RoomDatabaseFile(), room_record::kProject, room);
            DbModifyRecord(rooms_file_, u"客房", room, posting_ + unique());
            if (write == 0) {
                DbCreateFile(rooms_file_);
                DbCreateProject(rooms_file_, u"客房");
            }
        }
    }

    int rooms_;
    int writes_ = 0;
    QString ledger_ = u"bare\\ledger.qvr"_s;
    QString journal_ = u"bare\\journal.qvr"_s;
    QString departures_ = u"bare\\departures.qvr"_s;
    QString retired_ = u"bare\\retired.qvr"_s;
    QString log_ = u"bare\\log.qvr"_s;
    QString rooms_file_ = u"bare\\rooms.qvr"_s;
    QString guest_ = Guest(u"1000"_s);
    QString posting_ = guest_.left(180);
    QString folioText_ = ReadRecord(OpenFolioFile(), folio_record::kProject, kFolio);
};

// Round trips of a check-out of so many rooms.
int RoundTrips(int rooms) {
    const TestHotel hotel;
    LetRooms(rooms);
    const TextTable list = List();
    CutLine line(hotel.port());
    Desk desk(line.port());
    desk.logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
    line.reset();
    LeaveAll(list);
    return line.requests();
}

// The rooms are let anew ahead of each check-out, which isn't measured.
void CheckOutOf(const char* name, int rooms) {
    const TestHotel hotel;
    LetRooms(rooms);
    const TextTable list = List();
    BareCheckOut bare(rooms);
    std::array<double, 15> ratios;
    for (double& ratio : ratios) {
        LetRooms(rooms);
        const double start = Now(Time::Passing);
        benchmark::DoNotOptimize(LeaveAll(list));
        const double act = Now(Time::Passing);
        LetRooms(rooms);
        const double between = Now(Time::Passing);
        benchmark::DoNotOptimize(bare.run());
        ratio = (act - start) / (Now(Time::Passing) - between);
    }
    std::sort(ratios.begin(), ratios.end());
    PrintRatio(name, ratios[ratios.size() / 2], 1.3);
}

} // namespace

int main(int argc, char** argv) {
    ScreenlessApplication application(argc, argv);
    CheckOutOf("check_out_of_1_room", 1);
    CheckOutOf("check_out_of_40_rooms", 40);
    const int one = RoundTrips(1);
    const int two = RoundTrips(2);
    const int forty = RoundTrips(40);
    std::printf("round trips of a check-out: %d, and %d a room\n", one - (two - one), two - one);
    PrintRatio("check_out_round_trips_a_room", double(forty - one) / 39 / (two - one), 1.0);
}
