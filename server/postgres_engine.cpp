// The store in a PostgreSQL database, served by any number of programs.
//
// A transaction that writes begins with a lock of the store's own, so that one writes at a time; a dead
// holder is put out after half a minute, a waiter gives up after ten seconds. Statements whose answer nobody
// needs are collected and sent ahead in groups, or with the next one that is waited for.

#include <memory>
#include <unordered_map>

#include <libpq-fe.h>

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlError>

#include "record/literals.h"
#include "server/store_engine.h"

namespace hotel {

namespace {

constexpr TableWords kWords = {"BIGINT PRIMARY KEY", "BIGINT", "TEXT COLLATE \"C\"", "BYTEA"};

// What holds unless the words of the connection say otherwise: a host that is silent is given up long before
// a workstation loses patience, and of several hosts the one is taken that can be written to.
const QString kDefaults = u"application_name=qvrd connect_timeout=3 keepalives_idle=5 "
                          "keepalives_interval=2 keepalives_count=3 tcp_user_timeout=10000 "_s;
const QString kServeDefaults = u"target_session_attrs=read-write "_s;

// What a session needs, whatever the server's own settings are: an answer to COMMIT means that the change is
// on disk here and on a synchronous standby, and nothing cuts that wait short; plans that stay good when a
// table that was empty has grown.
const QString kSettings = u"SET client_min_messages = error; SET standard_conforming_strings = on; "
                          "SET statement_timeout = 0; SET jit = off; SET enable_seqscan = off; "
                          "SELECT set_config('synchronous_commit', 'on', false) "
                          "WHERE current_setting('synchronous_commit') <> 'remote_apply'"_s;
const QString kServeSettings =
    u"SET lock_timeout = '10s'; SET idle_in_transaction_session_timeout = '30s'"_s;
const QString kAskSettings =
    u"SELECT current_setting('server_encoding'), current_setting('fsync')"_s;

const QString kBeginWriting = u"BEGIN ISOLATION LEVEL READ COMMITTED READ WRITE"_s;
const QString kBeginReading = u"BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY"_s;
// Several stores may stand in one database, each in a schema.
const QString kLock =
    u"SELECT pg_advisory_xact_lock(hashtextextended('qvrd ' || current_schema(), 0))"_s;

// The log begins with a row, so that there is always a last one. A record that is changed leaves its page and
// its place in three indexes unless the page has room for it.
const QString kOwnTables[] = {
    u"ALTER TABLE record SET (fillfactor = 70)"_s,
    u"CREATE TABLE IF NOT EXISTS change (id BIGINT PRIMARY KEY, writer BIGINT NOT NULL, "
    "what TEXT NOT NULL)"_s,
    u"INSERT INTO change SELECT 0, 0, '' WHERE NOT EXISTS (SELECT FROM change)"_s,
};
constexpr char kNews[] = "SELECT id, writer, what FROM change WHERE id >= ? ORDER BY id";
constexpr qint64 kLogKept = 4096; // rows; who is farther behind reads everything again

constexpr qsizetype kBatchLength =
    256 * 1024;               // characters of statements that are sent at the latest
constexpr int kSentAhead = 4; // statements that are worth a way of their own while others are made
constexpr qint64 kConnectPause = 500; // milliseconds between attempts that fail

const QString kReadOnlyCode = u"25006"_s;

// A text can't hold the character 0 there. It is written as an escape, a character that stands in no text of
// people, and a 0; the escape itself with a 1.
constexpr QChar kEscape = u'\uffff';

QString Escaped(const QString& text) {
    if (!text.contains(kEscape) && !text.contains(QChar(u'\0')))
        return text;
    QString escaped;
    for (const QChar c : text) {
        if (c == kEscape)
            escaped += QString(kEscape) + u'1';
        else if (c.isNull())
            escaped += QString(kEscape) + u'0';
        else
            escaped += c;
    }
    return escaped;
}

QString Unescaped(QString text) {
    for (qsizetype at = text.indexOf(kEscape); at >= 0 && at + 1 < text.size();
         at = text.indexOf(kEscape, at + 1)) {
        if (text[at + 1] == u'0')
            text[at] = QChar(u'\0');
        text.remove(at + 1, 1);
    }
    return text;
}

QString Literal(const QVariant& value) {
    switch (value.typeId()) {
    case QMetaType::QString:
        return u'\'' + Escaped(value.toString()).replace(u"'"_s, u"''"_s) + u'\'';
    case QMetaType::QByteArray:
        return u"'\\x"_s + QString::fromLatin1(value.toByteArray().toHex()) + u'\'';
    case QMetaType::Double:
        return QString::number(value.toDouble(), 'g', QLocale::FloatingPointShortest);
    default:
        return QString::number(value.toLongLong());
    }
}

// Statements that go in one trip.
struct Batch {
    QString text;
    int statements = 0;

    void add(const QString& statement) {
        if (statements++ > 0)
            text += u"; "_s;
        text += statement;
    }
};

class PostgresEngine : public StoreEngine {
public:
    PostgresEngine(const QString& words, Use use) : use_(use) {
        if (words.contains(u';') || words.trimmed().startsWith(u"//"))
            throw StoreError(u"a connection is given as \"postgresql: host=... dbname=...\", "
                             "without a semicolon"_s);
        database_ = QSqlDatabase::addDatabase(u"QPSQL"_s, connection_.name);
        if (!database_.isValid())
            throw StoreError(u"Qt's driver for PostgreSQL is missing: libqt6sql6-psql"_s);
        database_.setConnectOptions(kDefaults + (use_ == Use::Serve ? kServeDefaults : QString()) +
                                    words);
        connect();
        if (use_ == Use::Serve)
            makeTables();
    }

    bool isShared() const override { return true; }

    QList<StoreChange> begin(qint64 known) override {
        start(kBeginWriting);
        pending_.add(kLock);
        return news(known);
    }

    QList<StoreChange> glance(qint64 known) override {
        if (way_ == OnTheWay::Question) {
            if (const auto told = answerToAsked())
                return *told;
        }
        if (!database_.isOpen())
            connect();
        return news(known);
    }

    // The toolkit's driver only knows questions that are waited for.
    void ask(qint64 known) override {
        forgetWhatIsOnTheWay();
        if (!database_.isOpen() || viewing_ || pending_.statements > 0)
            return;
        add(kNews, {known});
        if (sendWithoutWaiting(std::exchange(pending_, {})))
            way_ = OnTheWay::Question;
    }

    QList<StoreChange> view(qint64 known) override {
        start(kBeginReading);
        viewing_ = true;
        return news(known);
    }

    void endView() override {
        if (!std::exchange(viewing_, false))
            return;
        pending_.add(u"COMMIT"_s);
        send();
    }

    void commit(const StoreChange& own) override {
        change("INSERT INTO change (id, writer, what) VALUES (?, ?, ?)",
               {own.number, own.writer, own.what});
        if (own.number % kLogKept == 0)
            change("DELETE FROM change WHERE id < ?", {own.number - kLogKept});
        pending_.add(u"COMMIT"_s);
        try {
            send();
        } catch (const StoreError& error) {
            if (stands())
                throw; // the database has refused
            findOut(own, error);
        }
    }

    void rollback() noexcept override {
        forgetWhatIsOnTheWay();
        pending_ = {};
        viewing_ = false;
        if (database_.isOpen() && (std::exchange(readOnly_, false) || !stands()))
            database_.close();
    }

    Rows run(const char* sql, Values values) override {
        add(sql, values);
        return Rows(send(), Unescaped);
    }

    void change(const char* sql, Values values) override {
        if (use_ == Use::Look)
            throw StoreError(u"the store is only looked at"_s);
        add(sql, values);
        if (pending_.text.size() > kBatchLength)
            send();
        else if (pending_.statements >= kSentAhead && way_ == OnTheWay::Nothing)
            sendAhead();
    }

    // PostgreSQL looks after its pages by itself; a page that can't be read fails the other checks.
    QStringList faults() override { return {}; }

private:
    // --- Connecting ----------------------------------------------------------------------------------

    void connect() {
        if (failed_.isValid() && !failed_.hasExpired(kConnectPause))
            throw StoreError(failure_);
        prepared_.clear();
        pending_ = {};
        viewing_ = false;
        way_ = OnTheWay::Nothing;
        if (!database_.open()) {
            failure_ = u"PostgreSQL is out of reach: "_s +
                       database_.lastError().databaseText().section(u'\n', 0, 0);
            failed_.start();
            throw StoreError(failure_);
        }
        failed_.invalidate();
        try {
            set();
        } catch (const StoreError&) {
            database_.close();
            throw;
        }
    }

    void set() {
        pending_.add(kSettings);
        if (use_ == Use::Serve)
            pending_.add(kServeSettings);
        pending_.add(kAskSettings);
        pending_.statements = int(pending_.text.count(u';')) + 1;
        Rows rows(send());
        rows.next();
        if (rows.text(0) != u"UTF8")
            throw StoreError(u"the database is not in UTF-8"_s);
        if (rows.text(1) != u"on")
            qWarning("store: PostgreSQL runs with fsync off, a power failure loses changes");
    }

    void makeTables() {
        pending_.add(kBeginWriting);
        pending_.add(kLock);
        for (const QString& table : TableStatements(kWords))
            pending_.add(table);
        for (const QString& table : kOwnTables)
            pending_.add(table);
        pending_.add(u"COMMIT"_s);
        send();
    }

    // Whether the connection stands; whatever was under way on it is undone.
    bool stands() {
        forgetWhatIsOnTheWay();
        prepared_.clear();
        QSqlQuery query(database_);
        return query.exec(u"ROLLBACK; DEALLOCATE ALL"_s) && query.nextResult();
    }

    // The connection broke while a commit was waited for. The writer of that transaction keeps its lock until
    // it has come to its end, so once the lock is had here, the log tells what became of it. The commit here
    // is behind that one, and waits for the standby in its stead, which a session that was cut off did not.
    void findOut(const StoreChange& own, const StoreError& error) {
        database_.close();
        bool isDone = false;
        try {
            start(kBeginWriting);
            pending_.add(kLock);
            isDone = run("UPDATE change SET writer = writer WHERE id = ? AND writer = ?",
                         {own.number, own.writer})
                         .changedAny();
            pending_.add(u"COMMIT"_s);
            send();
        } catch (const StoreError&) {
            throw LostCommit(error.words());
        }
        if (!isDone)
            throw StoreError(error.words());
    }

    // --- Statements ----------------------------------------------------------------------------------

    void start(const QString& beginning) {
        if (!database_.isOpen())
            connect();
        if (std::exchange(viewing_, false))
            pending_.add(u"COMMIT"_s);
        pending_.add(beginning);
    }

    PGconn* handle() const {
        return *static_cast<PGconn* const*>(database_.driver()->handle().constData());
    }

    bool sendWithoutWaiting(const Batch& batch) {
        return PQsendQuery(handle(), batch.text.toUtf8().constData()) == 1;
    }

    // Changes are carried out there while further ones are made here. (Not while the rows of a question are read.)
    void sendAhead() {
        if (!database_.isOpen() || !sendWithoutWaiting(pending_))
            return;
        pending_ = {};
        way_ = OnTheWay::Changes;
    }

    // Each answer to what is on the way.
    template<typename Use>
    void takeWhatIsOnTheWay(Use use) {
        way_ = OnTheWay::Nothing;
        using Answer = std::unique_ptr<PGresult, decltype(&PQclear)>;
        while (const Answer answer{PQgetResult(handle()), &PQclear})
            use(*answer);
    }

    void expectChangesDone() {
        QString failure;
        takeWhatIsOnTheWay([&](const PGresult& answer) {
            const ExecStatusType status = PQresultStatus(&answer);
            if (status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK)
                return;
            failure = QString::fromUtf8(PQresultErrorMessage(&answer)).section(u'\n', 0, 0);
            readOnly_ =
                readOnly_ ||
                QLatin1StringView(PQresultErrorField(&answer, PG_DIAG_SQLSTATE)) == kReadOnlyCode;
        });
        if (!failure.isEmpty())
            throw StoreError(failure);
    }

    void forgetWhatIsOnTheWay() {
        if (way_ != OnTheWay::Nothing && database_.isOpen())
            takeWhatIsOnTheWay([](const PGresult&) {});
        way_ = OnTheWay::Nothing;
    }

    // Nothing where the question has failed; asked once more it tells why.
    std::optional<QList<StoreChange>> answerToAsked() {
        std::optional<QList<StoreChange>> changes;
        bool isAnswered = true;
        takeWhatIsOnTheWay([&](const PGresult& answer) {
            const ExecStatusType status = PQresultStatus(&answer);
            if (status == PGRES_TUPLES_OK)
                changes = changesOf(answer);
            else if (status != PGRES_COMMAND_OK)
                isAnswered = false;
        });
        return isAnswered ? changes : std::nullopt;
    }

    static QList<StoreChange> changesOf(const PGresult& rows) {
        QList<StoreChange> changes;
        const auto cell = [&rows](int row, int column) {
            return QByteArray(PQgetvalue(&rows, row, column));
        };
        for (int row = 0; row < PQntuples(&rows); ++row)
            changes += StoreChange{cell(row, 0).toLongLong(), cell(row, 1).toLongLong(),
                                   Unescaped(QString::fromUtf8(cell(row, 2)))};
        return changes;
    }

    QList<StoreChange> news(qint64 known) {
        QList<StoreChange> changes;
        Rows rows = run(kNews, {known});
        while (rows.next())
            changes += StoreChange{rows.integer(0), rows.integer(1), rows.text(2)};
        return changes;
    }

    void add(const char* sql, Values values) {
        QString& name = prepared_[sql];
        if (name.isEmpty()) {
            name = u"q%1"_s.arg(prepared_.size());
            QString text = QString::fromUtf8(sql);
            for (int n = 1; text.contains(u'?'); ++n)
                text.replace(text.indexOf(u'?'), 1, u'$' + QString::number(n));
            pending_.add(u"PREPARE "_s + name + u" AS "_s + text);
        }
        QString execution = u"EXECUTE "_s + name;
        QChar mark = u'(';
        for (const QVariant& value : values) {
            execution += mark + Literal(value);
            mark = u',';
        }
        if (mark == u',')
            execution += u')';
        pending_.add(execution);
    }

    // Sends what is collected; gives the answer of the last statement.
    QSqlQuery send() {
        if (way_ == OnTheWay::Changes)
            expectChangesDone();
        forgetWhatIsOnTheWay();
        const Batch batch = std::exchange(pending_, {});
        if (!database_.isOpen())
            throw StoreError(u"the connection to PostgreSQL is broken"_s);
        QSqlQuery query(database_);
        query.setForwardOnly(true); // rows are fetched as they are read
        bool isDone = query.exec(batch.text);
        for (int n = 1; isDone && n < batch.statements; ++n)
            isDone = query.nextResult();
        if (isDone)
            return query;
        // a primary that has become a standby: another one is to be looked for
        readOnly_ = readOnly_ || query.lastError().nativeErrorCode() == kReadOnlyCode;
        throw FailureOf(query);
    }

    // Sent, and its answer is still to be taken.
    enum class OnTheWay { Nothing, Question, Changes };

    Use use_;
    ConnectionName connection_;
    QSqlDatabase database_;
    std::unordered_map<const char*, QString>
        prepared_; // names of statements by the address of their text
    Batch pending_;
    bool viewing_ = false;
    OnTheWay way_ = OnTheWay::Nothing;
    bool readOnly_ = false;
    QElapsedTimer failed_; // since the last attempt to connect, when that has failed
    QString failure_;
};

} // namespace

std::unique_ptr<StoreEngine> OpenPostgres(const QString& words, StoreEngine::Use use) {
    return std::make_unique<PostgresEngine>(words, use);
}

} // namespace hotel
