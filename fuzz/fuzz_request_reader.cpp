// Bytes from a workstation, cut into requests and fields.

#include "fuzz/fuzz_input.h"

#include "server/request_reader.h"
#include "server/store_path.h"

using namespace hotel;
using namespace hotel::fuzz;

namespace {

constexpr qsizetype kLimit = 2000;

struct Reading {
    QStringList requests;
    bool refused = false;
};

Reading Read(QByteArrayView bytes, qsizetype pieceSize) {
    RequestReader reader(kLimit);
    Reading reading;
    for (qsizetype from = 0; from < bytes.size(); from += pieceSize) {
        reader.feed(bytes.sliced(from, std::min(pieceSize, bytes.size() - from)));
        while (const std::optional<Request> request = reader.next()) {
            Require(request->number().size() == 3, "a number has three digits");
            reading.requests += QString::fromLatin1(request->number());
            reading.requests += request->command().toString();
            reading.requests += request->field(u"记录值").toString();
        }
    }
    reading.refused = reader.refused();
    return reading;
}

// A path that is taken stays below the store's root and is known again.
void PathsStayInside(QStringView text) {
    const std::optional<StorePath> path = ParseFilePath(text);
    if (!path)
        return;
    Require(!path->name.startsWith(kPathSeparator) && !path->key.isEmpty(), "a path is relative");
    Require(!path->name.split(kPathSeparator).contains(u".."), "a path doesn't lead up");
    const std::optional<StorePath> again = ParseFilePath(path->name);
    Require(again && again->key == path->key && again->name == path->name,
            "a path is its own path");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArrayView bytes = Bytes(data, size);
    const Reading whole = Read(bytes, std::max<qsizetype>(bytes.size(), 1));
    for (qsizetype pieceSize : {1, 7, 100}) {
        const Reading pieces = Read(bytes, pieceSize);
        Require(pieces.requests == whole.requests, "pieces make the same requests");
        Require(pieces.refused == whole.refused, "pieces are refused alike");
    }
    PathsStayInside(QString::fromUtf8(bytes));
    return 0;
}
