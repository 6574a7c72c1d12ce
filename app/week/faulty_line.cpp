#include "app/week/faulty_line.h"

#include <QTcpSocket>
#include <QTimer>

#include <algorithm>

#include <sys/socket.h>

#include "record/code_page.h"
#include "record/literals.h"

namespace hotel {

namespace {

constexpr int kLongestDelay = 30; // milliseconds
constexpr int kBetweenPieces = 2; // likewise
constexpr int kCutWithin = 64;    // bytes of an answer, which the first of it that arrives has

// Ends a request, and stands in no value.
const QByteArray& RequestEnd() {
    static const QByteArray end = EncodeForWire(u"</命令流水号>\r\n"_s);
    return end;
}

// Behind the first byte of a character of two; of a text without one its middle.
qsizetype MidCharacter(QByteArrayView text, Dice& dice) {
    QList<qsizetype> places;
    for (qsizetype n = 0; n < text.size(); ++n) {
        if (uchar(text[n]) >= 0x80)
            places.append(++n);
    }
    return places.isEmpty() ? text.size() / 2 : dice.pick(places);
}

// The other side sees the connection reset, not ended.
void ResetSocket(QTcpSocket& socket) {
    const linger atOnce{1, 0};
    ::setsockopt(int(socket.socketDescriptor()), SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
    socket.abort();
}

} // namespace

QString LineFaultName(LineFault fault) {
    constexpr std::array<QStringView, kLineFaults> kNames = {u"delayed", u"in two pieces",
                                                             u"broken off in the request",
                                                             u"broken off in the answer", u"reset"};
    return kNames[size_t(fault)].toString();
}

// One connection of a desk, which sends a request only when it has the answer to the last one.
class DeskConnection : public QObject {
public:
    DeskConnection(FaultyLine& line, int desk, QTcpSocket* near, quint16 server)
        : QObject(&line), line_(line), desk_(desk), near_(near) {
        near_->setParent(this);
        for (QTcpSocket* socket : {near_, &far_})
            socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        far_.connectToHost(QHostAddress::LocalHost, server);
        connect(&far_, &QTcpSocket::connected, this, [this] { takeRequest(); });
        connect(near_, &QTcpSocket::readyRead, this, [this] { takeRequest(); });
        connect(&far_, &QTcpSocket::readyRead, this, [this] { takeAnswer(); });
        connect(near_, &QTcpSocket::disconnected, this, [this] { end(); });
        connect(&far_, &QTcpSocket::disconnected, this, [this] { near_->disconnectFromHost(); });
    }

    ~DeskConnection() override {
        near_->disconnect(this);
        far_.disconnect(this);
    }

    int desk() const { return desk_; }

    void pass() { far_.write(std::exchange(request_, {})); }

    void passWith(LineFault fault, Dice& dice) {
        switch (fault) {
        case LineFault::Delayed:
            QTimer::singleShot(1 + dice.below(kLongestDelay), this, [this] { pass(); });
            break;
        case LineFault::InPieces:
            passInPieces(MidCharacter(request_, dice));
            break;
        case LineFault::RequestCut:
            far_.write(request_.left(MidCharacter(request_, dice)));
            far_.flush();
            near_->disconnectFromHost();
            break;
        case LineFault::AnswerCut:
            answerDice_ = &dice;
            pass();
            break;
        case LineFault::Reset:
            ResetSocket(far_);
            ResetSocket(*near_);
            break;
        }
    }

private:
    void passInPieces(qsizetype parting) {
        far_.write(request_.left(parting));
        far_.flush();
        request_.remove(0, parting);
        QTimer::singleShot(kBetweenPieces, this, [this] { pass(); });
    }

    void takeRequest() {
        if (far_.state() != QAbstractSocket::ConnectedState)
            return;
        request_ += near_->readAll();
        if (request_.endsWith(RequestEnd()))
            line_.requestWaits(this);
    }

    void takeAnswer() {
        const QByteArray answer = far_.readAll();
        if (!answerDice_) {
            near_->write(answer);
            return;
        }
        near_->write(answer.left(MidCharacter(
            QByteArrayView(answer).first(std::min<qsizetype>(answer.size(), kCutWithin)),
            *answerDice_)));
        near_->flush();
        near_->disconnectFromHost();
    }

    void end() {
        line_.connectionGone(this);
        far_.abort();
        deleteLater();
    }

    FaultyLine& line_;
    int desk_;
    QTcpSocket* near_;
    QTcpSocket far_;
    QByteArray request_;
    Dice* answerDice_ = nullptr; // the next answer breaks off, at a place that these tell
};

FaultyLine::FaultyLine(const LineOrder& order, HouseClock& clock)
    : order_(order), clock_(clock), turns_(order.seed), busy_(order.desks) {
    for (int desk = 0; desk < order.desks; ++desk) {
        dice_.emplace_back(order.seed * 1'000'003 + quint64(desk));
        listeners_.push_back(std::make_unique<QTcpServer>());
        QTcpServer& listener = *listeners_.back();
        listener.listen(QHostAddress::LocalHost);
        connect(&listener, &QTcpServer::newConnection, this, [this, desk] { take(desk); });
    }
}

void FaultyLine::take(int desk) {
    QTcpServer& listener = *listeners_[size_t(desk)];
    while (QTcpSocket* near = listener.nextPendingConnection())
        new DeskConnection(*this, desk, near, order_.servers[desk % order_.servers.size()]);
}

void FaultyLine::begin(int desk) {
    busy_[desk] = true;
}

void FaultyLine::end(int desk) {
    busy_[desk] = false;
    giveTurn();
}

void FaultyLine::requestWaits(DeskConnection* connection) {
    ++requests_;
    if (!order_.inTurn) {
        pass(connection);
        return;
    }
    waiting_[connection->desk()] = connection;
    busy_[connection->desk()] = false;
    giveTurn();
}

void FaultyLine::connectionGone(DeskConnection* connection) {
    const auto waits = waiting_.find(connection->desk());
    if (waits == waiting_.end() || waits->second != connection)
        return;
    waiting_.erase(waits);
    busy_[connection->desk()] = true;
}

void FaultyLine::giveTurn() {
    if (!order_.inTurn || waiting_.empty() || busy_.contains(true))
        return;
    const auto next = std::next(waiting_.begin(), turns_.below(int(waiting_.size())));
    DeskConnection* connection = next->second;
    busy_[next->first] = true;
    clock_.moveTo(clock_.ofDesk(next->first));
    waiting_.erase(next);
    pass(connection);
}

void FaultyLine::pass(DeskConnection* connection) {
    Dice& dice = dice_[size_t(connection->desk())];
    if (order_.requestsAFault == 0 || dice.below(order_.requestsAFault) != 0) {
        connection->pass();
        return;
    }
    const auto fault = LineFault(dice.below(kLineFaults));
    ++faults_[size_t(fault)];
    connection->passWith(fault, dice);
}

} // namespace hotel
