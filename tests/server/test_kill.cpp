// The plug is pulled while workstations write: what was answered with success is there, and nothing
// is half done.

#include <csignal>
#include <memory>
#include <thread>
#include <vector>

#include <QFile>
#include <QProcess>
#include <QRandomGenerator>

#include "tests/hotel_test.h"
#include "tests/server/wire_client.h"

using namespace hotel;

namespace {

constexpr int kRounds = 10;
constexpr int kWriters = 4;
constexpr int kParts = 50; // records of a project that is written whole

const StorePath kFile = *ParseFilePath(u"kill.qvr");

// What one writer was told to be done, the last number of each kind of write, and the last it
// tried.
struct Told {
    int appended = 0;
    int modified = 0;
    int whole = 0;
    int tried = 0;
};

QString Mark(int number) {
    return u"第%1次"_s.arg(number);
}

// The numbers go on from round to round, so that an old value is told from a new one.
void WriteUntilTheEnd(quint16 port, int writer, Told& told) {
    WireClient client(port);
    client.logIn(u"前台"_s, u""_s, QDate::currentDate());
    const auto write = [&](const QString& project, const QString& record, const QString& value) {
        return client.ask(u"修改记录"_s, {{u"库文件名"_s, kFile.name},
                                          {u"项目名"_s, project},
                                          {u"记录"_s, record},
                                          {u"记录值"_s, value}}) == u"<SUCCESS>";
    };
    while (true) {
        const int next = told.tried = told.appended + 1;
        if (!write(u"journal%1"_s.arg(writer), QString::number(next), Mark(next)))
            return;
        told.appended = next;
        if (!write(u"state"_s, QString::number(writer), Mark(next)))
            return;
        told.modified = next;
        QString text;
        for (int part = 0; part < kParts; ++part)
            text += u"<%1>%2</%1>"_s.arg(part).arg(Mark(next));
        if (!write(u""_s, u"whole%1"_s.arg(writer), text))
            return;
        told.whole = next;
    }
}

} // namespace

class KillTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void killedWhileWriting() {
        const TestPlace place;
        WriteTestUsers(place.name());
        const quint32 seed = QRandomGenerator::global()->generate();
        QRandomGenerator random(seed);
        std::vector<Told> told(kWriters);
        for (int round = 0; round < kRounds; ++round) {
            serveAndKill(place, told, 20 + random.bounded(150));
            Store store(place.name(), Store::Use::Look);
            QCOMPARE(store.check(), QStringList());
            for (int writer = 0; writer < kWriters; ++writer)
                QVERIFY2(isAllThere(store, writer, told[writer]),
                         qPrintable(u"seed %1, round %2"_s.arg(seed).arg(round)));
        }
        QVERIFY(told[0].whole > 0);
    }

    // Asked to end, the server does: with what was sent done, and nothing but the store left
    // behind.
    void askedToEnd() {
        const TestPlace place;
        WriteTestUsers(place.name());
        QProcess process;
        WireClient client(Start(process, place));
        client.logIn(u"前台"_s, u""_s, QDate::currentDate());
        client.send(u"创建数据库"_s, {{u"库文件名"_s, kFile.name}});
        process.terminate();
        QCOMPARE(client.receive(), u"<SUCCESS>"_s);
        QVERIFY(process.waitForFinished(60'000));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 0);
        if (!TestPlace::isShared())
            QCOMPARE(QDir(place.folder()).entryList(QDir::Files),
                     (QStringList{u"lock"_s, u"store.db"_s}));
    }

    // More callers than descriptors: the server sleeps until somebody leaves, and then takes the next one in.
    void callersWithoutDescriptors() {
#ifdef __SANITIZE_ADDRESS__
        QSKIP("the sanitizers look at an object's type through a pipe, for which there are no "
              "descriptors");
#endif
        const TestPlace place;
        QProcess process;
        const quint16 port = Start(process, place, u"ulimit -n 40; "_s);
        std::vector<std::unique_ptr<WireClient>> callers;
        // taken in one by one, so that the server has seen an empty door
        for (int i = 0; i < 30; ++i)
            callers.push_back(std::make_unique<WireClient>(port));
        callers.front()->ask(u"读取日期"_s);
        for (int i = 0; i < 60; ++i)
            callers.push_back(std::make_unique<WireClient>(port));
        WireClient& last = *callers.back();
        last.send(u"读取日期"_s);
        const qint64 before = ProcessorTicks(process.processId());
        QVERIFY(!last.socket().waitForReadyRead(300));
        QVERIFY(ProcessorTicks(process.processId()) - before < 10); // of 30 that a busy one takes
        callers.erase(callers.begin(), callers.end() - 1);
        QVERIFY(last.receive().contains(u"当前日期"));
        process.terminate();
        QVERIFY(process.waitForFinished(60'000));
    }

private:
    // What the process has used of a processor so far, in hundredths of a second.
    static qint64 ProcessorTicks(qint64 process) {
        QFile file(u"/proc/%1/stat"_s.arg(process));
        if (!file.open(QIODevice::ReadOnly))
            return 0;
        const QList<QByteArray> fields = file.readAll().split(' ');
        return fields[13].toLongLong() + fields[14].toLongLong();
    }

    // Starts the program over the store, behind a shell's `limits`; gives its port.
    static quint16 Start(QProcess& process, const TestPlace& place, const QString& limits = {}) {
        process.start(u"/bin/sh"_s, QStringList{u"-c"_s, limits + u"exec \"$0\" \"$@\""_s,
                                                QStringLiteral(QVRD), u"--port"_s, u"0"_s} +
                                        place.arguments());
        process.waitForReadyRead(60'000);
        return quint16(process.readLine().trimmed().split(':').last().toUInt());
    }

    static void serveAndKill(const TestPlace& place, std::vector<Told>& told, int milliseconds) {
        QProcess process;
        const quint16 port = Start(process, place);
        std::vector<std::thread> writers;
        for (int writer = 0; writer < kWriters; ++writer)
            writers.emplace_back(WriteUntilTheEnd, port, writer, std::ref(told[writer]));
        QThread::msleep(milliseconds);
        process.kill();
        for (std::thread& writer : writers)
            writer.join();
        QVERIFY(process.waitForFinished(60'000));
    }

    // A write that was under way may be there or not, but not in part.
    static bool isAllThere(Store& store, int writer, const Told& told) {
        const QString journal = u"journal%1"_s.arg(writer);
        for (int number = 1; number <= told.appended; ++number)
            if (store.read(kFile, journal, QString::number(number)) != Mark(number))
                return false;
        const auto isSince = [&](const QString& value, int last) {
            const int number = value.mid(1).chopped(1).toInt();
            return number >= last && number <= told.tried;
        };
        const QString state =
            store.read(kFile, u"state"_s, QString::number(writer)).value_or(Mark(0));
        QStringList parts;
        store.walk(kFile, u"whole%1"_s.arg(writer), true,
                   [&](const QString&, const QString& value) { parts += value; });
        if (parts.isEmpty())
            parts = QStringList(kParts, Mark(0));
        return isSince(state, told.modified) && parts.size() == kParts &&
               parts.count(parts.first()) == kParts && isSince(parts.first(), told.whole);
    }
};

HOTEL_TEST(KillTest)

#include "test_kill.moc"
