#include "tests/house/cut_line.h"

#include <QSemaphore>
#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>

#include "record/code_page.h"
#include "record/literals.h"

namespace hotel {

namespace {

const QList<QByteArray>& WriteCommands() {
    static const QList<QByteArray> commands = [] {
        QList<QByteArray> bytes;
        for (const QStringView command : {u"修改记录", u"创建数据库", u"创建项目", u"创建记录",
                                          u"删除记录", u"删除项目", u"上传文件"})
            bytes.append(EncodeForWire(u"<命令>"_s + command));
        return bytes;
    }();
    return commands;
}

bool IsWrite(const QByteArray& request) {
    return std::any_of(WriteCommands().begin(), WriteCommands().end(),
                       [&](const QByteArray& command) { return request.startsWith(command); });
}

} // namespace

// Carries one workstation at a time, which sends a request only when it has the last one's answer.
class CutLineWorker : public QObject {
public:
    CutLineWorker(CutLine& line, quint16 serverPort) : line_(line), serverPort_(serverPort) {
        listener_.listen(QHostAddress::LocalHost);
        connect(&listener_, &QTcpServer::newConnection, this, &CutLineWorker::carry);
    }

    quint16 port() const { return listener_.serverPort(); }

private:
    void carry() {
        near_ = listener_.nextPendingConnection();
        far_ = new QTcpSocket(near_);
        for (QTcpSocket* socket : {near_, far_})
            socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        far_->connectToHost(QHostAddress::LocalHost, serverPort_);
        atRequestStart_ = true;
        connect(near_, &QTcpSocket::readyRead, this, [this] { takeRequest(near_->readAll()); });
        connect(far_, &QTcpSocket::readyRead, this, [this] {
            atRequestStart_ = true;
            near_->write(far_->readAll());
        });
    }

    void takeRequest(QByteArray bytes) {
        if (atRequestStart_) {
            const int request = ++line_.requests_;
            const int write = IsWrite(bytes) ? ++line_.writes_ : -1;
            if (write == line_.cutBefore_ || request == line_.cutBeforeRequest_)
                return cut();
            if (write == line_.spoilt_)
                bytes.replace(EncodeForWire(u"<命令>"), EncodeForWire(u"<命令>不"));
        }
        atRequestStart_ = false;
        far_->write(bytes);
    }

    void cut() {
        listener_.close();
        far_->abort();
        near_->abort();
    }

    CutLine& line_;
    quint16 serverPort_;
    QTcpServer listener_;
    QTcpSocket* near_ = nullptr;
    QTcpSocket* far_ = nullptr;
    bool atRequestStart_ = true;
};

CutLine::CutLine(quint16 serverPort) {
    QSemaphore listening;
    thread_.reset(QThread::create([&, serverPort] {
        CutLineWorker worker(*this, serverPort);
        port_ = worker.port();
        listening.release();
        QEventLoop().exec();
    }));
    thread_->start();
    listening.acquire();
}

CutLine::~CutLine() {
    thread_->quit();
    thread_->wait();
}

void CutLine::reset() {
    requests_ = 0;
    writes_ = 0;
    cutBefore_ = 0;
    cutBeforeRequest_ = 0;
    spoilt_ = 0;
}

} // namespace hotel
