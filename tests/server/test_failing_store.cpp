// A store that can't grow any more.

#include "tests/hotel_test.h"
#include "tests/server/wire_client.h"
#include "tests/test_files.h"

using namespace hotel;

namespace {

QByteArray Write(const QString& record, const QString& value, int number) {
    return RequestBytes(u"修改记录"_s, RecordFields(record, value), number);
}

QStringList Records(WireClient& client) {
    QStringList lines = client.ask(u"记录清单"_s, RecordFields({})).split(u"\r\n"_s);
    return lines.mid(1, lines.size() - 2);
}

} // namespace

class FailingStoreTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // Of the writes that share a turn one is too large for the disk: it alone fails. Who logs out behind
    // them has written as himself.
    void oneOfATurn() {
        TestServer server;
        WireClient client(server.port(), u"前台"_s);
        WireClient reader(server.port(), u"前台"_s);
        {
            const StoreLimit limit(server.place(), 30'000);
            client.sendBytes(Write(u"1"_s, u"small"_s, 1) +
                             Write(u"2"_s, QString(60'000, u'x'), 2) +
                             Write(u"3"_s, u"small"_s, 3) + RequestBytes(u"注销"_s, {}, 4));
            QCOMPARE(client.receive(), u"<SUCCESS>"_s);
            QVERIFY(client.receive().startsWith(u"<ERROR>"));
            QCOMPARE(client.receive(), u"<SUCCESS>"_s);
            QCOMPARE(client.receive(), u"<SUCCESS>"_s);
        }
        QCOMPARE(Records(reader), (QStringList{u"1"_s, u"3"_s}));
        server.stop();
        Store store(server.store(), Store::Use::Look);
        QCOMPARE(store.check(), QStringList());
        QCOMPARE(store.readProject(*ParseFilePath(u"a.qvr"), u"p"_s),
                 u"<1>small</1>\r\n<3>small</3>"_s);
    }

    // Until the disk is full writes succeed, then they fail, reads go on, and when there is room
    // again so do the writes. What was answered with success is there, what failed is not.
    void untilThereIsRoom() {
        TestServer server;
        WireClient client(server.port(), u"前台"_s);
        WireClient reader(server.port(), u"前台"_s);
        const QString value(3000, u'v');
        QStringList stored;
        int failures = 0;
        int number = 1;
        const auto write = [&] {
            const QString record = QString::number(number);
            client.sendBytes(Write(record, value, number % 256));
            ++number;
            const bool isStored = client.receive() == u"<SUCCESS>";
            if (isStored)
                stored += record;
            return isStored;
        };
        {
            const StoreLimit limit(server.place(), 200'000);
            while (failures < 20) {
                failures += !write();
                QVERIFY(number < 10'000);
            }
            QVERIFY(!stored.isEmpty());
            QCOMPARE(Records(reader), stored);
        }
        QVERIFY(write());
        QCOMPARE(Records(reader), stored);
        server.finish(); // nothing is lost that was answered
        Store store(server.store(), Store::Use::Look);
        QCOMPARE(store.check(), QStringList());
        QStringList names;
        store.walk(*ParseFilePath(u"a.qvr"), u"p"_s, true,
                   [&](const QString& name, const QString& text) {
                       names += name;
                       QCOMPARE(text, value);
                   });
        QCOMPARE(names, stored);
    }

    // Who fills a store has turns share a commit: nothing is on disk until so many have passed, all is behind
    // the end; and what is lost of turns that were answered is told at the end.
    void turnsThatShareACommit() {
        const auto fill = [](int turns) {
            return TestServer(
                [turns](ServerSettings& settings) { settings.turnsOfCommit = turns; });
        };
        const auto stored = [](const TestServer& server) {
            return Store(server.store(), Store::Use::Look)
                .readProject(*ParseFilePath(u"a.qvr"), u"p"_s)
                .value_or(QString());
        };
        TestServer server = fill(3);
        WireClient client(server.port(), u"前台"_s);
        for (const QString& record : {u"1"_s, u"2"_s, u"3"_s, u"4"_s}) {
            QCOMPARE(client.ask(u"修改记录"_s, RecordFields(record, u"v"_s)), u"<SUCCESS>"_s);
            QCOMPARE(stored(server),
                     record < u"3" ? QString() : u"<1>v</1>\r\n<2>v</2>\r\n<3>v</3>"_s);
        }
        server.finish();
        QCOMPARE(stored(server), u"<1>v</1>\r\n<2>v</2>\r\n<3>v</3>\r\n<4>v</4>"_s);

        TestServer full = fill(3);
        WireClient filler(full.port(), u"前台"_s);
        {
            const StoreLimit limit(full.place(), 30'000);
            for (int record = 1; record <= 5; ++record)
                filler.ask(u"修改记录"_s,
                           RecordFields(QString::number(record), QString(20'000, u'x')));
        }
        QVERIFY_EXCEPTION_THROWN(full.finish(), StoreError);
    }

    void storesThatCantBeServed() {
        QTemporaryDir folder;
        WriteBytes(folder.filePath(u"file"_s), "no folder");
        WriteBytes(folder.filePath(u"damaged/store.db"_s), "no store");
        ServerSettings settings;
        settings.clock = QDateTime::currentDateTime;
        settings.port = 0;
        settings.store = folder.filePath(u"file/below"_s);
        QVERIFY_EXCEPTION_THROWN(ServerThread{settings}, StoreError);

        settings.store = folder.filePath(u"damaged"_s);
        QVERIFY_EXCEPTION_THROWN(ServerThread{settings}, StoreError);

        settings.store = folder.filePath(u"good"_s);
        const ServerThread first(settings);
        QVERIFY_EXCEPTION_THROWN(ServerThread{settings}, StoreError);
        settings.store = folder.filePath(u"other"_s);
        settings.port = first.port();
        QVERIFY_EXCEPTION_THROWN(ServerThread{settings}, StoreError);
    }
};

HOTEL_TEST(FailingStoreTest)

#include "test_failing_store.moc"
