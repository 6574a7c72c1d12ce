#pragma once

// The database below the store. All that differs between databases is behind this class: connecting, the
// words of SQL, transactions, what a failure means. Everything else is said once, in SQL that all take.
//
//     EmbeddedEngine   SQLite, one file in a folder of the server's own machine; served by one program
//     PostgresEngine   PostgreSQL, served by any number of programs on any machines
//
// A shared engine keeps a log of changes beside the tables, a row for each transaction, numbered without a
// gap in the order of the commits, by which programs learn what to read again:
//
//     change   id, writer (a random number of the transaction's own), what (the store's description)
//
// One transaction writes at a time, from the beginning of its first statement to the end of its commit; the
// numbers are given inside of that. So a row of the log is seen exactly when its changes are, and who
// has seen row n has seen all rows up to n; the number is the table's key, so that a transaction which began
// from an older state could not commit. Less than this does not do: a sequence is seen ahead of the
// commit that has moved it, and a reader would take the old state for the new one; a notification arrives
// at some time after the commit, and an answer may be read from memory before it.
//
// A name or text may hold any character; an engine that can't store one writes it in other words.

#include <initializer_list>
#include <limits>
#include <memory>
#include <optional>

#include <QByteArray>
#include <QList>
#include <QSqlQuery>
#include <QString>
#include <QVariant>

#include "server/store_failure.h"

namespace hotel {

// The answer of one statement. Its cursor is closed with it, so that no read holds up a commit.
class Rows {
public:
    using Reading = QString (*)(QString stored); // makes the text of what is stored

    explicit Rows(QSqlQuery& lent, Reading reading = nullptr);
    explicit Rows(QSqlQuery&& own, Reading reading = nullptr);
    Rows(Rows&& other) noexcept;
    Rows& operator=(Rows&&) = delete;
    ~Rows();

    bool next(); // throws StoreError
    QString text(int column) const;
    qint64 integer(int column) const { return query().value(column).toLongLong(); }
    QByteArray bytes(int column) const { return query().value(column).toByteArray(); }
    double number(int column) const { return query().value(column).toDouble(); }
    bool changedAny() const { return query().numRowsAffected() > 0; }

private:
    QSqlQuery& query() { return own_ ? *own_ : *lent_; }
    const QSqlQuery& query() const { return own_ ? *own_ : *lent_; }

    std::optional<QSqlQuery> own_;
    QSqlQuery* lent_ = nullptr;
    Reading reading_;
};

// A row of the log of changes.
struct StoreChange {
    qint64 number = std::numeric_limits<qint64>::max(); // not known yet
    qint64 writer = 0;
    QString what;
};

class StoreEngine {
public:
    enum class Use {
        Serve, // read and write; makes the tables when they are missing
        Look,  // read only, the store as it stood at the moment of opening
    };
    // QString, QByteArray (neither null), qint64, int and double.
    using Values = std::initializer_list<QVariant>;

    virtual ~StoreEngine() = default;

    // Other programs may write meanwhile: the log is kept, and memory is worth what the log says.
    virtual bool isShared() const = 0;

    // Begins a transaction that writes, waiting for another's end. Gives the rows of the log from number
    // `known` on, that one included.
    virtual QList<StoreChange> begin(qint64 known) = 0;

    // The rows of the log likewise, and nothing else. What ask() has asked for on the way is waited for.
    virtual QList<StoreChange> glance(qint64 known) = 0;

    // Asks for what the next glance at the same number gives, without waiting for it.
    virtual void ask(qint64 known) = 0;

    // From here on, until endView or begin, reads see one state. Gives the rows of the log likewise.
    virtual QList<StoreChange> view(qint64 known) = 0;
    virtual void endView() = 0;

    // Comes back when the transaction is on disk, with `own` at the end of the log. Throws LostCommit when
    // nobody can tell.
    virtual void commit(const StoreChange& own) = 0;

    // Undoes what is under way and leaves the engine ready for the next transaction, if need be on a new
    // connection. Never fails.
    virtual void rollback() noexcept = 0;

    // Runs `sql` with the values for its question marks. A statement is known by the address of its text.
    virtual Rows run(const char* sql, Values values) = 0;

    // The same for a statement whose answer nobody needs. It may be done as late as ahead of the next run
    // or commit, which then tells of its failure.
    virtual void change(const char* sql, Values values) = 0;

    // What the database itself finds wrong, a line each.
    virtual QStringList faults() = 0;
};

// The engine of a place: a folder, or `postgresql:` and the words of a connection. Throws StoreError when
// it can't be opened, or when another program serves an embedded one already.
std::unique_ptr<StoreEngine> OpenEngine(const QString& place, StoreEngine::Use use);

bool IsDatabasePlace(const QString& place);

// The parts.
std::unique_ptr<StoreEngine> OpenEmbedded(const QString& folder, StoreEngine::Use use);
std::unique_ptr<StoreEngine> OpenPostgres(const QString& words, StoreEngine::Use use);

// What was wrong with the statement, in one line.
StoreError FailureOf(const QSqlQuery& query);

// A name among Qt's connections, given back last.
struct ConnectionName {
    QString name;
    ConnectionName();
    ~ConnectionName();
};

// The statements that make the tables, in an engine's words for: the key that counts rows, other numbers of
// rows, texts in the order of their bytes, and bytes. A record's id is its project's id times
// kRecordsPerProject plus a running number: the records of a project lie together in their order, and
// reading it whole is one sweep.
//
//     file     id, path (the key), name (as written), kind (1 database, 2 uploaded file)
//     project  id, file, name                     ids rise in insertion order
//     record   id, project, name, number, value   number: leading number of the name, for the greatest
//     upload   file, content
struct TableWords {
    const char* key;
    const char* id;
    const char* text;
    const char* bytes;
};
QStringList TableStatements(const TableWords& words);

} // namespace hotel
