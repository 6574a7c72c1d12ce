// The demo hotel, audited from outside: what its registers, ledgers, journals, folios, rooms and figures say is
// read as a stranger would, reckoned a second time from who came and went, and must agree.

#include <QMap>
#include <QTest>

#include "app/demo/demo_guests.h"
#include "app/demo/expect.h"
#include "app/demo/weeks.h"
#include "house/common/paths.h"
#include "house/folios/folio.h"
#include "house/folios/folio_posting.h"
#include "house/folios/folio_totals.h"
#include "house/guests/departures.h"
#include "house/guests/guest_text.h"
#include "house/guests/stay_register.h"
#include "house/rooms/rate_table.h"
#include "house/rooms/room_record.h"
#include "house/rooms/room_status.h"
#include "house/stays/day_snapshots.h"
#include "link/records.h"
#include "link/serv_api.h"
#include "platform/clock.h"
#include "record/field_walk.h"
#include "record/literals.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "screen/messages.h"
#include "session/operation_log.h"
#include "tests/hotel_test.h"
#include "tests/test_hotel.h"

using namespace hotel;

namespace {

constexpr int kDaysOfTheTable = 26;
const QTime kAuditDone(2, 35);

bool HasItsCheckCharacter(QStringView identityNumber) {
    constexpr QStringView kCheck = u"10X98765432";
    int sum = 0;
    for (int i = 0; i < 17; ++i)
        sum += identityNumber[i].digitValue() * ((1 << (17 - i)) % 11);
    return identityNumber.size() == 18 && identityNumber[17] == kCheck[sum % 11];
}

struct Stay {
    QString guest; // as registered
    QString room;
    QString folio;
    QString status;
    Money price;
    int bed = 0;
    QDateTime came;
    QDateTime left; // invalid: still here
    Money lastCharge;

    bool byTheBed() const { return status == u"散客"; }
    // A room that is let as a whole is paid by its first bed, night after night.
    bool pays() const { return byTheBed() || bed == 1; }
    bool isAudited() const { return status != u"钟点" && status != u"免费"; }
    bool isHere(const QDateTime& at) const { return came <= at && (!left.isValid() || left > at); }
};

using Stays = QMap<QString, Stay>;  // by folio, room and bed
using Sums = QMap<QString, qint64>; // in ten-thousandths

QString KeyOf(QStringView guest) {
    return GetTag(guest, guest_text::kFolio) + u' ' + GetTag(guest, guest_text::kRoom) + u' ' +
           GetTag(guest, guest_text::kBed);
}

Money Amount(QStringView record, QStringView tag) {
    return Money::FromText(GetTag(record, tag));
}

QString Iso(QDate day) {
    return day.toString(u"yyyy-MM-dd");
}

Stay StayOf(const QString& guest) {
    using namespace guest_text;
    return {.guest = guest,
            .room = GetTag(guest, kRoom),
            .folio = GetTag(guest, kFolio),
            .status = GetTag(guest, kStatus),
            .price = Amount(guest, kPrice),
            .bed = GetTag(guest, kBed).toInt(),
            .came = {QDate::fromString(GetTag(guest, kArrivalDate), Qt::ISODate),
                     QTime::fromString(GetTag(guest, kArrivalTime).left(5), u"HH:mm"_s)},
            .left = {},
            .lastCharge = {}};
}

// What the last day costs, by the delivered times: nothing up to noon, a day behind it; hours are begun.
Money LastCharge(const Stay& stay) {
    if (stay.isAudited())
        return stay.left.time() > QTime(12, 0) ? stay.price : Money();
    if (stay.status != u"钟点")
        return {};
    const QString type = GetTag(stay.guest, guest_text::kRoomType);
    const Money hour = Money::FromText(RatesOfType(RatesInUse(), type).price(u"钟点价"));
    Money charge = stay.price;
    for (qint64 minutes = stay.came.secsTo(stay.left) / 60; minutes > 120; minutes -= 60)
        charge += hour;
    return charge;
}

int RecordsOf(const QString& project) {
    int records = 0;
    for (FieldWalk walk(project); walk.next();)
        ++records;
    return records;
}

void Add(Sums& sums, const QString& key, Money amount) {
    if ((sums[key] += amount.units()) == 0)
        sums.remove(key);
}

// A posting as both books have it, but for its number there.
QString Line(QStringView project, QStringView folio, const QString& record) {
    QStringList fields;
    for (FieldWalk field(record); field.next();) {
        if (field.name() != u"序号" && field.name() != u"结账号")
            fields.append(field.name() + u"="_s + field.value());
    }
    return project + u" "_s + folio + u' ' + fields.join(u',');
}

} // namespace

class DemoGuestsTest : public QObject {
    Q_OBJECT

    QDate first_;   // day of the audited house
    int weeks_ = 0; // days ahead of the table
    Stays stays_;
    QSet<QString> folios_; // that were ever open

    QList<QDate> days() const {
        QList<QDate> days;
        for (QDate day = first_; day <= Clock::Today(); day = day.addDays(1))
            days.append(day);
        return days;
    }

    // Who came is in the register of his day; who left, once, in that of departures.
    void readStays() {
        stays_.clear();
        folios_.clear();
        int departed = 0;
        for (const QDate day : days()) {
            const QString came =
                ReadProject(StayRegisterFile(Iso(day), Clock::Today()), stay_register::kProject);
            for (FieldWalk guest(came); guest.next();) {
                const Stay stay = StayOf(guest.value().toString());
                QVERIFY2(!stays_.contains(KeyOf(stay.guest)), qPrintable(KeyOf(stay.guest)));
                stays_[KeyOf(stay.guest)] = stay;
                folios_.insert(stay.folio);
            }
        }
        for (const QDate day : days()) {
            const QString left = ReadProject(DepartureFile(Iso(day)), departures::kProject);
            for (FieldWalk guest(left); guest.next(); ++departed) {
                Stay& stay = stays_[KeyOf(guest.value())];
                QVERIFY2(stay.came.isValid() && !stay.left.isValid(),
                         qPrintable(KeyOf(guest.value())));
                stay.left = {
                    day, QTime::fromString(GetTag(guest.value(), departures::kTime), u"HH:mm"_s)};
                stay.lastCharge = Amount(guest.value(), departures::kCharge);
                QVERIFY(stay.left > stay.came);
                if (stay.pays())
                    QCOMPARE(stay.lastCharge.text(), LastCharge(stay).text());
            }
        }
        QVERIFY(departed >= 11);
    }

    void checkGuests() {
        for (const Stay& stay : std::as_const(stays_)) {
            using namespace guest_text;
            QCOMPARE(TestKrRecFail(stay.guest), 0);
            QCOMPARE(stay.folio.left(6), stay.came.toString(u"yyMMdd"));
            if (GetTag(stay.guest, kDocumentKind) != kIdentityCard)
                continue;
            QVERIFY(HasItsCheckCharacter(GetTag(stay.guest, kDocumentNumber)));
            QVERIFY2(!GetTag(stay.guest, kAddress).split(u',').contains(QString()),
                     qPrintable(stay.guest));
        }
    }

    // Rooms hold who came and has not left, on folios that are open for nobody else.
    void checkHouse() {
        Stays present;
        QSet<QString> statuses;
        QSet<QString> rooms;
        for (const RoomEntry& room : LoadRooms()) {
            const QString status = GetTag(room.record, room_record::kStatus);
            const QString guests = GetKfrzxx(room.number);
            QCOMPARE(GetTag(room.record, room_record::kGuests).toInt(), RecordsOf(guests));
            for (FieldWalk guest(guests); guest.next();) {
                const QString key = KeyOf(guest.value());
                const Stay stay = stays_.value(key);
                QCOMPARE(GetTag(guest.value(), guest_text::kName),
                         GetTag(stay.guest, guest_text::kName));
                QCOMPARE(stay.room, room.number);
                QCOMPARE(status, stay.status);
                QVERIFY(GetTag(stay.guest, guest_text::kDeparture) >= Clock::DateText());
                const QString held =
                    GetTag(FindOpenFolio(stay.folio).value_or(QString()), stay.room);
                QCOMPARE(GetTag(GetTag(held, BedTag(stay.bed)), guest_text::kName),
                         GetTag(stay.guest, guest_text::kName));
                present[key] = stay;
                statuses.insert(status);
                rooms.insert(room.number);
            }
        }
        QSet<QString> open;
        for (auto stay = stays_.cbegin(); stay != stays_.cend(); ++stay) {
            QCOMPARE(present.contains(stay.key()), !stay->left.isValid());
            if (!stay->left.isValid())
                open.insert(stay->folio);
        }
        const QStringList folios = LoadJzhQd();
        QCOMPARE(QSet<QString>(folios.begin(), folios.end()), open);
        QVERIFY2(rooms.size() >= 35 && rooms.size() <= 50,
                 qPrintable(QString::number(rooms.size())));
        for (const QStringView status :
             {u"包房", u"散客", u"长包", u"钟点", u"会议", u"团队", u"免费"})
            QVERIFY2(statuses.contains(status.toString()), qPrintable(status.toString()));
        for (const QString& dirty : {u"8305"_s, u"8306"_s, u"8511"_s, u"8204"_s})
            QCOMPARE(GetTag(GetKfjbxx(dirty), room_record::kStatus), u"脏房"_s);
    }

    // Every posting of a ledger stands once in the journal of its day; what a journal has besides was taken
    // back on that day.
    void checkBooks() {
        QStringList ledgers;
        QStringList journals;
        int takenBack = 0;
        for (int kind = kDepositPosting; kind <= kServicePosting; ++kind) {
            const QString project = PostingProject(kind);
            for (const QString& folio : std::as_const(folios_)) {
                const QString ledger = ReadProject(LedgerFile(folio), project);
                for (FieldWalk posting(ledger); posting.next();)
                    ledgers.append(Line(project, folio, posting.value().toString()));
            }
            for (const QDate day : days()) {
                const QString journal = ReadProject(JournalFile(project, day), project);
                for (FieldWalk posting(journal); posting.next();) {
                    const QString record = posting.value().toString();
                    const QString folio = GetTag(record, u"结账号");
                    QCOMPARE(GetTag(record, u"日期"), Iso(day));
                    if (kind == kFoodPosting && Amount(record, u"金额") < Money()) {
                        const QString wrong =
                            SetTag(record, u"金额", (-Amount(record, u"金额")).text());
                        QVERIFY(journals.removeOne(Line(project, folio, wrong)));
                        ++takenBack;
                    } else {
                        journals.append(Line(project, folio, record));
                    }
                }
            }
        }
        ledgers.sort();
        journals.sort();
        QCOMPARE(journals.size(), ledgers.size());
        QCOMPARE(journals, ledgers);
        QCOMPARE(takenBack > 0, weeks_ > 4);
    }

    // Room income by folio and day, reckoned by nights and prices.
    void checkRoomIncome() {
        const QDate lastAudit = Clock::Today().addDays(Clock::Time() >= kAuditDone ? 0 : -1);
        Sums reckoned;
        Sums posted;
        for (const Stay& stay : std::as_const(stays_)) {
            if (!stay.pays())
                continue;
            const QDate last = stay.left.isValid() ? stay.left.date() : lastAudit;
            for (QDate day = stay.came.date().addDays(1); stay.isAudited() && day <= last;
                 day = day.addDays(1))
                Add(reckoned, stay.folio + u' ' + Iso(day), stay.price);
            if (stay.left.isValid())
                Add(reckoned, stay.folio + u' ' + Iso(stay.left.date()), LastCharge(stay));
        }
        for (const QDate day : days()) {
            const QString journal = ReadProject(JournalFile(u"房费明细信息", day), u"房费明细信息");
            for (FieldWalk posting(journal); posting.next();) {
                if (GetTag(posting.value(), u"费用名称") != u"加床费")
                    Add(posted, GetTag(posting.value(), u"结账号") + u' ' + Iso(day),
                        Amount(posting.value(), u"金额"));
            }
        }
        QVERIFY(!reckoned.isEmpty());
        QCOMPARE(posted, reckoned);
    }

    // Who has left owes nothing; who is here has something behind him.
    void checkBalances() {
        const QStringList open = LoadJzhQd();
        for (const QString& folio : std::as_const(folios_)) {
            const std::optional<FolioTotals> totals = LoadFolioTotals(folio);
            Money signedFor;
            const QString team = ReadProject(LedgerFile(folio), u"团队结算信息");
            for (FieldWalk posting(team); posting.next();)
                signedFor += Amount(posting.value(), u"金额");
            if (open.contains(folio))
                QVERIFY(totals->credit + totals->received > Money());
            else
                QCOMPARE((totals->received + signedFor).text(), totals->charges.text());
        }
    }

    // The figures of every evening, reckoned from who was there.
    void checkFigures() {
        const QList<RoomEntry> rooms = LoadRooms();
        for (const QDate day : days()) {
            const QDateTime evening(day, QTime(23, 59));
            const TextTable states = LoadSnapshot(DaySnapshot::RoomStates, day);
            const TextTable types = LoadSnapshot(DaySnapshot::SoldByType, day);
            const TextTable floors = LoadSnapshot(DaySnapshot::SoldByFloor, day);
            if (day == Clock::Today() && Clock::Time() < QTime(23, 45)) {
                QCOMPARE(states.dataRows() + types.dataRows() + floors.dataRows(), 0);
                continue;
            }
            QCOMPARE(states.dataRows(), rooms.size() + 1);
            QMap<QString, QList<Stay>> there;
            for (const Stay& stay : std::as_const(stays_)) {
                if (stay.isHere(evening))
                    there[stay.room].append(stay);
            }
            Money sold;
            qint64 beds = 0;
            for (int row = 1; row <= rooms.size(); ++row) {
                const QList<Stay> guests = there.value(states.text(row, u"房间号"));
                QCOMPARE(states.text(row, u"住客数").toInt(), guests.size());
                if (guests.isEmpty())
                    continue;
                QCOMPARE(states.text(row, u"房态"), guests.first().status);
                const int has = states.text(row, u"床位数").toInt();
                const bool byTheBed = guests.first().byTheBed();
                sold += Money::FromUnits(byTheBed ? guests.size() * 10'000 / has : 10'000);
                beds += byTheBed ? guests.size() : has;
            }
            for (const TextTable& list : {types, floors}) {
                const int total = list.rows() - 1;
                QCOMPARE(list.text(total, u"总房间数"), u"100.0"_s);
                QCOMPARE(list.text(total, u"售出房间数"), sold.text(u"#0.0"));
                QCOMPARE(list.text(total, u"售出床位数"), QString::number(beds));
            }
            QCOMPARE(floors.dataRows(), 7);
            QCOMPARE(types.dataRows(), 10);
            const double rate = floors.text(7, u"客房住宿率").toDouble();
            if (day >= Clock::Today().addDays(-weeks_) && day < Clock::Today().addDays(-2))
                QVERIFY2(std::abs(rate - OccupancyMeant(day)) <= 4, qPrintable(Iso(day)));
        }
    }

private Q_SLOTS:
    void addsUp_data() {
        const Columns<QTime, int> row("time", "days");
        row("in the morning, a week behind it", QTime(10, 0), 9);
        row("just behind midnight, some days behind it", QTime(0, 4, 30), 4);
        row("as the first arrive", QTime(7, 25), 0);
        row("late", QTime(23, 59, 59), 0);
    }

    void addsUp() {
        QFETCH(QTime, time);
        QFETCH(int, days);
        weeks_ = days;
        TestHotel hotel(TestHotel::Start::NobodyLoggedIn, 1000);
        const MessageRecorder messages;
        const QDateTime opening(QDate(2026, 3, 5), time);
        BringInGuests(
            {.at = opening,
             .setServerClock = [&hotel](const QDateTime& now) { hotel.setServerClock(now); },
             .days = days});
        QCOMPARE(Clock::Now(), opening);
        QCOMPARE(messages.words(), QStringList());
        hotel.desk().logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
        first_ = opening.date().addDays(-kDaysOfTheTable);
        for (const auto& check :
             {&DemoGuestsTest::readStays, &DemoGuestsTest::checkGuests, &DemoGuestsTest::checkHouse,
              &DemoGuestsTest::checkBooks, &DemoGuestsTest::checkRoomIncome,
              &DemoGuestsTest::checkBalances, &DemoGuestsTest::checkFigures}) {
            (this->*check)();
            if (QTest::currentTestFailed())
                return;
        }
        QCOMPARE(stays_.size() > 100, days > 0);
    }

    // The same weeks behind the same opening; fullest on Saturdays, emptiest on Sundays; everybody has left on
    // the day ahead of the opening.
    void weeksGoneBy() {
        const QList<RoomEntry> rooms = [] {
            const TestHotel hotel;
            return LoadRooms();
        }();
        const auto told = [&rooms](const QDateTime& opening, int days) {
            const DemoWeeks weeks = MakeDemoWeeks(opening, days, rooms);
            QStringList lines;
            for (const DemoParty& party : weeks.parties)
                lines.append(party.rooms.first().guests.first().name + u" "_s +
                             party.rooms.first().number +
                             party.arrives.from(opening).toString(u" MM-dd HH:mm"));
            for (const DemoDeparture& departure : weeks.departures) {
                if (departure.at.from(opening).date() >= opening.date())
                    lines.append(u"late"_s);
            }
            return lines;
        };
        const QDateTime opening(QDate(2026, 3, 5), QTime(0, 0, 30));
        const QStringList weeks = told(opening, 60);
        QVERIFY(weeks.size() > 1000);
        QCOMPARE(told(opening, 60), weeks);
        QVERIFY(!weeks.contains(u"late"_s));
        QCOMPARE(told(opening, 2), QStringList());
        QVERIFY(!told(opening, 3).isEmpty());
        for (QDate monday(2026, 1, 5); monday < QDate(2027, 1, 4); monday = monday.addDays(7)) {
            QList<int> meant;
            for (int day = 0; day < 7; ++day)
                meant.append(OccupancyMeant(monday.addDays(day)));
            QCOMPARE(std::ranges::max_element(meant) - meant.begin(), 5);
            QCOMPARE(std::ranges::min_element(meant) - meant.begin(), 6);
            QVERIFY(meant[5] <= 85 && meant[6] >= 45);
        }
    }

    // A house that isn't empty takes no second party in the same beds, and says so.
    void saysWhatDoesNotComeOut() {
        TestHotel hotel(TestHotel::Start::NobodyLoggedIn, 1000);
        const auto bringIn = [&hotel] {
            BringInGuests(
                {.at = TestHotel::Moment(),
                 .setServerClock = [&hotel](const QDateTime& now) { hotel.setServerClock(now); },
                 .days = 0});
        };
        bringIn();
        QVERIFY_EXCEPTION_THROWN(bringIn(), DemoFailure);
        hotel.stopServer();
        QVERIFY_EXCEPTION_THROWN(bringIn(), DemoFailure);
    }
};

HOTEL_TEST(DemoGuestsTest)
#include "test_demo_guests.moc"
