// The link by the side of a raw echo of the same bytes over the same kind of connection, and the way of
// a large answer from the wire to its fields.

#include "bench/ratio.h"

#include "link/response_ring.h"
#include "link/serv_api.h"
#include "record/code_page.h"
#include "record/field_walk.h"
#include "record/literals.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>

#include <csignal>
#include <ctime>
#include <stdexcept>
#include <vector>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace hotel;
using namespace hotel::bench;

namespace {

const QString kFile = u"QVR\\Bench.QVR"_s;
const QString kProject = u"房间设定"_s;
const QString kRecordName = u"8101"_s;

[[noreturn]] void Fail(const char* words) {
    throw std::runtime_error(words); // so that the processes started so far are ended
}

// A child process that answers each request, of a known size, with the same answer but for the three
// digits of its command number.
class Echo {
public:
    Echo(const QByteArray& request, const QByteArray& answer) : request_(request), answer_(answer) {
        const int listener = ::socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t length = sizeof address;
        auto* anyAddress = reinterpret_cast<sockaddr*>(&address);
        if (::bind(listener, anyAddress, length) != 0 || ::listen(listener, 2) != 0 ||
            ::getsockname(listener, anyAddress, &length) != 0)
            Fail("the echo finds no port");
        port_ = ntohs(address.sin_port);
        child_ = ::fork();
        if (child_ == 0)
            serve(listener);
        ::close(listener);
        socket_ = ::socket(AF_INET, SOCK_STREAM, 0);
        if (::connect(socket_, anyAddress, length) != 0)
            Fail("the echo can't be reached");
        noDelay(socket_);
    }
    ~Echo() {
        ::close(socket_);
        ::kill(child_, SIGTERM);
        ::waitpid(child_, nullptr, 0);
    }
    QString port() const { return QString::number(port_); }

    int exchange() {
        send(socket_, request_);
        if (!receive(socket_, answer_))
            Fail("the echo has gone");
        return 0;
    }

private:
    // A process for each connection.
    [[noreturn]] void serve(int listener) {
        std::signal(SIGCHLD, SIG_IGN);
        while (true) {
            const int socket = ::accept(listener, nullptr, nullptr);
            if (::fork() != 0) {
                ::close(socket);
                continue;
            }
            noDelay(socket);
            const qsizetype asked = request_.indexOf("CmdID:") + 6;
            const qsizetype head = answer_.indexOf("CmdID:") + 6;
            const qsizetype end = answer_.lastIndexOf("CmdID:") + 6;
            while (receive(socket, request_)) {
                answer_.replace(head, 3, request_.constData() + asked, 3);
                answer_.replace(end, 3, request_.constData() + asked, 3);
                send(socket, answer_);
            }
            ::_exit(0);
        }
    }

    static void noDelay(int socket) {
        const int on = 1;
        ::setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    }
    static void send(int socket, const QByteArray& bytes) {
        if (::send(socket, bytes.constData(), size_t(bytes.size()), MSG_NOSIGNAL) != bytes.size())
            Fail("the echo can't be sent");
    }
    static bool receive(int socket, QByteArray& bytes) {
        return ::recv(socket, bytes.data(), size_t(bytes.size()), MSG_WAITALL) == bytes.size();
    }

    QByteArray request_;
    QByteArray answer_;
    quint16 port_ = 0;
    pid_t child_ = 0;
    int socket_ = -1;
};

// The record server, in a process of its own over a store with the delivered users.
class Server {
public:
    Server() {
        const QStringList data{u"--data"_s, folder_.path()};
        const QString program = QCoreApplication::applicationDirPath() + u"/qvrd"_s;
        if (QProcess::execute(
                program, data + QStringList{u"import"_s, QStringLiteral(HOTEL_TREE "/install")}) !=
            0)
            Fail("the store can't be filled");
        process_.start(program, data + QStringList{u"--port"_s, u"0"_s});
        if (!process_.waitForReadyRead())
            Fail("no server");
        port_ = QString::fromUtf8(process_.readLine()).trimmed().section(u':', -1);
    }
    ~Server() {
        process_.terminate();
        process_.waitForFinished();
    }
    const QString& port() const { return port_; }

private:
    QTemporaryDir folder_;
    QProcess process_;
    QString port_;
};

// A room record of about `size` characters.
QString Room(int number, qsizetype size) {
    QString room = u"<房间号>%1</房间号>\r\n<房态>散客</房态>\r\n<房价>388.00</房价>"_s.arg(number);
    for (int i = 1; room.size() < size; ++i)
        room += u"\r\n<客人%1><姓名>王小明</姓名><证件号码>330106197001010019</证件号码></客人%1>"_s
                    .arg(i);
    return room;
}

void ReadRecord() {
    Server server;
    Wck_comm link;
    SetLink(&link);
    link.ProdID = u"Hotel"_s;
    if (link.ConnectServer(u"127.0.0.1"_s, server.port()) != 0 ||
        DbLogin(u"ADMIN"_s, QString()) != 0)
        Fail("no login");
    const QString record = Room(8101, 500);
    if (DbModifyRecord(kFile, kProject, kRecordName, record) != 0 ||
        DbReadRecord(kFile, kProject, kRecordName) != record)
        Fail("the record does not come back");

    const QString request =
        u"<命令>读取记录</命令>\r\n<库文件名>%1</库文件名>\r\n<项目名>%2</项目名>\r\n<记录>%3</"
        u"记录>\r\n"
        "<命令流水号>CmdID:000</命令流水号>\r\n"_s.arg(kFile, kProject, kRecordName);
    const QString answer = u"<CmdID:000><%1>%2</%1></CmdID:000>"_s.arg(kRecordName, record);
    Echo echo(EncodeForWire(request), EncodeForWire(answer));
    Wck_comm linkToEcho;
    if (linkToEcho.ConnectServer(u"127.0.0.1"_s, echo.port()) != 0)
        Fail("no link to the echo");

    const auto read = [] { return DbReadRecord(kFile, kProject, kRecordName); };
    const auto raw = [&echo] { return echo.exchange(); };
    PrintExchangeRatio("read_record_by_echo", read, raw, 2.5);
    SetLink(&linkToEcho);
    if (read() != record)
        Fail("the echo does not know the record");
    PrintExchangeRatio("link_alone_by_echo", read, raw, 2.5);
}

// The project of a thousand rooms: decoded in the pieces in which it arrives, put together, and each
// field of each room looked at.
void DecodeAndWalk() {
    QString project = u"<CmdID:001>"_s;
    for (int room = 1; room <= 1000; ++room)
        project += u"<%1>%2</%1>\r\n"_s.arg(room).arg(Room(room, 900));
    const QByteArray wire = EncodeForWire(project + u"</CmdID:001>"_s);

    const auto decodeAndWalk = [&wire] {
        constexpr qsizetype kArrival = 65536;
        WireDecoder decoder;
        ResponseRing ring;
        for (qsizetype from = 0; from < wire.size(); from += kArrival)
            ring.receive(decoder.decode(
                QByteArrayView(wire).sliced(from, qMin(kArrival, wire.size() - from))));
        ring.collect(1);
        const QString answer = ring.takeAnswer(1);
        qsizetype fields = 0;
        FieldWalk rooms(answer);
        while (rooms.next()) {
            FieldWalk room(rooms.value());
            while (room.next())
                fields += !room.value().isEmpty();
        }
        return fields;
    };
    const double megabytes = double(wire.size()) / 1e6;
    constexpr int kRounds = 30;
    const std::clock_t start = std::clock();
    for (int round = 0; round < kRounds; ++round)
        benchmark::DoNotOptimize(decodeAndWalk());
    const double seconds = double(std::clock() - start) / CLOCKS_PER_SEC;
    const double rate = kRounds * megabytes / seconds;
    constexpr double kLeastRate = 50;
    std::printf("rate decode_and_walk %.0f MB/s (at least %.0f)%s\n", rate, kLeastRate,
                rate < kLeastRate ? " UNDER" : "");
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    ShareOneProcessor();
    try {
        ReadRecord();
        DecodeAndWalk();
    } catch (const std::runtime_error& error) {
        std::fprintf(stderr, "link_bench: %s\n", error.what());
        return 1;
    }
}
