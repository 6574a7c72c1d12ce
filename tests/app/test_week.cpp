// The played week: its clock, its lines, what its desks tell, and whether the audit of its books would notice.

#include <QDir>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>

#include "app/demo/demo_guests.h"
#include "app/week/desk_act.h"
#include "app/week/faulty_line.h"
#include "app/week/house_books.h"
#include "app/week/house_clock.h"
#include "app/week/week.h"
#include "house/rooms/room_record.h"
#include "link/records.h"
#include "link/serv_api.h"
#include "platform/clock.h"
#include "record/code_page.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "server/store.h"
#include "server/tree.h"
#include "tests/hotel_test.h"
#include "tests/test_hotel.h"

using namespace hotel;

namespace {

const QDateTime kNoon(QDate(2026, 3, 5), QTime(12, 0));

// Answers every request that has come whole, and keeps what came.
class Answering : public QTcpServer {
public:
    Answering() {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            while (QTcpSocket* socket = nextPendingConnection()) {
                connect(socket, &QTcpSocket::readyRead, this, [this, socket] {
                    ++pieces;
                    received += socket->readAll();
                    if (received.endsWith("\r\n"))
                        socket->write(answer);
                });
            }
        });
    }

    QByteArray received;
    int pieces = 0;
    QByteArray answer = EncodeForWire(u"<CmdID:000><当前日期>二〇二六</当前日期></CmdID:000>"_s);
};

QByteArray Request() {
    return EncodeForWire(u"<命令>读取日期</命令>\r\n<命令流水号>CmdID:000</命令流水号>\r\n"_s);
}

struct Outcome {
    QByteArray received; // by the server
    QByteArray answer;
    bool closed = false;
    int pieces = 0;

    bool operator==(const Outcome&) const = default;
};

bool IsHalfCharacter(const QByteArray& text) {
    bool half = false;
    for (const char byte : text)
        half = !half && uchar(byte) >= 0x80;
    return half;
}

DeskAct Act(int desk, qint64 begin, qint64 end, const QStringList& places,
            const QStringList& items = {}, ActResult result = ActResult::Done) {
    return {.desk = desk,
            .kind = u"posting"_s,
            .result = result,
            .begin = begin,
            .end = end,
            .places = places,
            .items = items,
            .told = {}};
}

void FillStore(const QString& folder) {
    Store store(folder, Store::Use::Serve);
    for (const QString& tree : {u"/install"_s, u"/demo"_s})
        QCOMPARE(ImportTree(store, QLatin1StringView(HOTEL_TREE) + tree).faults, QStringList());
}

QByteArray TextOfStore(const QString& folder) {
    const QTemporaryDir tree;
    Store store(folder, Store::Use::Look);
    ExportTree(store, tree.filePath(u"all"_s));
    QMap<QString, QByteArray> files;
    QDirIterator walk(tree.path(), QDir::Files, QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        QFile file(walk.next());
        if (file.open(QIODevice::ReadOnly))
            files[file.fileName().mid(tree.path().size())] = file.readAll();
    }
    QByteArray text;
    for (auto file = files.cbegin(); file != files.cend(); ++file)
        text += file.key().toUtf8() + '\n' + *file + '\n';
    return text;
}

} // namespace

class WeekTest : public QObject {
    Q_OBJECT

    // The first requests of a desk, each on a connection of its own.
    static QList<Outcome> play(int requestsAFault, int requests,
                               std::array<int, kLineFaults>& faults) {
        const QTemporaryDir folder;
        HouseClock::make(folder.filePath(u"clock"_s), 1, kNoon);
        HouseClock clock(folder.filePath(u"clock"_s));
        Answering server;
        FaultyLine line({{server.serverPort()}, 1, 5, requestsAFault, false}, clock);
        QList<Outcome> outcomes;
        for (int n = 0; n < requests; ++n) {
            server.received.clear();
            server.pieces = 0;
            QTcpSocket desk;
            desk.connectToHost(QHostAddress::LocalHost, line.portOf(0));
            desk.write(Request());
            Outcome outcome;
            const auto isOver = [&] {
                outcome.answer += desk.readAll();
                outcome.closed = desk.state() == QAbstractSocket::UnconnectedState;
                return outcome.closed || outcome.answer == server.answer;
            };
            [[maybe_unused]] const bool came = QTest::qWaitFor(isOver, 5000);
            outcome.received = server.received;
            outcome.pieces = std::min(server.pieces, 1);
            outcomes.append(outcome);
        }
        for (int fault = 0; fault < kLineFaults; ++fault)
            faults[size_t(fault)] = line.faults(LineFault(fault));
        return outcomes;
    }

private Q_SLOTS:
    void theHouseIsAsLateAsItsLatestDesk() {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"clock"_s);
        QVERIFY_EXCEPTION_THROWN(HouseClock{path}, std::runtime_error);
        HouseClock::make(path, 2, kNoon);
        HouseClock one(path);
        HouseClock other(path);
        QCOMPARE(other.now(), kNoon);
        QCOMPARE(other.ofDesk(1), kNoon);
        one.moveTo(kNoon.addSecs(60));
        other.moveTo(kNoon.addSecs(59));
        QCOMPARE(one.now(), kNoon.addSecs(60));
        one.setDesk(0, kNoon.addSecs(-1));
        one.setDesk(1, kNoon.addSecs(7));
        QCOMPARE(other.ofDesk(0), kNoon.addSecs(-1));
        QCOMPARE(other.ofDesk(1), kNoon.addSecs(7));
        QCOMPARE(other.now(), kNoon.addSecs(60));
    }

    void actsAreToldInOneLine() {
        const DeskAct act{.desk = 3,
                          .kind = u"room change"_s,
                          .result = ActResult::Told,
                          .begin = 5,
                          .end = 9'000'000'000,
                          .places = {u"room 8301"_s, u"room 8302"_s, u"room 8301"_s},
                          .items = {u"guest 1 2"_s},
                          .told = u"没有\t保存：\r\n再试|一次"_s};
        const QString line = LineOfAct(act);
        QCOMPARE(line, u"3\troom change\t2\t5\t9000000000\troom 8301|room 8302\tguest 1 2\t"
                       "没有 保存：  再试 一次"_s);
        const auto read = ActOfLine(line);
        QVERIFY(read.has_value());
        QCOMPARE(LineOfAct(*read), line);
        QCOMPARE(read->places, (QStringList{u"room 8301"_s, u"room 8302"_s}));
        QCOMPARE(ActOfLine(LineOfAct({}))->items, QStringList());
        QVERIFY(!ActOfLine(u"done"_s));
        QVERIFY(!ActOfLine(line + u"\t"));
    }

    // The night audit works in the whole house; but not in the lists of the sales office or the punching desk.
    void wherePlacesMeet() {
        const auto row = [](const char* name, const QString& one, const QString& other, bool same) {
            Check(name, IsSamePlace(one, other), same);
            Check(name, IsSamePlace(other, one), same);
        };
        const QString house = Place(place::kWholeHouse);
        row("the same", u"room 8301"_s, u"room 8301"_s, true);
        row("another room", u"room 8301"_s, u"room 83010"_s, false);
        row("a room of the house", house, u"room 8301"_s, true);
        row("a folio", house, u"folio 260305120000"_s, true);
        row("a ledger", house, u"ledger 260305120000"_s, true);
        row("a journal", house, u"journal 房费明细信息 2026-03-05"_s, true);
        row("two audits", house, house, true);
        row("the register", house, u"register 2026-03-05"_s, false);
        row("a reservation", house, Place(place::kPlans), false);
        row("punches", house, u"punches 2026-03-05"_s, false);
    }

    // Without faults every request goes through whole; with one each, all kinds come, and do what they are named for.
    void linesFail() {
        std::array<int, kLineFaults> faults{};
        for (const Outcome& outcome : play(0, 5, faults)) {
            QCOMPARE(outcome.received, Request());
            QVERIFY(!outcome.closed);
        }
        QCOMPARE(faults, (std::array<int, kLineFaults>{}));

        const QByteArray answer = Answering().answer;
        const QList<Outcome> outcomes = play(1, 40, faults);
        std::array<int, kLineFaults> seen{};
        for (const Outcome& outcome : outcomes) {
            if (!outcome.closed) { // delayed, or in two pieces
                QCOMPARE(outcome.received, Request());
                QCOMPARE(outcome.answer, answer);
                ++seen[0];
            } else if (outcome.received == Request()) {
                QVERIFY(outcome.answer.size() < answer.size() && answer.startsWith(outcome.answer));
                QVERIFY(IsHalfCharacter(outcome.answer));
                ++seen[size_t(LineFault::AnswerCut)];
            } else if (outcome.received.isEmpty()) {
                ++seen[size_t(LineFault::Reset)];
            } else {
                QVERIFY(Request().startsWith(outcome.received));
                QVERIFY(IsHalfCharacter(outcome.received));
                ++seen[size_t(LineFault::RequestCut)];
            }
        }
        QCOMPARE(seen[0], faults[0] + faults[1]);
        for (const LineFault fault :
             {LineFault::RequestCut, LineFault::AnswerCut, LineFault::Reset})
            QCOMPARE(seen[size_t(fault)], faults[size_t(fault)]);
        for (const int count : faults)
            QVERIFY(count > 0);
        std::array<int, kLineFaults> again{};
        QCOMPARE(play(1, 40, again), outcomes);
        QCOMPARE(again, faults);
    }

    // A request waits until everybody who has something to do waits too.
    void inTurn() {
        const QTemporaryDir folder;
        HouseClock::make(folder.filePath(u"clock"_s), 3, kNoon);
        HouseClock clock(folder.filePath(u"clock"_s));
        clock.setDesk(0, kNoon.addSecs(10));
        Answering server;
        FaultyLine line({{server.serverPort()}, 3, 1, 0, true}, clock);
        for (int desk = 0; desk < 3; ++desk)
            line.begin(desk);
        QTcpSocket desk;
        desk.connectToHost(QHostAddress::LocalHost, line.portOf(0));
        desk.write(Request());
        QVERIFY(QTest::qWaitFor([&] { return line.requests() == 1; }));
        line.end(1);
        QTest::qWait(20);
        QCOMPARE(server.received, QByteArray());
        QCOMPARE(clock.now(), kNoon);
        line.end(2);
        QVERIFY(QTest::qWaitFor([&] { return desk.bytesAvailable() == server.answer.size(); }));
        QCOMPARE(clock.now(), kNoon.addSecs(10));
    }

    // --- the books ---

    // What a stranger finds in the demo hotel agrees; whatever is then spoilt is found, and nothing else.
    void theAuditNotices() {
        TestHotel hotel(TestHotel::Start::NobodyLoggedIn, 1000);
        BringInGuests({.at = kNoon,
                       .setServerClock = [&](const QDateTime& now) { hotel.setServerClock(now); },
                       .days = 0});
        hotel.desk().logIn(u"ADMIN"_s, TestHotel::kAdminPassword);
        const auto found = [](const QList<DeskAct>& acts = {}) {
            QStringList words;
            for (const Difference& difference :
                 ReadDifferences(QDate(2026, 2, 1), QDate(2026, 3, 5), acts))
                words.append(difference.words);
            return words;
        };
        QCOMPARE(found(), QStringList());
        // Changes a project for the time of one reading.
        const auto spoilt = [&](const QString& file, const QString& project,
                                const std::function<QString(const QString&)>& change) {
            const QString before = ReadProject(file, project);
            const QString after = change(before);
            [&] { QVERIFY2(after != before, qPrintable(file)); }();
            SaveProject(file, project, after);
            const QStringList words = found();
            SaveProject(file, project, before);
            return words;
        };
        const auto without = [](const QString& tag) {
            return [tag](const QString& text) { return SetTag(text, tag, {}); };
        };

        const QString journal = u"kzxx\\餐饮娱乐费用\\26\\03\\260304.QVR"_s;
        const QString posting = ReadRecord(journal, u"餐饮娱乐费用", u"1");
        const QString folio = GetTag(posting, u"结账号");
        const QString line = u"posting 餐饮娱乐费用 %1 %2 %3 %4  "_s.arg(
            folio, GetTag(posting, u"日期"), GetTag(posting, u"时间"), GetTag(posting, u"金额"));
        QCOMPARE(spoilt(journal, u"餐饮娱乐费用"_s, without(u"1"_s)),
                 QStringList(line + u": 1 in the ledger, 0 in the journal"));
        const QString ledger = u"kzxx\\%1\\%2\\%3\\%4.QVR"_s.arg(folio.left(2), folio.mid(2, 2),
                                                                 folio.mid(4, 2), folio);
        QVERIFY(spoilt(ledger, u"餐饮娱乐费用"_s, [](const QString&) {
                    return QString();
                }).contains(line + u": 0 in the ledger, 1 in the journal"));

        QString room; // with one guest
        for (const RoomEntry& entry : LoadRooms()) {
            if (GetTag(entry.record, u"住客数") == u"1" && GetTag(entry.record, u"房态") == u"包房")
                room = entry.number;
        }
        const QString guest =
            GetTag(ReadProject(u"kfxx\\%1.qvr"_s.arg(room), u"客人入住信息"), u"客人01");
        const QString who =
            u"guest %1 %2"_s.arg(GetTag(guest, u"结账号"), GetTag(guest, u"证件号码"));
        QCOMPARE(spoilt(u"kfxx\\%1.qvr"_s.arg(room), u"客人入住信息"_s, without(u"客人01"_s)),
                 (QStringList{who + u": registered 1 times, left 0 times, now in []",
                              u"room %1, 包房: counts 1, has 0"_s.arg(room),
                              who + u" is on his folio in room %1, but not there"_s.arg(room)}));
        const auto withRoom = [&](const QString& tag, const QString& value) {
            return [=](const QString& text) {
                return SetTag(text, room, SetTag(GetTag(text, room), tag, value));
            };
        };
        QCOMPARE(spoilt(u"kfxx\\Kfjbxx.QVR"_s, u"客房基本信息"_s, withRoom(u"住客数"_s, u"2"_s)),
                 QStringList(u"room %1, 包房: counts 2, has 1"_s.arg(room)));
        QCOMPARE(spoilt(u"kfxx\\Kfjbxx.QVR"_s, u"客房基本信息"_s, withRoom(u"房态"_s, u"空房"_s)),
                 QStringList(u"room %1, 空房: counts 1, has 1"_s.arg(room)));
        QCOMPARE(spoilt(u"kzxx\\Jzh.QVR"_s, u"结账号信息"_s,
                        [&](const QString& text) {
                            const QString of = GetTag(guest, u"结账号");
                            return SetTag(text, of, SetTag(GetTag(text, of), room, {}));
                        }),
                 QStringList(who + u" is in room %1, but not on his folio"_s.arg(room)));
        QCOMPARE(spoilt(u"kszl\\ldjl\\260304.QVR"_s, u"离店客人记录"_s, without(u"1"_s)).size(), 1);

        const QStringList missing =
            found({Act(0, 1, 2, {u"plans "_s},
                       {u"plan 260305120000"_s, u"punch 120000 0001"_s,
                        u"call 话始日期 8201 114 2026-03-05 10:00:00"_s, u"guest 1 2"_s})});
        QCOMPARE(
            missing,
            (QStringList{u"plan 260305120000 is not there"_s, u"punch 120000 0001 is not there"_s,
                         u"call 话始日期 8201 114 2026-03-05 10:00:00 is not there"_s}));
        QCOMPARE(found(), QStringList());

        hotel.stopServer();
        QVERIFY_EXCEPTION_THROWN(found(), std::runtime_error);
    }

    void whatIsAccepted() {
        const QString journal = u"journal 房费明细信息 2026-03-05"_s;
        const QString item = u"posting 1"_s;
        const Difference lost{u"lost"_s, {item}, {journal, u"ledger 1"_s}};
        const auto reason = [](const Difference& difference, const QList<DeskAct>& acts) {
            BooksAudit audit;
            for (const DeskAct& act : acts)
                audit.add(act);
            const QStringList faults = audit.faultsAmong({difference});
            // Told again on the next day it counts no second time.
            [&] { QCOMPARE(audit.faultsAmong({difference}), faults); }();
            [&] {
                QCOMPARE(faults, audit.accepted().isEmpty() ? QStringList(difference.words)
                                                            : QStringList());
            }();
            return audit.accepted().isEmpty() ? u"fault"_s
                                              : audit.accepted().firstKey() + u' ' +
                                                    QString::number(audit.accepted().first());
        };
        const auto row = [&](const char* name, const Difference& difference,
                             const QList<DeskAct>& acts, const QString& expected) {
            Check(name, reason(difference, acts), expected);
        };
        const DeskAct posted = Act(1, 100, 200, {journal}, {item});
        row("nobody did it", lost, {}, u"fault"_s);
        row("nobody else was there", lost, {posted}, u"fault"_s);
        row("another came between", lost, {posted, Act(2, 199, 300, {journal})},
            u"journal number taken twice 1"_s);
        row("another came behind", lost, {posted, Act(2, 200, 300, {journal})}, u"fault"_s);
        row("the same desk", lost, {posted, Act(1, 150, 300, {journal})}, u"fault"_s);
        row("elsewhere", lost, {posted, Act(2, 150, 300, {u"journal 房费明细信息 2026-03-06"_s})},
            u"fault"_s);
        row("the audit", lost, {posted, Act(2, 150, 300, {u"house "_s})},
            u"journal number taken twice 1"_s);
        row("somebody else's were crossed", lost,
            {posted, Act(2, 300, 400, {journal}), Act(3, 300, 400, {journal})}, u"fault"_s);
        row("told", lost, {Act(1, 100, 200, {}, {item}, ActResult::Told)},
            u"told to the staff 1"_s);
        row("another was told", lost, {posted, Act(2, 150, 160, {}, {}, ActResult::Told)},
            u"fault"_s);
        row("another was told at the journal", lost,
            {posted, Act(2, 300, 310, {journal}, {}, ActResult::Told)}, u"fault"_s);

        const Difference counted{u"counts"_s, {}, {u"room 8301"_s}};
        row("a room of which nobody tells", counted, {posted}, u"fault"_s);
        row("a room sold once", counted, {Act(1, 1, 2, {u"room 8301"_s})}, u"fault"_s);
        row("a room sold twice", counted,
            {Act(1, 1, 3, {u"room 8301"_s}), Act(2, 2, 4, {u"room 8301"_s})},
            u"room written twice 1"_s);
        row("told at the room", counted, {Act(1, 1, 2, {u"room 8301"_s}, {}, ActResult::Told)},
            u"told to the staff 1"_s);

        // A guest was put into 8302 with somebody else, and went to 8303 with him.
        const Difference gone{u"gone"_s, {u"guest 1"_s}, {u"room 8303"_s, u"folio 1"_s}};
        const DeskAct first = Act(1, 1, 3, {u"room 8301"_s, u"room 8302"_s}, {u"guest 1"_s});
        const DeskAct second = Act(1, 10, 13, {u"room 8302"_s, u"room 8303"_s}, {u"guest 1"_s});
        row("followed", gone, {first, second, Act(2, 2, 5, {u"room 8302"_s})},
            u"room written twice 1"_s);
        row("not followed to others", gone, {first, second, Act(2, 2, 5, {u"room 8304"_s})},
            u"fault"_s);

        QCOMPARE(AcceptedBetweenDesks().size(), 8U);
    }

    // The same order in turn is the same week, to the last record; another seed is another one.
    void isRepeatable() {
        const auto played = [](quint64 seed, int desks) {
            const QTemporaryDir folder;
            FillStore(folder.path());
            QStringList days;
            const WeekReport report = PlayWeek({.store = folder.path(),
                                                .program = QStringLiteral(HOTEL_WEEK),
                                                .desks = desks,
                                                .days = 1,
                                                .actsAnHour = 2,
                                                .requestsAFault = 150,
                                                .inTurn = true,
                                                .seed = seed,
                                                .log = {}},
                                               [&](const DayOfWeek& day) {
                                                   days.append(day.day.toString(Qt::ISODate));
                                                   days += day.faults;
                                               });
            [&] {
                QCOMPARE(days, QStringList(u"2026-03-02"_s));
                QVERIFY(report.isSound());
                QVERIFY(report.acts > 30);
                QVERIFY(report.kinds.contains(u"check-in"_s));
            }();
            return TextOfStore(folder.path());
        };
        const QByteArray week = played(7, 3);
        QVERIFY(week.size() > 100'000);
        QVERIFY(played(7, 3) == week);
        QVERIFY(played(8, 3) != week);
    }
};

HOTEL_TEST(WeekTest)
#include "test_week.moc"
