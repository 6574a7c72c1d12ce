#include "link/Wck_comm.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QNetworkProxy>
#include <QStringBuilder>

#include <array>

#include <poll.h>
#include <sys/socket.h>

#include "link/serv_api.h"
#include "link/server_memos.h"
#include "link/socks5.h"
#include "link/workstation.h"
#include "platform/clock.h"
#include "platform/events.h"
#include "record/numbers.h"
#include "record/record_text.h"

namespace hotel {

namespace {

constexpr int kConnectionTick = 100;  // milliseconds; an attempt that takes longer is given up
constexpr int kConnectSeconds = 3;    // that ConnectServer waits
constexpr double kAnswerSeconds = 30; // that a command waits
constexpr int kOpenLinkStart = 100;   // idle counter at the start of a wait for a connection
constexpr int kSocketSleep = 5;       // milliseconds that events stand still at a time,
constexpr int kSocketWait = 20;       // and altogether, before a wait lets them all through
constexpr int kWakeUp = 100;          // milliseconds after which a wait looks at the clock
constexpr double kPumpSeconds = 0.2;
constexpr int kFirstFatalError = 10001;
constexpr size_t kArrival = 65536;       // bytes that are taken at once
constexpr qsizetype kTraceLimit = 16384; // characters a direction
constexpr qsizetype kLogLimit = 500;     // lines

Wck_comm* currentLink = nullptr;

} // namespace

// The time that a command has waited: by the workstation's clock, which a test may move, and by the
// time that really passed, in case the clock is set back meanwhile.
class CommandTime {
public:
    CommandTime() : start_(Clock::SecondsSinceMidnight()) { real_.start(); }

    qint64 milliseconds() const { return real_.elapsed(); }

    bool isOver() const {
        const double now = Clock::SecondsSinceMidnight();
        const bool passedMidnight = now < kAnswerSeconds && now < start_;
        return now - start_ > kAnswerSeconds || passedMidnight ||
               real_.elapsed() > kAnswerSeconds * 1000;
    }

private:
    double start_;
    QElapsedTimer real_;
};

Wck_comm& Link() {
    Q_ASSERT(currentLink);
    return *currentLink;
}

Wck_comm* SetLink(Wck_comm* link) {
    return std::exchange(currentLink, link);
}

void PumpEvents() {
    static double lastTime = -kPumpSeconds;
    const double now = Clock::SecondsSinceMidnight();
    if (now - lastTime <= kPumpSeconds && now >= lastTime)
        return;
    lastTime = now;
    LetEventsThrough();
}

QString LinkStateAfterError(int errorNumber) {
    return errorNumber < kFirstFatalError ? u"0"_s : u"-1"_s;
}

Wck_comm::Wck_comm(QObject* parent) : QObject(parent), memos_(std::make_unique<ServerMemos>()) {
    socket_.setProxy(QNetworkProxy::NoProxy);
    timer1_.setInterval(kConnectionTick);
    timer2_.setInterval(1000);
    connect(&timer1_, &QTimer::timeout, this, &Wck_comm::Timer1_Timer);
    connect(&timer2_, &QTimer::timeout, this, &Wck_comm::Timer2_Timer);
    connect(&socket_, &QTcpSocket::connected, this, &Wck_comm::socket_Connect);
    connect(&socket_, &QTcpSocket::disconnected, this, &Wck_comm::socket_Close);
    connect(&socket_, &QTcpSocket::errorOccurred, this, &Wck_comm::socket_Error);
    connect(&socket_, &QTcpSocket::readyRead, this, &Wck_comm::socket_DataArrival);
    connect(&socket_, &QTcpSocket::bytesWritten, this, &Wck_comm::socket_SendProgress);
}

Wck_comm::~Wck_comm() {
    socket_.disconnect(this);
    if (currentLink == this)
        currentLink = nullptr;
}

void Wck_comm::setMessage(LinkMessage message) {
    message_ = std::move(message);
}

void Wck_comm::Load() {
    localIP = LocalAddress(message_);
    HardMacNo = WorkstationNumber();
    timer2_.start();
}

int Wck_comm::ConnectServer(const QString& address, const QString& port,
                            const QString& proxyAddress, const QString& proxyPort) {
    socket_.abort();
    IPaddr = address;
    Port = port;
    ProxyMode = !proxyAddress.isEmpty();
    if (ProxyMode) {
        ProxyIP = proxyAddress;
        ProxyPort = proxyPort;
    }
    setLinkState(ProxyMode ? u"3"_s : u"2"_s);
    timer1_.start();
    Timer1_Timer(); // the first tick at once

    QElapsedTimer real;
    real.start();
    const double start = Clock::SecondsSinceMidnight();
    while (!isUp()) {
        if (qAbs(Clock::SecondsSinceMidnight() - start) > kConnectSeconds ||
            real.elapsed() > kConnectSeconds * 1000)
            return -1;
        sleepInEventLoop();
    }
    return 0;
}

QString Wck_comm::DoCommand(QString& text) {
    if ((linkState_.isEmpty() || linkState_ == u"0") && !openLink())
        return u"<ERROR>无法连接服务器</ERROR>\r\n"_s;

    const int number = commandCounter_;
    commandCounter_ = (number + 1) % ResponseRing::kSlots;
    ring_.clearAnswer(number);
    const CommandTime time;
    const quint64 connection = connection_;
    text += u"<命令流水号>CmdID:" % QString::number(number).rightJustified(3, u'0') %
            u"</命令流水号>\r\n";
    send_data(text);

    const QString answer = waitForAnswer(number, connection, time);
    if (answer.startsWith(u"<ERROR>没有登录</ERROR>"))
        loseLogin();
    return answer.isEmpty() ? u"<ERROR>命令响应超时</ERROR>\r\n"_s : answer;
}

void Wck_comm::send_data(const QString& text) {
    if (!isUp()) {
        if (message_)
            message_(u"连接断开，请重新尝试连接！"_s, u"无法访问"_s);
        return;
    }
    const QByteArray bytes = EncodeForWire(text);
    if (TraceChk) {
        LinkLog(u"发送数据%1字节"_s.arg(bytes.size()));
        TraceAppend(sendTrace_, text);
    }
    sendBytes(bytes);
}

void Wck_comm::Process_buff() {
    if (ring_.hasNews()) {
        ring_.noteScan();
        for (int slot = ring_.oldest(); true; slot = (slot + 1) % ResponseRing::kSlots) {
            if (!ring_.isEmpty(slot)) {
                ring_.collect(slot);
                PumpEvents();
            }
            if (slot == ring_.newest())
                break;
        }
    }
    PumpEvents();
}

void Wck_comm::stopWaiting() {
    idleSeconds_.reset();
}

void Wck_comm::LinkLog(const QString& text) {
    const QTime now = Clock::Time();
    lastLogLine_ = u"%1.%2 %3 %4"_s.arg(now.toString(u"HH:mm:ss"_s))
                       .arg(now.msec() / 10, 2, 10, QChar(u'0'))
                       .arg(commandCounter_, 3, 10, QChar(u'0'))
                       .arg(text);
    if (TraceChk) {
        logLines_.append(lastLogLine_);
        if (logLines_.size() > kLogLimit)
            logLines_.removeFirst();
    }
    Q_EMIT logChanged(lastLogLine_);
}

// Opening

void Wck_comm::Timer1_Timer() {
    switch (socket_.state()) {
    case QAbstractSocket::ConnectedState:
        socket_DataArrival(); // covers a missed event
        break;
    case QAbstractSocket::ConnectingState:
        if (socket_.waitForConnected(1)) // the connection stood, only its event was not yet seen
            break;
        [[fallthrough]];
    case QAbstractSocket::ClosingState:
        setLinkState(u"0"_s);
        LinkLog(u"开始关闭连接"_s);
        socket_.abort();
        break;
    case QAbstractSocket::UnconnectedState:
        if (linkState_ == u"2")
            startConnecting(u"-1"_s, u"开始连接服务器: "_s, IPaddr, Port);
        else if (linkState_ == u"3")
            startConnecting(u"4"_s, u"开始连接代理服务器: "_s, ProxyIP, ProxyPort);
        break;
    default:
        break;
    }
}

void Wck_comm::startConnecting(const QString& state, const QString& words, const QString& address,
                               const QString& port) {
    setLinkState(state);
    LinkLog(words + address + u':' + port);
    socket_.connectToHost(address, port.toUShort());
}

void Wck_comm::socket_Connect() {
    socket_.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    if (linkState_ == u"4") {
        setLinkState(u"5"_s);
        LinkLog(u"连接到代理服务器: "_s + ProxyIP + u':' + ProxyPort);
        sendBytes(Socks5::MethodRequest());
    } else {
        linkIsUp();
        LinkLog(u"连接到数据库服务器: "_s + IPaddr + u':' + Port);
    }
}

void Wck_comm::linkIsUp() {
    ++connection_;
    decoder_.reset();
    ring_.dropUnfinished();
    setLinkState(u"1"_s);
}

void Wck_comm::takeMethodReply(const QByteArray& reply) {
    if (!Socks5::AcceptsMethod(reply)) {
        refuseProxy(u"返回错误的应答 不是Sock5代理服务！"_s);
        return;
    }
    LinkLog(u"代理服务器连接成功！无验证"_s);
    sendBytes(Socks5::ConnectRequest(IPaddr, Port.toUShort()));
    setLinkState(u"6"_s);
}

void Wck_comm::takeConnectReply(const QByteArray& reply) {
    if (!Socks5::Serves(reply)) {
        refuseProxy(u"Sock5代理拒绝服务！"_s);
        return;
    }
    LinkLog(u"代理服务器开始服务"_s);
    linkIsUp();
}

// The message box lets events through, which must not happen while bytes are being received.
void Wck_comm::refuseProxy(const QString& words) {
    QMetaObject::invokeMethod(
        this,
        [this, words] {
            if (message_)
                message_(words, u"代理服务器"_s);
        },
        Qt::QueuedConnection);
    setLinkState(u"0"_s);
    socket_.abort();
}

void Wck_comm::socket_Close() {
    setLinkState(u"0"_s);
    LinkLog(u"连接关闭: "_s + peer());
}

void Wck_comm::socket_Error(QAbstractSocket::SocketError error) {
    // Neither is a fault: the first announces the close event, the second ends a short sleep.
    if (error == QAbstractSocket::RemoteHostClosedError ||
        error == QAbstractSocket::SocketTimeoutError)
        return;
    setLinkState(LinkStateAfterError(error));
    LinkLog(u"连接错误: "_s + socket_.errorString());
}

bool Wck_comm::openLink() {
    setLinkState(u"2"_s);
    timer1_.start();
    Timer1_Timer(); // the first tick at once
    Q_EMIT linkScreenWanted();
    WaitLinkUp(kOpenLinkStart);
    Q_EMIT linkScreenDone();
    return isUp();
}

void Wck_comm::WaitLinkUp(int start) {
    idleSeconds_ = start;
    while (idleSeconds_) {
        if (isUp() || attemptFailed())
            idleSeconds_.reset();
        else
            sleepInEventLoop();
    }
}

bool Wck_comm::attemptFailed() const {
    return socket_.state() == QAbstractSocket::UnconnectedState && linkState_ != u"2" &&
           linkState_ != u"3";
}

// Waiting

// Gives the empty text when no answer came. Most answers come within a millisecond, which is too
// short to bother the screens with events; only a longer wait lets them through.
QString Wck_comm::waitForAnswer(int number, quint64 connection, const CommandTime& time) {
    while (true) {
        Process_buff();
        if (!ring_.answer(number).isEmpty())
            return ring_.takeAnswer(number);
        if (time.isOver())
            return {};
        if (ring_.hasNews())
            continue;
        const bool answerCanCome = isUp() && connection_ == connection;
        if (!answerCanCome)
            return {};
        if (time.milliseconds() < kSocketWait)
            sleepOnSocket();
        else
            sleepInEventLoop();
    }
}

// Takes the bytes straight from the system: by way of the socket they would be counted first and
// copied twice. The end of the connection, and whatever is not the simple case, is left to the socket.
void Wck_comm::sleepOnSocket() {
    const int descriptor = int(socket_.socketDescriptor());
    pollfd arrival{descriptor, POLLIN, 0};
    if (socket_.bytesToWrite() == 0 && socket_.bytesAvailable() == 0) {
        if (::poll(&arrival, 1, kSocketSleep) == 0)
            return;
        std::array<char, kArrival> bytes;
        const ssize_t count = ::recv(descriptor, bytes.data(), bytes.size(), MSG_DONTWAIT);
        if (count > 0) {
            takeText(QByteArrayView(bytes.data(), count));
            return;
        }
    }
    socket_.waitForReadyRead(kSocketSleep);
    socket_DataArrival();
}

void Wck_comm::sleepInEventLoop() {
    QTimer wakeUp;
    wakeUp.start(kWakeUp);
    LetEventsThrough(QEventLoop::WaitForMoreEvents);
    socket_DataArrival(); // a command issued by a data event finds no event for its own answer
}

void Wck_comm::Timer2_Timer() {
    if (!AliveKp)
        return;
    const int counter = idleSeconds_.value_or(0);
    if (LeadingNumber(AliveGap) >= counter) {
        idleSeconds_ = counter + 1;
        return;
    }
    idleSeconds_.reset();
    if (isUp())
        DbServerTime(*this);
}

// Bytes

void Wck_comm::socket_DataArrival() {
    if (socket_.bytesAvailable() == 0)
        return;
    const QByteArray bytes = socket_.readAll();
    if (linkState_ == u"5")
        takeMethodReply(bytes);
    else if (linkState_ == u"6")
        takeConnectReply(bytes);
    else
        takeText(bytes);
}

void Wck_comm::takeText(QByteArrayView bytes) {
    const QString text = decoder_.decode(bytes);
    ring_.receive(text);
    if (TraceChk) {
        LinkLog(u"收到数据%1字节"_s.arg(bytes.size()));
        TraceAppend(recvTrace_, text);
    }
    idleSeconds_.reset();
}

// Hands the bytes straight to the system, unless others wait ahead of them: the socket would keep them
// first and switch its notifier on and off. What the system doesn't take, or can't, the socket gets.
void Wck_comm::sendBytes(const QByteArray& bytes) {
    ssize_t sent = 0;
    if (socket_.bytesToWrite() == 0)
        sent = ::send(int(socket_.socketDescriptor()), bytes.constData(), size_t(bytes.size()),
                      MSG_DONTWAIT | MSG_NOSIGNAL);
    if (sent == bytes.size()) {
        socket_SendProgress();
        return;
    }
    socket_.write(bytes.sliced(qMax<qsizetype>(sent, 0)));
    socket_.flush();
}

void Wck_comm::socket_SendProgress() {
    if (TraceChk)
        LinkLog(u"正在发送数据"_s);
    if (socket_.bytesToWrite() > 0)
        return;
    idleSeconds_.reset();
    if (TraceChk)
        LinkLog(u"数据发送结束"_s);
}

void Wck_comm::setLinkState(const QString& state) {
    if (linkState_ == state)
        return;
    linkState_ = state;
    if (!isUp())
        loseLogin();
    Q_EMIT linkStateChanged();
}

void Wck_comm::loseLogin() {
    if (UserName.isEmpty())
        return;
    UserName.clear();
    password.clear();
    Q_EMIT loginLost();
}

QString Wck_comm::peer() const {
    return ProxyMode ? ProxyIP + u':' + ProxyPort : IPaddr + u':' + Port;
}

void Wck_comm::TraceAppend(QString& trace, const QString& text) {
    trace = (trace + text).right(kTraceLimit);
    Q_EMIT traceChanged();
}

} // namespace hotel
