#include <QComboBox>
#include <QFile>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include "frontoffice/RoomSet.h"
#include "house/common/paths.h"
#include "house/rooms/room_record.h"
#include "link/serv_api.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "screen/category_box.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "session/operation_log.h"
#include "tests/hotel_test.h"
#include "tests/test_hotel.h"
#include "tools/aids/photo_frame.h"
#include "tools/paper/PrtPrev.h"
#include "tools/paper/PrtSubs.h"

using namespace hotel;

class RoomSetTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHotel> hotel_;
    std::unique_ptr<MessageRecorder> messages_;
    std::unique_ptr<RoomSet> rooms_;
    GridView* list_ = nullptr;
    PhotoFrame* photo_ = nullptr;
    QTemporaryDir folder_;

    QLineEdit* box(const QString& name) { return rooms_->findChild<QLineEdit*>(name); }
    void press(QStringView command) { rooms_->command(command)->click(); }
    QString told() {
        if (messages_->entries().isEmpty())
            return {};
        return messages_->entries().last().title + u": "_s + messages_->last();
    }
    void fill(const QString& number, const QString& floor, const QString& beds,
              const QString& type) {
        box(u"Fjh"_s)->setText(number);
        box(u"Lch"_s)->setText(floor);
        box(u"Cws"_s)->setText(beds);
        rooms_->findChild<CategoryBox*>(u"Fjlx"_s)->setValue(type);
    }
    // Selects the row as the mouse does.
    void click(int row) {
        const QModelIndex index = list_->model()->index(row - 1, 1);
        list_->scrollTo(index);
        QTest::mouseClick(list_->viewport(), Qt::LeftButton, {}, list_->visualRect(index).center());
    }
    QString stored(const QString& room, QStringView field) {
        return GetTag(hotel_->stored(RoomDatabaseFile(), room_record::kProject.toString(), room),
                      field);
    }
    QString logged() {
        const QString entry = hotel_->stored(OperationLogFile(Clock::DateText(), Clock::Today()),
                                             operation_log::kProject.toString(), u"100000"_s);
        return GetTag(entry, operation_log::kOperation) + u": "_s +
               GetTag(entry, operation_log::kRemark);
    }
    QString makePicture(const QString& name, Qt::GlobalColor colour) {
        QImage image(60, 20, QImage::Format_RGB32);
        image.fill(colour);
        const QString path = folder_.filePath(name);
        image.save(path, "JPG");
        return path;
    }
    void choosePicture(const QString& path) {
        messages_->answerNext(path);
        press(u"ZpCmd");
    }

private Q_SLOTS:
    void init() {
        hotel_ = std::make_unique<TestHotel>();
        messages_ = std::make_unique<MessageRecorder>();
        const auto store = [](const QString& room, const QString& text) {
            SetKfjbxx(room, u"<房间号>"_s + room + u"</房间号>"_s + text);
        };
        DbDeleteProject(RoomDatabaseFile(), room_record::kProject);
        store(u"102"_s, u"<楼层号>1</楼层号><床位数>2</床位数><客房类型>标准双床房</客房类型>"
                        "<说明>临街</说明><房态>散客</房态><住客数>1</住客数>"_s);
        store(u"1001"_s, u"<楼层号>10</楼层号><床位数>1</床位数><客房类型>标准大床房</客房类型>"
                         "<照片>gone.jpg</照片>"_s);
        store(u"101"_s, u"<楼层号>1</楼层号><床位数>02</床位数><客房类型>三人房</客房类型>"_s);
        rooms_ = std::make_unique<RoomSet>();
        rooms_->show();
        rooms_->run([this] { rooms_->load({}); });
        list_ = rooms_->findChild<GridView*>(u"KfQd"_s);
        photo_ = rooms_->findChild<PhotoFrame*>();
    }
    void cleanup() {
        rooms_.reset();
        messages_.reset();
        hotel_.reset();
    }

    void listsTheRoomsByNumber() {
        QCOMPARE(list_->table().dataRows(), 3);
        for (int row = 1; row <= 3; ++row)
            QCOMPARE(list_->table().text(row, u"序号"), QString::number(row));
        QCOMPARE(list_->table().text(1, u"房间号"), u"101"_s);
        QCOMPARE(list_->table().text(1, u"床位数"), u"2"_s);
        QCOMPARE(list_->table().text(3, u"房间号"), u"1001"_s);
    }

    void refusesToAdd_data() {
        QTest::addColumn<QStringList>("room");
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("focus");
        const auto row = [](const char* name, const QStringList& room, const QString& words,
                            const QString& focus = u"Fjh"_s) {
            QTest::newRow(name) << room << words << focus;
        };
        row("nothing", {{}, {}, {}, {}}, u"错误: 房间号错误，必须输入！"_s);
        row("blanks", {u"  "_s, u"1"_s, u"2"_s, u"三人房"_s}, u"错误: 房间号错误，必须输入！"_s);
        row("no floor", {u"103"_s, {}, {}, {}}, u"错误: 楼层号错误，必须输入！"_s, u"Lch"_s);
        row("no beds", {u"103"_s, u"1"_s, {}, {}}, u"错误: 房间内床位数量错误，必须输入！"_s,
            u"Cws"_s);
        row("no type", {u"103"_s, u"1"_s, u"2"_s, {}}, u"错误: 房间类型错误，必须选择！"_s,
            u"Fjlx"_s);
        row("there", {u"101 "_s, u"1"_s, u"2"_s, u"三人房"_s},
            u"错误: 房间信息已经存在，请使用修改命令"_s);
    }
    void refusesToAdd() {
        QFETCH(QStringList, room);
        fill(room[0], room[1], room[2], room[3]);
        press(u"CmdAdd");
        QTEST(told(), "words");
        QTEST(rooms_->focusWidget()->objectName(), "focus");
        QCOMPARE(list_->table().dataRows(), 3);
    }

    void addsByTheKeyboard() {
        rooms_->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(rooms_.get()));
        const auto type = [this](const QString& text) {
            QTest::keyClicks(rooms_->focusWidget(), text);
            QTest::keyClick(rooms_->focusWidget(), Qt::Key_Return);
        };
        box(u"Fjh"_s)->setFocus();
        type(u" 103 "_s);
        type(u"1"_s);
        type(u"a3"_s);
        rooms_->findChild<CategoryBox*>(u"Fjlx"_s)->setValue(u"三人房"_s);
        type({});
        type(u"8103"_s);
        type(u"A3"_s);
        type({});
        QCOMPARE(rooms_->focusWidget()->objectName(), u"CmdAdd"_s);
        type({});
        QCOMPARE(messages_->words(), QStringList());
        QCOMPARE(hotel_->stored(RoomDatabaseFile(), u"客房基本信息"_s, u"103"_s),
                 u"<房间号>103</房间号>\r\n<楼层号>1</楼层号>\r\n<床位数>3</床位数>\r\n"
                 "<客房类型>三人房</客房类型>\r\n<电话号码>8103</电话号码>\r\n"
                 "<网络端口>A3</网络端口>"_s);
        QCOMPARE(list_->currentRow(), 4);
        QCOMPARE(list_->table().text(4, u"序号"), u"4"_s);
        QCOMPARE(list_->table().text(4, u"电话号码"), u"8103"_s);
        QCOMPARE(rooms_->focusWidget()->objectName(), u"Fjh"_s);
    }

    void changesOnlyWhatIsFilled() {
        press(u"CmdModify");
        QCOMPARE(told(), u"提示: 请选择要修改的记录,再执行本功能！"_s);
        click(2);
        QCOMPARE(box(u"Sm"_s)->text(), u"临街"_s);
        box(u"Sm"_s)->clear();
        box(u"Dhhm"_s)->setText(u" 8102 "_s);
        press(u"CmdModify");
        QCOMPARE(stored(u"102"_s, u"电话号码"), u"8102"_s);
        QCOMPARE(stored(u"102"_s, u"说明"), u"临街"_s);
        QCOMPARE(stored(u"102"_s, u"房态"), u"散客"_s);
        QCOMPARE(stored(u"102"_s, u"住客数"), u"1"_s);
        QCOMPARE(list_->table().text(2, u"电话号码"), u"8102"_s);
        QCOMPARE(logged(), u"房间基本参数设定: 修改房间参数"_s);

        box(u"Fjh"_s)->setText(u"999"_s);
        press(u"CmdModify");
        QCOMPARE(told(), u"错误: 房间信息不存在，必须首先增加"_s);
        box(u"Fjh"_s)->clear();
        press(u"CmdModify");
        QCOMPARE(told(), u"错误: 房间号错误，必须输入！"_s);
    }

    void deletesAfterAsking() {
        press(u"cmdDel");
        QCOMPARE(told(), u"提示: 请选择要删除的客房记录！"_s);
        click(2);
        press(u"cmdDel");
        QCOMPARE(told(), u"注意: 确认要删除客房:102 的所有信息吗？"_s);
        QVERIFY(!stored(u"102"_s, u"楼层号").isEmpty());
        messages_->answerNext(u"ok"_s);
        press(u"cmdDel");
        QCOMPARE(messages_->last(), u"客房信息删除成功！"_s);
        QVERIFY(stored(u"102"_s, u"楼层号").isEmpty());
        QCOMPARE(list_->table().dataRows(), 2);
        QCOMPARE(list_->table().text(2, u"房间号"), u"1001"_s);
        QCOMPARE(list_->table().text(2, u"序号"), u"2"_s);
        QCOMPARE(box(u"Fjh"_s)->text(), QString());
        QCOMPARE(list_->currentRow(), 0);
        QCOMPARE(logged(), u"房间基本参数设定: 删除房间"_s);
    }

    // Another desk was quicker.
    void aRoomThatIsGoneIsNotAskedFor() {
        click(1);
        DbDeleteRecord(RoomDatabaseFile(), room_record::kProject, u"101");
        press(u"cmdDel");
        QCOMPARE(told(), u"错误: 房间信息不存在，必须首先增加"_s);
        QCOMPARE(list_->table().dataRows(), 3);
    }

    void picturesGoToTheServerAndBack() {
        choosePicture(folder_.filePath(u"none.jpg"_s));
        QCOMPARE(told(), u"请检查: 照片文件不存在？"_s);
        QCOMPARE(box(u"Zp"_s)->text(), QString());

        click(1);
        choosePicture(makePicture(u"river.jpg"_s, Qt::green));
        QCOMPARE(photo_->photo().size(), QSize(60, 20));
        press(u"CmdModify");
        QCOMPARE(stored(u"101"_s, u"照片"), u"river.jpg"_s);
        QCOMPARE(box(u"Zp"_s)->text(), QString());
        const QStringList before = QDir(QCoreApplication::applicationDirPath()).entryList();
        click(2);
        QVERIFY(photo_->photo().isNull());
        click(1);
        QCOMPARE(photo_->photo().size(), QSize(60, 20));
        QCOMPARE(QDir(QCoreApplication::applicationDirPath()).entryList(), before);

        press(u"CmdModify"); // without a picture in its box
        QCOMPARE(stored(u"101"_s, u"照片"), u"river.jpg"_s);
    }

    void tellsThatAPictureIsMissing() {
        click(3);
        QCOMPARE(told(), u"提示: 照片文件读取失败，若需要查看，请再次点击本行！"_s);
        QVERIFY(photo_->photo().isNull());
    }

    void tellsThatSavingFailed() {
        fill(u"103"_s, u"1"_s, u"2"_s, u"三人房"_s);
        hotel_->stopServer(); // nobody knows whether there is such a room
        press(u"CmdAdd");
        QVERIFY(
            messages_->words().contains(u"原有数据读取失败，为避免覆盖，没有保存！请稍候再试！"_s));
        QCOMPARE(list_->table().dataRows(), 3);
    }

    void writesTheListToAFile() {
        press(u"CmdFile"); // cancelled
        QCOMPARE(told(), u"保存文件提示: 本查询结果的存放文件名："_s);
        QCOMPARE(logged(), u": "_s);
        messages_->answerNext(folder_.path()); // a folder
        press(u"CmdFile");
        QCOMPARE(told(), u"错误: 文件无法生成!"_s);

        const QString path = folder_.filePath(u"rooms.txt"_s);
        messages_->answerNext(path);
        press(u"CmdFile");
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QStringList lines = QString::fromUtf8(file.readAll()).split(u"\r\n"_s);
        QCOMPARE(lines.size(), 5); // the heading, the rooms, and what is behind the last line end
        QVERIFY(lines[1].startsWith(u"1     101     1       2       三人房"_s));
        QCOMPARE(logged(), u"房间基本参数设定: 生成清单"_s);
    }

    void printsTheList() {
        RegisterScreen(u"PrtPrev", [] { return new PrtPrev; });
        press(u"CmdPrint");
        QVERIFY(FindScreen(u"PrtPrev"));
        QCOMPARE(logged(), u"房间基本参数设定: 打印清单"_s);
        ClosePrintJob();
    }
};

HOTEL_TEST(RoomSetTest)
#include "test_room_set.moc"
