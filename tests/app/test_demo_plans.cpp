// What the demo hotel has planned, audited from outside.

#include <QMap>

#include "app/demo/plans.h"
#include "house/common/paths.h"
#include "house/guests/guest_text.h"
#include "house/guests/stay_register.h"
#include "house/stays/house_calendar.h"
#include "link/records.h"
#include "platform/clock.h"
#include "record/field_walk.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "tests/hotel_test.h"
#include "tests/test_hotel.h"
#include "tools/aids/categories.h"

using namespace hotel;

namespace {

constexpr int kDays = 60;
const QDateTime kOpening(QDate(2026, 3, 5), QTime(10, 0)); // a Thursday
const QDate kLastMonday(2026, 3, 2);

using Records = QMap<QString, QString>;

Records RecordsIn(const QString& file, const QString& project) {
    Records records;
    const QString whole = ReadProject(file, project);
    for (FieldWalk record(whole); record.next();)
        records.insert(record.name().toString(), record.value().toString());
    return records;
}

QString Iso(QDate day) {
    return day.toString(u"yyyy-MM-dd");
}

} // namespace

class DemoPlansTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        hotel_ = std::make_unique<TestHotel>();
        // A tour group that has come and gone, guests by the hour, a long stay.
        arrive(u"260110150000"_s, u"2026-01-10"_s, u"2026-01-12"_s, u"团队"_s,
               {u"8301"_s, u"8302"_s, u"8303"_s, u"8304"_s});
        arrive(u"260111130000"_s, u"2026-01-11"_s, u"2026-01-11"_s, u"钟点"_s, {u"8206"_s});
        arrive(u"260303120000"_s, u"2026-03-03"_s, u"2026-04-02"_s, u"长包"_s, {u"8315"_s});
        SaveRmRec(u"8315", SetTag({}, GuestTag(1),
                                  u"<客人姓名>客8315</客人姓名>"
                                  u"<预计离店>2026-04-02</预计离店>"));
        SetKfjbxx(u"8315", SetTag(SetTag(GetKfjbxx(u"8315"), u"房态", u"长包"), u"住客数", u"1"));
        SetKfft(u"8413", u"维修");
        KeepPlans({.at = kOpening,
                   .setServerClock = [this](const QDateTime& at) { hotel_->setServerClock(at); },
                   .days = kDays});
    }
    void cleanupTestCase() { hotel_.reset(); }

    // Live or in the month of the number, never both; made in the two months; done when in the history.
    void eachPlanIsInOnePlace() {
        const auto row = [](const char* name, const QString& folder, const QString& live,
                            const QString& project, QStringView outcome, int leastLive,
                            int leastDone) {
            const Records open = RecordsIn(folder + live, project);
            QStringList numbers = open.keys();
            int done = 0;
            for (const QString& month : {u"2601"_s, u"2602"_s, u"2603"_s}) {
                const Records closed = RecordsIn(folder + u"26\\" + month + u".QVR", project);
                for (const auto& [number, record] : closed.asKeyValueRange()) {
                    Check(name, number.left(4), month);
                    Check(name, GetTag(record, outcome).isEmpty(), false);
                    numbers.append(number);
                    ++done;
                }
            }
            Check(name, numbers.removeDuplicates(), qsizetype(0));
            for (const QString& number : numbers) {
                const QDateTime made = QDateTime::fromString(u"20"_s + number, u"yyyyMMddHHmmss"_s);
                Check(name, made >= kOpening.addDays(-kDays - 1) && made < kOpening, true);
                Check(name, made.time().hour() >= 7 && made.time().hour() < 21, true);
            }
            Check(name, open.size() >= leastLive && done >= leastDone, true);
        };
        row("reservations", u"ydxx\\"_s, u"Kfydxx.QVR"_s, u"客房预订信息"_s, u"预定状态", 23, 5);
        row("repairs", u"wxzl\\"_s, u"wxzl.QVR"_s, u"维修信息"_s, u"维修结果", 2, 20);
        row("receivables", u"yskzl\\"_s, u"ysk.QVR"_s, u"应收款信息"_s, u"收款结果", 7, 8);
        QCOMPARE(Clock::Now(), kOpening);
    }

    void whoHasComeHadBooked() {
        const auto booked = [](const QString& file, const QString& guest) {
            for (const QString& record : RecordsIn(file, u"客房预订信息"_s)) {
                if (GetTag(record, u"客人姓名") == guest)
                    return record;
            }
            return QString();
        };
        const QString group = booked(u"ydxx\\26\\2601.QVR"_s, u"客8301"_s);
        QCOMPARE(GetTag(group, u"预定状态"), u"完成"_s);
        QCOMPARE(GetTag(group, u"预计到达"), u"2026-01-10"_s);
        QCOMPARE(GetTag(group, u"预计离店"), u"2026-01-12"_s);
        QCOMPARE(GetTag(group, u"订房间数"), u"4"_s);
        QCOMPARE(GetTag(group, u"经办单位"), u"销售部"_s);
        QCOMPARE(GetTag(group, u"备注信息"), u"房价198.00"_s);
        QCOMPARE(GetTag(GetTag(group, u"预留客房"), u"004"), u"8304"_s);
        QString stays;
        for (const QString& file : {u"ydxx\\26\\2602.QVR"_s, u"ydxx\\Kfydxx.QVR"_s})
            stays += booked(file, u"客8315"_s);
        QCOMPARE(GetTag(stays, u"预定状态"), u"实施"_s);
        for (const QString& month : {u"2601"_s, u"2602"_s, u"2603"_s})
            QCOMPARE(booked(u"ydxx\\26\\"_s + month + u".QVR", u"客8206"_s), QString());
    }

    // All rooms held for those to come are free then, but the one that is promised twice.
    void oneRoomIsHeldTwice() {
        const CalendarReading reading = ReadCalendarSource();
        const HouseCalendar calendar =
            ReckonCalendar(*reading.source, kOpening.date(), kOpening.date(), 40);
        QStringList twice;
        int spans = 0;
        for (const CalendarType& type : calendar.types) {
            for (const CalendarRoom& room : type.rooms) {
                spans += int(room.spans.size());
                if (room.lanes > 1)
                    twice.append(type.name + u' ' + QString::number(room.spans.size()));
            }
        }
        QCOMPARE(twice, QStringList{u"行政套房 2"_s});
        QVERIFY2(spans > 60, qPrintable(QString::number(spans)));
        QVERIFY(calendar.unknown.empty() && calendar.undated == 0);
        QVERIFY(calendar.open.size() >= 6);
    }

    // What is chosen stands on its list; what is closed was closed after it was made, and what was closed ahead of
    // the last Monday is tidied away.
    void wordsAndDates() {
        const auto row = [](const char* name, const QString& file, const QString& project,
                            QStringView madeOn, QStringView closedOn,
                            const QList<std::pair<QString, QString>>& fields) {
            const Records live = RecordsIn(file, project);
            for (const QString& record : live) {
                const QString closed = GetTag(record, closedOn);
                Check(name, closed.isEmpty() || closed >= Iso(kLastMonday), true);
            }
            const QString folder = file.left(file.indexOf(u'\\') + 1);
            QStringList records = live.values();
            for (const QString& month : {u"2601"_s, u"2602"_s, u"2603"_s})
                records += RecordsIn(folder + u"26\\" + month + u".QVR", project).values();
            for (const QString& record : records) {
                const QString closed = GetTag(record, closedOn);
                Check(name,
                      closed.isEmpty() || madeOn.isEmpty() || closed >= GetTag(record, madeOn),
                      true);
                for (const auto& [field, category] : fields) {
                    const QString word = GetTag(record, field);
                    Check(qPrintable(field + word),
                          word.isEmpty() || LoadCategory(category).contains(word), true);
                }
                const QString amount = GetTag(record, u"金额");
                Check(name, amount,
                      Money::FromText(amount).units() > 0 ? Money::FromText(amount).text()
                                                          : QString());
            }
        };
        row("repairs", u"wxzl\\wxzl.QVR"_s, u"维修信息"_s, u"报修日期", u"维修日期",
            {{u"目前状态"_s, u"目前状态"_s},
             {u"维修原因"_s, u"维修原因"_s},
             {u"维修结果"_s, u"维修结果"_s}});
        row("receivables", u"yskzl\\ysk.QVR"_s, u"应收款信息"_s, {}, u"收款日期",
            {{u"目前状态"_s, u"收款状态"_s},
             {u"收款原因"_s, u"收款原因"_s},
             {u"收款结果"_s, u"收款结果"_s}});
        row("reservations", u"ydxx\\Kfydxx.QVR"_s, u"客房预订信息"_s, {}, {},
            {{u"付款方式"_s, u"支付方式"_s}});
        const Records open = RecordsIn(u"wxzl\\wxzl.QVR"_s, u"维修信息"_s);
        QVERIFY(std::ranges::any_of(open, [](const QString& record) {
            return GetTag(record, u"房间号") == u"8413" && GetTag(record, u"维修结果").isEmpty();
        }));
    }

private:
    static void arrive(const QString& folio, const QString& arrival, const QString& departure,
                       const QString& status, const QStringList& rooms) {
        for (const QString& room : rooms)
            SaveDtRzKrQd(u"<房间号>%1</房间号><客人姓名>客%1</客人姓名><结账号>%2</结账号>"
                         u"<入住时间>15:00</入住时间><入住日期>%3</入住日期><预计离店>%4</预计离店>"
                         u"<房态>%5</房态><确认房价>198.00</确认房价>"_s.arg(room, folio, arrival,
                                                                             departure, status));
    }

    std::unique_ptr<TestHotel> hotel_;
};

HOTEL_TEST(DemoPlansTest)

#include "test_demo_plans.moc"
