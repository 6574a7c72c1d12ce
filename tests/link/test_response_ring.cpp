#include <QTest>

#include "link/response_ring.h"
#include "record/literals.h"
#include "tests/hotel_test.h"

using namespace hotel;

namespace {

void Collect(ResponseRing& ring) {
    for (int slot = ring.oldest(); true; slot = (slot + 1) % ResponseRing::kSlots) {
        ring.collect(slot);
        if (slot == ring.newest())
            return;
    }
}

QString Frame(QStringView number, QStringView body) {
    return u"<CmdID:%1>%2</CmdID:%1>"_s.arg(number, body);
}

QString Body(qsizetype size) {
    QString body;
    body.reserve(size + 100);
    for (int i = 0; body.size() < size; ++i)
        body += u"<8%1>单间 房%1</8%1>\r\n"_s.arg(i);
    body.truncate(size);
    return body;
}

} // namespace

class TestResponseRing : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void bodyOfAnySizeInPiecesOfAnySize_data() {
        QTest::addColumn<qsizetype>("size");
        QTest::addColumn<qsizetype>("piece");
        const QList<qsizetype> sizes{0, 1, 19000, 25000, 45000, 2000000};
        const QList<qsizetype> pieces{1, 2, 7, 1460, 16384, 65536, 3000000};
        for (qsizetype size : sizes) {
            for (qsizetype piece : pieces) {
                if (size / piece < 100000)
                    QTest::addRow("%d by %d", int(size), int(piece)) << size << piece;
            }
        }
    }
    void bodyOfAnySizeInPiecesOfAnySize() {
        QFETCH(qsizetype, size);
        QFETCH(qsizetype, piece);
        const QString body = Body(size);
        const QString stream = Frame(u"255", body) + Frame(u"000", u"next");
        ResponseRing ring;
        for (qsizetype from = 0; from < stream.size(); from += piece) {
            ring.receive(QStringView(stream).mid(from, piece));
            if (ring.hasNews()) {
                ring.noteScan();
                Collect(ring);
            }
        }
        QCOMPARE(ring.takeAnswer(255), body);
        QCOMPARE(ring.takeAnswer(0), u"next"_s);
        QVERIFY(ring.answer(0).isEmpty());
    }

    // An end mark on the border of two slots is lost, one that ends right at it is not.
    void endMarkAtTheBorderOfSlots_data() {
        QTest::addColumn<int>("ahead");
        QTest::addColumn<bool>("found");
        QTest::newRow("whole ahead of it") << 12 << true;
        QTest::newRow("but one character") << 11 << false;
        QTest::newRow("split") << 5 << false;
        QTest::newRow("one character") << 1 << false;
        QTest::newRow("whole behind it") << 0 << true;
    }
    void endMarkAtTheBorderOfSlots() {
        QFETCH(int, ahead); // characters of the mark in the full slot
        QFETCH(bool, found);
        const QString body(ResponseRing::kFullSlot - 11 - ahead, u'x');
        const QString frame = Frame(u"007", body);
        ResponseRing ring;
        ring.receive(QStringView(frame).first(ResponseRing::kFullSlot));
        ring.receive(QStringView(frame).sliced(ResponseRing::kFullSlot));
        Collect(ring);
        QCOMPARE(ring.takeAnswer(7), found ? body : QString());

        ring.receive(Frame(u"008", u"behind"));
        Collect(ring);
        QCOMPARE(ring.takeAnswer(8), u"behind"_s);
    }

    void answersAndTheirNumbers_data() {
        QTest::addColumn<QStringList>("arrivals");
        QTest::addColumn<int>("number");
        QTest::addColumn<QString>("answer");
        QTest::newRow("noise ahead")
            << QStringList{u"noise"_s + Frame(u"003", u"a")} << 3 << u"a"_s;
        QTest::newRow("noise behind")
            << QStringList{Frame(u"003", u"a") + u"noise"_s, Frame(u"004", u"b")} << 4 << u"b"_s;
        QTest::newRow("unknown number") << QStringList{Frame(u"999", u"a")} << 999 % 256 << u"a"_s;
        QTest::newRow("no number") << QStringList{Frame(u"abc", u"a")} << 0 << u"a"_s;
        QTest::newRow("head cut short")
            << QStringList{u"<CmdID:0"_s, u"</CmdID:0"_s, u"<CmdID:001>a</CmdID:001>"_s} << 1
            << u"a"_s;
        QTest::newRow("second answer replaces the first")
            << QStringList{Frame(u"003", u"a") + Frame(u"003", u"b")} << 3 << u"b"_s;
        QTest::newRow("mark of another command")
            << QStringList{u"<CmdID:005>a</CmdID:006>b</CmdID:005>"_s} << 5 << u"a</CmdID:006>b"_s;
        QTest::newRow("next head behind an end mark in the same slot")
            << QStringList{Frame(u"005", u"a") + u"<Cmd"_s, u"ID:006>b</CmdID:006>"_s} << 6
            << u"b"_s;
    }
    void answersAndTheirNumbers() {
        QFETCH(QStringList, arrivals);
        QFETCH(int, number);
        ResponseRing ring;
        for (const QString& arrival : arrivals)
            ring.receive(arrival);
        while (ring.hasNews()) {
            ring.noteScan();
            Collect(ring);
        }
        QTEST(ring.answer(number), "answer");
    }

    void goesRoundTheRing() {
        ResponseRing ring;
        for (int i = 0; i < 3 * ResponseRing::kSlots + 5; ++i) {
            const int number = i % ResponseRing::kSlots;
            const QString digits = u"%1"_s.arg(number, 3, 10, QChar(u'0'));
            const QString body = Body(i % 7 == 0 ? 45000 : 20);
            ring.receive(Frame(digits, body));
            Collect(ring);
            QCOMPARE(ring.takeAnswer(number), body);
        }
    }

    // Answers that nobody collects are written over, the oldest first.
    void overrun() {
        ResponseRing ring;
        for (int i = 0; i < ResponseRing::kSlots + 10; ++i)
            ring.receive(Frame(u"%1"_s.arg(i % ResponseRing::kSlots, 3, 10, QChar(u'0')),
                               QString::number(i)));
        Collect(ring);
        for (int i = 10; i < ResponseRing::kSlots + 10; ++i)
            QCOMPARE(ring.takeAnswer(i % ResponseRing::kSlots), QString::number(i));
    }

    void dropKeepsWhatIsFinished() {
        ResponseRing ring;
        ring.receive(Frame(u"001", u"whole") + u"<CmdID:002>half"_s);
        ring.dropUnfinished();
        ring.receive(u"</CmdID:002>"_s);
        Collect(ring);
        QCOMPARE(ring.answer(1), u"whole"_s);
        QVERIFY(ring.answer(2).isEmpty());
    }
};

HOTEL_TEST(TestResponseRing)

#include "test_response_ring.moc"
