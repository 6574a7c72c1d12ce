// A room change through its screen, from the keyboard.

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "frontoffice/KrhfFrm.h"
#include "frontoffice/RzdjFrm.h"
#include "frontoffice/room_change_print.h"
#include "house/folios/folio.h"
#include "house/rooms/room_record.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "screen/field_form.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "tests/hotel_test.h"
#include "tests/house/small_house.h"
#include "tests/tools/paper/print_items.h"
#include "tests/type_text.h"
#include "tools/aids/form_tools.h"

using namespace hotel;

namespace {

const QString kFolio = u"260305100000"_s;

void Key(Qt::Key key) {
    QTest::keyClick(QApplication::focusWidget(), key);
}

void TypeLine(const QString& text) {
    TypeText(QApplication::focusWidget(), text);
    Key(Qt::Key_Enter);
}

QString FocusName() {
    return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString();
}

} // namespace

class RoomChangeScreenTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { SetUpForms(); }

    void init() {
        hotel_ = std::make_unique<TestHotel>();
        const QString guests = u"<客人01>"_s + ValidGuest(u"王一"_s, kFolio, u"包房"_s) +
                               u"</客人01><客人02>" + ValidGuest(u"李二"_s, kFolio, u"包房"_s) +
                               u"</客人02>";
        SaveRmRec(u"8203", guests);
        SetKfjbxx(u"8203", SetTag(SetTag(GetKfjbxx(u"8203"), u"房态", u"包房"), u"住客数", u"2"));
        UpdateJzhByRmRec(guests);
        messages_ = std::make_unique<MessageRecorder>();
        desk_ = std::make_unique<KrhfFrm>();
        desk_->show();
        desk_->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(desk_.get()));
        desk_->run([&] { desk_->load({}); });
    }
    void cleanup() {
        desk_.reset();
        messages_.reset();
        hotel_.reset();
    }

    void listsAndProposals() {
        const TextTable& occupied = list(u"KrfjQd"_s);
        const int row = occupied.find(0, u"8203");
        QCOMPARE(occupied.row(row), (QStringList{u"8203"_s,
                                                 u"包房"_s,
                                                 GetTag(GetKfjbxx(u"8203"), u"楼层号"),
                                                 GetTag(GetKfjbxx(u"8203"), u"客房类型"),
                                                 u"1"_s,
                                                 u"2"_s,
                                                 GetTag(GetKfjbxx(u"8203"), u"电话号码"),
                                                 {}}));
        QVERIFY(!occupied.text(row, u"电话号码").isEmpty());
        QVERIFY(list(u"Kxkfqd"_s).find(0, u"8205") > 0);
        QCOMPARE(list(u"Kxkfqd"_s).find(0, u"8203"), -1);
        QCOMPARE(form().text(u"Yhft"), u"脏房"_s);
        QCOMPARE(FocusName(), u"Yfjh"_s);
    }

    void aMoveFromTheKeyboard() {
        onGuestForm([&](RzdjFrm& guest) {
            const auto* fields = guest.findChild<FieldForm*>();
            QCOMPARE(fields->text(u"Krxm"), u"王一"_s);
            QCOMPARE(fields->text(u"Fh"), u"8205"_s);
            QCOMPARE(fields->text(u"Tssm"), u"从8203因为:外界噪音换房"_s);
            for (const QStringView name : {u"NextR", u"LastR", u"KsCmd"})
                QVERIFY(!guest.command(name)->isVisible());
            QVERIFY(guest.command(u"NextC")->isVisible());
            Key(Qt::Key_F8);
        });
        TypeLine(u"8203"_s);
        QCOMPARE(FocusName(), u"Xfjh"_s);
        TypeLine(u"8205"_s);
        QCOMPARE(FocusName(), u"Hfyy"_s);
        TypeLine(u"wjzy"_s);
        QCOMPARE(form().text(u"Hfyy"), u"外界噪音"_s);
        QCOMPARE(FocusName(), u"Yhft"_s);
        Key(Qt::Key_Enter);
        QTRY_COMPARE(FocusName(), u"QrCmd"_s);
        Key(Qt::Key_Enter);
        QCOMPARE(messages_->last(), QString());
        QCOMPARE(StoredNames(u"8205"_s), (QStringList{u"客人01 王一"_s, u"客人02 李二"_s}));
        QCOMPARE(StoredRoom(u"8203"_s, u"房态"), u"脏房"_s);
        QVERIFY(list(u"KrfjQd"_s).find(0, u"8205") > 0);
        QCOMPARE(list(u"KrfjQd"_s).find(0, u"8203"), -1);
        for (const QStringView box : {u"Yfjh", u"Xfjh", u"Hfyy"})
            QCOMPARE(form().text(box), QString());
        QCOMPARE(FocusName(), u"Yfjh"_s);
        desk_->command(u"QrCmd")->click(); // the key pressed twice
        QCOMPARE(messages_->words(), QStringList{u"换房当然要先选择原房间！"_s});
        QCOMPARE(StoredRoom(u"8205"_s, u"住客数"), u"2"_s);
        desk_->command(u"DyCmd")->click(); // it can still be printed
        QCOMPARE(messages_->words().size(), 1);
        QStringList notice;
        for (const PrintedText& text : TextsOf(ScriptOfJob().previewPage(1)))
            notice.append(text.text);
        for (const QString& text : {u"8203"_s, u"8205"_s, u"外界噪音"_s, u"王一"_s, u"李二"_s})
            QVERIFY2(notice.contains(text), qUtf8Printable(text + u" in " + notice.join(u'|')));
    }

    void wrongRoomsAreTold() {
        TypeLine(u"8205"_s);
        QCOMPARE(messages_->last(), u"客房：8205 现在没有住客，请核对房间号！"_s);
        QTRY_COMPARE(FocusName(), u"Yfjh"_s);
        form().setText(u"Yfjh", u"8203"_s);
        TypeLine({});
        TypeLine(u"9999"_s);
        QCOMPARE(messages_->last(), u"客房：9999 现在不可选，请核对房间号和房态！"_s);
        desk_->command(u"XgCmd")->click(); // nothing to prepare
        QVERIFY(!desk_->findChild<RzdjFrm*>());
        desk_->command(u"DyCmd")->click();
        QCOMPARE(messages_->entries().last().title, u"以后再打印"_s);
        QCOMPARE(messages_->last(), u"还没有换房信息，或没有有效的换房信息，无法打印！"_s);
    }

    // What was prepared stands for its rooms and its reason only, and isn't lost by an Esc.
    void anotherRoomNeedsAnotherLook() {
        form().setText(u"Yfjh", u"8203"_s);
        form().setText(u"Xfjh", u"8205"_s);
        form().setText(u"Hfyy", u"吵"_s);
        onGuestForm([](RzdjFrm&) { Key(Qt::Key_F8); });
        desk_->command(u"XgCmd")->click();
        messages_->answerNext(u"no"_s);
        desk_->close();
        QVERIFY(desk_->isVisible());
        QCOMPARE(messages_->last(), u"已核实的换房还没有确认，关闭将放弃这次换房，要关闭吗？"_s);
        auto* offered = desk_->findChild<GridView*>(u"Kxkfqd"_s);
        offered->setCurrent(offered->table().find(0, u"8207"));
        Q_EMIT offered->rowClicked(offered->currentRow(), 0);
        QCOMPARE(form().text(u"Xfjh"), u"8207"_s);
        desk_->command(u"QrCmd")->click();
        QCOMPARE(messages_->entries().last().title, u"请先确认客人详细信息"_s);
        QCOMPARE(StoredNames(u"8205"_s), QStringList());
        QCOMPARE(StoredNames(u"8207"_s), QStringList());
    }

    // A notice says the move once and every guest, over as many pages as they need.
    void theNotice() {
        QString guests;
        for (int n = 1; n <= 101; ++n)
            guests += u"<客人%1>"_s.arg(n, 2, 10, QChar(u'0')) +
                      ValidGuest(u"团员%1"_s.arg(n), kFolio, u"团队"_s,
                                 u"<性别>女</性别><自何处来>北京市</自何处来>"_s) +
                      u"</客人%1>"_s.arg(n, 2, 10, QChar(u'0'));
        const auto print = [](const QString& set) {
            PrintRoomChangeNotice({u"8203"_s, u"8205"_s, u"空调故障"_s, {}},
                                  u"<8205>"_s + set + u"</8205>");
            PrintScript script = ScriptOfJob();
            QStringList texts;
            for (int page = 1; page <= script.pageCount(); ++page) {
                for (const PrintedText& text : TextsOf(script.previewPage(page)))
                    texts.append(text.text);
            }
            return std::pair(script.pageCount(), texts);
        };
        const auto [pages, texts] = print(guests);
        QCOMPARE(pages, 9); // 10 guests on the first page, 12 on each further one
        QCOMPARE(texts.count(u"8203"_s), 1);
        QCOMPARE(texts.count(u"空调故障"_s), 1);
        QCOMPARE(texts.count(u"团员100"_s), 2); // both lines of the block
        QCOMPARE(texts.count(u"团员101"_s), 0);
        QCOMPARE(texts.count(u"北京市"_s), 100);
        QCOMPARE(texts.count(u"女"_s), 200);
        QCOMPARE(print(u"<客人01>"_s + ValidGuest(u"王一"_s, kFolio, {}) + u"</客人01>").first, 1);
    }

private:
    FieldForm& form() { return *desk_->findChild<FieldForm*>(); }
    const TextTable& list(const QString& name) {
        return desk_->findChild<GridView*>(name)->table();
    }

    // Has `act` done on the guest form as soon as it stands.
    void onGuestForm(const std::function<void(RzdjFrm&)>& act) {
        auto* timer = new QTimer(desk_.get());
        connect(timer, &QTimer::timeout, timer, [this, timer, act] {
            auto* guest = desk_->findChild<RzdjFrm*>();
            if (!guest || !guest->isActiveWindow() || guest->busy())
                return;
            timer->stop();
            timer->deleteLater();
            act(*guest);
            if (guest->isVisible())
                guest->close();
        });
        timer->start(5);
    }

    std::unique_ptr<TestHotel> hotel_;
    std::unique_ptr<MessageRecorder> messages_;
    std::unique_ptr<KrhfFrm> desk_;
};

HOTEL_TEST(RoomChangeScreenTest)

#include "test_room_change_screen.moc"
