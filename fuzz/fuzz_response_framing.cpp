// The answers that a stream of pieces brings, whatever is in it: by the side of the plain rule, which
// looks through every slot each time.

#include "fuzz/fuzz_input.h"

#include <array>

#include <QRegularExpression>

#include "link/response_ring.h"
#include "record/code_page.h"
#include "record/literals.h"
#include "record/numbers.h"

using namespace hotel;
using namespace hotel::fuzz;

namespace {

// In the input, this byte ends a piece, and that one stands for a long text that fills slots.
constexpr char kPieceEnd = '|';
constexpr char16_t kFiller = u'~';
constexpr int kFillerLength = 6667;

class PlainRing {
public:
    std::array<QString, 256> answers;

    void receive(QString text) {
        while (!text.isEmpty()) {
            const qsizetype next = text.indexOf(u"<CmdID:", 1);
            const QString piece = next < 0 ? text : text.left(next);
            if (piece.startsWith(u"<CmdID:") || slots_[write_].size() >= 20001) {
                static const QRegularExpression begunMark(u"<[^<>]{0,10}$"_s);
                const QString begun = piece.startsWith(u"<CmdID:")
                                          ? QString()
                                          : begunMark.match(slots_[write_]).captured();
                slots_[write_].chop(begun.size());
                slots_[write_ = (write_ + 1) % 256] = begun;
            }
            slots_[write_] += piece;
            text.remove(0, piece.size());
        }
    }

    void collect() {
        for (int slot = 0; slot < 256; ++slot) {
            const QString head = slots_[slot].left(11);
            if (head.size() == 11 && head.startsWith(u"<CmdID:"))
                finish(slot, head, u"</"_s + head.mid(1));
        }
    }

private:
    void finish(int slot, const QString& head, const QString& endMark) {
        QString joined;
        for (int i = 0; i < 256; ++i) {
            const int last = (slot + i) % 256;
            const qsizetype end = slots_[last].indexOf(endMark);
            joined += slots_[last];
            if (end < 0)
                continue;
            const int number = int(qint64(LeadingNumber(head.mid(7))) & 255);
            answers[number] = joined.left(joined.size() - slots_[last].size() + end).mid(11);
            for (int emptied = slot; emptied != last; emptied = (emptied + 1) % 256)
                slots_[emptied].clear();
            slots_[last].remove(0, end + endMark.size());
            return;
        }
    }

    std::array<QString, 256> slots_;
    int write_ = 0;
};

void Compare(const ResponseRing& ring, const PlainRing& plain) {
    for (int number = 0; number < 256; ++number)
        Require(ring.answer(number) == plain.answers[number], "the answers of the plain rule");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ResponseRing ring;
    PlainRing plain;
    WireDecoder decoder;
    const QList<QByteArray> pieces = Bytes(data, size).toByteArray().split(kPieceEnd);
    for (const QByteArray& bytes : pieces) {
        const QString piece =
            decoder.decode(bytes).replace(kFiller, QString(kFillerLength, kFiller));
        ring.receive(piece);
        plain.receive(piece);
        do {
            ring.noteScan();
            for (int slot = 0; slot < ResponseRing::kSlots; ++slot)
                ring.collect(slot);
            plain.collect();
        } while (ring.hasNews());
        Compare(ring, plain);
    }
    ring.dropUnfinished();
    Compare(ring, plain);
    return 0;
}
