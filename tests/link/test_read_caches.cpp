#include "link/serv_api.h"
#include "platform/clock.h"
#include "record/record_text.h"
#include "tests/hotel_test.h"
#include "tests/link/scripted_peer.h"

using namespace hotel;

namespace {

// A server in small: it counts what it is asked and changes with `version`.
struct Server {
    explicit Server(ScriptedDesk& desk) {
        desk.peer.script = [this](const QString& request, int number) {
            const QString command = GetTag(request, u"命令");
            ++asked[command];
            const QString record = GetTag(request, u"记录");
            const QString body =
                command == u"检查数据库" ? u"<检查结果>stamp %1</检查结果>"_s.arg(version)
                : record.startsWith(u"none")
                    ? u"<ERROR>没有该记录</ERROR>"_s
                    : u"<%1>%1 of %2</%1>\r\n<neighbour>n of %2</neighbour>"_s.arg(record).arg(
                          version);
            return ScriptedPeer::Pieces{ScriptedPeer::Frame(number, body)};
        };
    }
    int version = 1;
    QMap<QString, int> asked;
};

} // namespace

class TestReadCaches : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void bufferedRead() {
        // Between the first read and the second so many milliseconds pass.
        const auto row = [](const char* name, int passes, const QString& project,
                            const QString& record, const QString& value, int requests) {
            const FrozenClock clock;
            ScriptedDesk desk;
            Server server(desk);
            QCOMPARE(DbReadRecordBuffered(u"f", u"p", u"r"), u"r of 1"_s);
            server.version = 2;
            Clock::Advance(passes);
            Check(name, DbReadRecordBuffered(u"f", project, record), value);
            Check(name, server.asked[u"缓冲读取记录"_s], requests);
        };
        const QString p = u"p"_s;
        row("same record", 1999, p, u" r "_s, u"r of 1"_s, 1);
        row("same record, late", 2000, p, u"r"_s, u"r of 2"_s, 2);
        row("neighbour", 1999, p, u"neighbour"_s, u"n of 1"_s, 1);
        row("neighbour, late", 2000, p, u"neighbour"_s, u"neighbour of 2"_s, 2);
        row("record that did not come along", 0, p, u"other"_s, u"other of 2"_s, 2);
        row("other project", 0, u"q"_s, u"r"_s, u"r of 2"_s, 2);
        row("clock set back", -1, p, u"r"_s, u"r of 2"_s, 2);
    }

    // Each use lengthens the life, of whichever record of the block.
    void bufferedWalk() {
        const FrozenClock clock;
        ScriptedDesk desk;
        Server server(desk);
        DbReadRecordBuffered(u"f", u"p", u"r");
        for (int i = 0; i < 5; ++i) {
            Clock::Advance(1500);
            QCOMPARE(DbReadRecordBuffered(u"f", u"p", i % 2 ? u"r" : u"neighbour"),
                     i % 2 ? u"r of 1"_s : u"n of 1"_s);
        }
        QCOMPARE(server.asked[u"缓冲读取记录"_s], 1);
    }

    void trustedWhileFreshOrUnchanged() {
        const FrozenClock clock(QTime(23, 59, 0));
        ScriptedDesk desk;
        Server server(desk);
        const auto read = [] { return DbReadCached(u"f", u"rule", 20); };
        const auto counts = [&] {
            return QList<int>{server.asked[u"读取记录"_s], server.asked[u"检查数据库"_s]};
        };
        QCOMPARE(read(), u"rule of 1"_s);
        QCOMPARE(counts(), QList<int>({1, 1}));
        Clock::Advance(19000);
        server.version = 2; // not noticed within the 20 seconds
        QCOMPARE(read(), u"rule of 1"_s);
        QCOMPARE(counts(), QList<int>({1, 1}));
        Clock::Advance(1000); // a changed stamp
        QCOMPARE(read(), u"rule of 2"_s);
        QCOMPARE(counts(), QList<int>({2, 3}));
        Clock::Advance(21000); // an unchanged one, and the 20 seconds begin anew
        QCOMPARE(read(), u"rule of 2"_s);
        QCOMPARE(read(), u"rule of 2"_s);
        QCOMPARE(counts(), QList<int>({2, 4}));
        Clock::Advance(19500); // past midnight: asks although fresh
        QCOMPARE(Clock::TimeText(), u"00:00:00"_s);
        QCOMPARE(read(), u"rule of 2"_s);
        QCOMPARE(counts(), QList<int>({2, 5}));
    }

    void leastUsedOfTenGivesWay() {
        const FrozenClock clock;
        ScriptedDesk desk;
        Server server(desk);
        const auto read = [](int i) { return DbReadCached(u"f", QString::number(i), 3600); };
        int& reads = server.asked[u"读取记录"_s];
        for (int i = 0; i < 10; ++i) {
            for (int use = 0; use < (i == 4 ? 2 : 3); ++use)
                read(i);
        }
        QCOMPARE(reads, 10);
        read(10); // takes the place of 4
        QCOMPARE(reads, 11);
        for (int i : {0, 1, 2, 3, 5, 6, 7, 8, 9, 10})
            read(i);
        QCOMPARE(reads, 11);
        read(4);
        QCOMPARE(reads, 12);
        DbReadCached(u"g", u"0", 3600); // the same name in another file
        QCOMPARE(reads, 13);

        QCOMPARE(DbReadCached(u"f", u"none", 3600), u"<ERROR>没有该记录</ERROR>"_s);
        QCOMPARE(DbReadCached(u"f", u"none", 3600), u"<ERROR>没有该记录</ERROR>"_s);
        QCOMPARE(reads, 15); // what does not exist is not kept
    }
};

HOTEL_TEST(TestReadCaches)

#include "test_read_caches.moc"
