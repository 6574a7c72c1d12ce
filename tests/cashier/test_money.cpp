#include <QMap>
#include <QRandomGenerator>
#include <QRegularExpression>

#include <algorithm>

#include "cashier/check_out.h"
#include "house/folios/folio.h"
#include "house/folios/folio_posting.h"
#include "house/rooms/room_record.h"
#include "house/stays/check_in.h"
#include "house/stays/night_audit.h"
#include "platform/clock.h"
#include "record/record_text.h"
#include "tests/hotel_test.h"
#include "tests/house/small_house.h"

using namespace hotel;

namespace {

using Cents = qint64;

const QStringList kProjects = {u"信用押金信息"_s, u"房费明细信息"_s, u"餐饮娱乐费用"_s,
                               u"宽带网络费用"_s, u"电话计费信息"_s, u"团队结算信息"_s,
                               u"客房服务费用"_s};
constexpr int kKinds = 7;

// What a posting carries in 金额, 实收金额 and 信用金额.
struct Amounts {
    Cents amount = 0;
    Cents received = 0;
    Cents credit = 0;

    bool operator==(const Amounts&) const = default;
    Amounts& operator+=(const Amounts& other) {
        amount += other.amount;
        received += other.received;
        credit += other.credit;
        return *this;
    }
};

QString TextOf(Cents cents) {
    const QString digits = QString::number(qAbs(cents)).rightJustified(3, u'0');
    return (cents < 0 ? u"-"_s : QString()) + digits.chopped(2) + u'.' + digits.last(2);
}

// Of an amount as it stands in a record; an absent one is nothing.
Cents CentsOf(const QString& text) {
    static const QRegularExpression form(u"^-?\\d+\\.\\d\\d$"_s);
    if (text.isEmpty())
        return 0;
    if (!form.match(text).hasMatch())
        qFatal("an amount stands as %s", qPrintable(text));
    return QString(text).remove(u'.').toLongLong();
}

Amounts AmountsOf(const QString& record) {
    return {CentsOf(GetTag(record, u"金额")), CentsOf(GetTag(record, u"实收金额")),
            CentsOf(GetTag(record, u"信用金额"))};
}

QString RecordOf(const Amounts& amounts) {
    QString record = u"<客人>王一</客人>"_s;
    if (amounts.amount != 0)
        record += u"<金额>"_s + TextOf(amounts.amount) + u"</金额>"_s;
    if (amounts.received != 0)
        record += u"<实收金额>"_s + TextOf(amounts.received) + u"</实收金额>"_s;
    if (amounts.credit != 0)
        record += u"<信用金额>"_s + TextOf(amounts.credit) + u"</信用金额>"_s;
    return record;
}

struct Room {
    QString number;
    Cents price;
    QDate arrival;
    QDate chargedThrough; // invalid: no audit has reached it
};

struct Folio {
    QList<Room> rooms;
    QList<QMap<int, Amounts>> postings = QList<QMap<int, Amounts>>(kKinds); // by kind, by key
};

} // namespace

// Clerks at two desks post, take back, audit and settle at random; a plain model of the books in whole cents
// keeps pace, and ledgers and journals on the server are held against it to the cent.
class MoneyTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theBooksAgree() {
        const quint32 seed = QRandomGenerator::global()->generate();
        random_.seed(seed);
        TestHotel hotel;
        Desk second(hotel.port());
        second.logIn(u"SHOUYIN"_s, u"444444"_s);
        QList<RoomSpec> rooms;
        for (int n = 0; n < kRooms; ++n) {
            rooms.append({QString::number(8101 + n), u"空房"_s});
            free_.append(rooms.last().number);
        }
        FillRooms(rooms);
        for (int act = 1; act <= kActs && !QTest::currentTestFailed(); ++act) {
            (random_.bounded(2) ? hotel.desk() : second).use();
            actAtRandom();
            if (act % 500 == 0)
                compare(seed);
        }
        QVERIFY2(settled_ > 5 && audited_ > 10 && parted_ > 2,
                 qPrintable(u"seed %1: %2 settled, %3 nights, %4 in part"_s.arg(seed)
                                .arg(settled_)
                                .arg(audited_)
                                .arg(parted_)));
    }

private:
    static constexpr int kRooms = 12;
    static constexpr int kActs = 2000;

    void actAtRandom() {
        const int choice = random_.bounded(100);
        if (folios_.isEmpty() || (choice < 4 && !free_.isEmpty()))
            arrive();
        else if (choice < 70)
            post();
        else if (choice < 90)
            takeBack();
        else if (choice < 95)
            audit();
        else
            settle();
    }

    QString anyFolio() { return folios_.keys().at(random_.bounded(int(folios_.size()))); }

    Cents anyAmount() { return random_.bounded(-20'000, 300'000); }

    // What reaches the ledger reaches the journal of the day.
    void booked(const QString& folio, int kind, const Amounts& amounts) {
        QMap<int, Amounts>& ledger = folios_[folio].postings[kind];
        ledger.insert(ledger.isEmpty() ? 1 : ledger.lastKey() + 1, amounts);
        journals_[Clock::Today()][kind] += amounts;
    }

    void arrive() {
        Clock::Freeze(Clock::Now().addSecs(1));
        const QString folio = Clock::Now().toString(u"yyMMddHHmmss");
        QList<ChosenRoom> chosen;
        QStringList guests;
        Folio books;
        const int count = int(qMin<qsizetype>(free_.size(), 1 + random_.bounded(3)));
        for (int n = 0; n < count; ++n) {
            const Room room{free_.takeFirst(), random_.bounded(10'000, 60'000), Clock::Today(), {}};
            chosen.append(Chosen({room.number, u"空房"_s}));
            guests.append(ValidGuest(
                u"王一"_s, folio, u"包房"_s,
                u"<确认房价>%1</确认房价><入住日期>%2</入住日期><入住时间>14:00</入住时间>"_s.arg(
                    TextOf(room.price), room.arrival.toString(u"yyyy-MM-dd"))));
            books.rooms.append(room);
        }
        QVERIFY(ConfirmCheckIn(TypedSet(chosen, guests), chosen).confirmed);
        folios_.insert(folio, books);
    }

    void post() {
        const QString folio = anyFolio();
        const int kind = random_.bounded(kKinds);
        Amounts amounts;
        Cents& carried = kind != 0            ? amounts.amount
                         : random_.bounded(2) ? amounts.received
                                              : amounts.credit;
        carried = anyAmount();
        const Posted posted = SaveBills(folio, kind, RecordOf(amounts));
        QCOMPARE(posted.status, 0);
        booked(folio, kind, amounts);
        QCOMPARE(posted.key, QString::number(folios_[folio].postings[kind].lastKey()));
    }

    // The reversal answers 金额 alone: a deposit taken back stands in the journal twice. Room service can't be
    // taken back.
    void takeBack() {
        const QString folio = anyFolio();
        const int kind = random_.bounded(kKinds);
        QMap<int, Amounts>& ledger = folios_[folio].postings[kind];
        if (ledger.isEmpty()) {
            QVERIFY(DelBills(folio, kind, u"1") != 0);
            return;
        }
        const int key = ledger.lastKey();
        const bool refused = kind == 6;
        QCOMPARE(DelBills(folio, kind, QString::number(key)) != 0, refused);
        if (refused)
            return;
        Amounts reversed = ledger.take(key);
        reversed.amount = -reversed.amount;
        journals_[Clock::Today()][kind] += reversed;
    }

    // The next morning at 02:30: each room one night, unless it was charged through this date.
    void audit() {
        Clock::Freeze(QDateTime(Clock::Today().addDays(1), QTime(2, 30)));
        const QDate date = Clock::Today();
        const NightAudit night{.auditDate = AuditDate(Clock::Now()),
                               .statuses = {u"包房"_s},
                               .department = u"财务部"_s,
                               .auditor = u"赵国强"_s,
                               .log = [](const QString&) {}};
        QCOMPARE(RunAuditStep(u"1", night), u"2"_s);
        for (auto folio = folios_.begin(); folio != folios_.end(); ++folio) {
            std::ranges::sort(folio->rooms, {}, &Room::number); // the order of the house
            for (Room& room : folio->rooms) {
                const bool known = room.chargedThrough.isValid();
                const bool charges = (known ? room.chargedThrough : room.arrival) < date;
                if (!known)
                    room.chargedThrough = charges ? room.arrival.addDays(1) : room.arrival;
                else if (charges)
                    room.chargedThrough = room.chargedThrough.addDays(1);
                if (charges)
                    booked(folio.key(), 1, {room.price, 0, 0});
            }
        }
        Clock::Freeze(QDateTime(date, QTime(9, 0)));
        ++audited_;
    }

    // Some of the rooms, or all of them: in cash, or on a company's account.
    void settle() {
        const QString number = anyFolio();
        Folio& folio = folios_[number];
        TextTable list = LoadSettlementFolio(number).list;
        QCOMPARE(list.dataRows(), int(folio.rooms.size()));
        Cents roomCharges = 0;
        QStringList leaving;
        for (int row = 1; row < list.rows(); ++row) {
            const bool leaves = row == 1 || random_.bounded(3) > 0;
            SetChosen(list, row, leaves);
            const Cents charge = random_.bounded(4) == 0 ? 0 : random_.bounded(50'000);
            list.setText(row, 7, TextOf(charge));
            if (leaves)
                leaving.append(list.text(row, 1));
            roomCharges += leaves ? charge : 0;
        }
        const bool whole = leaving.size() == folio.rooms.size();
        Amounts total;
        for (const QMap<int, Amounts>& postings : folio.postings)
            for (const Amounts& amounts : postings)
                total += amounts;
        for (const Amounts& onAccount : folio.postings[5]) // is no charge
            total.amount -= onAccount.amount;
        const Cents due = roomCharges + total.amount - total.received;
        const Cents discount = random_.bounded(1000);
        const bool team = random_.bounded(3) == 0;
        const auto pay = [&](const SettlementSums& sums) -> std::optional<Payment> {
            Check("due", sums.due().text(), TextOf(due));
            return Payment{TextOf(due),
                           TextOf(discount),
                           TextOf(due - discount),
                           u"0.00"_s,
                           u"现金"_s,
                           team ? u"江城"_s : QString(),
                           team ? u"10000001"_s : QString()};
        };
        const CheckOutOutcome outcome = ConfirmCheckOut(
            {number, list, u"空房"_s}, {[](const Notice&) { return true; }, pay, [](int, int) {}});
        QVERIFY(outcome.done);
        QCOMPARE(outcome.retired, whole);
        if (whole && team) {
            booked(number, 0, {0, 0, due});
            booked(number, 0, {0, 0, -discount});
            booked(number, 5, {due - discount, 0, 0});
        } else if (whole) {
            booked(number, 0, {0, due - discount, 0});
            booked(number, 0, {0, 0, discount});
        }
        for (int row = 1; row < list.rows(); ++row) {
            const Cents charge = CentsOf(list.text(row, 7));
            if (IsChosen(list, row) && charge != 0)
                booked(number, 1, {charge, 0, 0});
        }
        free_.append(leaving);
        folio.rooms.removeIf([&](const Room& room) { return leaving.contains(room.number); });
        if (whole)
            retired_.insert(number, folios_.take(number));
        ++(whole ? settled_ : parted_);
    }

    static Amounts SumOf(const QStringList& records) {
        Amounts sum;
        for (const QString& record : records)
            sum += AmountsOf(record);
        return sum;
    }

    void compareLedger(const QString& folio, const Folio& books, const QByteArray& seed) {
        const QString file = u"kzxx\\%1\\%2\\%3\\%4.QVR"_s.arg(folio.first(2), folio.mid(2, 2),
                                                               folio.mid(4, 2), folio);
        for (int kind = 0; kind < kKinds; ++kind) {
            Amounts expected;
            for (const Amounts& amounts : books.postings[kind])
                expected += amounts;
            const QStringList records = StoredRecords(file, kProjects[kind]);
            QVERIFY2(records.size() == books.postings[kind].size(),
                     seed + " ledger, kind " + char('0' + kind));
            QVERIFY2(SumOf(records) == expected, seed + " ledger, kind " + char('0' + kind));
        }
    }

    void compare(quint32 seedNumber) {
        const QByteArray seed = "seed " + QByteArray::number(seedNumber);
        for (auto folio = folios_.begin(); folio != folios_.end(); ++folio)
            compareLedger(folio.key(), *folio, seed);
        for (auto folio = retired_.begin(); folio != retired_.end(); ++folio)
            compareLedger(folio.key(), *folio, seed);
        for (auto day = journals_.begin(); day != journals_.end(); ++day) {
            for (int kind = 0; kind < kKinds; ++kind) {
                const QString file = u"kzxx\\%1\\%2.QVR"_s.arg(
                    kProjects[kind], day.key().toString(u"yy\\MM\\yyMMdd"));
                QVERIFY2(SumOf(StoredRecords(file, kProjects[kind])) == day->value(kind),
                         seed + " journal of " + day.key().toString(Qt::ISODate).toLatin1() +
                             ", kind " + char('0' + kind));
            }
        }
    }

    QRandomGenerator random_;
    QStringList free_;
    QMap<QString, Folio> folios_;
    QMap<QString, Folio> retired_;
    QMap<QDate, QMap<int, Amounts>> journals_;
    int settled_ = 0;
    int parted_ = 0;
    int audited_ = 0;
};

HOTEL_TEST(MoneyTest)

#include "test_money.moc"
