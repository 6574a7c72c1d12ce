#pragma once

// The records of the house: database files, their projects, their records, and the uploaded files.
//
//     database file (a path)  ->  project  ->  record (a name and a text)
//
// Order is insertion order throughout; changing a record keeps its place. Names are unique where
// they stand; letter case counts in them, but not in paths. A path is either a database file or an
// uploaded file.
//
// Every operation is either done, or throws and has changed nothing:
//   Refusal     what was asked for can't be done here (no such record, ...); the store is fine.
//   StoreError  the store itself fails (disk full, read-only, damaged). The transaction must be rolled
//               back.
//
// Writing needs a transaction (begin ... commit), which may take any number of operations. What
// commit has come back from is on disk.
//
// Used by one thread. One program serves a store at a time; others may look into it meanwhile.

#include <functional>
#include <map>
#include <optional>
#include <stdexcept>
#include <unordered_map>
#include <utility>

#include <QByteArray>
#include <QCache>
#include <QFile>
#include <QHash>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QStringList>
#include <QStringView>

#include "record/literals.h"
#include "server/store_path.h"

namespace hotel {

class Failure : public std::runtime_error {
public:
    explicit Failure(const QString& words) : runtime_error(words.toStdString()), words_(words) {}
    const QString& words() const { return words_; } // for people

private:
    QString words_;
};

class Refusal : public Failure {
public:
    using Failure::Failure;
};

class StoreError : public Failure {
public:
    using Failure::Failure;
};

namespace refusal {
inline const QString kNoFile = u"没有该文件"_s;
inline const QString kNoProject = u"没有该项目"_s;
inline const QString kNoRecord = u"没有该记录"_s;
inline const QString kFileExists = u"文件已经存在"_s;
inline const QString kRecordExists = u"记录已经存在"_s;
inline const QString kNotDatabase = u"该文件不是数据库"_s;
inline const QString kBadName = u"名称无效"_s;
} // namespace refusal

struct NamedText {
    QString name;
    QString text;
};

class Store {
public:
    enum class Use {
        Serve, // read and write; creates a store that is missing, keeps other programs from serving it
        Look, // read only, the store as it stood at the moment of opening
    };

    // Opens the store in `folder`. Throws StoreError when it can't be opened, or when another
    // program serves it already.
    Store(const QString& folder, Use use);
    ~Store();
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    // Begins a transaction unless one is under way.
    void begin();
    // Puts the transaction's changes on disk; nothing to do when none is under way.
    void commit();
    // Undoes the transaction. Never fails.
    void rollback();
    bool inTransaction() const { return inTransaction_; }

    // --- Files ---------------------------------------------------------------------------------------

    enum class Kind { Missing, Database, Upload };
    Kind kind(const StorePath& path) const;

    // Makes a database file that is missing.
    void createDatabase(const StorePath& path);

    // Database files and uploaded files alike. Renaming and copying need a target that doesn't
    // exist.
    void removeFile(const StorePath& path);
    void renameFile(const StorePath& from, const StorePath& to);
    void copyFile(const StorePath& from, const StorePath& to);

    // What lies directly in a folder, by name in the order of characters, letter case ignored.
    struct Listing {
        QStringList files;
        QStringList folders;
    };
    Listing list(const StorePath& folder) const;

    // All paths of a kind, in order.
    QList<StorePath> paths(Kind kind) const;

    // Sixteen hexadecimal digits that are others after every change of the file, and after a
    // restart.
    QString stamp(const StorePath& path) const;

    // An uploaded file's bytes; nothing when there is none of that path. Uploading replaces.
    std::optional<QByteArray> upload(const StorePath& path);
    void writeUpload(const StorePath& path, const QByteArray& content);

    // --- Projects ------------------------------------------------------------------------------------

    QStringList projects(const StorePath& path); // empty when there is no such database file
    bool hasProject(const StorePath& path, const QString& project);

    void removeProject(const StorePath& path, const QString& project);

    // The whole project: one field per record, one a line, in order.
    std::optional<QString> readProject(const StorePath& path, const QString& project);

    // Makes the project's content exactly the fields of `text`, in their order; file and project
    // are made when they are missing. Of two fields of one name the first gives the place, the last
    // the value.
    void writeProject(const StorePath& path, const QString& project, QStringView text);

    // --- Records -------------------------------------------------------------------------------------

    std::optional<QString> read(const StorePath& path, const QString& project,
                                const QString& record);

    // The first record of that name in any project of the file.
    std::optional<QString> readAnywhere(const StorePath& path, const QString& record);

    // Writes a record; record, project and file are made when they are missing.
    void write(const StorePath& path, const QString& project, const QString& record,
               const QString& value);
    void remove(const StorePath& path, const QString& project, const QString& record);

    // Shows the records of a project in their order; with an empty project name those of all
    // projects. Without `values` the values are shown as empty texts, which is cheaper.
    using Visitor = std::function<void(const QString& name, const QString& value)>;
    void walk(const StorePath& path, const QString& project, bool values, const Visitor& visit);

    // The record and those that follow it in its project, `count` at most; empty when there is no
    // such record.
    QList<NamedText> readBlock(const StorePath& path, const QString& project, const QString& record,
                               int count);

    // Name of the record that holds an extreme among the names of a project, at a cost that does
    // not grow with the project; of equal ones the first. Nothing when the project has no record.
    enum class Extreme { LastText, FirstText, GreatestNumber, LeastNumber };
    std::optional<QString> extremeName(const StorePath& path, const QString& project,
                                       Extreme extreme);

    // --- Upkeep --------------------------------------------------------------------------------------

    // What is wrong with the store, a line each; empty when all is well.
    QStringList check();

private:
    static constexpr qint64 kRecordsPerProject = qint64(1) << 32;
    static qint64 FirstRecordId(qint64 project) { return project * kRecordsPerProject; }

    struct Project {
        qint64 id;
        qint64 version;        // another one after every reading and rewriting of the project
        qint64 nextRecord = 0; // id of the next new record; 0 when not known yet
    };
    using Projects = QHash<QString, Project>;
    struct File {
        qint64 id;
        QString name;
        Kind kind;
        quint64 changed;                  // value of changes_ at the last change
        std::optional<Projects> projects; // read when first asked for
    };

    // A name among Qt's connections, given back last.
    struct Connection {
        QString name;
        ~Connection() { QSqlDatabase::removeDatabase(name); }
    };

    // The answer of one statement. Its cursor is closed with it, so that no read holds up a commit.
    class Rows {
    public:
        explicit Rows(QSqlQuery& query) : query_(&query) {}
        Rows(Rows&& other) noexcept : query_(std::exchange(other.query_, nullptr)) {}
        ~Rows();
        bool next();
        QString text(int column) const { return query_->value(column).toString(); }
        qint64 integer(int column) const { return query_->value(column).toLongLong(); }
        QByteArray bytes(int column) const { return query_->value(column).toByteArray(); }
        double number(int column) const { return query_->value(column).toDouble(); }
        bool changedAny() const { return query_->numRowsAffected() > 0; }

    private:
        QSqlQuery* query_;
    };

    // Runs `sql` with the values for its question marks. A statement is known by the address of its
    // text.
    template<typename... Values>
    Rows run(const char* sql, const Values&... values) {
        QSqlQuery& query = prepared(sql);
        int position = 0;
        (query.bindValue(position++, values), ...);
        return executed(query);
    }
    QSqlQuery& prepared(const char* sql);
    Rows executed(QSqlQuery& query);

    void takeLock();
    void openDatabase();
    void createTables();
    void loadFiles();

    const File* find(const StorePath& path) const;
    File* findDatabase(const StorePath& path);
    Projects& projectsOf(File& file);
    QList<QPair<qint64, QString>> projectsInOrder(File& file);
    Project* findProject(const StorePath& path, const QString& project);
    File& madeDatabase(const StorePath& path);
    Project& madeProject(const StorePath& path, const QString& project);
    File& addFile(const StorePath& path, Kind kind);
    void copyProject(qint64 fromProject, qint64 toFile, const QString& name);
    void deleteProjectRows(qint64 project);
    void insertRecord(Project& project, const QString& name, const QString& value);
    void remember(const QString& key);
    void touch(const QString& key, File& file);

    void checkFiles(QStringList& faults);
    void checkOwners(QStringList& faults);
    void checkRecords(QStringList& faults);

    QString folder_;
    Use use_;
    QFile lock_;
    Connection connection_;
    QSqlDatabase database_;
    std::unordered_map<const char*, QSqlQuery> statements_;
    bool inTransaction_ = false;

    // The files by key. The store is this program's own, so its directory is kept in memory.
    std::map<QString, File> files_;
    qint64 nextFile_ = 1;
    qint64 nextProject_ = 1;

    // Values read lately, by their project's version and their record's name.
    using ValueKey = std::pair<qint64, QString>;
    QCache<ValueKey, QString> values_;
    qint64 versions_ = 0;

    quint64 stampBase_;
    quint64 changes_ = 0;

    // The files changed in this transaction, as they stood before it; nothing: not there.
    QHash<QString, std::optional<File>> before_;
};

} // namespace hotel
