// The store in one SQLite file, served by one program.

#include <sys/file.h>
#include <unordered_map>

#include <QDir>
#include <QFile>
#include <QSqlDatabase>

#include "record/literals.h"
#include "server/store_engine.h"

namespace hotel {

namespace {

// The key of a table is the running number that SQLite keeps anyway only when it is called INTEGER.
constexpr TableWords kWords = {"INTEGER PRIMARY KEY", "INTEGER", "TEXT", "BLOB"};

// A commit comes back after its flush of the write-ahead log, so that it survives a power cut.
constexpr const char* kSettings[] = {"PRAGMA journal_mode = WAL", "PRAGMA synchronous = FULL",
                                     "PRAGMA cache_size = -65536"};

class EmbeddedEngine : public StoreEngine {
public:
    EmbeddedEngine(const QString& folder, Use use) : folder_(folder), use_(use) {
        if (use_ == Use::Serve)
            takeLock();
        open();
        if (use_ == Use::Look)
            return;
        for (const char* setting : kSettings)
            execute(QString::fromLatin1(setting));
        for (const QString& table : TableStatements(kWords))
            execute(table);
    }

    bool isShared() const override { return false; }

    QList<StoreChange> begin(qint64) override {
        run("BEGIN", {});
        return {};
    }
    void commit(const StoreChange&) override { run("COMMIT", {}); }

    // Fails when the database has rolled back by itself; then all is done.
    void rollback() noexcept override { database_.rollback(); }

    // Nobody else writes while this program serves. Who looks keeps a transaction for its view.
    QList<StoreChange> view(qint64) override {
        if (use_ == Use::Look)
            run("BEGIN", {});
        return {};
    }
    void endView() override {}
    QList<StoreChange> glance(qint64) override { return {}; }
    void ask(qint64) override {}

    Rows run(const char* sql, Values values) override {
        QSqlQuery& query = prepared(sql);
        int position = 0;
        for (const QVariant& value : values)
            query.bindValue(position++, value);
        Rows rows(query);
        if (!query.exec())
            throw FailureOf(query);
        return rows;
    }

    void change(const char* sql, Values values) override { run(sql, values); }

    QStringList faults() override {
        QStringList faults;
        Rows integrity = run("PRAGMA integrity_check", {});
        while (integrity.next())
            if (integrity.text(0) != u"ok")
                faults += integrity.text(0);
        return faults;
    }

private:
    void takeLock() {
        if (!QDir().mkpath(folder_))
            throw StoreError(u"can't make the folder "_s + folder_);
        lock_.setFileName(QDir(folder_).filePath(u"lock"_s));
        if (!lock_.open(QIODevice::ReadWrite))
            throw StoreError(u"can't write into the folder "_s + folder_);
        if (::flock(lock_.handle(), LOCK_EX | LOCK_NB) != 0)
            throw StoreError(u"another program serves the store in "_s + folder_);
    }

    void open() {
        database_ = QSqlDatabase::addDatabase(u"QSQLITE"_s, connection_.name);
        database_.setDatabaseName(QDir(folder_).filePath(u"store.db"_s));
        if (use_ == Use::Look)
            database_.setConnectOptions(u"QSQLITE_OPEN_READONLY"_s);
        if (!database_.open())
            throw StoreError(u"can't open the store in "_s + folder_);
    }

    void execute(const QString& sql) {
        QSqlQuery query(database_);
        if (!query.exec(sql))
            throw FailureOf(query);
    }

    QSqlQuery& prepared(const char* sql) {
        const auto known = statements_.find(sql);
        if (known != statements_.end())
            return known->second;
        QSqlQuery query(database_);
        query.setForwardOnly(true);
        if (!query.prepare(QString::fromUtf8(sql)))
            throw FailureOf(query);
        return statements_.emplace(sql, std::move(query)).first->second;
    }

    QString folder_;
    Use use_;
    QFile lock_;
    ConnectionName connection_;
    QSqlDatabase database_;
    std::unordered_map<const char*, QSqlQuery> statements_;
};

} // namespace

std::unique_ptr<StoreEngine> OpenEmbedded(const QString& folder, StoreEngine::Use use) {
    return std::make_unique<EmbeddedEngine>(folder, use);
}

} // namespace hotel
