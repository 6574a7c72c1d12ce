#pragma once

// One workstation's connection: bytes in, requests out; answers in, bytes out. It never blocks and
// holds a bounded amount of what its client has not taken yet.

#include <optional>

#include <QByteArray>
#include <QElapsedTimer>
#include <QObject>
#include <QSocketNotifier>

#include "server/command_table.h"
#include "server/request_reader.h"

namespace hotel {

class ClientConnection : public QObject {
    Q_OBJECT

public:
    // Takes over the socket behind `descriptor`. While more than `unsentLimit` bytes wait to be
    // sent, no request is taken.
    ClientConnection(int descriptor, qsizetype unsentLimit, QObject* parent);
    ~ClientConnection() override;

    Peer peer;

    // The next request that is to be answered now; nothing when there is none, or when the client
    // has to take answers first.
    std::optional<Request> next();

    // Takes no further request until the answer that is due has been sent.
    void hold() { held_ = true; }

    // Queues the answer of request `number`; after `answer.delay` milliseconds if it says so, and
    // until then no request is taken. Control characters that the wire can't carry become blanks.
    void answer(const QByteArray& number, const CommandAnswer& answer);

    // Sends what was queued, as far as the client takes it.
    void flush();

    // The client has gone.
    bool gone() const { return gone_; }

    // Nothing more can be read: the client has sent its last request, or what is none.
    bool ended() const { return ended_ || reader_.refused(); }

    // Ends the connection when the queued answers have been sent.
    void close();

    // Reads what has arrived up to now, and from here on nothing more.
    void readArrived();

    // Waits up to `milliseconds` until the queued answers have been handed over.
    void finishSending(int milliseconds);

    // Ends the connection at once when answers have been waiting for `milliseconds` without the
    // client taking any.
    void dropIfStalled(qint64 milliseconds);

    bool queued = false; // stands in the server's queue

Q_SIGNALS:
    // There may be a request to take, or the connection has come to its end.
    void ready(hotel::ClientConnection* connection);

private:
    bool receive();
    void send(const QByteArray& number, const QString& text);
    void lose();
    bool choked() const { return !gone_ && unsent_.size() > unsentLimit_; }

    int descriptor_;
    QSocketNotifier arrival_; // on while requests are taken
    QSocketNotifier room_;    // on while answers wait
    qsizetype unsentLimit_;
    RequestReader reader_;
    QByteArray unsent_;         // answers that the system has not taken yet
    QElapsedTimer progress_;    // since the client last took something
    bool arrived_ = false;      // the system has bytes for reader_
    bool waitsForRoom_ = false; // requests stay unread until the client has taken answers
    bool held_ = false;         // no request is taken until the next answer
    bool ended_ = false;        // the client has ended its side
    bool closing_ = false;      // ends when all is sent
    bool gone_ = false;
};

} // namespace hotel
