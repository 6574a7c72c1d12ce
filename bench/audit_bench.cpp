// The night audit by the side of the bare commands that it is made of, against a server in the same program;
// and how long its window lets a key wait meanwhile.

#include "bench/ratio.h"
#include "bench/screenless.h"

#include "cashier/YstjFrm.h"
#include "house/common/paths.h"
#include "house/folios/folio.h"
#include "house/folios/folio_posting.h"
#include "house/rooms/room_record.h"
#include "house/stays/night_audit.h"
#include "link/next_number.h"
#include "link/records.h"
#include "link/serv_api.h"
#include "record/literals.h"
#include "screen/open_screen.h"
#include "tests/test_hotel.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <array>

using namespace hotel;
using namespace hotel::bench;

namespace {

const QString kProject = u"房费明细信息"_s;

QString Field(const QString& name, const QString& value) {
    return u"<%1>%2</%1>\r\n"_s.arg(name, value);
}

QString RoomNumber(int i) {
    return QString::number(1000 + i);
}

QString Folio(int i) {
    return QString::number(260304200000 + i);
}

QString Stay(int i, const QString& settledThrough) {
    return Field(
        u"客人01"_s,
        u"<房间号>%1</房间号>\r\n<客人姓名>王一</客人姓名>\r\n<结账号>%2</结账号>\r\n"
        "<床位>1</床位>\r\n<证件号码>P1234567</证件号码>\r\n<证件种类>护照</证件种类>\r\n"
        "<入住时间>20:00</入住时间>\r\n<入住日期>2026-03-04</入住日期>\r\n"
        "<房态>包房</房态>\r\n<确认房价>258.00</确认房价>\r\n<结算日期>%3</结算日期>"_s.arg(
            RoomNumber(i), Folio(i), settledThrough));
}

// Every room is taken, by a guest on a folio of his own.
void FillHouse(int rooms) {
    QString house;
    QString folios;
    for (int i = 0; i < rooms; ++i) {
        const QString room = RoomNumber(i);
        house += Field(room, Field(u"房间号"_s, room) + Field(u"房态"_s, u"包房"_s));
        folios += Field(Folio(i), Field(room, u"<床位01><客人姓名>王一</客人姓名></床位01>"_s));
        SaveRmRec(room, Stay(i, u"2026-03-04"_s));
    }
    SaveProject(RoomDatabaseFile(), room_record::kProject, house);
    SaveProject(OpenFolioFile(), folio_record::kProject, folios);
}

// A night later each time.
class Nights {
public:
    int run() {
        day_ = day_.addDays(1);
        int lines = 0;
        RunAuditStep(u"1", {.auditDate = day_.toString(u"yyyy-MM-dd"),
                            .statuses = {u"包房"_s},
                            .department = u"财务部"_s,
                            .auditor = u"赵国强"_s,
                            .log = [&lines](const QString&) { ++lines; }});
        return lines;
    }

private:
    QDate day_{2026, 3, 4};
};

// The commands of a night, with texts made beforehand: another one each time, since a text that stands
// already costs the server no flush.
class BareNights {
public:
    explicit BareNights(int rooms) : rooms_(rooms) {
        for (int i = 0; i < rooms; ++i) {
            stays_[0].append(Stay(i, u"2026-03-04"_s));
            stays_[1].append(Stay(i, u"2026-03-05"_s));
        }
    }

    int run() {
        const QStringList& stays = stays_[size_t(++night_ % 2)];
        DbReadRecord(RoomDatabaseFile(), {}, room_record::kProject);
        int status = 0;
        for (int i = 0; i < rooms_; ++i) {
            const QString file = u"bare\\"_s + RoomNumber(i) + u".qvr"_s;
            DbReadRecord(file, {}, room_record::kStayProject);
            append(file, QString::number(night_));
            append(u"bare\\journal.qvr"_s, QString::number(++posted_));
            status += DbModifyRecord(file, {}, room_record::kStayProject, stays[i]);
        }
        return status;
    }

private:
    void append(const QString& file, const QString& key) {
        DbCreateProject(file, kProject);
        NextNumberInProject(file, kProject);
        DbModifyRecord(file, kProject, key, charge_);
    }

    int rooms_;
    int night_ = 0;
    int posted_ = 0;
    QString charge_ = Stay(0, {}).mid(0, 200);
    std::array<QStringList, 2> stays_;
};

template<size_t kRounds>
void Audit(const char* name, int rooms) {
    const TestHotel hotel;
    FillHouse(rooms);
    Nights nights;
    BareNights bare(rooms);
    PrintRatio(name, MedianRatio<kRounds>([&] { return nights.run(); }, [&] { return bare.run(); }),
               1.3);
}

// A key is answered when the events are let through: the longest time between two ticks of the fastest timer.
void LongestWaitForAKey(int rooms) {
    const TestHotel hotel;
    FillHouse(rooms);
    RegisterScreen(u"YstjFrm", [] { return new YstjFrm; });
    OpenScreen(u"YstjFrm");
    auto* steps = FindScreen(u"YstjFrm")->findChild<QTimer*>(u"Timer1"_s);

    qint64 longest = 0;
    QElapsedTimer sinceTick;
    QEventLoop untilTheEnd;
    QTimer tick;
    QObject::connect(&tick, &QTimer::timeout, [&] {
        longest = std::max(longest, sinceTick.restart());
        if (steps->property("Tag").toString().isEmpty())
            untilTheEnd.quit();
    });
    sinceTick.start();
    tick.start(1);
    untilTheEnd.exec();
    std::printf("longest wait for a key in an audit of %d rooms %lld ms (limit 100)%s\n", rooms,
                longest, longest > 100 ? " OVER" : "");
    CloseAllScreens();
}

} // namespace

int main(int argc, char** argv) {
    ScreenlessApplication application(argc, argv);
    LongestWaitForAKey(1000);
    Audit<15>("audit_of_100_rooms", 100);
    Audit<5>("audit_of_1000_rooms", 1000);
}
