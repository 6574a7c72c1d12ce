// Several servers over one PostgreSQL, which breaks off, goes down, and is taken over by its standby.

#include <atomic>
#include <thread>
#include <vector>

#include <QProcess>
#include <QRandomGenerator>

#include "server/search.h"
#include "tests/hotel_test.h"
#include "tests/server/wire_client.h"

using namespace hotel;

namespace {

constexpr int kWriters = 4;

// --- One store seen by two programs ------------------------------------------------------------------

// A step of somebody's work on a store, drawn at random; what is refused is part of it.
class RandomStep {
public:
    explicit RandomStep(QRandomGenerator& random)
        : kind_(random.bounded(20)), path_(drawPath(random)), other_(drawPath(random)),
          project_(u"p%1"_s.arg(random.bounded(3))), record_(QString::number(random.bounded(4))),
          value_(random.bounded(9) == 0 ? u"\0'\\$1"_s : QString::number(random.generate())) {}

    void doOn(Store& store) const {
        try {
            act(store);
        } catch (const Refusal&) {
        }
    }

private:
    static StorePath drawPath(QRandomGenerator& random) {
        return *ParseFilePath(u"f%1.qvr"_s.arg(random.bounded(3)));
    }

    void act(Store& store) const {
        switch (kind_) {
        case 0:
            return store.removeFile(path_);
        case 1:
            return store.renameFile(path_, other_);
        case 2:
            return store.copyFile(path_, other_);
        case 3:
            return store.writeUpload(path_, value_.toUtf8());
        case 4:
            return store.removeProject(path_, project_);
        case 5:
            return store.writeProject(path_, project_,
                                      u"<%1>%2</%1><x>%2</x>"_s.arg(record_, value_));
        case 6:
        case 7:
            return store.remove(path_, project_, record_);
        default:
            return store.write(path_, project_, record_, value_);
        }
    }

    int kind_;
    StorePath path_;
    StorePath other_;
    QString project_;
    QString record_;
    QString value_;
};

// All that can be asked about the three files.
QStringList Everything(Store& store) {
    QStringList all;
    for (int file = 0; file < 3; ++file) {
        const StorePath path = *ParseFilePath(u"f%1.qvr"_s.arg(file));
        all += u"%1 %2"_s.arg(int(store.kind(path))).arg(store.projects(path).join(u' '));
        all += QString::fromUtf8(store.upload(path).value_or("none"));
        for (const QString& project : store.projects(path)) {
            all += *store.readProject(path, project);
            all +=
                store.extremeName(path, project, Store::Extreme::GreatestNumber).value_or(u"-"_s);
            for (int record = 0; record < 4; ++record)
                all += store.read(path, project, QString::number(record)).value_or(u"none"_s);
        }
    }
    return all;
}

// --- Writers ------------------------------------------------------------------------------------------

struct Written {
    std::atomic<int> last = 0; // the last number that was acknowledged; all before it were
    QString fault;
};

Fields JournalFields(int writer, int number) {
    return {{u"库文件名"_s, u"journal.qvr"_s},
            {u"项目名"_s, u"p%1"_s.arg(writer)},
            {u"记录"_s, QString::number(number)},
            {u"记录值"_s, u"第%1次"_s.arg(number)}};
}

bool IsFailure(const QString& answer) {
    return answer.isEmpty() || answer.startsWith(u"<ERROR>数据库不能完成命令");
}

// Creates records 1, 2, 3 ..., each until it is acknowledged, through one server, and looks at it through the
// other. A record that exists already is one whose creation was answered with a failure.
void WriteOn(quint16 port, quint16 otherPort, int writer, const std::atomic<bool>& stop,
             Written& written) {
    WireClient client(port);
    WireClient other(otherPort);
    for (WireClient* each : {&client, &other})
        while (!stop && !each->logIn(u"前台"_s, {}).startsWith(u"<SUCCESS>"))
            QThread::msleep(5);
    bool mayExist = false;
    while (!stop && written.fault.isEmpty()) {
        const Fields fields = JournalFields(writer, written.last + 1);
        const QString answer = client.ask(u"创建记录"_s, fields);
        if (IsFailure(answer)) {
            mayExist = true;
            QThread::msleep(5);
            continue;
        }
        const bool isThere =
            answer == u"<SUCCESS>" || (mayExist && answer.contains(u"记录已经存在"));
        if (!isThere)
            written.fault = u"created: "_s + answer;
        mayExist = false;
        ++written.last;
        const QString seen = other.ask(u"读取记录"_s, fields);
        if (!IsFailure(seen) && seen != u"<%1>第%1次</%1>"_s.arg(written.last.load()))
            written.fault = u"seen by the other: "_s + seen;
    }
}

// Two servers over `store`, and four writers at them.
class House {
public:
    explicit House(const QString& store)
        : servers_{std::make_unique<ServerThread>(settings(store)),
                   std::make_unique<ServerThread>(settings(store))} {
        for (int writer = 0; writer < kWriters; ++writer)
            threads_.emplace_back(WriteOn, servers_[writer % 2]->port(),
                                  servers_[(writer + 1) % 2]->port(), writer, std::cref(stop_),
                                  std::ref(written_[writer]));
    }
    ~House() { stop(); }

    // Waits until each writer has written so many more; false when that takes too long.
    bool goesOn(int more) {
        for (Written& written : written_) {
            const int goal = written.last + more;
            if (!QTest::qWaitFor([&] { return written.last >= goal || !written.fault.isEmpty(); },
                                 60'000))
                return false;
        }
        return true;
    }

    void stop() {
        stop_ = true;
        for (std::thread& thread : threads_)
            thread.join();
        threads_.clear();
    }

    // What is wrong when all that was acknowledged should be there, once and in order.
    QString faults(const QString& place) const {
        Store store(place, Store::Use::Look);
        QStringList faults = store.check();
        for (int writer = 0; writer < kWriters; ++writer) {
            faults += written_[writer].fault;
            int number = 0;
            store.walk(*ParseFilePath(u"journal.qvr"), u"p%1"_s.arg(writer), true,
                       [&](const QString& name, const QString& value) {
                           ++number;
                           if (name != QString::number(number) || value != u"第%1次"_s.arg(number))
                               faults += u"%1: record %2 is %3: %4"_s.arg(writer).arg(number).arg(
                                   name, value);
                       });
            // one more may have been written and not been acknowledged
            if (number != written_[writer].last && number != written_[writer].last + 1)
                faults += u"%1: %2 of %3"_s.arg(writer).arg(number).arg(written_[writer].last);
        }
        faults.removeAll(QString());
        return faults.join(u'\n');
    }

private:
    static ServerSettings settings(const QString& store) {
        ServerSettings settings;
        settings.store = store;
        settings.port = 0;
        settings.clock = [] { return QDateTime(QDate(2026, 3, 5), QTime(10, 0)); };
        return settings;
    }

    std::unique_ptr<ServerThread> servers_[2];
    std::atomic<bool> stop_ = false;
    std::array<Written, kWriters> written_;
    std::vector<std::thread> threads_;
};

} // namespace

class SharedStoreTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // Two programs work on one store by turns, at random, some of it undone; both always see what one alone
    // would have made of it in an embedded store.
    void eachSeesWhatTheOtherDid() {
        const TestPlace place;
        const QTemporaryDir folder;
        Store alone(folder.path(), Store::Use::Serve);
        Store first(place.name(), Store::Use::Serve);
        Store second(place.name(), Store::Use::Serve);
        const quint32 seed = QRandomGenerator::global()->generate();
        QRandomGenerator random(seed);
        for (int turn = 0; turn < 500; ++turn) {
            Store& actor = random.bounded(2) == 0 ? first : second;
            const bool isUndone = random.bounded(8) == 0;
            alone.begin();
            actor.expectNews();
            actor.begin();
            // now and then more than the log takes one by one
            const int steps = random.bounded(100) == 0 ? 300 : random.bounded(1, 4);
            for (int step = 0; step < steps; ++step) {
                const RandomStep work(random);
                work.doOn(actor);
                work.doOn(alone);
            }
            for (Store* store : {&alone, &actor})
                isUndone ? store->rollback() : store->commit();
            const QStringList expected = Everything(alone);
            for (Store* store : {&first, &second}) {
                if (random.bounded(3) == 0) // has not looked for a while
                    continue;
                store->expectNews();
                store->refresh();
                QVERIFY2(Everything(*store) == expected,
                         qPrintable(u"seed %1, turn %2"_s.arg(seed).arg(turn)));
                store->expectNews();
            }
        }
        QCOMPARE(first.check(), QStringList());
    }

    // A view stays as it is; a file changes its stamp when another program changes it.
    void viewsAndStamps() {
        const TestPlace place;
        const StorePath path = *ParseFilePath(u"a.qvr");
        Store first(place.name(), Store::Use::Serve);
        Store second(place.name(), Store::Use::Serve);
        const auto write = [&](const QString& value) {
            first.begin();
            first.write(path, u"p"_s, u"1"_s, value);
            first.commit();
        };
        write(u"old"_s);
        second.refresh();
        const QString stamp = second.stamp(path);
        write(u"new"_s);
        QCOMPARE(second.read(path, u"p"_s, u"1"_s), u"old"_s);
        QCOMPARE(second.stamp(path), stamp);
        second.expectNews();
        second.refresh();
        QCOMPARE(second.read(path, u"p"_s, u"1"_s), u"new"_s);
        QVERIFY(second.stamp(path) != stamp);
        second.expectNews();
        const QString odd = u"\uffff\0\uffff0\uffff1\0\uffff"_s;
        write(odd);
        second.refresh();
        QCOMPARE(second.read(path, u"p"_s, u"1"_s), odd);
        second.expectNews();

        // the log is cut behind the back of one that sleeps, and a database comes back from a copy
        write(u"newer"_s);
        write(u"newest"_s);
        place.execute(u"DELETE FROM change WHERE id < (SELECT max(id) FROM change)"_s);
        second.refresh();
        QCOMPARE(second.read(path, u"p"_s, u"1"_s), u"newest"_s);
        second.expectNews();
        place.execute(u"UPDATE change SET writer = writer + 1"_s);
        place.execute(u"UPDATE record SET value = 'restored'"_s);
        second.refresh();
        QCOMPARE(second.read(path, u"p"_s, u"1"_s), u"restored"_s);
    }

    // A user who is deleted through one server is out on the connections he has with the other.
    void deletedElsewhere() {
        TestServer server;
        ServerSettings settings;
        settings.store = server.store();
        settings.port = 0;
        settings.clock = [] { return QDateTime(QDate(2026, 3, 5), QTime(10, 0)); };
        const ServerThread otherServer(settings);
        WireClient client(otherServer.port(), u"前台"_s);
        const Fields user = {
            {u"库文件名"_s, u"User.QVR"_s}, {u"项目名"_s, kUserProject}, {u"记录"_s, u"前台"_s}};
        QVERIFY(client.ask(u"读取记录"_s, user).contains(u"张三"));
        WireClient manager(server.port());
        manager.logIn(u"经理"_s, u"secret"_s);
        QCOMPARE(manager.ask(u"删除记录"_s, user), u"<SUCCESS>"_s);
        QCOMPARE(client.ask(u"读取记录"_s, user), u"<ERROR>没有登录</ERROR>"_s);
    }

    // The connections break off again and again, in the middle of everything; the second time commits wait for
    // a standby, and are cut off when they are done and not yet answered.
    void brokenConnections() {
        PrivatePostgres postgres;
        const QString place = u"postgresql: "_s + postgres.connection();
        WriteTestUsers(place);
        std::unique_ptr<PrivatePostgres> standby;
        for (int time = 0; time < 2; ++time) {
            House house(place);
            for (int round = 0; round < 20; ++round) {
                QVERIFY(house.goesOn(3));
                postgres.execute(u"SELECT pg_terminate_backend(pid) FROM pg_stat_activity "
                                 "WHERE application_name = 'qvrd' AND random() < 0.7"_s);
            }
            QVERIFY(house.goesOn(3));
            house.stop();
            QCOMPARE(house.faults(place), QString());
            if (time == 0) {
                Store store(place, Store::Use::Serve);
                store.begin();
                store.removeFile(*ParseFilePath(u"journal.qvr"));
                store.commit();
                standby = std::make_unique<PrivatePostgres>(postgres);
            }
        }
    }

    void stoppedAtOnce() {
        PrivatePostgres postgres;
        const QString place = u"postgresql: "_s + postgres.connection();
        WriteTestUsers(place);
        House house(place);
        for (int round = 0; round < 3; ++round) {
            QVERIFY(house.goesOn(30));
            postgres.stopAtOnce();
            postgres.start();
        }
        QVERIFY(house.goesOn(3));
        house.stop();
        QCOMPARE(house.faults(place), QString());
    }

    // In whatever order they are named, the one is taken that can be written to.
    void standbyTakesOver() {
        PrivatePostgres primary;
        PrivatePostgres standby(primary);
        const QString place =
            u"postgresql: host=%1,%2 user=hotel dbname=hotel"_s.arg(standby.host(), primary.host());
        WriteTestUsers(place);
        House house(place);
        QVERIFY(house.goesOn(30));
        primary.stopAtOnce();
        standby.promote();
        QVERIFY(house.goesOn(30));
        house.stop();
        QCOMPARE(house.faults(place), QString());
    }

    // While nothing can be reached, everybody is told so at once.
    void outOfReach() {
        PrivatePostgres postgres;
        const QString place = u"postgresql: "_s + postgres.connection();
        WriteTestUsers(place);
        ServerSettings settings;
        settings.store = place;
        settings.port = 0;
        settings.clock = [] { return QDateTime(QDate(2026, 3, 5), QTime(10, 0)); };
        const ServerThread server(settings);
        WireClient client(server.port(), u"前台"_s);
        postgres.stopAtOnce();
        for (const char16_t* command : {u"读取记录", u"修改记录"})
            QVERIFY(IsFailure(client.ask(QStringView(command).toString(), JournalFields(1, 1))));
        QVERIFY_EXCEPTION_THROWN(Store(place, Store::Use::Serve), StoreError);
        postgres.start();
        QTRY_COMPARE_WITH_TIMEOUT(client.ask(u"修改记录"_s, JournalFields(1, 1)), u"<SUCCESS>"_s,
                                  60'000);
    }
};

// Only PostgreSQL is served by several programs.
[[maybe_unused]] static const bool registered =
    TestPlace::isShared() &&
    hotel::RegisterTest("SharedStoreTest", []() -> QObject* { return new SharedStoreTest; });

#include "test_shared_store.moc"
