#include "platform/clock.h"
#include "tests/hotel_test.h"
#include "tests/link/scripted_peer.h"

using namespace hotel;
using Pieces = ScriptedPeer::Pieces;

class TestWaiting : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void answerCutAtEveryByte() {
        const FrozenClock clock;
        ScriptedDesk desk;
        const QString body = u"<房间号>8101</房间号>\r\n<房态>散客</房态>，a"_s;
        const qsizetype size = ScriptedPeer::Frame(0, body).size();
        for (qsizetype cut = 1; cut <= size; ++cut) {
            desk.peer.script = [&](const QString&, int number) {
                const QByteArray frame = ScriptedPeer::Frame(number, body);
                if (cut < size)
                    return Pieces{frame.first(cut), frame.sliced(cut)};
                Pieces bytes;
                for (char byte : frame)
                    bytes += QByteArray(1, byte);
                return bytes;
            };
            Clock::Advance(1000); // the pump is due at once, which saves the test waiting
            QCOMPARE(desk.ask(), body);
        }
    }

    // Around the sizes at which slots end and arrivals are full, in one piece and in full arrivals.
    void answersOfEverySize() {
        const FrozenClock clock;
        ScriptedDesk desk;
        for (const int border : {20001, 40002, 60003, 65536, 131072, 196608}) {
            for (int size = border - 40; size <= border + 2; ++size) {
                const QString body(size, u'x');
                desk.peer.script = [&](const QString&, int number) {
                    const QByteArray frame = ScriptedPeer::Frame(number, body);
                    const qsizetype cut = frame.size() > 65536 ? 65536 : frame.size() / 2;
                    return size % 2 == 0 ? Pieces{frame}
                                         : Pieces{frame.first(cut), frame.sliced(cut)};
                };
                Clock::Advance(1000);
                QVERIFY2(desk.ask() == body, qPrintable(QString::number(size)));
            }
        }
    }

    // What the wire does to a body on its way back: kept bytes, and those that are lost.
    void bodyBytes() {
        const auto row = [](const char* name, const QByteArray& bytes, const QString& answer) {
            ScriptedDesk desk;
            desk.peer.script = [&](const QString&, int) {
                return Pieces{"<CmdID:000>" + bytes + "</CmdID:000>"};
            };
            Check(name, desk.ask(), answer);
        };
        row("both bytes high", QByteArray("\xB7\xBF\xBA\xC5"), u"房号"_s);
        row("second byte low", QByteArray("\x81\x40|\xB7\xBF"), u"@|房"_s);
        row("line end", QByteArray("a\r\nb"), u"a\r\nb"_s);
    }

    void noAnswer() {
        const auto row = [](const char* name, QTime start, int passes, const QByteArray& arrives,
                            const QString& answer) {
            const FrozenClock clock(start);
            ScriptedDesk desk;
            desk.peer.script = [&](const QString&, int) {
                Clock::Advance(passes);
                return arrives.isEmpty() ? Pieces{} : Pieces{arrives};
            };
            const LongWait longWait;
            Check(name, desk.ask(), answer);
            Check(name, longWait.happened(), false);
            Check(name, desk.link.linkState(), u"1"_s);
        };
        const QTime noon(12, 0);
        const QTime late(23, 59, 50);
        row("silence", noon, 30001, {}, kTimeOut);
        row("no end mark", noon, 30001, QByteArray("<CmdID:000>a"), kTimeOut);
        row("end mark of another", noon, 30001, QByteArray("<CmdID:000>a</CmdID:001>"), kTimeOut);
        row("empty body", noon, 30001, QByteArray("<CmdID:000></CmdID:000>"), kTimeOut);
        row("in time", noon, 30000, QByteArray("<CmdID:000>a</CmdID:000>"), u"a"_s);
        row("midnight", late, 10001, {}, kTimeOut);
        row("answer of a day", late, 9999, QByteArray("<CmdID:000>a</CmdID:000>"), u"a"_s);
    }

    void lateAnswerIsNobodysAnswer() {
        const FrozenClock clock;
        ScriptedDesk desk;
        desk.peer.script = [](const QString&, int) {
            Clock::Advance(30001);
            return Pieces{};
        };
        QCOMPARE(desk.ask(), kTimeOut);
        desk.peer.send({ScriptedPeer::Frame(0, u"late"_s)});

        // Through all the numbers and round to the first.
        desk.peer.script = [](const QString&, int number) {
            return Pieces{ScriptedPeer::Frame(number, u"answer "_s + QString::number(number))};
        };
        QList<int> numbers{0};
        for (int i = 1; i <= 257; ++i) {
            numbers += i % 256;
            Clock::Advance(1000);
            QCOMPARE(desk.ask(), u"answer "_s + QString::number(i % 256));
        }
        QCOMPARE(desk.peer.numbers, numbers);
    }

    void nestedCommands() {
        // The order of the answers: 0 is the outer command's, 1 and 2 are the nested ones'.
        const auto row = [](const char* name, const QList<int>& order, bool onePiece) {
            ScriptedDesk desk;
            QStringList answers(3);
            std::function<void(int)> ask = [&](int depth) {
                answers[depth] = desk.ask(u"<命令>%1</命令>\r\n"_s.arg(depth));
            };
            desk.peer.script = [&](const QString&, int number) {
                if (number < 2) {
                    QTimer::singleShot(0, [&ask, number] { ask(number + 1); });
                    return Pieces{};
                }
                Pieces pieces;
                for (int answered : order)
                    pieces += ScriptedPeer::Frame(answered, u"answer %1"_s.arg(answered));
                return onePiece ? Pieces{pieces.join()} : pieces;
            };
            ask(0);
            Check(name, answers, {u"answer 0"_s, u"answer 1"_s, u"answer 2"_s});
        };
        for (bool onePiece : {false, true}) {
            row("innermost first", {2, 1, 0}, onePiece);
            row("outermost first", {0, 1, 2}, onePiece);
            row("mixed", {1, 0, 2}, onePiece);
        }
    }

    void connectionLostInMidAnswer() {
        const FrozenClock clock; // so that only the loss can end the wait
        ScriptedDesk desk;
        desk.peer.script = [&](const QString&, int number) {
            QTimer::singleShot(100, [&desk] { desk.peer.drop(); });
            return Pieces{ScriptedPeer::Frame(number, u"half"_s).first(13)};
        };
        const LongWait longWait;
        QCOMPARE(desk.ask(), kTimeOut);
        QVERIFY(!longWait.happened());
        QCOMPARE(desk.link.linkState(), u"0"_s);

        // The half must not join with what the same number brings on the next connection.
        desk.peer.script = [](const QString&, int number) {
            return Pieces{ScriptedPeer::Frame(number, u"own"_s) +
                          ScriptedPeer::Frame(0, u"whole"_s)};
        };
        QCOMPARE(desk.ask(), u"own"_s);
    }

    // The whole answer was in when the connection went: it counts.
    void connectionLostBehindTheAnswer() {
        ScriptedDesk desk;
        desk.peer.script = [&](const QString&, int number) {
            QTimer::singleShot(0, [&desk] { desk.peer.drop(); });
            return Pieces{ScriptedPeer::Frame(number, QString(100000, u'a'))};
        };
        QCOMPARE(desk.ask(), QString(100000, u'a'));
    }

    // The connection was lost and opened again by a nested command: the outer one's answer can't come.
    void nestedCommandReconnects() {
        const FrozenClock clock;
        ScriptedDesk desk;
        QString nested;
        desk.peer.script = [&](const QString&, int) {
            QTimer::singleShot(0, [&] {
                desk.peer.drop();
                desk.peer.answerAll(u"nested"_s);
                QTRY_VERIFY(!desk.link.isUp());
                nested = desk.ask();
            });
            return Pieces{};
        };
        const LongWait longWait;
        QCOMPARE(desk.ask(), kTimeOut);
        QVERIFY(!longWait.happened());
        QCOMPARE(nested, u"nested"_s);
        QVERIFY(desk.link.isUp());
    }

    void extendsTheCallersText() {
        ScriptedDesk desk;
        desk.peer.answerAll(u"a"_s);
        QString request = u"<命令>读取日期</命令>\r\n"_s;
        desk.link.DoCommand(request);
        QCOMPARE(request, u"<命令>读取日期</命令>\r\n<命令流水号>CmdID:000</命令流水号>\r\n"_s);
    }
};

HOTEL_TEST(TestWaiting)

#include "test_waiting.moc"
