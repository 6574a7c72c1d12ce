#include <QTest>

#include "app/demo/exchange.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "telephone/call_rating.h"
#include "telephone/call_tables.h"
#include "tests/hotel_test.h"
#include "tests/test_hotel.h"

using namespace hotel;

class ExchangeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // The calls of a day are in it and in their order, dial what the tariff knows, and carry no mark.
    void playsADay() {
        const TestHotel hotel;
        QRandomGenerator random(1);
        const QStringList extensions = PlayedExtensions(BillingFiles());
        QCOMPARE(extensions.size(), 123);
        const RatingTables tables = RatingTablesOf(ReadCallTables(BillingFiles()), {});
        const QDate day(2026, 3, 5);
        const QList<PlayedCall> calls = PlayDay(random, extensions, day, QTime(12, 0), 500);
        QCOMPARE(calls.size(), 500);
        QDateTime before(day, QTime(0, 0));
        int startless = 0;
        int inSeconds = 0;
        for (const PlayedCall& call : calls) {
            QVERIFY(call.end >= before && call.end < QDateTime(day, QTime(12, 0)));
            before = call.end;
            QVERIFY(GetTag(call.record, u"标志").isEmpty());
            const RatedCall rated = RateCall(call.record, tables);
            QCOMPARE(rated.problem, QString());
            QVERIFY(!GetTag(rated.record, u"使用者").isEmpty());
            QCOMPARE(GetTag(rated.record, u"话终日期") + u' ' + GetTag(rated.record, u"话终时间"),
                     call.end.toString(u"yyyy-MM-dd HH:mm:ss"));
            startless += int(GetTag(call.record, u"话始时间").isEmpty());
            inSeconds += int(!GetTag(call.record, u"通话时长").contains(u':'));
        }
        QVERIFY(startless > 50 && startless < 450);
        QVERIFY(inSeconds > 50 && inSeconds < 450);
        QCOMPARE(PlayDay(random, extensions, day, QTime(0, 0), 1).size(), 1);
    }

    void numbersCallsOn() {
        TestHotel hotel;
        QRandomGenerator random(2);
        const BillingFiles files;
        const auto play = [&](QDate day, int calls) {
            return PlayDay(random, {u"8201"_s}, day, QTime(9, 0), calls);
        };
        QCOMPARE(WriteCalls(files, play(QDate(2026, 3, 4), 2) + play(QDate(2026, 3, 5), 3)), 5);
        QCOMPARE(WriteCalls(files, play(QDate(2026, 3, 5), 4), [](int done) { return done < 2; }),
                 2);
        const auto extension = [&](const QString& file, const QString& name) {
            return GetTag(hotel.stored(file, u"电话详细话单"_s, name), u"分机号");
        };
        const QString today = u"Bill\\26\\03\\260305.QVR"_s;
        QCOMPARE(extension(u"Bill\\26\\03\\260304.QVR"_s, u"2"_s), u"8201"_s);
        QCOMPARE(extension(today, u"5"_s), u"8201"_s);
        QCOMPARE(extension(today, u"6"_s), QString());
        hotel.stopServer();
        QCOMPARE(WriteCalls(files, play(QDate(2026, 3, 5), 1)), 0);
    }
};

HOTEL_TEST(ExchangeTest)

#include "test_exchange.moc"
