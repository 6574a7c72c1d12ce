#include <QMap>
#include <QTest>

#include "app/demo/demo_guests.h"
#include "house/common/paths.h"
#include "house/folios/folio.h"
#include "house/folios/folio_posting.h"
#include "house/folios/folio_totals.h"
#include "house/guests/departures.h"
#include "house/guests/guest_text.h"
#include "house/guests/stay_register.h"
#include "house/rooms/room_record.h"
#include "house/rooms/room_status.h"
#include "link/records.h"
#include "platform/clock.h"
#include "record/field_walk.h"
#include "record/literals.h"
#include "record/numbers.h"
#include "record/record_text.h"
#include "screen/messages.h"
#include "tests/hotel_test.h"
#include "tests/test_hotel.h"

using namespace hotel;

namespace {

bool HasItsCheckCharacter(QStringView identityNumber) {
    constexpr QStringView kCheck = u"10X98765432";
    int sum = 0;
    for (int i = 0; i < 17; ++i)
        sum += identityNumber[i].digitValue() * ((1 << (17 - i)) % 11);
    return identityNumber.size() == 18 && identityNumber[17] == kCheck[sum % 11];
}

struct House {
    int rooms = 0; // occupied
    int guests = 0;
    QMap<QString, int> roomsByStatus;
    QMap<QString, QSet<QString>> roomsByFolio;
    QSet<QString> documents;
    QMap<QString, Money> roomCharges; // by folio, reckoned by nights and prices
};

// Nights of a guest up to the last audit, which is done at half past two.
int NightsOf(const QString& guest) {
    const QDate arrival = QDate::fromString(GetTag(guest, guest_text::kArrivalDate), Qt::ISODate);
    const QDateTime now = Clock::Now();
    const bool audited = now.time() >= QTime(2, 35);
    return int(arrival.daysTo(now.date())) - (audited ? 0 : 1);
}

Money SumOf(const QString& project) {
    Money sum;
    for (FieldWalk posting(project); posting.next();)
        sum += Money::FromText(GetTag(posting.value(), u"金额"));
    return sum;
}

// Sums of the postings by project, folio and day, in ten-thousandths; a journal tells the folio, a ledger the
// day.
void AddUp(QMap<QString, qint64>& sums, const QString& project, const QString& postings,
           const QString& folio, QDate day) {
    for (FieldWalk posting(postings); posting.next();) {
        const QString key = u"%1 %2 %3"_s.arg(
            project, folio.isEmpty() ? GetTag(posting.value(), u"结账号") : folio,
            day.isValid() ? day.toString(u"yyyy-MM-dd") : GetTag(posting.value(), u"日期"));
        for (const QStringView amount : {u"金额", u"实收金额", u"信用金额"})
            sums[key] += Money::FromText(GetTag(posting.value(), amount)).units();
    }
}

int RecordsOf(const QString& project) {
    int records = 0;
    for (FieldWalk walk(project); walk.next();)
        ++records;
    return records;
}

} // namespace

class DemoGuestsTest : public QObject {
    Q_OBJECT

    // A guest in his bed: complete, arrived, and on an open folio that holds the bed.
    static void checkGuest(House& house, const QString& room, int bed, const QString& guest) {
        using namespace guest_text;
        const QString folio = GetTag(guest, kFolio);
        const QString status = GetTag(guest, kStatus);
        const QString arrived = GetTag(guest, kArrivalDate) + u' ' + GetTag(guest, kArrivalTime);
        const QString held = GetTag(FindOpenFolio(folio).value_or(QString()), room);
        QCOMPARE(TestKrRecFail(guest), 0);
        QCOMPARE(GetTag(GetTag(held, BedTag(bed)), kName), GetTag(guest, kName));
        QVERIFY(arrived < Clock::Now().toString(u"yyyy-MM-dd HH:mm"));
        QVERIFY(GetTag(guest, kDeparture) >= Clock::DateText());
        QCOMPARE(u"20%1-%2-%3"_s.arg(folio.mid(0, 2), folio.mid(2, 2), folio.mid(4, 2)),
                 GetTag(guest, kArrivalDate));
        if (GetTag(guest, kDocumentKind) == kIdentityCard) {
            QVERIFY(HasItsCheckCharacter(GetTag(guest, kDocumentNumber)));
            QVERIFY(!GetTag(guest, kAddress).split(u',').contains(QString()));
        }
        if (status != u"钟点" && status != u"免费" && (bed == 1 || status == u"散客")) {
            for (int night = NightsOf(guest); night > 0; --night)
                house.roomCharges[folio] += Money::FromText(GetTag(guest, kPrice));
        }
        house.roomsByFolio[folio].insert(room);
        house.documents.insert(GetTag(guest, kDocumentNumber));
    }

    static void checkRoom(House& house, const RoomEntry& room) {
        const QString status = GetTag(room.record, room_record::kStatus);
        const QString guests = GetKfrzxx(room.number);
        const int present = RecordsOf(guests);
        QCOMPARE(GetTag(room.record, room_record::kGuests).toInt(), present);
        QVERIFY(present <= BedsOfRoom(room.record));
        if (present == 0)
            return;
        QVERIFY(!IsVacant(status));
        ++house.rooms;
        ++house.roomsByStatus[status];
        house.guests += present;
        for (int bed = 1; bed <= kBedLimit; ++bed) {
            const QString guest = GetTag(guests, GuestTag(bed));
            if (guest.isEmpty())
                continue;
            QCOMPARE(GetTag(guest, guest_text::kStatus), status);
            checkGuest(house, room.number, bed, guest);
        }
    }

private Q_SLOTS:
    void addsUp_data() {
        QTest::addColumn<QTime>("time");
        QTest::newRow("in the morning") << QTime(10, 0);
        QTest::newRow("just behind midnight") << QTime(0, 4, 30);
        QTest::newRow("as the first arrive") << QTime(7, 25);
        QTest::newRow("late") << QTime(23, 59, 59);
    }

    // Whenever it is opened: rooms, guests, folios, ledgers, journals and the register agree.
    void addsUp() {
        QFETCH(QTime, time);
        TestHotel hotel(TestHotel::Start::NobodyLoggedIn);
        const MessageRecorder messages;
        const QDateTime opening(QDate(2026, 3, 5), time);
        BringInGuests(opening, [&hotel](const QDateTime& now) { hotel.setServerClock(now); });
        QCOMPARE(Clock::Now(), opening);
        QCOMPARE(messages.words(), QStringList());
        hotel.desk().logIn(u"ADMIN"_s, TestHotel::kAdminPassword);

        House house;
        for (const RoomEntry& room : LoadRooms()) {
            checkRoom(house, room);
            if (QTest::currentTestFailed())
                QFAIL(qPrintable(room.number));
        }
        QVERIFY2(house.rooms >= 35 && house.rooms <= 50, qPrintable(QString::number(house.rooms)));
        for (const QStringView status :
             {u"包房", u"散客", u"长包", u"钟点", u"会议", u"团队", u"免费"})
            QVERIFY2(house.roomsByStatus.contains(status.toString()),
                     qPrintable(status.toString()));

        const QStringList folios = LoadJzhQd();
        QCOMPARE(QSet<QString>(folios.begin(), folios.end()),
                 QSet<QString>(house.roomsByFolio.keyBegin(), house.roomsByFolio.keyEnd()));
        qsizetype largest = 0;
        for (const auto& rooms : house.roomsByFolio)
            largest = std::max(largest, rooms.size());
        QCOMPARE(largest, 12);

        // Who came and is not in the house has left: five parties, one of them in part.
        QSet<QString> everOpen;
        int registered = 0;
        int departed = 0;
        for (int ago = 0; ago <= 30; ++ago) {
            const QString date = Clock::Today().addDays(-ago).toString(u"yyyy-MM-dd");
            const QString came =
                ReadProject(StayRegisterFile(date, Clock::Today()), stay_register::kProject);
            for (FieldWalk guest(came); guest.next(); ++registered)
                everOpen.insert(GetTag(guest.value(), guest_text::kFolio));
            departed += RecordsOf(ReadProject(DepartureFile(date), departures::kProject));
        }
        QCOMPARE(registered, house.guests + departed);
        QCOMPARE(departed, 11);
        QCOMPARE(everOpen.size(), folios.size() + 4);
        const QString family = GetTag(GetTag(GetKfrzxx(u"8611"), GuestTag(1)), guest_text::kFolio);
        house.roomCharges[family] +=
            Money::FromText(u"984.00"); // two nights of 8612, and its last day

        // Every posting of a ledger stands in the journal of its day, and no other does.
        QMap<QString, qint64> ledgers;
        QMap<QString, qint64> journals;
        for (int kind = kDepositPosting; kind <= kServicePosting; ++kind) {
            const QString project = PostingProject(kind);
            for (const QString& folio : everOpen)
                AddUp(ledgers, project, ReadProject(LedgerFile(folio), project), folio, {});
            for (int ago = 0; ago <= 30; ++ago) {
                const QDate day = Clock::Today().addDays(-ago);
                AddUp(journals, project, ReadProject(JournalFile(project, day), project), {}, day);
            }
        }
        QCOMPARE(journals, ledgers);
        for (const QString& folio : everOpen) {
            const std::optional<FolioTotals> totals = LoadFolioTotals(folio);
            if (!folios.contains(folio)) {
                const Money signedFor = SumOf(ReadProject(LedgerFile(folio), u"团队结算信息"));
                QCOMPARE((totals->received + signedFor).text(), totals->charges.text());
                continue;
            }
            QCOMPARE(totals->ofKind[kRoomPosting].text(), house.roomCharges.value(folio).text());
            QVERIFY(totals->credit + totals->received > Money());
        }
    }

    // A house that isn't empty takes no second party in the same beds, and says so.
    void saysWhatDoesNotComeOut() {
        TestHotel hotel(TestHotel::Start::NobodyLoggedIn);
        const auto bringIn = [&hotel] {
            BringInGuests(TestHotel::Moment(),
                          [&hotel](const QDateTime& now) { hotel.setServerClock(now); });
        };
        bringIn();
        QVERIFY_EXCEPTION_THROWN(bringIn(), DemoFailure);
        hotel.stopServer();
        QVERIFY_EXCEPTION_THROWN(bringIn(), DemoFailure);
    }
};

HOTEL_TEST(DemoGuestsTest)
#include "test_demo_guests.moc"
