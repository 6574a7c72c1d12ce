#include "house/room_status.h"
#include "tests/hotel_test.h"
#include "tests/house/small_house.h"

using namespace hotel;

class RoomStatusTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void words() {
        const auto row = [](const QString& status, bool vacant, bool shared, bool fromReception) {
            Check(qUtf8Printable(status), IsVacant(status), vacant);
            Check(qUtf8Printable(status), IsShared(status), shared);
            Check(qUtf8Printable(status), IsReceptionStatus(status), fromReception);
        };
        row(u"空房"_s, true, false, false);
        row(u"空闲"_s, true, false, false);
        row(u"休闲预留"_s, true, false, false);
        row(u"散客"_s, false, true, true);
        row(u"散客合住"_s, false, true, false);
        row(u"包房"_s, false, false, true);
        row(u"钟点"_s, false, false, true);
        row(u"免费"_s, false, false, false);
        row(u"脏房"_s, false, false, false);
    }

    void changeByHand() {
        const QString reception = u"不能操作: 这种房态不能直接设定，必须通过接待等渠道设定！"_s;
        const QString guestsInside =
            u"操作错误: 目前该房间还有客人,不能随便更换房态,请先给客人换房!"_s;
        // The decision is "yes", "" for nothing to do, or title: words.
        const auto row = [](const QString& before, const QString& wished, int guests,
                            const QString& decision) {
            const StatusDecision made = DecideStatusChange(before, wished, guests);
            const QString told = Words(made.refusal) + (made.change ? u"yes" : u"");
            Check(qUtf8Printable(before + u" to " + wished), told, decision);
        };
        row(u"脏房"_s, u"空房"_s, 0, u"yes"_s);
        row(u"脏房"_s, u"脏房"_s, 0, {});
        row(u"包房"_s, u"包房"_s, 2, {});
        row(u"空房"_s, u"散客"_s, 0, reception);
        row(u"空房"_s, u"团队"_s, 0, reception);
        row({}, u"包房"_s, 0, reception);
        row({}, u"空房"_s, 0, u"yes"_s);
        row(u"空房"_s, u"免费"_s, 0, u"yes"_s);
        row(u"空房"_s, u"维修"_s, 3, u"yes"_s); // a stale count hinders nobody
        row(u"散客"_s, u"空房"_s, 1, reception);
        row(u"散客"_s, u"空房"_s, 0, u"yes"_s);
        row(u"散客"_s, u"包房"_s, 0, u"yes"_s); // only the old status counts then
        row(u"免费"_s, u"空房"_s, 0, u"yes"_s);
        row(u"免费"_s, u"空房"_s, 1, guestsInside);
        row(u"免费"_s, u"包房"_s, 0, u"yes"_s);
        row(u"散客合住"_s, u"空房"_s, 1, u"yes"_s); // none of the six words
    }
};

HOTEL_TEST(RoomStatusTest)
#include "test_room_status.moc"
