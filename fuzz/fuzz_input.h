#pragma once

// What the fuzz targets share: the entry that each defines, and the words to say what must hold.

#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace hotel::fuzz {

// Ends the program, and so reports the input at hand, when a promise isn't kept.
inline void Require(bool kept, const char* promise) {
    if (kept)
        return;
    std::fprintf(stderr, "Broken: %s\n", promise);
    std::abort();
}

inline QByteArrayView Bytes(const std::uint8_t* data, std::size_t size) {
    return QByteArrayView(data, qsizetype(size));
}

// The input as `count` texts: the first ones a line each, the last one all the rest (UTF-8).
inline QStringList Texts(const std::uint8_t* data, std::size_t size, int count) {
    QString rest = QString::fromUtf8(Bytes(data, size));
    QStringList texts;
    while (texts.size() + 1 < count) {
        const qsizetype end = rest.indexOf(u'\n');
        texts.append(rest.left(end));
        rest = end < 0 ? QString() : rest.mid(end + 1);
    }
    texts.append(rest);
    return texts;
}

} // namespace hotel::fuzz
