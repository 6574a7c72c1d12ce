#include "tests/private_postgres.h"

#include <csignal>
#include <pwd.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include <QDir>
#include <QProcess>
#include <QThread>

#include "record/literals.h"

namespace hotel {

namespace {

constexpr int kPatience = 120'000; // milliseconds

QString Programs() {
    const QDir versions(u"/usr/lib/postgresql"_s);
    const QStringList names = versions.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    return names.isEmpty() ? QString() : versions.filePath(names.last() + u"/bin"_s);
}

// PostgreSQL does not run as root: its package's user is taken then.
const passwd* ServerUser() {
    return ::geteuid() == 0 ? ::getpwnam("postgres") : nullptr;
}

// The command line of a program as the server's user. What goes on running ends with this process.
QStringList CommandLine(const QString& program, const QStringList& arguments) {
    QStringList line = {u"/usr/bin/setpriv"_s, u"--pdeathsig"_s, u"QUIT"_s};
    if (ServerUser())
        line += {u"--reuid=postgres"_s, u"--regid=postgres"_s, u"--clear-groups"_s};
    return line + QStringList{Programs() + u'/' + program} + arguments;
}

void HandOver(const QString& folder) {
    const passwd* user = ServerUser();
    if (user && ::chown(folder.toLocal8Bit().constData(), user->pw_uid, user->pw_gid) != 0)
        throw std::runtime_error("can't hand over the folder of the database");
}

} // namespace

bool PrivatePostgres::isInstalled() {
    return QFile::exists(Programs() + u"/initdb"_s) &&
           (::geteuid() != 0 || ServerUser() != nullptr);
}

QString PrivatePostgres::run(const QString& program, const QStringList& arguments) {
    QStringList line = CommandLine(program, arguments);
    QProcess process;
    process.setWorkingDirectory(u"/"_s);
    process.setProgram(line.takeFirst());
    process.setArguments(line);
    process.start();
    if (!process.waitForFinished(kPatience) || process.exitCode() != 0)
        throw std::runtime_error(program.toStdString() + ": " +
                                 process.readAllStandardError().toStdString());
    return QString::fromUtf8(process.readAllStandardOutput());
}

PrivatePostgres::PrivatePostgres(Disk disk) : disk_(disk) {
    HandOver(folder_.path());
    run(u"initdb"_s, {u"-D"_s, data(), u"-A"_s, u"trust"_s, u"-U"_s, u"hotel"_s, u"-E"_s, u"UTF8"_s,
                      u"--locale=C"_s, u"--no-sync"_s});
    start();
    run(u"createdb"_s, {u"-h"_s, host(), u"-U"_s, u"hotel"_s, u"hotel"_s});
}

PrivatePostgres::PrivatePostgres(PrivatePostgres& primary) : disk_(primary.disk_) {
    HandOver(folder_.path());
    run(u"pg_basebackup"_s,
        {u"-D"_s, data(), u"-R"_s, u"--checkpoint=fast"_s, u"--no-sync"_s, u"-d"_s,
         u"host=%1 user=hotel application_name=standby"_s.arg(primary.host())});
    start();
    primary.execute(u"ALTER SYSTEM SET synchronous_standby_names = 'standby'"_s);
    primary.execute(u"SELECT pg_reload_conf()"_s);
    while (primary.execute(u"SELECT sync_state FROM pg_stat_replication"_s) != u"sync")
        QThread::msleep(20);
}

PrivatePostgres::~PrivatePostgres() {
    stopAtOnce();
}

QString PrivatePostgres::connection(const QString& schema) const {
    return u"host=%1 user=hotel dbname=hotel options=-csearch_path=%2"_s.arg(host(), schema);
}

void PrivatePostgres::start() {
    QStringList line = CommandLine(u"postgres"_s, {u"-D"_s, data(), u"-k"_s, host()});
    QStringList settings = {u"listen_addresses="_s, u"logging_collector=off"_s,
                            u"log_min_messages=panic"_s, u"max_connections=150"_s};
    if (disk_ == Disk::Unflushed)
        settings += {u"fsync=off"_s, u"synchronous_commit=off"_s,
                     u"default_transaction_isolation=repeatable read"_s};
    for (const QString& setting : std::as_const(settings))
        line += {u"-c"_s, setting};
    std::vector<QByteArray> words;
    for (const QString& word : std::as_const(line))
        words.push_back(word.toLocal8Bit());
    std::vector<char*> arguments;
    for (QByteArray& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    process_ = ::fork();
    if (process_ == 0) {
        if (::chdir("/") == 0 && ::freopen("/dev/null", "w", stderr))
            ::execv(arguments[0], arguments.data());
        ::_exit(1);
    }
    for (int n = 0; n < kPatience / 20; ++n) {
        try {
            run(u"pg_isready"_s, {u"-h"_s, host()});
            return;
        } catch (const std::runtime_error&) {
            QThread::msleep(20);
        }
    }
    throw std::runtime_error("PostgreSQL did not start");
}

void PrivatePostgres::stopAtOnce() {
    if (process_ == 0)
        return;
    ::kill(process_, SIGQUIT);
    ::waitpid(process_, nullptr, 0);
    process_ = 0;
}

void PrivatePostgres::promote() {
    execute(u"SELECT pg_promote()"_s);
}

QString PrivatePostgres::execute(const QString& sql, const QString& schema) const {
    return run(u"psql"_s, {u"-XAtq"_s, u"-v"_s, u"ON_ERROR_STOP=1"_s, u"-d"_s, connection(schema),
                           u"-c"_s, sql})
        .trimmed();
}

} // namespace hotel
