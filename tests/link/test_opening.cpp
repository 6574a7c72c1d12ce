#include <QSignalSpy>

#include "platform/clock.h"
#include "tests/hotel_test.h"
#include "tests/link/scripted_peer.h"

using namespace hotel;

namespace {

const QByteArray kMethodRequest("\x05\x01\x00", 3);
const QByteArray kMethodReply("\x05\x00", 2);

} // namespace

class TestOpening : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void proxy() {
        const auto row = [](const char* name, const QByteArrayList& replies,
                            const QStringList& messages) {
            const FrozenClock clock;
            ScriptedDesk desk(ScriptedDesk::Start::Closed);
            desk.link.setMessage([&desk](const QString& words, const QString& title) {
                desk.messages += title + u": "_s + words;
                Clock::Advance(4000); // the rest of the wait is of no use to the test
            });
            desk.peer.proxyReplies = replies;
            desk.peer.answerAll(u"<当前时间>10:00:00</当前时间>"_s);
            const QString port = desk.peer.port();
            const bool serves = messages.isEmpty();
            Check(name, desk.link.ConnectServer(u"192.168.0.17"_s, u"6801"_s, u"127.0.0.1"_s, port),
                  serves ? 0 : -1);
            Check(name, desk.link.linkState(), serves ? u"1"_s : u"0"_s);
            Check(name, desk.messages, messages);
            QByteArrayList expected{kMethodRequest,
                                    QByteArray("\x05\x01\x00\x01\xC0\xA8\x00\x11\x1A\x91", 10)};
            Check(name, desk.peer.proxyArrivals, expected.first(replies.size()));
            if (desk.link.isUp())
                QCOMPARE(desk.ask(), u"<当前时间>10:00:00</当前时间>"_s);
        };
        const QByteArray served("\x05\x00\x00\x01\x0A\x00\x00\x01\x04\x38", 10);
        const QByteArray refused("\x05\x05\x00\x01\x00\x00\x00\x00\x00\x00", 10);
        const QStringList noProxy{u"代理服务器: 返回错误的应答 不是Sock5代理服务！"_s};
        const QStringList noService{u"代理服务器: Sock5代理拒绝服务！"_s};
        row("serves", {kMethodReply, served}, {});
        row("serves, two bytes only", {kMethodReply, served.first(2)}, {});
        row("refuses", {kMethodReply, refused}, noService);
        row("one byte for the connect request", {kMethodReply, served.first(1)}, noService);
        row("three bytes for the greeting", {QByteArray("\x05\x00\x00", 3)}, noProxy);
        row("wants a password", {QByteArray("\x05\x02", 2)}, noProxy);
        row("no method", {QByteArray("\x05\xFF", 2)}, noProxy);
        row("version 4", {QByteArray("\x04\x00", 2)}, noProxy);
    }

    // A proxy that accepts and says nothing: neither up nor failed.
    void undecidedProxy() {
        const FrozenClock clock;
        ScriptedDesk desk(ScriptedDesk::Start::Closed);
        QTimer::singleShot(300, [] { Clock::Advance(4000); });
        const QString port = desk.peer.port();
        QCOMPARE(desk.link.ConnectServer(u"127.0.0.1"_s, u"6801"_s, u"127.0.0.1"_s, port), -1);
        QVERIFY(!desk.link.isUp());
        const LongWait longWait;
        QCOMPARE(desk.ask(), kTimeOut);
        QVERIFY(!longWait.happened());
        QCOMPARE(desk.messages, QStringList{u"无法访问: 连接断开，请重新尝试连接！"_s});
        QVERIFY(desk.open()); // and nothing of it hinders the next connection
    }

    void noServerThere() {
        const FrozenClock clock;
        ScriptedDesk desk(ScriptedDesk::Start::Closed);
        desk.peer.answerAll(u"<当前时间>10:00:00</当前时间>"_s);
        desk.peer.stop();
        QSignalSpy wanted(&desk.link, &Wck_comm::linkScreenWanted);
        QSignalSpy done(&desk.link, &Wck_comm::linkScreenDone);
        desk.link.Port = desk.peer.port();
        QCOMPARE(desk.ask(), kNoServer);
        QCOMPARE(desk.link.linkState(), u"0"_s);
        QCOMPARE(wanted.size(), 1);
        QCOMPARE(done.size(), 1);
        QCOMPARE(desk.ask(), kNoServer);

        desk.peer.listen();
        QCOMPARE(desk.ask(), u"<当前时间>10:00:00</当前时间>"_s);
        QCOMPARE(desk.peer.numbers, QList<int>{0}); // what was never sent took no number
        QCOMPARE(desk.messages, QStringList{});
    }

    // A server so busy that it leaves attempts in the air.
    void attemptThatIsNotDecided() {
        ScriptedDesk desk(ScriptedDesk::Start::Closed);
        QTcpServer busy;
        busy.setListenBacklogSize(0);
        QVERIFY(busy.listen(QHostAddress::LocalHost));
        busy.pauseAccepting();
        std::array<QTcpSocket, 4> others;
        for (QTcpSocket& other : others)
            other.connectToHost(QHostAddress::LocalHost, busy.serverPort());
        QTRY_COMPARE(others[0].state(), QAbstractSocket::ConnectedState);
        QTRY_VERIFY(others[3].state() == QAbstractSocket::ConnectingState);

        desk.link.Port = QString::number(busy.serverPort());
        QCOMPARE(desk.ask(), kNoServer);
        QCOMPARE(desk.link.linkState(), u"0"_s);
        QVERIFY(desk.link.lastLogLine().endsWith(u"开始关闭连接"));
    }

    // The machine is busy while the connection comes to stand: not a reason to give it up.
    void attemptThatIsSeenLate() {
        ScriptedDesk desk(ScriptedDesk::Start::Closed);
        desk.peer.answerAll(u"a"_s);
        desk.link.Port = desk.peer.port();
        connect(&desk.link, &Wck_comm::linkStateChanged, this, [this, &desk] {
            if (desk.link.linkState() == u"-1")
                QTimer::singleShot(0, this, [] { QThread::msleep(250); });
        });
        QCOMPARE(desk.ask(), u"a"_s);
        QVERIFY(!desk.link.logLines().join(u'\n').contains(u"开始关闭连接"));
    }

    void serverGoesAwayAndComesBack() {
        ScriptedDesk desk(ScriptedDesk::Start::Closed);
        desk.peer.answerAll(u"a"_s);
        QVERIFY(desk.open());
        QCOMPARE(desk.ask(), u"a"_s);
        desk.peer.stop();
        QTRY_COMPARE(desk.link.linkState(), u"0"_s);
        QCOMPARE(desk.ask(), kNoServer);
        desk.peer.listen();
        QCOMPARE(desk.ask(), u"a"_s);
        desk.peer.drop(); // unnoticed: the command is the first to find out
        desk.peer.answerAll(u"b"_s);
        QTRY_COMPARE(desk.ask(), u"b"_s);
        QCOMPARE(desk.messages, QStringList{});
    }

    void stopButtonEndsTheWait() {
        ScriptedDesk desk(ScriptedDesk::Start::Closed);
        desk.link.IPaddr = u"localhost"_s; // looked up first, so that there is a wait to be ended
        desk.link.Port = desk.peer.port();
        connect(&desk.link, &Wck_comm::linkScreenWanted, &desk.link, &Wck_comm::stopWaiting,
                Qt::QueuedConnection);
        QCOMPARE(desk.ask(), kNoServer);
        QCOMPARE(desk.link.linkState(), u"-1"_s);
        QTRY_VERIFY(desk.link.isUp());
    }

    void idleLinkIsKeptAlive() {
        ScriptedDesk desk(ScriptedDesk::Start::Closed);
        desk.peer.answerAll(u"<当前时间>10:00:00</当前时间>"_s);
        QVERIFY(desk.open());
        desk.link.AliveGap = u"0"_s;
        desk.link.Load();
        SetLink(nullptr); // it asks on its own connection, whichever is current
        QTRY_COMPARE_WITH_TIMEOUT(desk.peer.requests, QStringList{u"<命令>读取时间</命令>\r\n"_s},
                                  20000);
        QCOMPARE(desk.link.HardMacNo.size(), 12);
    }

    void logAndTrace() {
        const FrozenClock clock(QTime(9, 8, 7, 65));
        ScriptedDesk desk(ScriptedDesk::Start::Closed);
        desk.peer.answerAll(QString(20000, u'答'));
        QVERIFY(desk.open());
        const QString address = u"127.0.0.1:"_s + desk.peer.port();
        QCOMPARE(desk.link.logLines(),
                 QStringList({u"09:08:07.06 000 开始连接服务器: "_s + address,
                              u"09:08:07.06 000 连接到数据库服务器: "_s + address}));
        desk.ask(QString(30000, u'问'));
        QVERIFY(desk.link.logLines().contains(u"09:08:07.06 001 发送数据60036字节"_s));
        QVERIFY(desk.link.logLines().contains(u"09:08:07.06 001 数据发送结束"_s));
        QVERIFY(desk.link.logLines().last().contains(u" 001 收到数据"));
        QCOMPARE(desk.link.sendTrace().size(), 16384);
        QVERIFY(desk.link.sendTrace().endsWith(u"问<命令流水号>CmdID:000</命令流水号>\r\n"));
        QCOMPARE(desk.link.recvTrace().size(), 16384);
        QVERIFY(desk.link.recvTrace().endsWith(u"答</CmdID:000>"));

        for (int i = 0; i < 600; ++i)
            desk.link.LinkLog(QString::number(i));
        QCOMPARE(desk.link.logLines().size(), 500);
        QVERIFY(desk.link.logLines().first().endsWith(u" 100"));

        desk.link.TraceChk = false;
        desk.link.LinkLog(u"untraced"_s);
        QVERIFY(desk.link.lastLogLine().endsWith(u" untraced"));
        QVERIFY(desk.link.logLines().last().endsWith(u" 599"));
    }
};

HOTEL_TEST(TestOpening)

#include "test_opening.moc"
