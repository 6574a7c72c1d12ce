// Runs a fuzz target without a fuzzer: every seed of a folder, then some thousand inputs made from the
// seeds by the same chance each time. The input under test stands in the file <program>.input, which
// is left behind by a failure.

#include "fuzz/fuzz_input.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <algorithm>
#include <random>

namespace {

constexpr int kInputs = 5000;
constexpr int kLongestInput = 20000;

class Mutator {
public:
    explicit Mutator(const QList<QByteArray>& seeds) : seeds_(seeds) {}

    QByteArray next() {
        QByteArray input = any();
        for (int changes = 1 + below(6); changes > 0; --changes)
            change(input);
        return input.left(kLongestInput);
    }

private:
    int below(qsizetype limit) { return limit > 0 ? int(random_() % quint32(limit)) : 0; }
    const QByteArray& any() { return seeds_[below(seeds_.size())]; }

    QByteArray piece(const QByteArray& bytes) {
        const int from = below(bytes.size());
        return bytes.mid(from, 1 + below(std::min<qsizetype>(bytes.size() - from, 40)));
    }

    void change(QByteArray& input) {
        const int at = below(input.size() + 1);
        switch (below(5)) {
        case 0:
            input.insert(at, char(below(256)));
            break;
        case 1:
            input.remove(at, 1 + below(12));
            break;
        case 2:
            input.insert(at, piece(input));
            break;
        case 3:
            input.insert(at, piece(any()));
            break;
        default:
            if (at < input.size())
                input[at] = char(input[at] ^ (1 << below(8)));
        }
    }

    const QList<QByteArray>& seeds_;
    std::mt19937 random_{6801};
};

QList<QByteArray> ReadSeeds(const QString& folder) {
    QList<QByteArray> seeds;
    const QDir directory(folder);
    for (const QString& name : directory.entryList(QDir::Files, QDir::Name)) {
        QFile file(directory.filePath(name));
        if (file.open(QFile::ReadOnly))
            seeds.append(file.readAll());
    }
    return seeds;
}

void Run(const QByteArray& input, QFile& record) {
    record.resize(0);
    record.seek(0);
    record.write(input);
    record.flush();
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.constData()),
                           std::size_t(input.size()));
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QList<QByteArray> seeds = ReadSeeds(app.arguments().value(1));
    if (seeds.isEmpty()) {
        std::fprintf(stderr, "Usage: %s FOLDER_WITH_SEEDS\n", argv[0]);
        return 2;
    }
    QFile record(app.applicationFilePath() + QStringLiteral(".input"));
    if (!record.open(QFile::WriteOnly)) {
        std::fprintf(stderr, "Can't write %s\n", qUtf8Printable(record.fileName()));
        return 2;
    }
    Run({}, record);
    for (const QByteArray& seed : seeds)
        Run(seed, record);
    Mutator mutator(seeds);
    for (int i = 0; i < kInputs; ++i)
        Run(mutator.next(), record);
    record.remove();
}
