#pragma once

// A workstation's end of the wire for benchmarks of the server: plain sockets that wait, nothing beside.

#include <arpa/inet.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>

#include "record/code_page.h"
#include "record/literals.h"
#include "record/login_digest.h"
#include "server/store.h"

namespace hotel::bench {

inline void Require(bool kept, const char* what) {
    if (kept)
        return;
    std::perror(what);
    std::exit(1);
}

inline int ConnectTo(quint16 port) {
    const int socket = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    Require(::connect(socket, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0,
            "connect");
    const int on = 1;
    ::setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    return socket;
}

inline void SendAll(int socket, QByteArrayView bytes) {
    while (!bytes.isEmpty()) {
        const ssize_t sent = ::send(socket, bytes.data(), size_t(bytes.size()), MSG_NOSIGNAL);
        Require(sent > 0, "send");
        bytes = bytes.sliced(sent);
    }
}

// A workstation's end, without a workstation: bytes out, bytes in.
class Client {
public:
    explicit Client(quint16 port) : socket_(ConnectTo(port)), buffer_(1 << 20, Qt::Uninitialized) {}
    ~Client() { ::close(socket_); }

    void logIn() {
        const QString date = QDateTime::currentDateTime().toString(u"yyyy-MM-dd"_s);
        const QString digest = *LoginDigest(kProductId, u"bench", u"", date);
        const QByteArray request =
            Request(u"登录"_s, {{u"用户名"_s, u"bench"_s}, {u"密码"_s, digest}});
        Require(exchange(request) > 0, "login");
    }

    static QByteArray Request(const QString& command, const QList<NamedText>& fields) {
        QString text = u"<命令>"_s + command + u"</命令>\r\n"_s;
        for (const NamedText& field : fields)
            text += u"<%1>%2</%1>\r\n"_s.arg(field.name, field.text);
        return EncodeForWire(text + u"<命令流水号>CmdID:007</命令流水号>\r\n"_s);
    }

    // Sends a request and waits for its answer; gives the answer's size in bytes.
    qsizetype exchange(QByteArrayView request) {
        send(request);
        while (!hasAnswer()) {
        }
        return held_;
    }

    // The two halves, for who serves several connections: hasAnswer waits for some bytes and tells whether
    // they end the answer.
    void send(QByteArrayView request) {
        held_ = 0;
        SendAll(socket_, request);
    }
    bool hasAnswer() {
        static const QByteArray end = "</CmdID:007>";
        if (held_ > buffer_.size() / 2)
            buffer_.resize(2 * buffer_.size());
        const ssize_t got =
            ::recv(socket_, buffer_.data() + held_, size_t(buffer_.size() - held_), 0);
        Require(got > 0, "recv");
        held_ += got;
        return held_ >= end.size() &&
               QByteArrayView(buffer_).first(held_).last(end.size()) == QByteArrayView(end);
    }
    int socket() const { return socket_; }

private:
    int socket_;
    QByteArray buffer_;
    qsizetype held_ = 0;
};

// A record of 500 characters.
inline QString RoomRecord(int number) {
    QString record = u"<房间号>%1</房间号>\r\n"_s.arg(number);
    while (record.size() < 460)
        record += u"<房间类型>标准双人间</房间类型>\r\n<房态>散客入住</房态>\r\n"_s;
    return record + QString(500 - record.size(), u'备');
}

} // namespace hotel::bench
