#include "server/connection.h"

#include <algorithm>

#include <QTimer>

#include "record/code_page.h"

namespace hotel {

namespace {

// What is read from the system ahead of its being taken.
constexpr qint64 kReadAhead = 256 * 1024;

// The client takes a control character other than a line end for the first half of a character.
void BlankControls(QByteArray& bytes) {
    std::replace_if(
        bytes.begin(), bytes.end(),
        [](char c) { return quint8(c) < ' ' && c != '\r' && c != '\n'; }, ' ');
}

} // namespace

Connection::Connection(QTcpSocket* socket, qsizetype unsentLimit, QObject* parent)
    : QObject(parent), socket_(socket), unsentLimit_(unsentLimit) {
    speaker.address = socket->peerAddress();
    socket_->setParent(this);
    socket_->setReadBufferSize(kReadAhead);
    socket_->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    socket_->setSocketOption(QAbstractSocket::KeepAliveOption, 1);
    progress_.start();
    connect(socket_, &QTcpSocket::readyRead, this, [this] { Q_EMIT ready(this); });
    connect(socket_, &QTcpSocket::bytesWritten, this, &Connection::socket_bytesWritten);
    connect(socket_, &QTcpSocket::disconnected, this, &Connection::socket_disconnected);
}

std::optional<Request> Connection::next() {
    if (held_ || choked())
        return std::nullopt;
    while (true) {
        if (std::optional<Request> request = reader_.next())
            return request;
        if (reader_.refused() || socket_->bytesAvailable() == 0)
            return std::nullopt;
        reader_.feed(socket_->readAll());
    }
}

void Connection::answer(const QByteArray& number, const Answer& answer) {
    if (answer.delay == 0) {
        send(number, answer.text);
        return;
    }
    held_ = true;
    QTimer::singleShot(answer.delay, this, [this, number, text = answer.text] {
        held_ = false;
        send(number, text);
        Q_EMIT ready(this);
    });
}

void Connection::send(const QByteArray& number, const QString& text) {
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

void Connection::readArrived() {
    if (gone_)
        return;
    qint64 known = -1;
    while (socket_->bytesAvailable() > known) {
        known = socket_->bytesAvailable();
        socket_->waitForReadyRead(0);
    }
}

void Connection::finishSending(int milliseconds) {
    while (!gone_ && socket_->bytesToWrite() > 0)
        if (!socket_->waitForBytesWritten(milliseconds))
            return;
}

void Connection::dropIfStalled(qint64 milliseconds) {
    if (socket_->bytesToWrite() > 0 && progress_.hasExpired(milliseconds))
        socket_->abort();
}

void Connection::socket_bytesWritten() {
    progress_.restart();
    if (!choked())
        Q_EMIT ready(this);
}

void Connection::socket_disconnected() {
    gone_ = true;
    Q_EMIT ready(this);
}

} // namespace hotel
