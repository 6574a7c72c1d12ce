#pragma once

// A PostgreSQL of one's own in a temporary folder, reached by a socket in it; nobody else's is touched. It
// ends with this object, and with this process however that ends.

#include <memory>

#include <QString>
#include <QTemporaryDir>

namespace hotel {

class PrivatePostgres {
public:
    // The server's programs are installed on this machine.
    static bool isInstalled();

    // Tests end programs, not machines: what the system has been given is as good as on disk for them. The
    // server then also has settings with which one that asks for nothing better loses what it was told of.
    enum class Disk { Flushed, Unflushed };

    // Makes a database `hotel` and starts its server. Throws std::runtime_error when that fails.
    explicit PrivatePostgres(Disk disk = Disk::Unflushed);
    // A standby that follows `primary`, which from here on waits for it at each commit.
    explicit PrivatePostgres(PrivatePostgres& primary);
    ~PrivatePostgres();

    // The folder of the socket, and the words of a connection to `schema`.
    QString host() const { return folder_.path(); }
    QString connection(const QString& schema = QStringLiteral("public")) const;

    void start();
    // Ends as in a power failure, without waiting for anything.
    void stopAtOnce();
    // Makes a standby the primary.
    void promote();

    // Runs SQL; gives what it answers, a row a line.
    QString execute(const QString& sql, const QString& schema = QStringLiteral("public")) const;

    // Runs a program of PostgreSQL's as the server's user; gives what it wrote. Throws when it fails.
    static QString run(const QString& program, const QStringList& arguments);

private:
    QString data() const { return folder_.filePath(QStringLiteral("data")); }

    QTemporaryDir folder_;
    Disk disk_;
    int process_ = 0;
};

} // namespace hotel
