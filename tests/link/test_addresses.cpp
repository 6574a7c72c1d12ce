#include <QSet>
#include <QTest>

#include "link/Wck_comm.h"
#include "link/socks5.h"
#include "link/workstation.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "tests/hotel_test.h"

using namespace hotel;

class TestAddresses : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void proxyRequestBytes_data() {
        QTest::addColumn<QString>("address");
        QTest::addColumn<quint16>("port");
        QTest::addColumn<QByteArray>("addressAndPort");
        QTest::newRow("port high byte first")
            << u"192.168.0.17"_s << quint16(6801) << QByteArray("\xC0\xA8\x00\x11\x1A\x91", 6);
        QTest::newRow("small port")
            << u"10.0.0.255"_s << quint16(80) << QByteArray("\x0A\x00\x00\xFF\x00\x50", 6);
        QTest::newRow("missing parts")
            << u"127.1"_s << quint16(65535) << QByteArray("\x7F\x01\x00\x00\xFF\xFF", 6);
        QTest::newRow("other characters")
            << u" 1x0 . a2.3. 4"_s << quint16(256) << QByteArray("\x0A\x02\x03\x04\x01\x00", 6);
        QTest::newRow("fifth part")
            << u"1.2.3.4.5"_s << quint16(1) << QByteArray("\x01\x02\x03\x04\x00\x01", 6);
        QTest::newRow("empty") << u""_s << quint16(0) << QByteArray(6, '\0');
    }
    void proxyRequestBytes() {
        QFETCH(QString, address);
        QFETCH(quint16, port);
        QFETCH(QByteArray, addressAndPort);
        QCOMPARE(Socks5::ConnectRequest(address, port),
                 QByteArray("\x05\x01\x00\x01", 4) + addressAndPort);
    }

    void ownAddress_data() {
        QTest::addColumn<QStringList>("addresses");
        QTest::addColumn<QString>("own");
        QTest::newRow("loopback stands back")
            << QStringList{u"127.0.0.1"_s, u"192.168.1.20"_s} << u"192.168.1.20"_s;
        QTest::newRow("no dotted form")
            << QStringList{u"fe80::1"_s, u"10.1.2.3"_s, u"10.1.2.4"_s} << u"10.1.2.3"_s;
        QTest::newRow("loopback alone") << QStringList{u"::1"_s, u"127.0.0.1"_s} << u"127.0.0.1"_s;
        QTest::newRow("none") << QStringList{u"::1"_s} << u""_s;
    }
    void ownAddress() {
        QFETCH(QStringList, addresses);
        QList<QHostAddress> list;
        for (const QString& address : addresses)
            list.append(QHostAddress(address));
        QTEST(DottedAddress(list), "own");
    }

    void workstationsAreToldApart() {
        QSet<QString> numbers;
        for (int machine = 0; machine < 1000; ++machine) {
            const QString number = NumberOfMachine(QByteArray::number(machine));
            QCOMPARE(DigitsOnly(number), number);
            QCOMPARE(number.size(), 12);
            numbers.insert(number);
        }
        QCOMPARE(numbers.size(), 1000);
        QCOMPARE(WorkstationNumber(), WorkstationNumber());
        QCOMPARE(WorkstationNumber().size(), 12);
    }

    void stateAfterError_data() {
        QTest::addColumn<int>("number");
        QTest::addColumn<QString>("state");
        QTest::newRow("this toolkit's least") << -1 << u"0"_s;
        QTest::newRow("refused") << int(QAbstractSocket::ConnectionRefusedError) << u"0"_s;
        QTest::newRow("last to try again") << 10000 << u"0"_s;
        QTest::newRow("first to give up") << 10001 << u"-1"_s;
        QTest::newRow("above") << 10061 << u"-1"_s;
    }
    void stateAfterError() {
        QFETCH(int, number);
        QTEST(LinkStateAfterError(number), "state");
    }
};

HOTEL_TEST(TestAddresses)

#include "test_addresses.moc"
