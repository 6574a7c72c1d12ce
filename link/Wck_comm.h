#pragma once

// The link: one TCP connection to the record server, direct or through a SOCKS5 proxy without
// authentication. A command goes out with a number; the answer comes back in a frame with the same
// number and waits in a table until its command takes it, so that a timer may issue a command while
// another one waits. Everything runs on the user interface thread.
//
// Nothing here fails with an exception: a command that can't be answered gives a text with <ERROR>.
//
// A closed connection is opened again by the next command, but not logged in again: the screens
// tell the user to.
//
// What deliberately ends sooner than the clock alone would end it, so that no desk stands still:
//   - The wait for a connection is over as soon as the one attempt has failed; the idle counter
//     ends the attempts that never decide, such as a proxy that accepts and says nothing.
//   - The wait for an answer is over, with the words of the time-out, as soon as the connection that
//     carried the command is gone and all that it brought has been read. A command that could not
//     be sent ends in the same way at once, behind its message.

#include <memory>
#include <optional>

#include <QObject>
#include <QString>
#include <QStringList>
#include <QTcpSocket>
#include <QTimer>

#include "link/link_message.h"
#include "link/response_ring.h"
#include "record/code_page.h"

namespace hotel {

class CommandTime;
struct ServerMemos; // the memos and caches of serv_api, one set a link

// The link state that a socket error leaves: "0" for a number below 10001, else "-1". All numbers
// of this toolkit lie below, so that after any error the next command tries again.
QString LinkStateAfterError(int errorNumber);

class Wck_comm : public QObject {
    Q_OBJECT

public:
    // Settings, texts as the link window shows them.
    QString IPaddr = QStringLiteral("127.0.0.1");
    QString Port = QStringLiteral("6801");
    QString ProxyIP = QStringLiteral("127.0.0.1");
    QString ProxyPort = QStringLiteral("6801");
    bool ProxyMode = false;
    QString ProdID = QStringLiteral("Normal");      // product tag that enters the login digest
    QString HardMacNo = QStringLiteral("00000000"); // WorkstationNumber, eight digits or more
    QString localIP = QStringLiteral("127.0.0.1");
    QString UserName; // the user logged in on this connection, empty: nobody; the password as typed
    QString password;
    bool AliveKp = true;
    QString AliveGap = QStringLiteral("600"); // idle seconds before a keep-alive
    bool TraceChk = false;                    // trace traffic to Send, Recv and the log list

    explicit Wck_comm(QObject* parent = nullptr);
    ~Wck_comm() override;

    // The words' way to the user; without one nothing is shown. A message that arriving bytes give
    // rise to comes from the event loop, so it may wait for the user.
    void setMessage(LinkMessage message);

    // Fills localIP and HardMacNo and starts the idle timer. Once, at the start of the program.
    void Load();

    // Closes what is open, stores the addresses (ports as decimal text) and connects; a server
    // behind a proxy must be given in dotted form. Lets events run until the link is up, at most 3
    // seconds. Gives 0 when it is up, otherwise -1.
    int ConnectServer(const QString& address, const QString& port, const QString& proxyAddress = {},
                      const QString& proxyPort = {});

    // Sends one command and waits for its answer while events run. `text` is record text; it is
    // extended by the sequence field. Opens a closed link first (always directly: a proxy is only
    // used by ConnectServer). Gives the answer, or
    //     <ERROR>无法连接服务器</ERROR>  the link could not be opened
    //     <ERROR>命令响应超时</ERROR>    no answer in 30 seconds, none before the clock passed
    //                                    midnight, or no connection that could bring one
    // both with a line end. At most 256 commands may wait at a time.
    QString DoCommand(QString& text);

    // Sends the bytes of a full command text; on a link that is not up it only tells the user.
    void send_data(const QString& text);

    // Moves finished answers from the ring to the answer table.
    void Process_buff();

    // The state of the link, its only one. Others test only for "1" (isUp).
    //     ""  never connected               "1" connected, ready for commands
    //     "-1" direct connection under way  "2" direct connection wanted
    //     "0" closed                        "3" proxy connection wanted
    //     "4" connection to the proxy under way
    //     "5" connected to the proxy, method request sent
    //     "6" connect request sent to the proxy
    const QString& linkState() const { return linkState_; }
    bool isUp() const { return linkState_ == QLatin1StringView("1"); }

    // Ends a wait for a connection: the stop button of the link window.
    void stopWaiting();

    // What the link window shows: the last 16384 characters in each direction and up to 500 log
    // lines, all three only filled while TraceChk is on; the last log line always.
    const QString& sendTrace() const { return sendTrace_; }
    const QString& recvTrace() const { return recvTrace_; }
    const QStringList& logLines() const { return logLines_; }
    const QString& lastLogLine() const { return lastLogLine_; }

    // Number of the next command, 0 to 255.
    int commandCounter() const { return commandCounter_; }

    // Writes a log line: time to the hundredth, next command number, text.
    void LinkLog(const QString& text);

    ServerMemos& memos() { return *memos_; }

Q_SIGNALS:
    // Emitted while bytes are being received: a slot must not wait or issue commands.
    void linkStateChanged();
    // Nobody is logged in any longer, because the connection is gone or an answer says so.
    void loginLost();
    // Somebody is logged in (again).
    void loggedIn();
    void logChanged(const QString& lastLine);
    void traceChanged();

    // A command waits for a connection: the link window comes up with its stop button, and goes.
    void linkScreenWanted();
    void linkScreenDone();

private:
    void Timer1_Timer();
    void Timer2_Timer();
    void socket_Connect();
    void socket_Close();
    void socket_Error(QAbstractSocket::SocketError error);
    void socket_DataArrival();
    void socket_SendProgress();

    // Opening
    void startConnecting(const QString& state, const QString& words, const QString& address,
                         const QString& port);
    void linkIsUp();
    bool openLink();
    void WaitLinkUp(int start);
    bool attemptFailed() const;
    void takeMethodReply(const QByteArray& reply);
    void takeConnectReply(const QByteArray& reply);
    void refuseProxy(const QString& words);

    // Waiting
    QString waitForAnswer(int number, quint64 connection, const CommandTime& time);
    void sleepOnSocket();
    void sleepInEventLoop();

    void sendBytes(const QByteArray& bytes);
    void takeText(QByteArrayView bytes);
    void setLinkState(const QString& state);
    void loseLogin();
    QString peer() const;
    void TraceAppend(QString& trace, const QString& text);

    QTcpSocket socket_;
    QTimer timer1_; // runs the connection
    QTimer timer2_; // counts idle seconds
    LinkMessage message_;

    QString linkState_;
    quint64 connection_ = 0; // counts the times that the link came up
    int commandCounter_ = 0;
    std::optional<int> idleSeconds_; // empty is not the same as 0: it ends a wait for a connection

    WireDecoder decoder_;
    ResponseRing ring_;

    QString sendTrace_;
    QString recvTrace_;
    QStringList logLines_;
    QString lastLogLine_;

    std::unique_ptr<ServerMemos> memos_;
};

// The link that the commands of serv_api use. There must be one.
Wck_comm& Link();

// Switches the current link and gives the one before; the caller keeps both. The link whose object
// ends is current no longer.
Wck_comm* SetLink(Wck_comm* link);

// Runs pending events when 0.2 seconds have passed since the last time, or the clock has passed
// midnight: cheap to call in tight loops.
void PumpEvents();

} // namespace hotel
