#include "house/common/paths.h"
#include "house/rooms/room_edit.h"
#include "house/rooms/room_record.h"
#include "house/rooms/working_days.h"
#include "house/stays/board.h"
#include "house/stays/board_settings.h"
#include "link/serv_api.h"
#include "record/record_text.h"
#include "session/operation_log.h"
#include "tests/hotel_test.h"
#include "tests/house/small_house.h"
#include "tests/test_files.h"

using namespace hotel;

namespace {

StatusPlaces Places(const QStringList& words) {
    QString category;
    for (qsizetype i = 0; i < words.size(); ++i) {
        category +=
            u"<记录%1><内容>%2</内容><颜色>%3</颜色></记录%1>"_s.arg(i + 1, 2, 10, QChar(u'0'))
                .arg(words[i])
                .arg(100 + i);
    }
    return PlacesOfCategory(category);
}

QStringList Lines(const QList<MapLine>& map) {
    QStringList lines;
    for (const MapLine& line : map) {
        QStringList cells;
        for (const MapCell& cell : line.cells)
            cells.append(cell.text + u'#' + QString::number(cell.colour));
        lines.append(line.floor + u": "_s + cells.join(u' '));
    }
    return lines;
}

} // namespace

class BoardTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void thirteenthStatusHasNoPlace() {
        QStringList words;
        for (int i = 1; i <= 13; ++i)
            words.append(u"房态%1"_s.arg(i));
        const StatusPlaces places = Places(words);
        QCOMPARE(places.back().word, u"房态12"_s);
        QCOMPARE(places.back().colour, 111);
        QVERIFY(Places({u"空房"_s})[1].word.isEmpty());
    }

    void map() {
        const StatusPlaces places = Places({u"空房"_s, u"包房"_s, u"脏房"_s});
        TextTable list(BoardTitles());
        const auto room = [&list](const QString& number, const QString& status,
                                  const QString& floor, const QString& type) {
            list.addRow({{}, number, status, floor, type, u"2"_s, u"1"_s, {}});
        };
        for (int i = 1; i <= 7; ++i)
            room(QString::number(100 + i), i == 3 ? u"脏房"_s : u"空房"_s, u"1"_s, u"双"_s);
        room(u"201"_s, u"包房"_s, u"2"_s, u"双"_s);
        room(u"202"_s, u"自用"_s, u"2"_s, u"双"_s);   // no place
        room(u"203"_s, u"包房"_s, u"2"_s, u"别墅"_s); // no such type
        room(u"301"_s, u"包房"_s, u"3"_s, u"双"_s);   // floor not chosen
        const BoardFilter filter{{u"空房"_s, u"包房"_s, u"自用"_s}, {u"1"_s, u"2"_s}, {u"双"_s}};
        QCOMPARE(Lines(MakeFtTb(list, places, filter)),
                 QStringList({u"1: 101/2/1#100 102/2/1#100 104/2/1#100 105/2/1#100 106/2/1#100"_s,
                              u"1: 107/2/1#100"_s, u"2: 201/2/1#101"_s}));
        QCOMPARE(RoomOfMapCell(u"201/2/1"), u"201"_s);

        BoardCounts counts = EmptyCounts(places, {u"1"_s, u"2"_s, u"3"_s}, {u"双"_s});
        const QList<Notice> notices = SetFtLcFxtjQd(counts, list);
        QCOMPARE(notices.size(), 2);
        QCOMPARE(Words(notices[0]), u"内部设定错误: 202有一种房态没有在房态分类中定义！"_s);
        QCOMPARE(Words(notices[1]), u"内部设定错误: 203有一种房型没有在房间类型分类中定义！"_s);
        QCOMPARE(counts.byStatus.row(1), QStringList({u"空房"_s, u"6"_s, u"12"_s, u"6"_s}));
        QCOMPARE(counts.byStatus.row(4), QStringList({u"合计"_s, u"10"_s, u"20"_s, u"10"_s}));
        QCOMPARE(counts.byFloor.row(4), QStringList({u"合计"_s, u"11"_s, u"22"_s, u"11"_s}));
        SetFtLcFxtjQd(counts, list);
        QCOMPARE(counts.byFloor.text(4, 1), u"11"_s);
    }

    void refreshFromTheServer() {
        TestHotel hotel;
        FillRooms({{u"1010"_s, u"包房"_s, 2},
                   {u"102"_s, {}},
                   {u"101"_s, u"空房"_s, 3},
                   {u"103"_s, u"散客"_s, 1}});
        SaveRmRec(u"1010", u"<客人10><客人姓名>王十</客人姓名></客人10><客人03></客人03>"
                           "<客人02><客人姓名>李二</客人姓名></客人02>");
        TextTable list(BoardTitles());
        QVERIFY(!LoadFtQd(list, LoadStatusPlaces()));
        QStringList rows;
        for (int row = 1; row < list.rows(); ++row)
            rows.append(list.row(row).join(u'|'));
        QCOMPARE(rows,
                 QStringList({u"1|101|空房|1|标准双床房|2||"_s, u"2|102|空房|1|标准双床房|2||"_s,
                              u"3|103|散客|1|标准双床房|2|1|"_s,
                              u"4|1010|包房|1|标准双床房|2|2|李二,王十"_s}));
        QCOMPARE(Words(LoadFtQd(list, Places({u"包房"_s}))),
                 u"系统设定错误: 房态中没有表示空闲房态的默认值"_s);
        QCOMPARE(list.text(2, room_record::kStatus), QString());
        QCOMPARE(LoadLcQd(), QStringList{u"1"_s});
    }

    void statusByHand() {
        TestHotel hotel;
        FillRooms({{u"101"_s, u"脏房"_s}, {u"102"_s, u"散客"_s, 1}});
        QVERIFY(SetStatusByHand(u"101", u"空房").changed);
        QCOMPARE(StoredRoom(u"101"_s, room_record::kStatus), u"空房"_s);
        QCOMPARE(hotel.logged(operation_log::kRemark), u"房间:101从：脏房变为:空房"_s);
        QVERIFY(!SetStatusByHand(u"101", u"空房").changed);
        QVERIFY(SetStatusByHand(u"102", u"空房").refusal);
        QVERIFY(!SetStatusByHand(u"999", u"空房").changed);
        QCOMPARE(StoredRoom(u"999"_s, room_record::kStatus), QString());
        QCOMPARE(SetKfft(u"102", u"脏房"), 0);
        QCOMPARE(StoredRoom(u"102"_s, room_record::kGuests), u"1"_s);
        QVERIFY(SetKfft(u"999", u"脏房") != 0);
        hotel.stopServer();
        const StatusChange unsaved = SetStatusByHand(u"101", u"脏房");
        QVERIFY(!unsaved.changed && !unsaved.refusal);
    }

    void personalSettings() {
        QCOMPARE(ShownOfText(u"<00>0</00><01>1</01><02>x</02>", 4),
                 QList<bool>({false, true, false, true}));
        TestHotel hotel;
        const BoardSettings settings{{true, false}, {false, true, true}, {false}};
        QCOMPARE(SaveBoardSettings(u"QT01", settings), 0);
        const BoardSettings loaded = *LoadBoardSettings(u"QT01", 2, 3, 1);
        QCOMPARE(loaded.statuses, settings.statuses);
        QCOMPARE(loaded.floors, settings.floors);
        QCOMPARE(loaded.types, settings.types);
        QCOMPARE(LoadBoardSettings(u"QT02", 1, 0, 0)->statuses, QList<bool>{true});
        hotel.stopServer();
        QVERIFY(!LoadBoardSettings(u"QT01", 2, 3, 1)); // not to be written back
    }

    void specialWorkingDays() {
        QCOMPARE(WeekdayOfKey(u"7") + WeekdayOfKey(u"6"), u"星期天星期六"_s);
        QCOMPARE(WeekdayOfKey(u"8") + WeekdayOfKey(u"x"), QString());
        const QDate today(2026, 3, 5);
        QVERIFY(!CheckWorkingDay(today, today));
        QVERIFY(CheckWorkingDay(today.addDays(-1), today));

        TestHotel hotel;
        QCOMPARE(CheckGzr(u"2026-05-01"), QString());
        TextTable list = *LoadWorkingDays();
        QCOMPARE(list.dataRows(), 0);
        const QString sunday = u"星期天"_s;
        QVERIFY(AddWorkingDay(list, u"劳动节"_s, u"2026-05-01"_s, sunday).changed);
        QVERIFY(AddWorkingDay(list, u"补班"_s, u"2026-05-09"_s, u"星期五"_s).changed);
        QCOMPARE(Words(AddWorkingDay(list, u"又一次"_s, u"2026-05-01"_s, sunday).refusal),
                 u"错误: 不能重复定义！"_s);
        QVERIFY(!AddWorkingDay(list, {}, u"2026-05-02"_s, sunday).changed);
        QVERIFY(!SaveWorkingDays(list));
        QCOMPARE(CheckGzr(u"2026-05-09"), u"星期五"_s);
        RemoveWorkingDay(list, 1);
        RemoveWorkingDay(list, 1);
        QCOMPARE(list.dataRows(), 1); // emptied, not removed
        AddWorkingDay(list, u"国庆"_s, u"2026-10-01"_s, sunday);
        QCOMPARE(list.dataRows(), 1);
        QVERIFY(!SaveWorkingDays(list));
        QCOMPARE(CheckGzr(u"2026-05-09"), QString());
        QCOMPARE(LoadWorkingDays()->row(1), QStringList({u"国庆"_s, u"2026-10-01"_s, sunday}));
        hotel.stopServer();
        QVERIFY(!LoadWorkingDays());
        QCOMPARE(Words(SaveWorkingDays(list)), u"意外错误: 工作日定义信息保存失败？！"_s);
    }
    void roomsAreAdded() {
        const auto row = [](const char* name, const QString& boxes, const QString& notice) {
            TestHotel hotel;
            FillRooms({{u"101"_s}});
            Check(name, Words(AddRoom(boxes, {}).notice), notice);
        };
        const QString full = u"<房间号> 301 </房间号><楼层号>3</楼层号><床位数>02</床位数>"
                             "<客房类型>套房</客房类型>"_s;
        row("nothing", {}, u"错误: 房间号错误，必须输入！"_s);
        row("blank number", u"<房间号>  </房间号>"_s, u"错误: 房间号错误，必须输入！"_s);
        row("no floor", SetTag(full, u"楼层号", {}), u"错误: 楼层号错误，必须输入！"_s);
        row("no beds", SetTag(full, u"床位数", {}), u"错误: 房间内床位数量错误，必须输入！"_s);
        row("no type", SetTag(full, u"客房类型", {}), u"错误: 房间类型错误，必须选择！"_s);
        row("there already", SetTag(full, u"房间号", u"101"),
            u"错误: 房间信息已经存在，请使用修改命令"_s);
        row("new", full, {});
    }

    void roomsAreChangedAndDeleted() {
        TestHotel hotel;
        FillRooms({{u"101"_s, u"散客"_s, 1}});
        QTemporaryDir folder;
        const QString picture = WriteBytes(folder.filePath(u"101.jpg"_s), "picture");
        QVERIFY(!ChangeRoom(u"<房间号>999</房间号>", {}).done);
        QVERIFY(
            ChangeRoom(u"<房间号>101</房间号><床位数>03</床位数><楼层号> </楼层号>", picture).done);
        QCOMPARE(StoredRoom(u"101"_s, room_record::kBeds), u"3"_s);
        QCOMPARE(StoredRoom(u"101"_s, room_record::kFloor), u"1"_s);
        QCOMPARE(StoredRoom(u"101"_s, room_record::kStatus), u"散客"_s);
        QCOMPARE(StoredRoom(u"101"_s, room_record::kPicture), u"101.jpg"_s);
        QCOMPARE(DbDownloadFile(RoomPictureFile(u"101.jpg"), folder.filePath(u"back"_s)), 0);
        QVERIFY(ChangeRoom(u"<房间号>101</房间号><说明>临街</说明>", {}).done);
        QCOMPARE(StoredRoom(u"101"_s, room_record::kPicture), u"101.jpg"_s);

        TextTable grid({u"序号"_s, u"房间号"_s, u"说明"_s});
        LoadkfQd(grid);
        UpdateKfGrid(grid, u"101"_s);
        QCOMPARE(grid.row(1), QStringList({u"1"_s, u"101"_s, u"临街"_s}));
        SaveRmRec(u"101", u"<客人01><客人姓名>王一</客人姓名></客人01>");
        QCOMPARE(Words(DeleteRoom(u"101").notice), u"提示: 客房信息删除成功！"_s);
        QCOMPARE(GetKfjbxx(u"101"), QString());
        QCOMPARE(StoredNames(u"101"_s), QStringList{u"客人01 王一"_s});
    }
};

HOTEL_TEST(BoardTest)
#include "test_board.moc"
