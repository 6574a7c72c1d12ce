#include "telephone/beep.h"

#include <QDataStream>
#include <QFile>
#include <QTemporaryDir>

#include <cmath>
#include <numbers>

#include "platform/sound.h"
#include "record/literals.h"

namespace hotel {

namespace {

constexpr quint32 kSamplesASecond = 8000;
constexpr quint32 kSamples = kSamplesASecond / 8;
constexpr quint16 kSampleBytes = 2;
constexpr quint32 kHeaderBytes = 36; // behind the first eight
constexpr quint32 kFormatBytes = 16;
constexpr quint16 kPlainSamples = 1;
constexpr quint16 kOneChannel = 1;
constexpr double kTone = 880;
constexpr double kLoudness = 9000;

// A WAVE file: the tone, fading out.
QByteArray Tone() {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    const quint32 dataBytes = kSamples * kSampleBytes;
    stream.writeRawData("RIFF", 4);
    stream << quint32(kHeaderBytes + dataBytes);
    stream.writeRawData("WAVEfmt ", 8);
    stream << kFormatBytes << kPlainSamples << kOneChannel << kSamplesASecond
           << quint32(kSamplesASecond * kSampleBytes) << kSampleBytes << quint16(kSampleBytes * 8);
    stream.writeRawData("data", 4);
    stream << dataBytes;
    for (quint32 n = 0; n < kSamples; ++n) {
        const double phase = 2 * std::numbers::pi * kTone * n / kSamplesASecond;
        stream << qint16(kLoudness * std::sin(phase) * (kSamples - n) / kSamples);
    }
    return bytes;
}

// Where the player can find it; made once, and gone with the program.
QString ToneFile() {
    static const QTemporaryDir folder;
    const QString path = folder.filePath(u"call.wav"_s);
    QFile file(path);
    if (!file.exists() && file.open(QIODevice::WriteOnly))
        file.write(Tone());
    return path;
}

} // namespace

void Beep() {
    Loudspeaker::Installed().play(ToneFile());
}

} // namespace hotel
