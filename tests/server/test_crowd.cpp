// Many connections at once, some of them bad neighbours.

#include <vector>

#include <sys/socket.h>

#include "tests/hotel_test.h"
#include "tests/server/wire_client.h"

using namespace hotel;

namespace {

constexpr qsizetype kLargeValue = 100'000;
constexpr int kManyTimes = 80; // more of it than the buffers on the way hold

void SetLowUnsentLimit(ServerSettings& settings) {
    settings.unsentLimit = 10'000;
}

// Asks for the large value many times and takes none of it.
void AskWithoutReading(WireClient& client) {
    client.socket().setReadBufferSize(1000);
    for (int i = 0; i < kManyTimes; ++i)
        client.send(u"读取记录"_s, RecordFields(u"large"_s));
}

} // namespace

class CrowdTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // Two hundred connections: some never read, some never finish a request, some say nothing; all
    // others are served.
    void twoHundred() {
        TestServer server(SetLowUnsentLimit);
        const quint16 port = server.port();
        writeLargeRecord(port);
        std::vector<std::unique_ptr<WireClient>> bad;
        std::vector<std::unique_ptr<WireClient>> good;
        for (int i = 0; i < 200; ++i) {
            auto& group = i % 4 == 0 ? bad : good;
            WireClient& client = *group.emplace_back(std::make_unique<WireClient>(port));
            if (i % 12 == 4)
                continue;
            client.logIn(u"前台"_s, u""_s);
            if (i % 12 == 0)
                AskWithoutReading(client);
            else if (i % 12 == 8)
                client.sendBytes(
                    RequestBytes(u"修改记录"_s, RecordFields(u"half"_s), 1).chopped(1));
        }
        for (int round = 0; round < 2; ++round) {
            for (size_t i = 0; i < good.size(); ++i)
                good[i]->send(u"修改记录"_s,
                              RecordFields(QString::number(i), QString::number(round)));
            for (const auto& client : good)
                QCOMPARE(client->receive(), u"<SUCCESS>"_s);
        }
        for (size_t i = 0; i < good.size(); ++i)
            QCOMPARE(good[i]->ask(u"读取记录"_s, RecordFields(QString::number(i))),
                     u"<%1>1</%1>"_s.arg(i));
    }

    // A client that does not take its answers is not listened to until it does, and then nothing is
    // missing.
    void whoDoesNotReadWaits() {
        TestServer server(SetLowUnsentLimit);
        writeLargeRecord(server.port());
        WireClient slow(server.port(), u"前台"_s);
        AskWithoutReading(slow);
        WireClient other(server.port(), u"前台"_s);
        for (int i = 0; i < 20; ++i) {
            if (i == 10) // in a later turn than what is ahead of it
                slow.send(u"修改记录"_s, RecordFields(u"behind"_s, u"v"_s));
            QCOMPARE(other.ask(u"读取记录"_s, RecordFields(u"behind"_s)),
                     u"<ERROR>没有该记录</ERROR>"_s);
        }
        slow.socket().setReadBufferSize(0);
        for (int i = 0; i < kManyTimes; ++i)
            QVERIFY(slow.receive().size() > kLargeValue);
        QCOMPARE(slow.receive(), u"<SUCCESS>"_s);
        QCOMPARE(other.ask(u"读取记录"_s, RecordFields(u"behind"_s)), u"<behind>v</behind>"_s);
    }

    // A client that ends its side of the connection still gets what it has asked for.
    void whoHasAskedAllIsAnswered() {
        TestServer server;
        writeLargeRecord(server.port());
        WireClient client(server.port(), u"前台"_s);
        AskWithoutReading(client);
        client.send(u"修改记录"_s, RecordFields(u"last"_s));
        ::shutdown(int(client.socket().socketDescriptor()), SHUT_WR);
        QTest::qWait(100);
        client.socket().setReadBufferSize(0);
        for (int i = 0; i < kManyTimes; ++i)
            QVERIFY(client.receive().size() > kLargeValue);
        QCOMPARE(client.receive(), u"<SUCCESS>"_s);
        QVERIFY(client.readToEnd().isEmpty());
    }

    // A client that takes nothing for long is dropped; one that is only slow to send is not.
    void whoNeverReadsIsDropped() {
        TestServer server([](ServerSettings& settings) {
            settings.unsentLimit = 10'000;
            settings.stallLimit = 100;
        });
        writeLargeRecord(server.port());
        WireClient patient(server.port());
        const QByteArray request = RequestBytes(u"读取日期"_s, {}, 0);
        patient.sendBytes(request.first(10));
        WireClient deaf(server.port(), u"前台"_s);
        AskWithoutReading(deaf);
        QTest::qWait(1000); // ten times the limit: a busy machine looks at its clients late
        deaf.socket().setReadBufferSize(0);
        QVERIFY(deaf.readToEnd().size() < kManyTimes * kLargeValue);
        patient.sendBytes(request.sliced(10));
        QCOMPARE(patient.receive(), u"<当前日期>2026-03-05</当前日期>"_s);
    }

private:
    static void writeLargeRecord(quint16 port) {
        WireClient client(port, u"前台"_s);
        client.ask(u"修改记录"_s, RecordFields(u"large"_s, QString(kLargeValue, u'x')));
    }
};

HOTEL_TEST(CrowdTest)

#include "test_crowd.moc"
