#pragma once

// A peer for all that a well-behaved server never does: it answers with the bytes that a test tells
// it, piece by piece. It lives on the test's own thread and runs while the link waits.

#include <functional>

#include <QList>
#include <QStringList>
#include <QTcpServer>
#include <QTcpSocket>

#include "link/Wck_comm.h"
#include "record/literals.h"

namespace hotel {

class ScriptedPeer : public QObject {
public:
    using Pieces = QList<QByteArray>;

    // `watched` is the link: the next piece is only sent when it has taken the one before, so that
    // pieces arrive apart. It must trace.
    explicit ScriptedPeer(Wck_comm& watched);

    // Serves on the port it had before, or on any free one.
    void listen();
    // Drops the connection and serves no more.
    void stop();
    void drop();
    QString port() const { return QString::number(port_); }

    // What a request is answered with. `number` is its command number.
    std::function<Pieces(const QString& request, int number)> script;
    // Answers each request with this body in one piece.
    void answerAll(const QString& body);
    // Sends without being asked.
    void send(const Pieces& pieces);

    // Replies to the first arrivals, which are a proxy's and no requests, and what has arrived.
    Pieces proxyReplies;
    QByteArrayList proxyArrivals;

    QStringList requests; // without the sequence field
    QList<int> numbers;   // of these requests

    static QByteArray Frame(int number, const QString& body);

private:
    void takeArrival();
    void takeRequests();
    void sendNext();

    QTcpServer server_;
    QTcpSocket* socket_ = nullptr;
    quint16 port_ = 0;
    QByteArray received_;
    Pieces pending_;
};

// A link, its peer and what the user was told ("title: words").
struct ScriptedDesk {
    enum class Start { Open, Closed };
    explicit ScriptedDesk(Start start = Start::Open);
    ~ScriptedDesk() { SetLink(nullptr); }

    bool open() { return link.ConnectServer(u"127.0.0.1"_s, peer.port()) == 0; }
    QString ask(QString request = u"<命令>读取时间</命令>\r\n"_s) {
        return link.DoCommand(request);
    }

    Wck_comm link;
    ScriptedPeer peer{link};
    QStringList messages;
};

inline const QString kTimeOut = u"<ERROR>命令响应超时</ERROR>\r\n"_s;
inline const QString kNoServer = u"<ERROR>无法连接服务器</ERROR>\r\n"_s;

// Stands the clock at a fixed moment and lets it go at the end of the test.
struct FrozenClock {
    explicit FrozenClock(QTime time = QTime(10, 0));
    ~FrozenClock();
};

// Tells whether a wait went on to its real end of 30 seconds although the clock or the link should have
// ended it at once.
class LongWait {
public:
    LongWait() {
        QTimer::singleShot(20000, &context_, [this] { happened_ = true; });
    }
    bool happened() const { return happened_; }

private:
    QObject context_;
    bool happened_ = false;
};

} // namespace hotel
