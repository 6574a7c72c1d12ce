#include "server/record_server.h"

#include <cerrno>
#include <utility>

#include <QAbstractEventDispatcher>
#include <QDeadlineTimer>
#include <QElapsedTimer>

#include <sys/socket.h>

namespace hotel {

namespace {

// One turn takes no more than this, so that what has arrived meanwhile is seen.
constexpr qint64 kTurnTime = 5; // milliseconds
constexpr size_t kTurnRequests = 512;

// Requests that are taken ahead of a look into a store that others serve too.
constexpr size_t kTakenTogether = 64;

CommandAnswer StoreErrorAnswer(const StoreError& error) {
    return {ErrorText(u"数据库不能完成命令："_s + error.words())};
}

constexpr int kListenBacklog = 256;
constexpr int kAcceptPause = 1000; // milliseconds after which a failed accept is tried again
constexpr int kLastSending = 2000; // milliseconds for a client to take its last answers

} // namespace

RecordServer::RecordServer(ServerSettings settings)
    : settings_(std::move(settings)), store_(settings_.store, Store::Use::Serve),
      failures_(settings_.failureStep), state_{store_, failures_, settings_.productId,
                                               settings_.clock, settings_.log} {
    listener_.setListenBacklogSize(kListenBacklog);
    if (!listener_.listen(settings_.listen, settings_.port))
        throw StoreError(u"can't listen on "_s + settings_.listen.toString() + u':' +
                         QString::number(settings_.port) + u": " + listener_.errorString());
    listener_.pauseAccepting();
    callers_ =
        std::make_unique<QSocketNotifier>(listener_.socketDescriptor(), QSocketNotifier::Read);
    connect(callers_.get(), &QSocketNotifier::activated, this, &RecordServer::callers_activated);
    connect(&stallTimer_, &QTimer::timeout, this, &RecordServer::dropStalled);
    stallTimer_.start(settings_.stallLimit / 4);
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            &RecordServer::dispatcher_aboutToBlock);
}

RecordServer::~RecordServer() = default;

// Out of descriptors, the caller stays in front of the door and would be announced again at once: nobody is
// listened to until some may have come free.
void RecordServer::callers_activated() {
    while (true) {
        const int descriptor =
            ::accept4(int(callers_->socket()), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
        if (descriptor >= 0) {
            auto* connection = new ClientConnection(descriptor, settings_.unsentLimit, this);
            connect(connection, &ClientConnection::ready, this, &RecordServer::enqueue);
            connect(connection, &QObject::destroyed, callers_.get(),
                    [this] { callers_->setEnabled(true); });
        } else if (errno == EAGAIN || errno == EWOULDBLOCK) {
            return;
        } else if (errno != EINTR && errno != ECONNABORTED) {
            callers_->setEnabled(false);
            QTimer::singleShot(kAcceptPause, callers_.get(),
                               [this] { callers_->setEnabled(true); });
            return;
        }
    }
}

void RecordServer::enqueue(ClientConnection* connection) {
    if (!std::exchange(connection->queued, true))
        queue_.push_back(connection);
}

// Runs when all sockets that are ready in this pass of the loop have been heard.
void RecordServer::dispatcher_aboutToBlock() {
    if (queue_.empty() && turn_.exchanges.empty())
        return;
    if (store_.isShared() && queue_.size() < kTakenTogether &&
        std::exchange(gathered_, queue_.size()) < queue_.size()) {
        QAbstractEventDispatcher::instance()->wakeUp(); // who else asks shares the look
        return;
    }
    gathered_ = 0;
    try {
        const bool goesOn =
            takeRequests() && store_.inTransaction() && settings_.turnsOfCommit == 1;
        if (!goesOn)
            finishTurn();
    } catch (const LostCommit& error) {
        qWarning("store: a commit that may be lost: %s", error.what());
        store_.rollback();
        answerAll(error);
        finishTurn();
    } catch (const StoreError& error) {
        qWarning("store: %s", error.what());
        if (std::exchange(uncommittedTurns_, 0) > 0)
            lost_ = std::current_exception();
        store_.rollback();
        answerEachAlone();
        finishTurn();
    }
    if (!queue_.empty() || !turn_.exchanges.empty())
        QAbstractEventDispatcher::instance()->wakeUp(); // look around again at once
}

// Answers the requests that wait; true when there were some and the turn may take more.
bool RecordServer::takeRequests() {
    if (turn_.exchanges.empty())
        turn_.spent.start();
    const size_t before = turn_.exchanges.size();
    const auto isFull = [&] {
        return turn_.exchanges.size() >= kTurnRequests || turn_.spent.hasExpired(kTurnTime);
    };
    while (!queue_.empty() && !isFull()) {
        const size_t first = turn_.exchanges.size();
        const size_t together = store_.isShared() ? std::min(queue_.size(), kTakenTogether) : 1;
        for (size_t n = 0; n < together; ++n)
            takeRequest();
        store_.expectNews();
        if (std::any_of(turn_.exchanges.begin() + std::ptrdiff_t(first), turn_.exchanges.end(),
                        [](const Exchange& exchange) { return OnlyReads(exchange.request); }))
            store_.lookAhead();
        for (size_t n = first; n < turn_.exchanges.size(); ++n)
            answerRequest(turn_.exchanges[n]);
        if (!store_.confirm())
            answerAssumedAgain(first);
    }
    return turn_.exchanges.size() > before && !isFull();
}

void RecordServer::takeRequest() {
    ClientConnection* connection = queue_.front();
    queue_.pop_front();
    connection->queued = false;
    if (std::optional<Request> request = connection->next())
        turn_.exchanges.push_back({connection, std::move(*request), {}, connection->peer});
    else
        turn_.drained.push_back(connection);
}

void RecordServer::answerRequest(Exchange& exchange) {
    exchange.answer = AnswerRequest(state_, exchange.connection->peer, exchange.request);
    exchange.isAnswered = true;
    if (exchange.answer.delay > 0)
        exchange.connection->hold();
    enqueue(exchange.connection);
}

// Others had changed what memory had.
void RecordServer::answerAssumedAgain(size_t first) {
    for (size_t n = first; n < turn_.exchanges.size(); ++n) {
        Exchange& exchange = turn_.exchanges[n];
        if (exchange.answer.isAssumed)
            exchange.answer = AnswerRequest(state_, exchange.connection->peer, exchange.request);
    }
}

void RecordServer::commitTurn() {
    // a turn that only finds connections without a request is none
    const int turns = uncommittedTurns_ + (turn_.exchanges.empty() ? 0 : 1);
    if (store_.inTransaction() && turns < settings_.turnsOfCommit) {
        uncommittedTurns_ = turns;
        return;
    }
    store_.commit();
    uncommittedTurns_ = 0;
}

void RecordServer::finishTurn() {
    commitTurn();
    sendAnswers();
    letGo();
    turn_.exchanges.clear();
    turn_.drained.clear();
}

// Who speaks on the connections goes back to what it was ahead of the turn.
void RecordServer::restorePeers() {
    for (auto exchange = turn_.exchanges.rbegin(); exchange != turn_.exchanges.rend(); ++exchange)
        exchange->connection->peer = exchange->before;
}

// Delays stay: a connection whose answer did not wait has sent the next requests of the turn.
void RecordServer::answerEachAlone() {
    restorePeers();
    for (Exchange& exchange : turn_.exchanges) {
        const std::optional<int> delay =
            exchange.isAnswered ? std::optional(exchange.answer.delay) : std::nullopt;
        try {
            store_.expectNews();
            answerRequest(exchange);
            store_.commit();
        } catch (const StoreError& error) {
            store_.rollback();
            exchange.answer = StoreErrorAnswer(error);
            enqueue(exchange.connection);
        }
        exchange.answer.delay = delay.value_or(exchange.answer.delay);
    }
}

void RecordServer::answerAll(const StoreError& error) {
    restorePeers();
    for (Exchange& exchange : turn_.exchanges) {
        const int delay = exchange.answer.delay;
        exchange.answer = StoreErrorAnswer(error);
        exchange.answer.delay = delay;
        enqueue(exchange.connection);
    }
}

void RecordServer::sendAnswers() {
    for (const Exchange& exchange : turn_.exchanges)
        exchange.connection->answer(exchange.request.number(), exchange.answer);
    for (const Exchange& exchange : turn_.exchanges)
        exchange.connection->flush();
}

void RecordServer::letGo() {
    for (ClientConnection* connection : turn_.drained) {
        if (connection->queued)
            continue;
        if (connection->gone()) {
            connection->disconnect(this);
            connection->deleteLater();
        } else if (connection->ended()) {
            connection->close();
        }
    }
}

QList<ClientConnection*> RecordServer::connections() const {
    return findChildren<ClientConnection*>(QString(), Qt::FindDirectChildrenOnly);
}

void RecordServer::dropStalled() {
    for (ClientConnection* connection : connections())
        connection->dropIfStalled(settings_.stallLimit);
}

void RecordServer::finish() {
    callers_.reset();
    listener_.close();
    for (ClientConnection* connection : connections()) {
        connection->readArrived();
        enqueue(connection);
    }
    while (!queue_.empty() || !turn_.exchanges.empty())
        dispatcher_aboutToBlock();
    store_.commit();
    const QDeadlineTimer deadline(kLastSending);
    for (ClientConnection* connection : connections())
        connection->finishSending(int(deadline.remainingTime()));
    if (lost_)
        std::rethrow_exception(lost_);
}

} // namespace hotel
