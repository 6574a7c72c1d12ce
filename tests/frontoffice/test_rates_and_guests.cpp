#include <QPushButton>
#include <QTest>

#include "frontoffice/Fjxxfrm.h"
#include "frontoffice/KfxxFrm.h"
#include "house/rooms/rate_table.h"
#include "house/rooms/room_record.h"
#include "link/records.h"
#include "record/literals.h"
#include "screen/grid_view.h"
#include "screen/messages.h"
#include "tests/hotel_test.h"
#include "tests/test_hotel.h"
#include "tools/aids/categories.h"

using namespace hotel;

class RatesAndGuestsTest : public QObject {
    Q_OBJECT

    static void open(Screen& screen, const QVariant& argument = {}) {
        screen.show();
        screen.run([&] { screen.load(argument); });
    }

private Q_SLOTS:
    void ratesStayAsTheyWereReadUntilTheListIsOpenedAgain() {
        const TestHotel hotel;
        SaveProject(CategoryFile(), category::kRoomTypes,
                    u"<记录01><内容>单人间</内容><快捷键>DRJ</快捷键><房价>138</房价></记录01>"
                    "<记录02><内容>套房</内容><协议价>300</协议价></记录02>");
        Fjxxfrm rates;
        open(rates);
        const TextTable& shown = rates.findChild<GridView*>(u"FjxxQd"_s)->table();
        QCOMPARE(shown.headers(), QStringList({u"序号"_s, u"客房类型"_s, u"房价"_s, u"协议价"_s}));
        QCOMPARE(shown.row(2), QStringList({u"02"_s, u"套房"_s, {}, u"300"_s}));

        SaveProject(CategoryFile(), category::kRoomTypes,
                    u"<记录01><内容>单人间</内容><房价>150</房价></记录01>");
        QCOMPARE(RatesInUse().text(1, u"房价"), u"138"_s);
        rates.command(u"FreshCmd")->click();
        QCOMPARE(shown.dataRows(), 1);
        QCOMPARE(RatesInUse().text(1, u"房价"), u"150"_s);
    }

    void listsTheGuestsOfARoom() {
        const TestHotel hotel;
        QString guests;
        for (int bed = 1; bed <= 12; ++bed)
            guests +=
                u"<%1><客人姓名>客%2</客人姓名><付费客人>1</付费客人></%1>"_s.arg(GuestTag(bed))
                    .arg(bed);
        SaveRmRec(u"8101", guests);
        KfxxFrm form;
        open(form, u"8101"_s);
        const TextTable& shown = form.findChild<GridView*>(u"KrxxQd"_s)->table();
        QCOMPARE(shown.cols(), 23);
        QCOMPARE(shown.dataRows(), kBedLimit);
        QCOMPARE(shown.row(10).first(2), QStringList({u"10"_s, u"客10"_s}));
        QCOMPARE(shown.text(3, u"付费客人"), u"1"_s);
    }

    void aRoomWithoutGuestsClosesTheList_data() {
        QTest::addColumn<bool>("hasFile");
        QTest::newRow("never used") << false;
        QTest::newRow("left") << true;
    }
    void aRoomWithoutGuestsClosesTheList() {
        QFETCH(bool, hasFile);
        const TestHotel hotel;
        if (hasFile)
            SaveRmRec(u"8101", {});
        const MessageRecorder messages;
        KfxxFrm form;
        open(form, u"8101"_s);
        QCOMPARE(messages.entries().size(), 1);
        QCOMPARE(messages.entries().first().title, u"即将关闭"_s);
        QCOMPARE(messages.last(), u"该房间目前没有可供显示的相关数据！"_s);
        QVERIFY(!form.isVisible());
    }
};

HOTEL_TEST(RatesAndGuestsTest)
#include "test_rates_and_guests.moc"
