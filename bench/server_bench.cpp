// The record server by the side of what its machine can do: a bare echo over the same socket, one
// flush a write, the same act in a small project.

#include "bench/ratio.h"
#include "bench/wire_client.h"

#include "server/login.h"
#include "server/store.h"

#include <sys/wait.h>

#include <atomic>
#include <latch>
#include <thread>
#include <vector>

#include <QCoreApplication>
#include <QDateTime>
#include <QProcess>
#include <QTemporaryDir>

using namespace hotel;
using namespace hotel::bench;

namespace {

const QString kRooms = u"kfxx\\Kfjbxx.QVR"_s;
const QString kJournal = u"kzxx\\Journal.QVR"_s;

// --- The floor -----------------------------------------------------------------------------------------

// A process that takes `requestSize` bytes and answers with `answerSize` of them, again and again.
class EchoProcess {
public:
    EchoProcess(qsizetype requestSize, qsizetype answerSize) {
        const int listener = ::socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        Require(::bind(listener, reinterpret_cast<sockaddr*>(&address), size) == 0, "bind");
        Require(::listen(listener, 1) == 0, "listen");
        ::getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size);
        child_ = ::fork();
        if (child_ == 0)
            serve(::accept(listener, nullptr, nullptr), requestSize, answerSize);
        ::close(listener);
        socket_ = ConnectTo(ntohs(address.sin_port));
        request_.fill('x', requestSize);
        answer_.resize(answerSize);
    }
    ~EchoProcess() {
        ::close(socket_);
        ::waitpid(child_, nullptr, 0);
    }

    int exchange() {
        SendAll(socket_, request_);
        Require(::recv(socket_, answer_.data(), size_t(answer_.size()), MSG_WAITALL) ==
                    answer_.size(),
                "recv");
        return 0;
    }

private:
    [[noreturn]] static void serve(int socket, qsizetype requestSize, qsizetype answerSize) {
        const int on = 1;
        ::setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
        QByteArray request(requestSize, 'x');
        const QByteArray answer(answerSize, 'y');
        while (::recv(socket, request.data(), size_t(request.size()), MSG_WAITALL) == requestSize)
            SendAll(socket, answer);
        ::_exit(0);
    }

    pid_t child_ = 0;
    int socket_ = 0;
    QByteArray request_;
    QByteArray answer_;
};

QByteArray ReadRequest(const QString& file, const QString& project, const QString& record) {
    return Client::Request(u"读取记录"_s,
                           {{u"库文件名"_s, file}, {u"项目名"_s, project}, {u"记录"_s, record}});
}

QByteArray ModifyRequest(const QString& project, int record, const QString& value) {
    return Client::Request(u"修改记录"_s, {{u"库文件名"_s, kJournal},
                                           {u"项目名"_s, project},
                                           {u"记录"_s, QString::number(record)},
                                           {u"记录值"_s, value}});
}

QByteArray GreatestRequest(const QString& project) {
    return Client::Request(
        u"字段查找"_s,
        {{u"库文件名"_s, kJournal},
         {u"项目名"_s, project},
         {u"记录查询条件"_s,
          u"\r\n<00>\r\n<关系>或者</关系>\r\n<对象>记录名</对象>\r\n<条件>数值最大</条件>\r\n</00>\r\n"_s}});
}

// --- The server --------------------------------------------------------------------------------------

class ServerProcess {
public:
    ServerProcess() {
        fill();
        process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process_.start(QCoreApplication::applicationDirPath() + u"/qvrd"_s,
                       {u"--data"_s, folder_.path(), u"--port"_s, u"0"_s});
        Require(process_.waitForReadyRead(), "qvrd");
        port_ = quint16(process_.readLine().trimmed().split(':').last().toUInt());
    }
    ~ServerProcess() {
        process_.terminate();
        process_.waitForFinished();
    }

    quint16 port() const { return port_; }
    pid_t process() const { return pid_t(process_.processId()); }

private:
    void fill() {
        Store store(folder_.path(), Store::Use::Serve);
        store.begin();
        store.write(*ParseFilePath(kUserFile), kUserProject, u"bench"_s, u""_s);
        for (int i = 1; i <= 1000; ++i)
            store.write(*ParseFilePath(kRooms), u"客房信息"_s, QString::number(i), RoomRecord(i));
        const StorePath journal = *ParseFilePath(kJournal);
        for (int i = 1; i <= 20000; ++i) {
            if (i <= 20)
                store.write(journal, u"少"_s, QString::number(i), RoomRecord(i));
            store.write(journal, u"多"_s, QString::number(i), RoomRecord(i));
        }
        store.commit();
    }

    QTemporaryDir folder_;
    QProcess process_;
    quint16 port_ = 0;
};

// --- Measurements ------------------------------------------------------------------------------------

void ReadOneRecord(Client& client) {
    const QByteArray request = ReadRequest(kRooms, u"客房信息"_s, u"500"_s);
    EchoProcess echo(request.size(), client.exchange(request));
    PrintExchangeRatio(
        "server_alone_by_echo", [&] { return client.exchange(request); },
        [&] { return echo.exchange(); }, 2.5);
}

// Time that 50 MB/s would take is the floor.
void ReadWholeProject(Client& client) {
    const QByteArray request = ReadRequest(kRooms, u""_s, u"客房信息"_s);
    const double bytes = double(client.exchange(request));
    std::array<double, 9> nanoseconds;
    for (double& each : nanoseconds)
        each = Nanoseconds([&] { return client.exchange(request); });
    std::sort(nanoseconds.begin(), nanoseconds.end());
    const double median = nanoseconds[nanoseconds.size() / 2];
    std::printf("1000 rooms, %.0f kB: %.1f MB/s\n", bytes / 1e3, bytes / median * 1e3);
    PrintRatio("read_project_by_50_MB_a_second", median / (bytes / 0.05), 1.0);
}

// Modifications a second that `clients` connections get done, each waiting for its answer.
double ModifyRate(quint16 port, int clients) {
    std::atomic<int> done = 0;
    std::atomic<bool> stop = false;
    std::latch ready(clients + 1);
    std::vector<std::thread> threads;
    threads.reserve(size_t(clients));
    for (int i = 0; i < clients; ++i)
        threads.emplace_back([&, i] {
            Client client(port);
            client.logIn();
            std::vector<QByteArray> requests;
            requests.reserve(400);
            for (int n = 0; n < 400; ++n) // the second half writes other values than the first
                requests.push_back(ModifyRequest(u"多"_s, n % 200 * 100 + i + 1, RoomRecord(n)));
            ready.arrive_and_wait();
            for (size_t n = 0; !stop; ++n) {
                client.exchange(requests[n % requests.size()]);
                ++done;
            }
        });
    ready.arrive_and_wait();
    QElapsedTimer timer;
    timer.start();
    std::this_thread::sleep_for(std::chrono::milliseconds(700));
    const double rate = done * 1e9 / double(timer.nsecsElapsed());
    stop = true;
    for (std::thread& thread : threads)
        thread.join();
    return rate;
}

void GroupCommit(quint16 port) {
    std::array<double, 5> ratios;
    for (double& ratio : ratios) {
        const double one = ModifyRate(port, 1);
        const double sixteen = ModifyRate(port, 16);
        std::printf("durable modifications a second: %.0f on one connection, %.0f on sixteen\n",
                    one, sixteen);
        ratio = 5 * one / sixteen;
    }
    std::sort(ratios.begin(), ratios.end());
    PrintRatio("five_of_one_connection_by_sixteen", ratios[ratios.size() / 2], 1.0);
}

void FlatCosts(Client& client) {
    for (int i = 1; i <= 20000; ++i) // both have been read before
        client.exchange(ReadRequest(kJournal, u"多"_s, QString::number(i)));
    const auto ratio = [&](const char* name, auto request) {
        PrintRatio(name,
                   MedianRatio([&] { return client.exchange(request(u"多"_s, 20000)); },
                               [&] { return client.exchange(request(u"少"_s, 20)); }),
                   1.2);
    };
    ratio("read_in_20000_by_20", [n = 0](const QString& project, int size) mutable {
        return ReadRequest(kJournal, project, QString::number(n++ * 7919 % size + 1));
    });
    ratio("greatest_in_20000_by_20",
          [](const QString& project, int) { return GreatestRequest(project); });
    ratio("modify_in_20000_by_20", [n = 0](const QString& project, int size) mutable {
        ++n;
        return ModifyRequest(project, n * 7919 % size + 1, RoomRecord(n));
    });
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    ServerProcess server;
    Client client(server.port());
    client.logIn();
    ReadWholeProject(client);
    FlatCosts(client);
    GroupCommit(server.port());
    ShareOneProcessor();
    ShareOneProcessor(server.process());
    ReadOneRecord(client);
}
