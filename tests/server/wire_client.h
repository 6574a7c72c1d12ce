#pragma once

// What the tests of the server speak with: a workstation's end of the wire without a workstation,
// and a server with two users to speak to.

#include <memory>
#include <utility>

#include <QDateTime>
#include <QList>
#include <QString>
#include <QTcpSocket>

#include "server/server_thread.h"
#include "tests/server/test_place.h"

namespace hotel {

using Fields = QList<std::pair<QString, QString>>;

// A record of project p in a.qvr.
Fields RecordFields(const QString& record, const QString& value = {});

// The bytes of one request.
QByteArray RequestBytes(const QString& command, const Fields& fields, int number);

class WireClient {
public:
    // Logs in `user`, who has no password, unless empty.
    explicit WireClient(quint16 port, const QString& user = {});

    // Sends a request and waits for its answer; empty when the connection ended instead.
    QString ask(const QString& command, const Fields& fields = {});

    // The two halves of ask: several requests may be sent ahead. Answers must come in order.
    void send(const QString& command, const Fields& fields = {});
    QString receive();

    void sendBytes(const QByteArray& bytes);
    QTcpSocket& socket() { return socket_; }

    // Waits until the server has closed the connection; gives the bytes that came before.
    QByteArray readToEnd();

    // Logs in with the digest of `day`, as a rule that on which the test server's clock stands.
    QString logIn(const QString& user, const QString& password, QDate day = QDate(2026, 3, 5));

private:
    QTcpSocket socket_;
    QByteArray buffer_;
    int sent_ = 0;
    int received_ = 0;
};

// A server in its own thread over a store of its own. Its clock stands on 2026-03-05 10:00:00.
// Users: 前台 without a password, 经理 with "secret", 值班 with kLongPassword, 远方 who may come
// from 10.1.2.3 only.
inline constexpr QStringView kLongPassword = u"a password that is long enough to reach all";

class TestServer {
public:
    explicit TestServer(const std::function<void(ServerSettings&)>& change = {});

    quint16 port() const { return thread_->port(); }
    const TestPlace& place() const { return place_; }
    QString store() const { return place_.name(); }
    void stop() { thread_.reset(); }
    void finish() { thread_->finish(); }

private:
    TestPlace place_;
    std::unique_ptr<ServerThread> thread_;
};

// Fills a store with the users above.
void WriteTestUsers(const QString& store);

} // namespace hotel
