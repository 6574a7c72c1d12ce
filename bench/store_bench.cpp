// The store over either engine, and what PostgreSQL does by itself: reads and durable writes of one record
// of 500 characters among 20000, by 1, 16 and 100 connections that each wait for their answer.
//
// The bare database is asked by its own load program with prepared statements, for the same rows of the same
// tables. Then two servers of one database stand beside one, with half of the connections each. Without
// PostgreSQL on the machine only the embedded store is measured.

#include "bench/ratio.h"
#include "bench/wire_client.h"
#include "server/login.h"
#include "tests/private_postgres.h"

#include <poll.h>

#include <atomic>
#include <latch>
#include <string>
#include <thread>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>

using namespace hotel;
using namespace hotel::bench;

namespace {

constexpr int kRecords = 20000;
constexpr int kRounds = 3;
constexpr int kMilliseconds = 1000;
constexpr int kThreads = 2; // of those who ask
constexpr int kConnections[] = {1, 16, 100};

const StorePath kFile = *ParseFilePath(u"kzxx\\Journal.QVR");
const QString kProject = u"流水"_s;

enum class Act { Read, Write };
constexpr Act kActs[] = {Act::Read, Act::Write};

void Fill(const QString& place) {
    Store store(place, Store::Use::Serve);
    store.begin();
    store.write(*ParseFilePath(kUserFile), kUserProject, u"bench"_s, u""_s);
    for (int i = 1; i <= kRecords; ++i)
        store.write(kFile, kProject, QString::number(i), RoomRecord(i));
    store.commit();
}

// --- Through the server -------------------------------------------------------------------------------

class ServerOver {
public:
    explicit ServerOver(const QString& place) {
        process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process_.start(
            QCoreApplication::applicationDirPath() + u"/qvrd"_s,
            {IsDatabasePlace(place) ? u"--store"_s : u"--data"_s, place, u"--port"_s, u"0"_s});
        Require(process_.waitForReadyRead(), "qvrd");
        port_ = quint16(process_.readLine().trimmed().split(':').last().toUInt());
        Client client(port_); // what the workstations have read lately is in memory
        client.logIn();
        for (int i = 1; i <= kRecords; ++i)
            client.exchange(request(Act::Read, i));
    }
    ~ServerOver() {
        process_.terminate();
        process_.waitForFinished();
    }

    double rate(Act act, int connections) const { return Rate({this}, act, connections); }

    // Acts a second. As the database's own load program does, two threads serve all connections. Of several
    // servers each gets the same share of either thread's connections.
    static double Rate(const std::vector<const ServerOver*>& servers, Act act, int connections) {
        std::atomic<int> done = 0;
        std::atomic<bool> stop = false;
        std::latch ready(kThreads + 1);
        std::vector<std::thread> threads;
        for (int i = 0; i < kThreads; ++i)
            threads.emplace_back([&, i] {
                std::vector<std::unique_ptr<Client>> clients;
                for (int n = i; n < connections; n += kThreads) {
                    const ServerOver* server = servers[size_t(n / kThreads) % servers.size()];
                    clients.emplace_back(std::make_unique<Client>(server->port_))->logIn();
                }
                load(act, clients, ready, stop, done);
            });
        ready.arrive_and_wait();
        QElapsedTimer timer;
        timer.start();
        std::this_thread::sleep_for(std::chrono::milliseconds(kMilliseconds));
        const double rate = done * 1e9 / double(timer.nsecsElapsed());
        stop = true;
        for (std::thread& thread : threads)
            thread.join();
        return rate;
    }

private:
    static QByteArray request(Act act, int record) {
        QList<NamedText> fields = {{u"库文件名"_s, kFile.name},
                                   {u"项目名"_s, kProject},
                                   {u"记录"_s, QString::number(record)}};
        if (act == Act::Write)
            fields += {u"记录值"_s, RoomRecord(record + 1)};
        return Client::Request(act == Act::Read ? u"读取记录"_s : u"修改记录"_s, fields);
    }

    // Keeps every client waiting for an answer until told to stop.
    static void load(Act act, const std::vector<std::unique_ptr<Client>>& clients,
                     std::latch& ready, const std::atomic<bool>& stop, std::atomic<int>& done) {
        std::vector<QByteArray> requests;
        for (int n = 0; n < 1000; ++n)
            requests.push_back(request(act, QRandomGenerator::system()->bounded(kRecords) + 1));
        std::vector<pollfd> sockets;
        for (const auto& client : clients)
            sockets.push_back({client->socket(), POLLIN, 0});
        size_t next = 0;
        const auto send = [&](Client& client) { client.send(requests[next++ % requests.size()]); };
        ready.arrive_and_wait();
        for (const auto& client : clients)
            send(*client);
        size_t waiting = clients.size();
        while (waiting > 0) {
            ::poll(sockets.data(), sockets.size(), -1);
            for (size_t i = 0; i < clients.size(); ++i) {
                if (!(sockets[i].revents & POLLIN) || !clients[i]->hasAnswer())
                    continue;
                ++done;
                if (stop)
                    --waiting;
                else
                    send(*clients[i]);
            }
        }
    }

    QProcess process_;
    quint16 port_ = 0;
};

// --- Bare ----------------------------------------------------------------------------------------------

class BareDatabase {
public:
    explicit BareDatabase(const PrivatePostgres& postgres) : postgres_(postgres) {
        const QString project =
            postgres.execute(u"SELECT id FROM project WHERE name = '%1'"_s.arg(kProject));
        const QString where = u"WHERE project = %1 AND name = (:record)::text;\n"_s.arg(project);
        const QString draw = u"\\set record random(1, %1)\n"_s.arg(kRecords);
        writeScript(Act::Read, draw + u"SELECT value FROM record "_s + where);
        writeScript(Act::Write,
                    draw + u"UPDATE record SET value = '"_s + RoomRecord(1) + u"' "_s + where);
    }

    double rate(Act act, int connections) const {
        const QString said = PrivatePostgres::run(
            u"pgbench"_s, {u"-n"_s, u"-M"_s, u"prepared"_s, u"-c"_s, QString::number(connections),
                           u"-j"_s, QString::number(qMin(connections, kThreads)), u"-T"_s,
                           QString::number(kMilliseconds / 1000), u"-f"_s, script(act), u"-h"_s,
                           postgres_.host(), u"-U"_s, u"hotel"_s, u"hotel"_s});
        return said.section(u"tps = "_s, 1, 1).section(u' ', 0, 0).toDouble();
    }

private:
    QString script(Act act) const {
        return postgres_.host() + (act == Act::Read ? u"/read.sql"_s : u"/write.sql"_s);
    }
    void writeScript(Act act, const QString& text) const {
        QFile file(script(act));
        Require(file.open(QIODevice::WriteOnly), "script");
        file.write(text.toUtf8());
        file.setPermissions(file.permissions() | QFile::ReadOther);
    }

    const PrivatePostgres& postgres_;
};

// --- Side by side --------------------------------------------------------------------------------------

double Median(std::array<double, kRounds> rates) {
    std::sort(rates.begin(), rates.end());
    return rates[kRounds / 2];
}

using Rate = std::function<double(Act, int)>;

// Two servers of one store by one of them, taken by turns: what a second one adds. They share the machine's
// processors with the database and with those who ask.
void CompareTwo(const ServerOver& one, const ServerOver& other) {
    for (const Act act : kActs) {
        const char* name = act == Act::Read ? "reads" : "durable writes";
        for (const int connections : {16, 100}) {
            std::array<double, kRounds> ones;
            std::array<double, kRounds> twos;
            for (size_t round = 0; round < kRounds; ++round) {
                ones[round] = one.rate(act, connections);
                twos[round] = ServerOver::Rate({&one, &other}, act, connections);
            }
            std::printf("%s a second, %d connections: one qvrd %.0f two %.0f\n", name, connections,
                        Median(ones), Median(twos));
            const std::string ratio = std::string("one_by_two_servers_") +
                                      (act == Act::Read ? "reads_of_" : "writes_of_") +
                                      std::to_string(connections);
            PrintRatio(ratio.c_str(), Median(ones) / Median(twos), 1 / 1.5);
        }
    }
}

// A line for each number of connections.
void Compare(const std::vector<std::pair<const char*, Rate>>& rates) {
    for (const Act act : kActs) {
        const char* name = act == Act::Read ? "reads" : "durable writes";
        for (const int connections : kConnections) {
            std::vector<std::array<double, kRounds>> all(rates.size());
            for (int round = 0; round < kRounds; ++round)
                for (size_t i = 0; i < rates.size(); ++i)
                    all[i][size_t(round)] = rates[i].second(act, connections);
            std::printf("%s a second, %d connections:", name, connections);
            for (size_t i = 0; i < rates.size(); ++i)
                std::printf(" %s %.0f", rates[i].first, Median(all[i]));
            std::printf("\n");
            if (rates.size() == 3 && connections == 16)
                PrintRatio(act == Act::Read ? "bare_by_served_reads_of_16"
                                            : "bare_by_served_writes_of_16",
                           Median(all[2]) / Median(all[1]), 1 / 0.7);
        }
    }
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    Fill(folder.path());
    const ServerOver embedded(folder.path());
    std::vector<std::pair<const char*, Rate>> rates;
    rates.emplace_back("embedded", [&](Act act, int n) { return embedded.rate(act, n); });
    if (!PrivatePostgres::isInstalled()) {
        std::puts(
            "PostgreSQL is not installed here (package postgresql): the embedded store alone");
        Compare(rates);
        return 0;
    }
    const PrivatePostgres postgres(PrivatePostgres::Disk::Flushed);
    const QString place = u"postgresql: "_s + postgres.connection();
    Fill(place);
    const ServerOver served(place);
    const BareDatabase bare(postgres);
    rates.emplace_back("PostgreSQL through qvrd",
                       [&](Act act, int n) { return served.rate(act, n); });
    rates.emplace_back("bare PostgreSQL", [&](Act act, int n) { return bare.rate(act, n); });
    Compare(rates);
    CompareTwo(served, ServerOver(place));
}
