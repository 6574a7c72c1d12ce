// qvrd, the record server.
//
//     qvrd --data DIR [--port 6801] [--listen 127.0.0.1]   serve
//     qvrd --data DIR import TREE                          load a tree of text files
//     qvrd --data DIR export TREE                          write the whole store as such a tree
//     qvrd --data DIR check                                verify the store
//
// In place of --data DIR, --store "postgresql: host=... dbname=..." names a database.
//
// Ends with 0 when all went well, with 1 when not, with 2 when the command line makes no sense.

#include <csignal>
#include <cstdio>
#include <optional>
#include <sys/socket.h>
#include <unistd.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QSocketNotifier>

#include "server/record_server.h"
#include "server/store.h"
#include "server/tree.h"

namespace hotel {

namespace {

enum ExitCode { kDone = 0, kFailed = 1, kUsage = 2 };

void Print(FILE* stream, const QString& line) {
    std::fprintf(stream, "%s\n", line.toUtf8().constData());
    std::fflush(stream);
}

// --- Serving -----------------------------------------------------------------------------------------

int signalPipe[2];

void TellLoop(int) {
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = ::write(signalPipe[1], &byte, 1);
}

// Ends the event loop on SIGTERM and SIGINT. A signal handler may do no more than write a byte.
void EndOnSignal(QCoreApplication& application) {
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, signalPipe) != 0)
        return;
    auto* notifier = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, &application);
    QObject::connect(notifier, &QSocketNotifier::activated, &application, &QCoreApplication::quit);
    std::signal(SIGTERM, TellLoop);
    std::signal(SIGINT, TellLoop);
}

int Serve(QCoreApplication& application, ServerSettings settings) {
    EndOnSignal(application);
    const QString address = settings.listen.toString();
    settings.clock = [] { return QDateTime::currentDateTime(); };
    RecordServer server(std::move(settings));
    Print(stdout, u"listening on %1:%2"_s.arg(address).arg(server.port()));
    QCoreApplication::exec();
    server.finish();
    return kDone;
}

// --- Upkeep ------------------------------------------------------------------------------------------

int PrintReport(const TreeReport& report) {
    for (const QString& line : report.done)
        Print(stdout, line);
    for (const QString& line : report.faults)
        Print(stderr, line);
    return report.faults.isEmpty() ? kDone : kFailed;
}

TreeProgress Progress() {
    return [](qint64 records, const QString& file) {
        Print(stderr, u"%1 records, now %2"_s.arg(records).arg(file));
    };
}

int Import(const QString& data, const QString& tree) {
    Store store(data, Store::Use::Serve);
    const TreeReport report = ImportTree(store, tree, Progress());
    const int result = PrintReport(report);
    if (result != kDone)
        Print(stderr, u"nothing was imported"_s);
    return result;
}

int Export(const QString& data, const QString& tree) {
    Store store(data, Store::Use::Look);
    return PrintReport(ExportTree(store, tree, Progress()));
}

int Check(const QString& data) {
    Store store(data, Store::Use::Look);
    const QStringList faults = store.check();
    for (const QString& fault : faults)
        Print(stderr, fault);
    if (faults.isEmpty())
        Print(stdout, u"the store is sound"_s);
    return faults.isEmpty() ? kDone : kFailed;
}

// --- Command line ------------------------------------------------------------------------------------

// Empty for what names no database.
QString StoreInDatabase(const QString& store) {
    return IsDatabasePlace(store) ? store : QString();
}

int Run(QCoreApplication& application) {
    QCommandLineParser parser;
    parser.setApplicationDescription(u"The record server of the hotel workstations."_s);
    parser.addHelpOption();
    parser.addOption({u"data"_s, u"Folder of the embedded store."_s, u"DIR"_s});
    parser.addOption(
        {u"store"_s,
         u"Store in a database: \"postgresql: host=... dbname=...\"; in place of --data."_s,
         u"STORE"_s});
    parser.addOption({u"port"_s, u"Port to serve on, 0 for any free one."_s, u"PORT"_s, u"6801"_s});
    parser.addOption({u"listen"_s, u"Address to serve on."_s, u"ADDRESS"_s, u"127.0.0.1"_s});
    const OperationLogPlace log;
    parser.addOption({u"log-folder"_s, u"Folder of the operation log."_s, u"FOLDER"_s, log.folder});
    parser.addOption(
        {u"log-project"_s, u"Project of the operation log."_s, u"NAME"_s, log.project});
    parser.addPositionalArgument(u"command"_s, u"import TREE, export TREE or check; none: serve."_s,
                                 u"[command [TREE]]"_s);
    parser.process(application);

    const QString data = parser.isSet(u"store"_s) ? StoreInDatabase(parser.value(u"store"_s))
                                                  : parser.value(u"data"_s);
    const bool isOneStore = parser.isSet(u"store"_s) != parser.isSet(u"data"_s) &&
                            !IsDatabasePlace(parser.value(u"data"_s));
    const QStringList words = parser.positionalArguments();
    bool isPort = false;
    ServerSettings settings;
    settings.store = data;
    settings.port = parser.value(u"port"_s).toUShort(&isPort);
    settings.listen = QHostAddress(parser.value(u"listen"_s));
    settings.log = {parser.value(u"log-folder"_s), parser.value(u"log-project"_s)};
    if (isOneStore && !data.isEmpty() && isPort && !settings.listen.isNull()) {
        if (words.isEmpty())
            return Serve(application, settings);
        if (words.size() == 2 && words[0] == u"import")
            return Import(data, words[1]);
        if (words.size() == 2 && words[0] == u"export")
            return Export(data, words[1]);
        if (words.size() == 1 && words[0] == u"check")
            return Check(data);
    }
    Print(stderr, parser.helpText());
    return kUsage;
}

} // namespace

} // namespace hotel

int main(int argc, char* argv[]) {
    qputenv("QT_NO_GLIB", "1"); // the toolkit's own loop is the quicker one
    QCoreApplication application(argc, argv);
    try {
        return hotel::Run(application);
    } catch (const hotel::StoreError& error) {
        std::fprintf(stderr, "qvrd: %s\n", error.what());
        return hotel::kFailed;
    }
}
