#include "link/response_ring.h"
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
    void bodyOfAnySizeInPiecesOfAnySize() {
        const auto row = [](qsizetype size, qsizetype piece) {
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
            const QByteArray name = QByteArray::number(size) + " by " + QByteArray::number(piece);
            Check(name, ring.takeAnswer(255) == body, true);
            Check(name, ring.takeAnswer(0), u"next"_s);
            Check(name, ring.answer(0).isEmpty(), true);
        };
        for (qsizetype size : {0, 1, 19000, 25000, 45000, 2000000}) {
            for (qsizetype piece : {1, 2, 7, 1460, 16384, 65536, 3000000}) {
                if (size / piece < 100000)
                    row(size, piece);
            }
        }
    }

    // A mark may fall on the border of two slots at any of its characters, and on that of the next two.
    void marksAtTheBorderOfSlots() {
        const auto row = [](qsizetype border, int ahead) {
            const QString body(border - 11 - ahead, u'x');
            const QString stream = Frame(u"007", body) + Frame(u"008", u"behind");
            ResponseRing ring;
            for (qsizetype from = 0; from < stream.size(); from += 20001)
                ring.receive(QStringView(stream).mid(from, 20001));
            while (ring.hasNews()) {
                ring.noteScan();
                Collect(ring);
            }
            const QByteArray name =
                QByteArray::number(border) + " less " + QByteArray::number(ahead);
            Check(name, ring.takeAnswer(7) == body, true);
            Check(name, ring.takeAnswer(8), u"behind"_s);
        };
        for (int ahead = 0; ahead <= 12 + 11; ++ahead) { // end mark and next head
            for (const qsizetype border : {20001, 40002, 60003})
                row(border, ahead);
        }
    }

    void answersAndTheirNumbers() {
        const auto row = [](const char* name, const QStringList& arrivals, int number,
                            const QString& answer) {
            ResponseRing ring;
            for (const QString& arrival : arrivals)
                ring.receive(arrival);
            while (ring.hasNews()) {
                ring.noteScan();
                Collect(ring);
            }
            Check(name, ring.answer(number), answer);
        };
        row("noise ahead", {u"noise"_s + Frame(u"003", u"a")}, 3, u"a"_s);
        row("noise behind", {Frame(u"003", u"a") + u"noise"_s, Frame(u"004", u"b")}, 4, u"b"_s);
        row("unknown number", {Frame(u"999", u"a")}, 999 % 256, u"a"_s);
        row("no number", {Frame(u"abc", u"a")}, 0, u"a"_s);
        row("head cut short", {u"<CmdID:0"_s, u"</CmdID:0"_s, u"<CmdID:001>a</CmdID:001>"_s}, 1,
            u"a"_s);
        row("second answer replaces the first", {Frame(u"003", u"a") + Frame(u"003", u"b")}, 3,
            u"b"_s);
        row("mark of another command", {u"<CmdID:005>a</CmdID:006>b</CmdID:005>"_s}, 5,
            u"a</CmdID:006>b"_s);
        row("next head behind an end mark in the same slot",
            {Frame(u"005", u"a") + u"<Cmd"_s, u"ID:006>b</CmdID:006>"_s}, 6, u"b"_s);
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
