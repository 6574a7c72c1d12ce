#pragma once

// A hotel for one test: a record server in its own thread on a free port, over a temporary store with the
// install and demo trees, and a workstation at it, logged in as ADMIN. Clock of both: 2026-03-05
// 10:00:00, frozen.

#include <atomic>
#include <memory>

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include "link/Wck_comm.h"

namespace hotel {

class ServerThread;

// A further workstation of the house. The newest, or the one switched to, is where the commands go.
class Desk {
public:
    // Connects to the server; nobody is logged in yet.
    explicit Desk(quint16 port);
    ~Desk();

    // Logs a user of the demo hotel in on this link and makes him the session's user.
    void logIn(const QString& user, const QString& password);
    // Makes this workstation the current one.
    void use();

    Wck_comm& link() { return link_; }
    // What the link told the user, words only.
    const QStringList& said() const { return said_; }

private:
    Wck_comm link_;
    QStringList said_;
};

class TestHotel {
public:
    enum class Start { LoggedIn, NobodyLoggedIn };

    // Who fills the hotel has turns of the server share a commit.
    explicit TestHotel(Start start = Start::LoggedIn, int turnsOfCommit = 1);
    ~TestHotel();

    quint16 port() const { return port_; }
    Desk& desk() { return *desk_; }

    // The server goes away, and comes back on the same port over the same store.
    void stopServer();
    void startServer();

    // The server's clock, apart from the workstation's.
    void setServerClock(const QDateTime& moment) { serverClock_ = moment.toMSecsSinceEpoch(); }

    // A record as the server holds it, asked for by a desk of its own; empty when there is none.
    QString stored(const QString& file, const QString& project, const QString& record);
    // A field of the operation log's record of that second, likewise.
    QString logged(QStringView field, const QString& second = QStringLiteral("100000"));

    static QDateTime Moment();
    static constexpr QLatin1StringView kAdminPassword{"admin888"};

private:
    QTemporaryDir folder_;
    std::atomic<qint64> serverClock_;
    quint16 port_ = 0;
    int turnsOfCommit_;
    std::unique_ptr<ServerThread> server_;
    std::unique_ptr<Desk> desk_;
};

} // namespace hotel
