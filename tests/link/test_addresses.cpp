
#include "link/Wck_comm.h"
#include "link/socks5.h"
#include "link/workstation.h"
#include "record/record_text.h"
#include "tests/hotel_test.h"

using namespace hotel;

class TestAddresses : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void proxyRequestBytes() {
        const auto row = [](const char* name, const QString& address, quint16 port,
                            const QByteArray& addressAndPort) {
            Check(name, Socks5::ConnectRequest(address, port),
                  QByteArray("\x05\x01\x00\x01", 4) + addressAndPort);
        };
        row("port high byte first", u"192.168.0.17"_s, quint16(6801),
            QByteArray("\xC0\xA8\x00\x11\x1A\x91", 6));
        row("small port", u"10.0.0.255"_s, quint16(80), QByteArray("\x0A\x00\x00\xFF\x00\x50", 6));
        row("missing parts", u"127.1"_s, quint16(65535), QByteArray("\x7F\x01\x00\x00\xFF\xFF", 6));
        row("other characters", u" 1x0 . a2.3. 4"_s, quint16(256),
            QByteArray("\x0A\x02\x03\x04\x01\x00", 6));
        row("fifth part", u"1.2.3.4.5"_s, quint16(1), QByteArray("\x01\x02\x03\x04\x00\x01", 6));
        row("empty", u""_s, quint16(0), QByteArray(6, '\0'));
    }

    void ownAddress() {
        const auto row = [](const char* name, const QStringList& addresses, const QString& own) {
            QList<QHostAddress> list;
            for (const QString& address : addresses)
                list.append(QHostAddress(address));
            Check(name, DottedAddress(list), own);
        };
        row("loopback stands back", {u"127.0.0.1"_s, u"192.168.1.20"_s}, u"192.168.1.20"_s);
        row("no dotted form", {u"fe80::1"_s, u"10.1.2.3"_s, u"10.1.2.4"_s}, u"10.1.2.3"_s);
        row("loopback alone", {u"::1"_s, u"127.0.0.1"_s}, u"127.0.0.1"_s);
        row("none", {u"::1"_s}, u""_s);
    }

    void workstationsAreToldApart() {
        const QString number = NumberOfMachine("a");
        QCOMPARE(DigitsOnly(number), number);
        QCOMPARE(number.size(), 12);
        QVERIFY(number != NumberOfMachine("b"));
        QCOMPARE(WorkstationNumber(), WorkstationNumber());
    }

    void stateAfterError() {
        QCOMPARE(LinkStateAfterError(QAbstractSocket::ConnectionRefusedError), u"0"_s);
        QCOMPARE(LinkStateAfterError(10000), u"0"_s);
        QCOMPARE(LinkStateAfterError(10001), u"-1"_s);
    }
};

HOTEL_TEST(TestAddresses)

#include "test_addresses.moc"
