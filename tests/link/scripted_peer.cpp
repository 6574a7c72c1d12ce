#include "tests/link/scripted_peer.h"

#include "platform/clock.h"
#include "record/code_page.h"

namespace hotel {

ScriptedPeer::ScriptedPeer(Wck_comm& watched) {
    connect(&server_, &QTcpServer::newConnection, this, [this] {
        drop();
        socket_ = server_.nextPendingConnection();
        socket_->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        connect(socket_, &QTcpSocket::readyRead, this, &ScriptedPeer::takeArrival);
        takeArrival();
    });
    connect(&watched, &Wck_comm::traceChanged, this, &ScriptedPeer::sendNext);
}

void ScriptedPeer::listen() {
    if (!server_.listen(QHostAddress::LocalHost, port_))
        qFatal("The test's peer finds no port.");
    port_ = server_.serverPort();
}

void ScriptedPeer::stop() {
    server_.close();
    drop();
}

void ScriptedPeer::drop() {
    if (socket_) {
        socket_->disconnect(this);
        connect(socket_, &QTcpSocket::disconnected, socket_, &QObject::deleteLater);
        socket_->disconnectFromHost(); // behind what is still to be sent
    }
    socket_ = nullptr;
    received_.clear();
    pending_.clear();
}

void ScriptedPeer::answerAll(const QString& body) {
    script = [body](const QString&, int number) { return Pieces{Frame(number, body)}; };
}

void ScriptedPeer::send(const Pieces& pieces) {
    const bool idle = pending_.isEmpty();
    pending_ += pieces;
    if (idle)
        sendNext();
}

QByteArray ScriptedPeer::Frame(int number, const QString& body) {
    const QString mark = u"CmdID:%1>"_s.arg(number, 3, 10, QChar(u'0'));
    return EncodeForWire(u'<' + mark + body + u"</"_s + mark);
}

void ScriptedPeer::takeArrival() {
    if (!socket_ || socket_->bytesAvailable() == 0)
        return;
    const QByteArray bytes = socket_->readAll();
    if (proxyReplies.isEmpty()) {
        received_ += bytes;
        takeRequests();
        return;
    }
    proxyArrivals += bytes;
    socket_->write(proxyReplies.takeFirst());
    socket_->flush();
}

void ScriptedPeer::takeRequests() {
    static const QByteArray open = EncodeForWire(u"<命令流水号>CmdID:");
    static const QByteArray close = EncodeForWire(u"</命令流水号>\r\n");
    qsizetype end;
    while ((end = received_.indexOf(close)) >= 0) {
        const qsizetype sequence = received_.lastIndexOf(open, end);
        const int number = received_.mid(sequence + open.size(), 3).toInt();
        const QString request = DecodeRequest(received_.first(sequence));
        received_.remove(0, end + close.size());
        requests += request;
        numbers += number;
        if (script)
            send(script(request, number));
    }
}

void ScriptedPeer::sendNext() {
    if (!socket_ || pending_.isEmpty())
        return;
    socket_->write(pending_.takeFirst());
    socket_->flush();
}

ScriptedDesk::ScriptedDesk(Start start) {
    SetLink(&link);
    link.TraceChk = true;
    link.setMessage([this](const QString& words, const QString& title) {
        messages += title + u": "_s + words;
    });
    peer.listen();
    if (start == Start::Open && !open())
        qFatal("The test's peer can't be reached.");
}

FrozenClock::FrozenClock(QTime time) {
    Clock::Freeze(QDateTime(QDate(2006, 4, 12), time));
}

FrozenClock::~FrozenClock() {
    Clock::Resume();
}

} // namespace hotel
