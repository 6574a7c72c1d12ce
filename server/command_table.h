#pragma once

// The commands of the wire: one table of name, handler and what the command may and needs.

#include <functional>

#include <QDateTime>
#include <QHostAddress>
#include <QString>

#include "server/login.h"
#include "server/refusal_log.h"
#include "server/request_reader.h"
#include "server/store.h"

namespace hotel {

// Who speaks on a connection.
struct Peer {
    QHostAddress address;
    QString user;            // empty: not logged in
    quint64 userChanges = 0; // Store::changesOf the user file when the user was last seen
    // After a refused login one entry of the operation log may be added, so that attempts are on file.
    bool mayLog = false;
    bool wasCounted = false; // the refused login counts as a failure already
};

// What all commands work on.
struct ServerState {
    Store& store;
    FailureLimit& failures;
    QString productId;                // enters the login digest
    std::function<QDateTime()> clock; // the house's time
    OperationLogPlace log = {};
};

struct CommandAnswer {
    QString text;           // never empty
    int delay = 0;          // milliseconds by which it is to be held back
    bool isAssumed = false; // from memory, to be confirmed by the store
};

using CommandHandler = CommandAnswer (*)(ServerState& server, Peer& peer, const Request& request);

enum CommandFlag : unsigned {
    kBeforeLogin = 1, // answered on a connection that has not logged in
    kWrites = 2,      // changes the store: runs in a transaction
    kFromMemory = 4,  // as a rule memory has what is asked for
    kOnlyReads = 8,   // and nothing else: may be answered again
};

struct ServerCommand {
    QStringView name;
    unsigned flags;
    CommandHandler handler;
};

// The command of that name, nullptr when there is none.
const ServerCommand* FindServerCommand(QStringView name);

// Whether answering it is reading and nothing else.
bool OnlyReads(const Request& request);

// Answers a request; a user who is no longer among the users counts as not logged in. Begins a transaction
// when the command writes, refreshes the store else, and leaves the commit to the caller. A request that can't be done is answered
// `<ERROR>words</ERROR>`. Throws StoreError when the store fails.
CommandAnswer AnswerRequest(ServerState& server, Peer& peer, const Request& request);

// `<ERROR>words</ERROR>`
QString ErrorText(const QString& words);

} // namespace hotel
