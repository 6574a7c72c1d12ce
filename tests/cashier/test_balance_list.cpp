#include <QPointer>
#include <QTest>
#include <QTimer>

#include "cashier/balance_list.h"
#include "house/folios/folio_posting.h"
#include "link/records.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "tests/hotel_test.h"
#include "tests/house/small_house.h"
#include "tools/lists/CmnGrd.h"

using namespace hotel;

namespace {

const QString kFolio = u"260304200000"_s;
const QString kGroup = u"260304210000"_s;
const QString kEmpty = u"260305080000"_s;

// A screen that tells what it was opened with.
class Charges : public Screen {
public:
    Charges() : Screen(u"FyxxFrm"_s, u"账务"_s) {}
    void load(const QVariant& folio) override { opened.append(folio.toString()); }
    static inline QStringList opened;
};

void OpenFolios() {
    SaveProject(u"kzxx\\Jzh.QVR", u"结账号信息",
                u"<260304200000><基本信息><客人姓名>王一</客人姓名></基本信息>"
                "<101><床位01><客人姓名>王一</客人姓名></床位01></101></260304200000>"
                "<260304210000><102><床位01><客人姓名>李二</客人姓名></床位01></102>"
                "<103><床位01><客人姓名>张三</客人姓名></床位01></103></260304210000>"
                "<260305080000><基本信息><客人姓名>赵四</客人姓名></基本信息></260305080000>");
    SaveProject(u"kfxx\\Kfjbxx.QVR", u"客房基本信息",
                u"<101><房间号>101</房间号><电话号码>8101</电话号码></101>"
                "<102><房间号>102</房间号><电话号码>8102</电话号码></102>"
                "<103><房间号>103</房间号><电话号码>8103</电话号码></103>");
}

void Post(const QString& folio, int kind, const QString& field, const QString& amount) {
    QCOMPARE(SaveBills(folio, kind, u"<%1>%2</%1>"_s.arg(field, amount)).status, 0);
}

void PostEverything() {
    Post(kFolio, kDepositPosting, u"实收金额"_s, u"1000.00"_s);
    Post(kFolio, kDepositPosting, u"信用金额"_s, u"500.50"_s);
    Post(kFolio, kRoomPosting, u"金额"_s, u"258.00"_s);
    Post(kFolio, kRoomPosting, u"金额"_s, u"129.05"_s);
    Post(kFolio, kFoodPosting, u"金额"_s, u"36.10"_s);
    Post(kFolio, kBroadbandPosting, u"金额"_s, u"10.20"_s);
    Post(kFolio, kTelephonePosting, u"金额"_s, u"3.30"_s);
    Post(kFolio, kServicePosting, u"金额"_s, u"20.40"_s);
    Post(kGroup, kRoomPosting, u"金额"_s, u"0.01"_s);
}

CmnGrd* List() {
    return static_cast<CmnGrd*>(FindScreen(u"CmnGrd"));
}

QStringList Listed() {
    QStringList folios;
    for (int row = 1; List() && row < List()->Grd().rows(); ++row)
        folios.append(List()->Grd().text(row, u"结账号"));
    return folios;
}

} // namespace

class BalanceListTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHotel> hotel_;
    std::unique_ptr<MessageRecorder> messages_;

    // Asks with these answers; gives what was said behind the questions.
    QString ask(const QList<std::optional<QString>>& answers) {
        CloseAllScreens();
        messages_->clear();
        for (const auto& answer : answers)
            messages_->answerNext(answer);
        OpenBalanceList(nullptr);
        QStringList said;
        for (const MessageRecorder::Entry& entry : messages_->entries()) {
            if (entry.kind != MessageRecorder::Kind::Input)
                said.append(entry.title + u": "_s + entry.words);
        }
        return said.join(u'|');
    }

private Q_SLOTS:
    void initTestCase() {
        RegisterScreen(u"FyxxFrm", [] { return new Charges; });
    }
    void init() {
        hotel_ = std::make_unique<TestHotel>();
        messages_ = std::make_unique<MessageRecorder>();
        OpenFolios();
    }
    void cleanup() {
        CloseAllScreens();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        hotel_.reset();
    }

    void listsAllFolios() {
        PostEverything();
        QCOMPARE(ask({QString()}), QString());
        QCOMPARE(messages_->entries().first().title, u"请输入"_s);
        QCOMPARE(messages_->last(),
                 u"请输入账号信用余额下限，小于下限的账号将显示，不输入表示所有账号均列出："_s);
        QCOMPARE(List()->windowTitle(), u"记账号费用金额清单（2026-03-05）"_s);
        QCOMPARE(List()->Grd().headers(),
                 QStringList({u"结账号"_s, u"房间号"_s, u"客人姓名"_s, u"电话号码"_s, u"房费类"_s,
                              u"餐饮娱乐"_s, u"宽带网络"_s, u"电话费"_s, u"总消费"_s, u"总信用额"_s,
                              u"总实收额"_s, u"信用余额"_s}));
        QCOMPARE(List()->Grd().row(1),
                 QStringList({kFolio, u"101"_s, u"王一"_s, u"8101"_s, u"387.05"_s, u"36.10"_s,
                              u"10.20"_s, u"3.30"_s, u"457.05"_s, u"500.50"_s, u"1000.00"_s,
                              u"1043.45"_s}));
        QCOMPARE(List()->Grd().row(2).mid(0, 5),
                 QStringList({kGroup, u"102,103"_s, u"李二"_s, u"8102,8103"_s, u"0.01"_s}));
        QCOMPARE(List()->Grd().text(2, u"信用余额"), u"-0.01"_s);
        QCOMPARE(List()->Grd().row(3).mid(0, 5),
                 QStringList({kEmpty, QString(), u"赵四"_s, QString(), u"0.00"_s}));
    }

    void limits() {
        PostEverything();
        const auto row = [&](const char* typed, const QStringList& folios) {
            Check(typed, ask({QString::fromUtf8(typed)}),
                  folios.isEmpty() ? u"余额查验: 没有找到满足条件的账号！"_s : QString());
            Check(typed, Listed(), folios);
        };
        row("1043.46", {kFolio, kGroup, kEmpty});
        row("1043.45", {kGroup, kEmpty});
        row("0", {kGroup});
        row("-0.01", {});
        row("２０００/2", {kGroup, kEmpty});
        row(" ", {kFolio, kGroup, kEmpty});
        ask({u"500"_s});
        QCOMPARE(List()->windowTitle(), u"记账号费用金额清单（信用额小于500.00，2026-03-05）"_s);
        QCOMPARE(ask({std::nullopt}), QString());
        QVERIFY(!List());
        QVERIFY(ask({u"五百"_s, u"0"_s}).startsWith(u"余额查验: 余额下限应当是金额："_s));
        QCOMPARE(Listed(), QStringList{kGroup});
    }

    void opensTheCharges() {
        PostEverything();
        ask({QString()});
        GridView* rows = List()->GrdView();
        QTRY_COMPARE(rows->table().dataRows(), 3);
        Charges::opened.clear();
        rows->setCurrent(2, 3);
        QTest::keyClick(rows, Qt::Key_Return);
        QCOMPARE(Charges::opened, QStringList{kGroup});
        rows->sortBy(1, true);
        rows->setCurrent(1, 3);
        QTest::keyClick(rows, Qt::Key_Space);
        QCOMPARE(Charges::opened, QStringList({kGroup, kEmpty}));
    }

    void aPartysRooms() {
        const auto row = [](const QStringList& rooms, const QString& shown,
                            const QString& numbers) {
            const QStringList cells = BalanceCells({kFolio, {u"王一"_s, rooms, {}}, rooms, {}});
            QCOMPARE(cells[1], shown);
            QCOMPARE(cells[3], numbers);
        };
        row({u"101"_s, u"102"_s, u"103"_s}, u"101,102,103"_s, u"101,102,103"_s);
        row({u"101"_s, u"102"_s, u"103"_s, u"104"_s}, u"101等4间"_s, u"101等4部"_s);
    }

    // What could not be read is no zero.
    void aLedgerThatCanNotBeRead() {
        const FolioBalance unread{kFolio, {u"王一"_s, {u"101"_s}, {}}, {u"8101"_s}, {}};
        QCOMPARE(BalanceCells(unread), (QStringList{kFolio, u"101"_s, u"王一"_s, u"8101"_s} +
                                        QStringList(8, u"读取失败"_s)));
        QVERIFY(IsBelow(unread, Money()));
        hotel_->stopServer();
        QCOMPARE(ask({QString()}), u"余额查验: 账号清单读取失败，请稍候再试！"_s);
        QVERIFY(!List());
    }

    // Closing the list, as Esc, ends the walk; what was found by then is shown, or gone with the window.
    void canBeStopped() {
        QString folios;
        for (int n = 0; n < 300; ++n)
            folios +=
                u"<%1><基本信息><客人姓名>客</客人姓名></基本信息></%1>"_s.arg(260301000000 + n);
        SaveProject(u"kzxx\\Jzh.QVR", u"结账号信息", folios);
        QTimer press;
        connect(&press, &QTimer::timeout, [&press] {
            if (List() && List()->Grd().dataRows() > 20) {
                press.stop();
                QTest::keyClick(List(), Qt::Key_Escape);
            }
        });
        press.start(1);
        QCOMPARE(ask({QString()}), QString());
        QVERIFY(Listed().size() > 20 && Listed().size() < 300);
    }
};

HOTEL_TEST(BalanceListTest)
#include "test_balance_list.moc"
