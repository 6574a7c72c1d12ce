#include "server/client_connection.h"

#include <QTimer>

#include "record/code_page.h"

namespace hotel {

namespace {

// What is read from the system ahead of its being taken.
constexpr qint64 kReadAhead = 256 * 1024;

// The client takes a control character other than a line end for the first half of a character. A
// zero byte is none when it begins the one character whose first half is zero.
void BlankControls(QByteArray& bytes) {
    constexpr char kAfterZero = char(0x80);
    char* const end = bytes.data() + bytes.size();
    for (char* at = bytes.data(); at != end; ++at) {
        if (quint8(*at) >= ' ' || *at == '\r' || *at == '\n')
            continue;
        if (*at != 0 || at + 1 == end || at[1] != kAfterZero)
            *at = ' ';
    }
}

} // namespace

ClientConnection::ClientConnection(QTcpSocket* socket, qsizetype unsentLimit, QObject* parent)
    : QObject(parent), socket_(socket), unsentLimit_(unsentLimit) {
    peer.address = socket->peerAddress();
    socket_->setParent(this);
    socket_->setReadBufferSize(kReadAhead);
    socket_->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    socket_->setSocketOption(QAbstractSocket::KeepAliveOption, 1);
    progress_.start();
    connect(socket_, &QTcpSocket::readyRead, this, [this] { Q_EMIT ready(this); });
    connect(socket_, &QTcpSocket::bytesWritten, this, &ClientConnection::socket_bytesWritten);
    connect(socket_, &QTcpSocket::disconnected, this, &ClientConnection::socket_disconnected);
}

std::optional<Request> ClientConnection::next() {
    waitsForRoom_ = choked();
    if (held_ || waitsForRoom_)
        return std::nullopt;
    while (true) {
        if (std::optional<Request> request = reader_.next())
            return request;
        if (reader_.refused() || socket_->bytesAvailable() == 0)
            return std::nullopt;
        reader_.feed(socket_->readAll());
    }
}

void ClientConnection::answer(const QByteArray& number, const CommandAnswer& answer) {
    held_ = answer.delay > 0;
    if (!held_) {
        send(number, answer.text);
        return;
    }
    QTimer::singleShot(answer.delay, this, [this, number, text = answer.text] {
        held_ = false;
        send(number, text);
        Q_EMIT ready(this);
    });
}

void ClientConnection::send(const QByteArray& number, const QString& text) {
    if (gone_)
        return;
    if (socket_->bytesToWrite() == 0)
        progress_.restart();
    const QByteArray head = "CmdID:" + number + '>';
    QByteArray body = EncodeForWire(text);
    BlankControls(body);
    QByteArray frame;
    frame.reserve(body.size() + 2 * head.size() + 3);
    frame.append('<').append(head).append(body).append("</").append(head);
    socket_->write(frame);
}

void ClientConnection::readArrived() {
    if (gone_)
        return;
    qint64 known = -1;
    while (socket_->bytesAvailable() > known) {
        known = socket_->bytesAvailable();
        socket_->waitForReadyRead(0);
    }
}

void ClientConnection::finishSending(int milliseconds) {
    while (!gone_ && socket_->bytesToWrite() > 0)
        if (!socket_->waitForBytesWritten(milliseconds))
            return;
}

void ClientConnection::dropIfStalled(qint64 milliseconds) {
    if (socket_->bytesToWrite() > 0 && progress_.hasExpired(milliseconds))
        socket_->abort();
}

void ClientConnection::socket_bytesWritten() {
    progress_.restart();
    if (waitsForRoom_ && !choked())
        Q_EMIT ready(this);
}

void ClientConnection::socket_disconnected() {
    gone_ = true;
    Q_EMIT ready(this);
}

} // namespace hotel
