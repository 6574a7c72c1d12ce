#include <QRandomGenerator>

#include "house/common/paths.h"
#include "house/rooms/room_record.h"
#include "house/stays/day_snapshots.h"
#include "link/records.h"
#include "link/serv_api.h"
#include "platform/clock.h"
#include "record/record_text.h"
#include "tests/hotel_test.h"
#include "tests/house/small_house.h"

using namespace hotel;

namespace {

struct Room {
    QString status;
    QString floor;
    QString type;
    QString beds;
    QString guests;
};

TextTable Board(const QList<Room>& rooms) {
    TextTable board(BoardTitles());
    for (const Room& room : rooms)
        board.addRow({QString::number(board.rows()), QString::number(100 + board.rows()),
                      room.status, room.floor, room.type, room.beds, room.guests, u"某人"_s});
    return board;
}

QStringList Lines(const TextTable& list) {
    QStringList lines;
    for (int row = 0; row < list.rows(); ++row)
        lines.append(list.row(row).join(u'|'));
    return lines;
}

// A rate with one decimal, half of the last digit upwards.
QString Percent(qint64 soldParts, qint64 all, qint64 partsOfOne) {
    if (all == 0)
        return {};
    const qint64 tenths = (soldParts * 2000 + all * partsOfOne) / (2 * all * partsOfOne);
    return u"%1.%2"_s.arg(tenths / 10).arg(tenths % 10);
}

} // namespace

class DaySnapshotsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void lists() {
        const TextTable board = Board({{u"包房"_s, u"2"_s, u"双床"_s, u"2"_s, u"1"_s},
                                       {u"散客"_s, u"2"_s, u"四人"_s, u"4"_s, u"2"_s},
                                       {u"散客"_s, u"1"_s, u"双床"_s, u"2"_s, u"0"_s},
                                       {u"空房"_s, u"1"_s, u"双床"_s, u"2"_s, u""_s},
                                       {u"散客"_s, u"1"_s, u"三人"_s, u"3"_s, u"1"_s},
                                       {u"团队"_s, u"3"_s, u"仓库"_s, u""_s, u"2"_s}});
        QCOMPARE(
            Lines(MakeSnapshot(DaySnapshot::SoldByType, board)),
            QStringList(
                {u"序号|房间类型|总房间数|总床位数|售出房间数|售出床位数|客房住宿率|床位住宿率|备注"_s,
                 u"1|双床|3|6|1|2|33.3|33.3|"_s, u"2|四人|1|4|0.5|2|50.0|50.0|"_s,
                 u"3|三人|1|3|0.3333|1|33.3|33.3|"_s, u"4|仓库|1|0|0|0|0.0||"_s,
                 u"总计||6.0|13|1.8|5|30.0|38.5|"_s}));
        QCOMPARE(
            Lines(MakeSnapshot(DaySnapshot::SoldByFloor, board)),
            QStringList(
                {u"序号|楼层号|总房间数|总床位数|售出房间数|售出床位数|客房住宿率|床位住宿率|备注"_s,
                 u"1|2|2|6|1.5|4|75.0|66.7|"_s, u"2|1|3|7|0.3333|1|11.1|14.3|"_s,
                 u"3|3|1|0|0|0|0.0||"_s, u"总计||6.0|13|1.8|5|30.0|38.5|"_s}));
        const QStringList states = Lines(MakeSnapshot(DaySnapshot::RoomStates, board));
        QCOMPARE(states.size(), 8);
        QCOMPARE(states[0], u"序号|房间号|房态|楼层号|客房类型|床位数|住客数|住客姓名"_s);
        QCOMPARE(states[2], u"2|102|散客|2|四人|4|2|某人"_s);
        QCOMPARE(states[7], u"总计|||||13|6|"_s);
        QCOMPARE(Lines(MakeSnapshot(DaySnapshot::SoldByType, Board({}))).last(),
                 u"总计||0.0|0|0.0|0|||"_s);
    }

    // Two beds a room at most, so that parts are halves: reckoned a second time in halves of a room.
    void ratesOfManyHouses() {
        QRandomGenerator random(7);
        for (int house = 0; house < 2000; ++house) {
            QList<Room> rooms;
            qint64 beds = 0;
            qint64 halvesSold = 0;
            qint64 bedsSold = 0;
            for (int n = int(random.bounded(40)); n > 0; --n) {
                const int has = int(random.bounded(3));
                const int guests = int(random.bounded(3));
                const bool shared = random.bounded(2) == 0;
                rooms.append({shared ? u"散客"_s : u"包房"_s, u"1"_s, u"房"_s, QString::number(has),
                              QString::number(guests)});
                beds += has;
                if (has == 0 || guests == 0)
                    continue;
                halvesSold += shared ? 2 * guests / has : 2;
                bedsSold += shared ? guests : has;
            }
            const TextTable list = MakeSnapshot(DaySnapshot::SoldByFloor, Board(rooms));
            const int total = list.rows() - 1;
            QCOMPARE(list.text(total, u"客房住宿率"), Percent(halvesSold, rooms.size(), 2));
            QCOMPARE(list.text(total, u"床位住宿率"), Percent(bedsSold, beds, 1));
            QCOMPARE(list.text(total, u"售出床位数"), QString::number(bedsSold));
        }
    }

    void keptByDay() {
        TestHotel hotel;
        const auto take = [](bool goesOn) {
            return Words(TakeSnapshots([=](int, int) { return goesOn; }));
        };
        const auto kept = [](DaySnapshot kind, int ago) {
            const TextTable list = LoadSnapshot(kind, Clock::Today().addDays(-ago));
            return list.row(list.rows() - 1).join(u'|');
        };
        FillRooms({{u"101"_s, u"包房"_s, 1}, {u"102"_s, {}}, {u"201"_s, u"散客"_s, 1, 2, u"2"_s}});
        SaveRmRec(u"101", u"<客人01><客人姓名>王一</客人姓名></客人01>");
        QCOMPARE(take(false), QString()); // stopped at the first room
        QCOMPARE(kept(DaySnapshot::RoomStates, 0).left(2), u"序号"_s);
        QCOMPARE(take(true), QString());
        QCOMPARE(StoredRecords(u"tjxx\\tjrb\\260305.QVR"_s, u"客房状态明细信息"_s).value(0),
                 u"<房间号>101</房间号>\r\n<房态>包房</房态>\r\n<楼层号>1</楼层号>\r\n"
                 "<客房类型>标准双床房</客房类型>\r\n<床位数>2</床位数>\r\n<住客数>1</住客数>\r\n"
                 "<住客姓名>王一</住客姓名>"_s);
        QCOMPARE(StoredRecords(u"tjxx\\tjrb\\260305.QVR"_s, u"客房销售日报信息"_s).size(), 2);
        QCOMPARE(kept(DaySnapshot::SoldByType, 0), u"总计||3.0|6|1.5|3|50.0|50.0|"_s);
        QCOMPARE(kept(DaySnapshot::SoldByFloor, 0), u"总计||3.0|6|1.5|3|50.0|50.0|"_s);
        QCOMPARE(kept(DaySnapshot::SoldByFloor, 1).left(2), u"序号"_s);

        SetKfft(u"101", u"空房");
        FillRooms(
            {{u"201"_s, u"散客"_s, 1, 2, u"2"_s}}); // taken again: nothing is left of the first
        QCOMPARE(take(true), QString());
        QCOMPARE(LoadSnapshot(DaySnapshot::SoldByFloor, Clock::Today()).dataRows(), 2);
        QCOMPARE(kept(DaySnapshot::SoldByFloor, 0), u"总计||1.0|2|0.5|1|50.0|50.0|"_s);
        FillRooms({});
        DbDeleteProject(RoomDatabaseFile(), room_record::kProject);
        QCOMPARE(take(true), u"没有保存: 当日统计数据没有保存，请稍候再试！"_s);
        QCOMPARE(kept(DaySnapshot::SoldByFloor, 0), u"总计||1.0|2|0.5|1|50.0|50.0|"_s);
    }
};

HOTEL_TEST(DaySnapshotsTest)

#include "test_day_snapshots.moc"
