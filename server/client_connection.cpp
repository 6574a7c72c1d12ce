#include "server/client_connection.h"

#include <array>
#include <cerrno>

#include <QDeadlineTimer>
#include <QStringBuilder>
#include <QTimer>

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include "record/code_page.h"

namespace hotel {

namespace {

// What is read from the system at once, and altogether when the server ends.
constexpr size_t kArrival = 64 * 1024;
constexpr int kLastArrivals = 4;

QHostAddress PeerAddress(int descriptor) {
    sockaddr_storage address{};
    socklen_t size = sizeof address;
    auto* anyAddress = reinterpret_cast<sockaddr*>(&address);
    return ::getpeername(descriptor, anyAddress, &size) == 0 ? QHostAddress(anyAddress)
                                                             : QHostAddress();
}

void SwitchOn(int descriptor, int level, int option) {
    const int on = 1;
    ::setsockopt(descriptor, level, option, &on, sizeof on);
}

// The call that failed may succeed later.
bool MayTryAgain() {
    return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR;
}

// A control character that is no line end. Made of numbers, for the sake of HoldsControls.
quint16 IsControl(char16_t c) {
    return quint16(c < u' ') & quint16(c != u'\r') & quint16(c != u'\n');
}

// Tests whole blocks; the compiler makes vector instructions of the inner loop.
bool HoldsControls(QStringView text) {
    constexpr qsizetype kBlock = 64;
    const char16_t* at = text.utf16();
    const char16_t* const end = at + text.size();
    quint16 found = 0;
    for (; end - at >= kBlock; at += kBlock)
        for (qsizetype i = 0; i < kBlock; ++i)
            found |= IsControl(at[i]);
    for (; at != end; ++at)
        found |= IsControl(*at);
    return found != 0;
}

// The client takes a control character other than a line end for the first half of a character.
void BlankControls(QString& text) {
    if (!HoldsControls(text))
        return;
    for (QChar& c : text)
        if (IsControl(c.unicode()))
            c = u' ';
}

} // namespace

ClientConnection::ClientConnection(int descriptor, qsizetype unsentLimit, QObject* parent)
    : QObject(parent), descriptor_(descriptor), arrival_(descriptor, QSocketNotifier::Read),
      room_(descriptor, QSocketNotifier::Write), unsentLimit_(unsentLimit) {
    peer.address = PeerAddress(descriptor);
    SwitchOn(descriptor, IPPROTO_TCP, TCP_NODELAY);
    SwitchOn(descriptor, SOL_SOCKET, SO_KEEPALIVE);
    room_.setEnabled(false);
    connect(&arrival_, &QSocketNotifier::activated, this, [this] {
        arrived_ = true;
        Q_EMIT ready(this);
    });
    connect(&room_, &QSocketNotifier::activated, this, &ClientConnection::flush);
}

ClientConnection::~ClientConnection() {
    arrival_.setEnabled(false);
    room_.setEnabled(false);
    ::close(descriptor_);
}

// Bytes that are not taken now are not listened to: the loop would not sleep for them.
std::optional<Request> ClientConnection::next() {
    waitsForRoom_ = choked();
    const bool takes = !held_ && !waitsForRoom_;
    arrival_.setEnabled(takes && !ended() && !gone_);
    if (!takes)
        return std::nullopt;
    reader_.setLimit(peer.user.isEmpty() ? kLimitBeforeLogin : kRequestLimit);
    std::optional<Request> request = reader_.next();
    if (!request && std::exchange(arrived_, false)) {
        receive();
        request = reader_.next();
    }
    return request;
}

// True when there may be more.
bool ClientConnection::receive() {
    std::array<char, kArrival> bytes;
    const ssize_t count = ::recv(descriptor_, bytes.data(), bytes.size(), MSG_DONTWAIT);
    if (count > 0)
        reader_.feed(QByteArrayView(bytes.data(), count));
    else if (count == 0)
        ended_ = true;
    else if (!MayTryAgain())
        lose();
    return count == ssize_t(bytes.size());
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
        flush();
        Q_EMIT ready(this);
    });
}

void ClientConnection::send(const QByteArray& number, const QString& text) {
    const QString head = u"CmdID:" % QLatin1StringView(number) % u'>';
    QString frame = u'<' % head % text % u"</" % head;
    BlankControls(frame);
    unsent_.append(EncodeForWire(frame));
}

void ClientConnection::flush() {
    if (gone_ || unsent_.isEmpty())
        return;
    const ssize_t count = ::send(descriptor_, unsent_.constData(), size_t(unsent_.size()),
                                 MSG_DONTWAIT | MSG_NOSIGNAL);
    if (count < 0 && !MayTryAgain())
        return lose();
    if (count == unsent_.size()) {
        unsent_.clear();
    } else if (count > 0 || !room_.isEnabled()) { // some went, or the waiting begins
        unsent_.remove(0, qMax<qsizetype>(count, 0));
        progress_.start();
    }
    room_.setEnabled(!unsent_.isEmpty());
    if (closing_ && unsent_.isEmpty())
        return lose();
    if (waitsForRoom_ && !choked())
        Q_EMIT ready(this);
}

void ClientConnection::close() {
    closing_ = true;
    arrival_.setEnabled(false);
    if (unsent_.isEmpty())
        lose();
}

void ClientConnection::lose() {
    gone_ = true;
    arrival_.setEnabled(false);
    room_.setEnabled(false);
    Q_EMIT ready(this);
}

void ClientConnection::readArrived() {
    int arrivals = 0;
    while (!gone_ && arrivals < kLastArrivals && receive())
        ++arrivals;
    arrived_ = false;
}

void ClientConnection::finishSending(int milliseconds) {
    const QDeadlineTimer deadline(milliseconds);
    while (!gone_ && !unsent_.isEmpty()) {
        pollfd room{descriptor_, POLLOUT, 0};
        if (::poll(&room, 1, int(deadline.remainingTime())) == 0)
            return;
        flush();
    }
}

void ClientConnection::dropIfStalled(qint64 milliseconds) {
    if (!gone_ && !unsent_.isEmpty() && progress_.hasExpired(milliseconds))
        lose();
}

} // namespace hotel
