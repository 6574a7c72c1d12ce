#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>

#include "cashier/Jzhfrm.h"
#include "cashier/JzhxxFrm.h"
#include "cashier/folio_box.h"
#include "house/common/paths.h"
#include "house/folios/folio.h"
#include "house/folios/folio_posting.h"
#include "house/folios/folio_view.h"
#include "house/stays/check_in.h"
#include "link/records.h"
#include "link/serv_api.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "tests/hotel_test.h"
#include "tests/house/small_house.h"
#include "tests/type_text.h"
#include "tools/aids/photo_frame.h"
#include "tools/aids/record_tree.h"

using namespace hotel;

namespace {

const QString kFolio = u"260305100000"_s;
const QString kOther = u"260305100001"_s;

// Checks a party in, one guest a room, all on one folio.
void CheckIn(const QString& folio, const QList<RoomSpec>& rooms, const QStringList& names) {
    FillRooms(rooms);
    QList<ChosenRoom> chosen;
    for (const RoomSpec& room : rooms)
        chosen.append(Chosen(room));
    QStringList guests;
    for (const QString& name : names)
        guests.append(ValidGuest(name, folio, u"包房"_s, u"<付费客人>1</付费客人>"_s));
    QVERIFY(ConfirmCheckIn(TypedSet(chosen, guests), chosen).confirmed);
}

QString Charge(int kind, const QString& amount) {
    return kind == kDepositPosting
               ? u"<信用保证种类>现金押金</信用保证种类><实收金额>%1</实收金额>"_s.arg(amount)
               : u"<费用名称>费用</费用名称><金额>%1</金额>"_s.arg(amount);
}

void OpenFolios(int count) {
    QString project;
    for (int n = 0; n < count; ++n)
        project += u"<%1><%2><床位01><客人姓名>客人%2</客人姓名></床位01></%2></%1>\r\n"_s
                       .arg(260301000000 + n)
                       .arg(1000 + n);
    SaveProject(OpenFolioFile(), folio_record::kProject, project);
}

template<class Widget>
Widget* In(Screen* screen, const QString& name) {
    auto* widget = screen->findChild<Widget*>(name);
    if (!widget)
        qFatal("no %s", qPrintable(name));
    return widget;
}

Screen* Opened(QStringView name, const QVariant& argument = {}) {
    OpenScreen(name, argument);
    Screen* screen = FindScreen(name);
    if (!screen || !QTest::qWaitForWindowActive(screen))
        qFatal("no %s", qPrintable(name.toString()));
    return screen;
}

RecordTree* TreeOf(Screen* screen) {
    return In<RecordTree>(screen, u"QVRTrVw"_s);
}

FolioBox* BoxOf(Screen* screen) {
    return In<FolioBox>(screen, u"Jzh"_s);
}

QString ValueOf(Screen* screen, QTreeWidgetItem* node) {
    TreeOf(screen)->setCurrentItem(node);
    return In<QPlainTextEdit>(screen, u"NodeValue"_s)->toPlainText();
}

bool Says(Screen* screen, const QString& words) {
    return std::ranges::any_of(screen->findChildren<QLabel*>(),
                               [&](const QLabel* label) { return label->text() == words; });
}

// Numbers of the folios that the picker shows.
QStringList Shown(Screen* picker) {
    QStringList shown;
    const QTreeWidgetItem* project = TreeOf(picker)->find(folio_record::kProject);
    for (int n = 0; project && n < project->childCount(); ++n)
        if (!project->child(n)->isHidden())
            shown.append(project->child(n)->text(0));
    return shown;
}

} // namespace

class FolioScreensTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHotel> hotel_;
    std::unique_ptr<MessageRecorder> messages_;

private Q_SLOTS:
    void initTestCase() {
        RegisterScreen(u"Jzhfrm", [] { return new Jzhfrm; });
        RegisterScreen(u"JzhxxFrm", [] { return new JzhxxFrm; });
    }
    void init() {
        hotel_ = std::make_unique<TestHotel>();
        messages_ = std::make_unique<MessageRecorder>();
    }
    void cleanup() {
        CloseAllScreens();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        hotel_.reset();
    }

    // What is posted stands in the folio's tree and in the journal of its project, and nowhere else; what is
    // deleted has left the tree and is answered in the journal.
    void postingsStandInTreeAndJournal() {
        CheckIn(kFolio, {{u"8101"_s}}, {u"陈志远"_s});
        for (int kind = kDepositPosting; kind <= kServicePosting; ++kind)
            QCOMPARE(SaveBills(kFolio, kind, Charge(kind, u"18.00"_s)).status, 0);
        SaveBills(kOther, kRoomPosting, Charge(kRoomPosting, u"20.00"_s));
        Screen* view = Opened(u"JzhxxFrm", kFolio);
        RecordTree* tree = TreeOf(view);
        QCOMPARE(tree->topLevelItemCount(), 7);
        for (int kind = kDepositPosting; kind <= kServicePosting; ++kind) {
            const QString project = PostingProject(kind);
            QTreeWidgetItem* node = tree->find(project);
            QCOMPARE(node->childCount(), 1);
            QCOMPARE(node->child(0)->text(6), u"18.00"_s);
            const bool charge = kind <= kTelephonePosting;
            QCOMPARE(node->isExpanded(), charge);
            QCOMPARE(ValueOf(view, node->child(0)).isEmpty(), charge);
            node->child(0)->setExpanded(true);
            QTreeWidgetItem* amount = node->child(0)->child(1);
            QCOMPARE(ValueOf(view, amount), amount->text(0) + u" = 18.00"_s);
            QCOMPARE(StoredRecords(JournalFile(project, Clock::Today()), project).size(),
                     kind == kRoomPosting ? 2 : 1);
        }
        QVERIFY(ValueOf(view, tree->find(PostingProject(kRoomPosting)))
                    .startsWith(u"房费明细信息 = "_s));

        QCOMPARE(DelBills(kFolio, kRoomPosting, u"1"), 0);
        view->command(u"FreshCmd")->click();
        QCOMPARE(tree->find(PostingProject(kRoomPosting))->childCount(), 0);
        QCOMPARE(tree->find(PostingProject(kFoodPosting))->childCount(), 1);
        const QString project = PostingProject(kRoomPosting);
        const QStringList journal = StoredRecords(JournalFile(project, Clock::Today()), project);
        QCOMPARE(journal.size(), 3);
        QCOMPARE(GetTag(journal.last(), posting::kAmount), u"-18.00"_s);
    }

    void tellsOfAFolioThatIsNotOpen_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("words");
        QTest::addColumn<bool>("retired");
        QTest::addColumn<int>("rows");
        QTest::newRow("open") << kFolio << QString() << QString() << false << 2;
        QTest::newRow("open, full-width digits")
            << u"２６０３０５１０００００"_s << QString() << QString() << false << 2;
        QTest::newRow("retired") << kOther << u"说明"_s << u"该结账号已经过期或结清！"_s << true
                                 << 2;
        QTest::newRow("never opened")
            << u"000000000001"_s << u"错误"_s << u"没有这个结账号，请核对！"_s << true << 0;
        QTest::newRow("too short") << u"26030510000"_s << QString() << QString() << false << 0;
        QTest::newRow("a letter") << u"26030510000A"_s << QString() << QString() << false << 0;
    }
    void tellsOfAFolioThatIsNotOpen() {
        QFETCH(QString, typed);
        CheckIn(kOther, {{u"8102"_s}}, {u"王一"_s});
        SaveBills(kOther, kRoomPosting, Charge(kRoomPosting, u"20.00"_s));
        QCOMPARE(DelJzh(kOther), 0);
        CheckIn(kFolio, {{u"8101"_s}}, {u"陈志远"_s});
        Screen* view = Opened(u"JzhxxFrm");
        TypeText(BoxOf(view), typed);
        QTEST(messages_->entries().isEmpty() ? QString() : messages_->entries().last().title,
              "title");
        QTEST(messages_->last(), "words");
        QCOMPARE(messages_->entries().size(), messages_->last().isEmpty() ? 0 : 1);
        QTEST(BoxOf(view)->isRetired(), "retired");
        QCOMPARE(BoxOf(view)->property("Tag").toString(),
                 BoxOf(view)->isRetired() ? kRetiredFolio.toString() : QString());
        QTEST(In<GridView>(view, u"JzhmxQd"_s)->table().dataRows(), "rows");
        // the ledger of a retired folio can still be read
        QCOMPARE(TreeOf(view)->find(PostingProject(kRoomPosting)) != nullptr, typed == kOther);

        BoxOf(view)->setFolio(kFolio);
        QVERIFY(!BoxOf(view)->isRetired());
        QTest::keyClick(BoxOf(view), Qt::Key_Escape);
        QCOMPARE(BoxOf(view)->currentText(), QString());
        QVERIFY(view->isVisible());
        QCOMPARE(In<GridView>(view, u"JzhmxQd"_s)->table().dataRows(), 0);
    }

    void aPartOfFortyRooms() {
        QList<RoomSpec> rooms;
        QStringList guests;
        for (int n = 1; n <= 40; ++n) {
            rooms.append({QString::number(8100 + n)});
            guests.append(u"团员%1"_s.arg(n));
        }
        CheckIn(kFolio, rooms, guests);
        for (int night = 0; night < 40; ++night)
            SaveBills(kFolio, kRoomPosting, Charge(kRoomPosting, u"288.00"_s));
        const TextTable& list = In<GridView>(Opened(u"JzhxxFrm", kFolio), u"JzhmxQd"_s)->table();
        QCOMPARE(list.dataRows(), 41);
        QCOMPARE(list.row(1).first(2), QStringList({u"基本信息"_s, u"团员1"_s}));
        QCOMPARE(list.row(41).first(2), QStringList({u"8140"_s, u"团员40"_s}));
        RecordTree* ledger = TreeOf(FindScreen(u"JzhxxFrm"));
        QCOMPARE(ledger->find(PostingProject(kRoomPosting))->childCount(), 40);

        Screen* picker = Opened(u"Jzhfrm");
        const QTreeWidgetItem* node = TreeOf(picker)->find(folio_record::kProject, kFolio);
        QVERIFY(node->text(3).startsWith(u"40 间：8101 8102"_s));
        for (const QString& typed : {u"8140"_s, u"团员40"_s, u"ty4"_s}) {
            In<QLineEdit>(picker, u"Search"_s)->setText(typed);
            QCOMPARE(Shown(picker), QStringList(kFolio));
        }
    }

    void findsAFolioAmongManyByTyping_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QStringList>("found");
        QTest::newRow("digits of the number") << u"00150"_s << QStringList(u"260301000150"_s);
        QTest::newRow("room") << u"1007"_s << QStringList(u"260301000007"_s);
        QTest::newRow("guest") << u"客人1123"_s << QStringList(u"260301000123"_s);
        QTest::newRow("initials") << u"kr1199"_s << QStringList(u"260301000199"_s);
        QTest::newRow("nobody") << u"XX"_s << QStringList();
    }
    void findsAFolioAmongManyByTyping() {
        QFETCH(QString, typed);
        QFETCH(QStringList, found);
        OpenFolios(200);
        auto* picker = qobject_cast<Jzhfrm*>(Opened(u"Jzhfrm"));
        QCOMPARE(Shown(picker).size(), 200);
        TypeText(In<QLineEdit>(picker, u"Search"_s), typed);
        QCOMPARE(Shown(picker), found);
        QCOMPARE(picker->picked(), found.value(0));
        QTest::keyClick(picker->focusWidget(), Qt::Key_Return);
        QCOMPARE(FindScreen(u"JzhxxFrm") != nullptr, !found.isEmpty());
        if (!found.isEmpty())
            QCOMPARE(BoxOf(FindScreen(u"JzhxxFrm"))->folio(), found.first());

        // the box of the detail view finds it by the same
        Screen* view = Opened(u"JzhxxFrm");
        QTimer::singleShot(0, this, [] { // without a hit it asks
            if (QWidget* question = QApplication::activeModalWidget())
                question->close();
        });
        TypeText(BoxOf(view), typed);
        QTest::keyClick(BoxOf(view), Qt::Key_Return);
        QCOMPARE(BoxOf(view)->folio(), found.value(0));
    }

    void keysOfThePicker() {
        OpenFolios(3);
        auto* picker = qobject_cast<Jzhfrm*>(Opened(u"Jzhfrm"));
        auto* search = In<QLineEdit>(picker, u"Search"_s);
        QCOMPARE(picker->picked(), u"260301000000"_s);
        QTest::keyClick(search, Qt::Key_Down);
        QCOMPARE(picker->picked(), u"260301000001"_s);
        QTest::keyClick(TreeOf(picker), Qt::Key_2);
        QCOMPARE(search->text(), u"2"_s);
        TreeOf(picker)->setCurrentItem(TreeOf(picker)->topLevelItem(0));
        QCOMPARE(picker->picked(), QString()); // a project is no folio

        OpenFolios(4);
        QTest::keyClick(search, Qt::Key_Escape);
        QVERIFY(picker->isVisible());
        QCOMPARE(Shown(picker).size(), 4);
        QTest::keyClick(search, Qt::Key_F10);
        QVERIFY(!picker->isVisible());
    }

    void answersAsAQuestion() {
        OpenFolios(3);
        const auto ask = [this](Qt::Key key) {
            QTimer::singleShot(300, this, [key] {
                QTest::keyClick(QApplication::activeModalWidget()->focusWidget(), key);
            });
            return PickFolio(nullptr, u"1002"_s);
        };
        QCOMPARE(ask(Qt::Key_Return), u"260301000002"_s);
        QCOMPARE(ask(Qt::Key_F10), std::nullopt);
        QVERIFY(!FindScreen(u"JzhxxFrm"));
    }

    void closingEndsALoad() {
        OpenFolios(3000);
        Jzhfrm picker;
        picker.show();
        QTimer::singleShot(0, &picker, &QWidget::close);
        picker.run([&] { picker.load({}); });
        QVERIFY(!picker.isVisible());
        QCOMPARE(TreeOf(&picker)->property("Tag").toString(), u"Abort"_s);
        QVERIFY(Shown(&picker).size() < 3000);
    }

    void aLostLinkLeavesTheScreensUsable() {
        CheckIn(kFolio, {{u"8101"_s}}, {u"陈志远"_s});
        SaveBills(kFolio, kRoomPosting, Charge(kRoomPosting, u"20.00"_s));
        Screen* view = Opened(u"JzhxxFrm", kFolio);
        Screen* picker = Opened(u"Jzhfrm");
        hotel_->stopServer();
        view->command(u"FreshCmd")->click();
        QCOMPARE(messages_->last(), u"没有这个结账号，请核对！"_s);
        QVERIFY(BoxOf(view)->isRetired());
        QCOMPARE(TreeOf(view)->topLevelItemCount(), 0);
        picker->command(u"FreshCmd")->click();
        QCOMPARE(Shown(picker), QStringList());
        QVERIFY(!picker->command(u"OkCmd")->isEnabled());

        hotel_->startServer(); // nobody is logged in there
        picker->command(u"FreshCmd")->click();
        QVERIFY(Says(picker, u"账号清单没有读完，按 Esc 再读"_s));
        Desk again(hotel_->port());
        again.logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
        view->command(u"FreshCmd")->click();
        QVERIFY(!BoxOf(view)->isRetired());
        QCOMPARE(TreeOf(view)->find(PostingProject(kRoomPosting))->childCount(), 1);
        picker->command(u"FreshCmd")->click();
        QCOMPARE(Shown(picker), QStringList(kFolio));
    }

    void photographOfAGuest() {
        const QTemporaryDir folder;
        QImage picture(40, 30, QImage::Format_RGB32);
        picture.fill(Qt::darkGreen);
        QVERIFY(picture.save(folder.filePath(u"a.jpg"_s)));
        QCOMPARE(DbUploadFile(folder.filePath(u"a.jpg"_s), GuestPhotographFile(u"a.jpg")), 0);
        SaveRecord(OpenFolioFile(), folio_record::kProject, kFolio,
                   u"<基本信息><人像照片>a.jpg</人像照片></基本信息>"
                   "<8101><床位01><人像照片>b.jpg</人像照片></床位01></8101>");
        Screen* view = Opened(u"JzhxxFrm", kFolio);
        auto* list = In<GridView>(view, u"JzhmxQd"_s);
        const auto* frame = view->findChild<PhotoFrame*>();
        Q_EMIT list->rowClicked(1, 0);
        QCOMPARE(frame->photo().size(), QSize(40, 30));
        QVERIFY(messages_->entries().isEmpty());
        Q_EMIT list->rowClicked(2, 0);
        QVERIFY(frame->photo().isNull());
        QCOMPARE(messages_->entries().size(), 1);
        QCOMPARE(messages_->entries().first().title, u"提示"_s);
        QCOMPARE(messages_->last(), u"照片文件读取失败，若需要查看，请再次点击本行！"_s);
    }
};

HOTEL_TEST(FolioScreensTest)
#include "test_folio_screens.moc"
