#pragma once

// The record server: answers the workstations' requests from one store.
//
// One thread, one loop. Requests that arrive together are answered in one turn: their changes share
// one commit, and no answer leaves before it. A turn that has changed something goes on until a pass
// over the sockets brings nothing new, so that it takes along who is about to write. When the commit
// fails, each request of the turn is tried again by itself, so that one that can't be done takes no
// other with it; when it may or may not have come about, none is tried again.
//
// Before a store that others serve too is looked at, a request of each connection is taken: one look at
// what is new answers them all, and is later than any of them.
//
// A turn is short whatever is waiting, and takes one request of each connection after the other; a
// client that sends without reading, or reads nothing, holds up nobody but itself.

#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <vector>

#include <QDateTime>
#include <QElapsedTimer>
#include <QHostAddress>
#include <QObject>
#include <QSocketNotifier>
#include <QTcpServer>
#include <QTimer>

#include "record/login_digest.h"
#include "server/client_connection.h"
#include "server/command_table.h"
#include "server/store.h"

namespace hotel {

struct ServerSettings {
    QString store; // its place, as Store takes it
    QHostAddress listen{QHostAddress::LocalHost};
    quint16 port = 6801;                       // 0: any free one
    QString productId = kProductId.toString(); // enters the login digest
    std::function<QDateTime()> clock;          // called on the server's thread
    qsizetype unsentLimit = 4 * 1024 * 1024;   // bytes of answers a client may leave untaken
    int stallLimit = 60'000;                   // milliseconds after which it is dropped then
    OperationLogPlace log = {};                // of the workstations
    int failureStep = 500;                     // FailureLimit's, milliseconds
    // So many turns share a commit. More than one is for who fills a store and throws it away when he doesn't
    // come to his end: a failing commit takes along turns that were answered, which finish() tells.
    int turnsOfCommit = 1;
};

class RecordServer : public QObject {
    Q_OBJECT

public:
    // Opens the store and listens. Throws StoreError when the store can't be served or the address
    // can't be had.
    explicit RecordServer(ServerSettings settings);
    ~RecordServer() override;

    quint16 port() const { return listener_.serverPort(); }

    // Takes no more connections, answers what has been received and closes all connections. Throws
    // StoreError when changes that were answered could not be committed.
    void finish();

private:
    struct Exchange {
        ClientConnection* connection;
        Request request;
        CommandAnswer answer;
        Peer before; // the connection's, ahead of the request
        bool isAnswered = false;
    };
    struct Turn {
        std::vector<Exchange> exchanges;
        std::vector<ClientConnection*> drained; // connections without a further request
        QElapsedTimer spent;                    // since the first of them
    };

    void callers_activated();
    void dispatcher_aboutToBlock();
    void enqueue(ClientConnection* connection);
    bool takeRequests();
    void takeRequest();
    void answerRequest(Exchange& exchange);
    void finishTurn();
    size_t gathered_ = 0; // connections that wait, as the last pass over the sockets has left them
    void answerAssumedAgain(size_t first);
    void commitTurn();
    void restorePeers();
    void answerEachAlone();
    void answerAll(const StoreError& error);
    void sendAnswers();
    void letGo();
    QList<ClientConnection*> connections() const;
    void dropStalled();

    ServerSettings settings_;
    Store store_;
    FailureLimit failures_;
    ServerState state_;
    QTcpServer listener_;                      // binds the address; callers_ does the accepting
    std::unique_ptr<QSocketNotifier> callers_; // off while there is no descriptor for a caller
    QTimer stallTimer_;
    std::deque<ClientConnection*> queue_; // connections that may have a request
    Turn turn_;
    int uncommittedTurns_ = 0;
    std::exception_ptr lost_; // what turns that were answered were lost by
};

} // namespace hotel
