#include <QAbstractButton>
#include <QCheckBox>
#include <QHeaderView>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

#include "frontoffice/Ftxxfrm.h"
#include "frontoffice/KfxxFrm.h"
#include "frontoffice/room_map.h"
#include "house/common/paths.h"
#include "house/rooms/room_record.h"
#include "house/stays/board_settings.h"
#include "link/records.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "screen/check_list.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "screen/status_colour.h"
#include "session/operation_log.h"
#include "tests/hotel_test.h"
#include "tests/house/small_house.h"
#include "tools/aids/categories.h"
#include "tools/paper/PrtPrev.h"
#include "tools/paper/PrtSubs.h"

using namespace hotel;

namespace {

const QString kReception = u"不能操作: 这种房态不能直接设定，必须通过接待等渠道设定！"_s;
const QString kMoveFirst = u"操作错误: 目前该房间还有客人,不能随便更换房态,请先给客人换房!"_s;

// Colours of the categories that a first installation is delivered with.
constexpr int kVacant = 10543017;
constexpr int kFree = 5565636;
constexpr int kDirty = 13027014;

} // namespace

class BoardScreenTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHotel> hotel_;
    std::unique_ptr<MessageRecorder> messages_;
    std::unique_ptr<Ftxxfrm> board_;
    RoomMap* map_ = nullptr;
    GridView* list_ = nullptr;

    void open() {
        board_ = std::make_unique<Ftxxfrm>();
        board_->setWindowState(Qt::WindowNoState);
        board_->resize(1920, 1040); // a display of 1080 lines less the title
        map_ = board_->findChild<RoomMap*>(u"KfztTb"_s);
        list_ = board_->findChild<GridView*>(u"KfztQd"_s);
        board_->show();
        board_->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(board_.get()));
        board_->run([this] { board_->load({}); });
    }
    void close() {
        board_->close();
        board_.reset();
    }
    template<class Control>
    Control* control(const QString& name) {
        return board_->findChild<Control*>(name);
    }
    void click(const QString& button) { control<QAbstractButton>(button)->click(); }
    void clickRoom(int row, int column) {
        const QRect cell = map_->visualRect(map_->model()->index(row - 1, column));
        QTest::mouseClick(map_->viewport(), Qt::LeftButton, {}, cell.center());
    }
    int colour(int row, int column) { return map_->cell(row, column)->colour; }
    QString listed(int row, QStringView title) { return list_->table().text(row, title); }
    QStringList counted(const QString& list, int row) {
        return control<GridView>(list)->table().row(row);
    }
    // Refreshes; the event comes ahead of the first names.
    void meanwhile(const std::function<void()>& event) {
        QTest::qWait(50); // a walk lets events through only from time to time
        QTimer::singleShot(0, this, event);
        click(u"FreshCmd"_s);
    }
    QStringList told() {
        QStringList told;
        for (const MessageRecorder::Entry& entry : messages_->entries())
            told.append(entry.title + u": "_s + entry.words);
        messages_->clear();
        return told;
    }
    QString logged() {
        const QString entry = hotel_->stored(OperationLogFile(Clock::DateText(), Clock::Today()),
                                             operation_log::kProject.toString(), u"100000"_s);
        return GetTag(entry, operation_log::kOperation) + u": "_s +
               GetTag(entry, operation_log::kRemark);
    }

private Q_SLOTS:
    void init() {
        hotel_ = std::make_unique<TestHotel>();
        messages_ = std::make_unique<MessageRecorder>();
        FillRooms(
            {{u"101"_s, u"散客"_s, 1},
             {u"102"_s, u"免费"_s, 1},
             {u"103"_s},
             {u"104"_s, u"散客"_s, 0},
             {u"105"_s, u"脏房"_s},
             {u"106"_s, u"脏房"_s},
             {.number = u"201"_s, .status = u"空房"_s, .floor = u"2"_s, .type = u"三人房"_s}});
        SaveRmRec(u"101", u"<客人02><客人姓名>王一</客人姓名></客人02>");
    }
    void cleanup() {
        board_.reset();
        messages_.reset();
        hotel_.reset();
    }

    void aHundredRoomsAreSeenWhole_data() {
        QTest::addColumn<int>("rooms");
        QTest::addColumn<int>("listed");
        QTest::addColumn<int>("leastFigures"); // pixels
        QTest::addColumn<bool>("scrolls");
        QTest::newRow("a hundred") << 102 << 102 << 24 << false;
        QTest::newRow("more than are read") << 1001 << 1000 << 14 << true;
    }
    void aHundredRoomsAreSeenWhole() {
        QFETCH(int, rooms);
        QList<RoomSpec> house;
        for (int i = 0; i < rooms; ++i)
            house.append({.number = QString::number(8200 + i),
                          .status = u"散客"_s,
                          .guests = 0,
                          .floor = QString::number(2 + i * 6 / rooms)});
        FillRooms(house);
        open();
        QCoreApplication::processEvents();
        QTEST(list_->table().dataRows(), "listed");
        QTEST(map_->verticalScrollBar()->maximum() > 0, "scrolls");
        QFETCH(int, leastFigures);
        QVERIFY2(map_->figureSize() >= leastFigures,
                 qPrintable(QString::number(map_->figureSize())));
        QVERIFY(map_->horizontalHeader()->length() <= map_->viewport()->width());
    }

    void textIsReadableOnAnyColour() {
        QCOMPARE(StatusColour(0x0A141E), QColor(0x1E, 0x14, 0x0A));
        for (int grey = 0; grey < 256; ++grey) {
            const QColor fill(grey, grey, grey);
            QCOMPARE(ReadableOn(fill), QColor(grey < 118 ? Qt::white : Qt::black));
        }
        QCOMPARE(ReadableOn(Qt::blue), QColor(Qt::white));
        QCOMPARE(ReadableOn(Qt::green), QColor(Qt::black));
    }

    // Rooms by hand: through blocks, labels and keys, on map and list.
    void statusByHand() {
        open();
        click(u"Fttl10"_s); // no room is selected
        QCOMPARE(told(), QStringList());

        clickRoom(1, 1); // 101, with a guest
        click(u"Fttl10"_s);
        QCOMPARE(told(), QStringList{kReception});
        clickRoom(1, 2); // 102, complimentary, with a guest
        click(u"Ftlb10"_s);
        QCOMPARE(told(), QStringList{kMoveFirst});
        clickRoom(1, 3); // 103, vacant
        click(u"Ftlb02"_s);
        QCOMPARE(told(), QStringList{kReception});
        QCOMPARE(colour(1, 3), kVacant);

        QTest::keyClick(board_.get(), Qt::Key_8, Qt::AltModifier);
        QCOMPARE(colour(1, 3), kFree);
        QCOMPARE(listed(3, u"房态"), u"免费"_s);
        QCOMPARE(StoredRoom(u"103"_s, u"房态"), u"免费"_s);
        QCOMPARE(logged(), u"人工设定房态: 房间:103从：变为:免费"_s);
        QCOMPARE(counted(u"FttjQd"_s, 8), QStringList({u"免费"_s, u"1"_s, u"2"_s, u"1"_s}));

        click(u"TabCmd"_s); // to the list; the room goes along
        QCOMPARE(list_->currentRow(), 3);
        click(u"Fttl09"_s);
        QCOMPARE(StoredRoom(u"103"_s, u"房态"), u"自用"_s);
        list_->setCurrent(4); // 104: a stale status without guests may become anything
        click(u"Fttl03"_s);
        QCOMPARE(StoredRoom(u"104"_s, u"房态"), u"包房"_s);
        QCOMPARE(told(), QStringList());

        click(u"FreshCmd"_s);
        QCOMPARE(counted(u"FttjQd"_s, 8), QStringList({u"免费"_s, u"1"_s, u"2"_s, u"1"_s}));
        QCOMPARE(counted(u"FttjQd"_s, 9), QStringList({u"自用"_s, u"1"_s, u"2"_s, u"0"_s}));
        QCOMPARE(list_->currentRow(), 4);
    }

    // Another desk has been at the rooms since the board was read.
    void aStaleBoardDecidesOnWhatIsThereNow() {
        open();
        {
            Desk other(hotel_->port());
            other.logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
            SetKfjbxx(u"103", RoomText({u"103"_s, u"散客"_s, 1}));
            SetKfjbxx(u"101", RoomText({u"101"_s, u"脏房"_s, 0}));
            SetKfjbxx(u"105", RoomText({u"105"_s, u"空房"_s, -1}));
        }
        hotel_->desk().use();
        clickRoom(1, 3);
        click(u"Fttl10"_s);
        QCOMPARE(told(), QStringList{kReception});
        QCOMPARE(StoredRoom(u"103"_s, u"住客数"), u"1"_s);
        clickRoom(1, 1);
        click(u"Fttl01"_s);
        QCOMPARE(StoredRoom(u"101"_s, u"房态"), u"空房"_s);
        QCOMPARE(colour(1, 1), kVacant);
        clickRoom(1, 5);
        click(u"Fttl01"_s); // vacant already: nothing happens, and the board stays stale
        QCOMPARE(colour(1, 5), kDirty);
        QCOMPARE(told(), QStringList());
    }

    void keysGoFromRoomToRoomAndOpenTheGuests() {
        RegisterScreen(u"KfxxFrm", [] { return new KfxxFrm; });
        open();
        QCOMPARE(board_->focusWidget(), static_cast<QWidget*>(map_));
        QCOMPARE(map_->selectedRoom(), QString());
        QTest::keyClicks(map_, u"105"_s);
        QCOMPARE(map_->selectedRoom(), u"105"_s);
        QTest::keyClick(map_, Qt::Key_Right); // round the end of the line
        QCOMPARE(map_->selectedRoom(), u"106"_s);
        QTest::keyClick(map_, Qt::Key_Right);
        QTest::keyClick(map_, Qt::Key_Right);
        QCOMPARE(map_->selectedRoom(), u"201"_s);
        QTest::keyClick(map_, Qt::Key_Home);
        QTest::keyClick(map_, Qt::Key_Up);
        QTest::keyClick(map_, Qt::Key_Up);
        QCOMPARE(map_->selectedRoom(), u"101"_s);
        QTest::keyClick(map_, Qt::Key_Return);
        Screen* guests = FindScreen(u"KfxxFrm");
        QVERIFY(guests && guests->windowTitle().endsWith(u"101"_s));
        guests->close();
        clickRoom(1, 0); // the floor is no room
        QTest::keyClick(map_, Qt::Key_Return);
        QVERIFY(!FindScreen(u"KfxxFrm"));
        QCOMPARE(told(), QStringList());
    }

    void whatIsHiddenStaysHiddenForItsUser() {
        open();
        click(u"Ftxz10"_s);
        control<CheckList>(u"Xslc"_s)->item(1)->setCheckState(Qt::Unchecked);
        QCOMPARE(map_->table().dataRows(), 3);
        clickRoom(2, 1); // 106, which goes; what comes in its place must not be taken for it
        click(u"FreshCmd"_s);
        QCOMPARE(map_->table().dataRows(), 1);
        QCOMPARE(map_->selectedRoom(), QString());
        QCOMPARE(list_->table().dataRows(), 7);
        QCOMPARE(counted(u"LctjQd"_s, 2), QStringList({u"2"_s, u"1"_s, u"2"_s, u"0"_s}));
        close();
        const QString file = PersonalFile(u"ADMIN");
        const QString project = board_settings::kProject.toString();
        QCOMPARE(GetTag(hotel_->stored(file, project, u"显示房态"_s), u"09"), u"0"_s);
        QCOMPARE(GetTag(hotel_->stored(file, project, u"显示房态"_s), u"11"), u"1"_s);
        QCOMPARE(hotel_->stored(file, project, u"显示楼层"_s), u"<00>1</00>\r\n<01>0</01>"_s);

        hotel_->desk().logIn(u"LIBAN"_s, u"222222"_s);
        open();
        QCOMPARE(map_->table().dataRows(), 3);
        close();
        hotel_->desk().logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
        open();
        QCOMPARE(map_->table().dataRows(), 1);
        QVERIFY(!control<QCheckBox>(u"Ftxz10"_s)->isChecked());
    }

    void categoriesThatLackSomething() {
        SaveRecord(CategoryFile(), category::kRoomStates, u"记录13",
                   u"<内容>封存</内容><颜色>255</颜色>");
        SetKfjbxx(u"105", RoomText({u"105"_s, u"封存"_s}));
        SetKfjbxx(u"106", RoomText({.number = u"106"_s, .status = u"脏房"_s, .type = u"别墅"_s}));
        open();
        QCOMPARE(told(), QStringList{u"内部设定错误: 105有一种房态没有在房态分类中定义！\n"
                                     "106有一种房型没有在房间类型分类中定义！"_s});
        QCOMPARE(map_->table().dataRows(), 2);
        QCOMPARE(map_->table().row(1).last(), QString());
        close();

        SaveProject(CategoryFile(), category::kRoomStates, {});
        open();
        QCOMPARE(told(), QStringList{u"系统设定错误: 房态中没有表示空闲房态的默认值"_s});
        QCOMPARE(listed(3, u"房态"), QString());
        QVERIFY(!control<QWidget>(u"Fttl01"_s)->isVisible());
        QCOMPARE(map_->table().dataRows(), 0);
    }

    void aHeadingSortsTheList() {
        open();
        const QStringList line = map_->table().row(1);
        click(u"TabCmd"_s);
        const QPoint heading(list_->horizontalHeader()->sectionViewportPosition(4) + 5, 5);
        for (int i = 0; i < 2; ++i)
            QTest::mouseClick(list_->horizontalHeader()->viewport(), Qt::LeftButton, {}, heading);
        QCOMPARE(listed(7, u"房间号"), u"201"_s);
        QTest::mouseClick(list_->horizontalHeader()->viewport(), Qt::LeftButton, {}, heading);
        QCOMPARE(listed(1, u"房间号"), u"201"_s);
        QCOMPARE(listed(1, u"序号"), u"1"_s);
        QCOMPARE(map_->table().row(1), line);
    }

    // The link goes, and the user closes, while names are being read.
    void theServerGoesDuringARefresh() {
        SaveRmRec(u"102", u"<客人01><客人姓名>半个");
        open();
        QCOMPARE(listed(1, u"住客姓名"), u"王一"_s);
        QCOMPARE(listed(2, u"住客姓名"), QString());
        meanwhile([this] { hotel_->stopServer(); });
        QCOMPARE(list_->table().dataRows(), 7);
        QCOMPARE(listed(1, u"住客姓名"), QString());
        QCOMPARE(map_->table().dataRows(), 3);
        clickRoom(1, 5);
        click(u"Fttl01"_s);
        QCOMPARE(colour(1, 5), kDirty);
        click(u"FreshCmd"_s); // the board keeps what it had
        QCOMPARE(map_->table().dataRows(), 3);
        board_->run([this] { board_->load({}); }); // asked for again by the menu
        QVERIFY(control<QWidget>(u"Fttl01"_s)->isVisible());
        close();
        open();
        QCOMPARE(told(), QStringList());
        close();
    }
    void theBoardIsClosedDuringARefresh() {
        open();
        click(u"Ftxz10"_s);
        meanwhile([this] { board_->close(); });
        QVERIFY(!board_->isVisible());
        QVERIFY(!LoadBoardSettings(u"ADMIN", kStatusPlaces, 0, 0)->statuses[9]);
    }

    void printsAndSavesTheList() {
        RegisterScreen(u"PrtPrev", [] { return new PrtPrev; });
        open();
        const QTemporaryDir folder;
        messages_->answerNext(folder.filePath(u"list.txt"_s));
        click(u"SaveCmd"_s);
        QCOMPARE(messages_->entries().first().words, u"2026-03-05 10:00 房态清单的存放文件名："_s);
        QVERIFY(QFileInfo(folder.filePath(u"list.txt"_s)).size() > 0);
        QCOMPARE(logged(), u"保存房态清单: 2026-03-05 10:00 房态清单"_s);
        click(u"PrtCmd"_s);
        QVERIFY(FindScreen(u"PrtPrev"));
        QCOMPARE(logged(), u"打印房态清单: 2026-03-05 10:00 房态清单"_s);
        ClosePrintJob();
    }
};

HOTEL_TEST(BoardScreenTest)
#include "test_board_screen.moc"
