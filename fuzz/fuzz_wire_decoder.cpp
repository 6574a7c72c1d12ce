// Bytes from the wire, on the workstation's side and on the server's.

#include "fuzz/fuzz_input.h"

#include "record/code_page.h"

using namespace hotel;
using namespace hotel::fuzz;

namespace {

void PiecesMakeTheSameText(QByteArrayView bytes) {
    const QString whole = WireDecoder().decode(bytes);
    Require(whole.size() <= bytes.size(), "a character takes at least one byte");
    const qsizetype split = bytes.isEmpty() ? 0 : quint8(bytes.front()) % (bytes.size() + 1);
    WireDecoder pieces;
    const QString first = pieces.decode(bytes.first(split));
    Require(first + pieces.decode(bytes.sliced(split)) == whole, "pieces make the same text");
    WireDecoder single;
    QString joined;
    for (qsizetype i = 0; i < bytes.size(); ++i)
        joined += single.decode(bytes.sliced(i, 1));
    Require(joined == whole, "single bytes make the same text");
}

void RequestsComeBack(QByteArrayView bytes) {
    const QString request = DecodeRequest(bytes);
    Require(request.size() <= bytes.size(), "a character takes at least one byte");
    const QString known = DecodeRequest(EncodeForWire(request));
    Require(known.size() == request.size(), "no character is lost or added");
    for (qsizetype i = 0; i < known.size(); ++i)
        Require(known[i] == request[i] || known[i] == u'?', "unknown characters become ?");
    Require(DecodeRequest(EncodeForWire(known)) == known, "known characters stay");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    PiecesMakeTheSameText(Bytes(data, size));
    RequestsComeBack(Bytes(data, size));
    return 0;
}
