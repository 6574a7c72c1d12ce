#pragma once

// The records of the house: database files, their projects, their records, and the uploaded files.
//
//     database file (a path)  ->  project  ->  record (a name and a text)
//
// Order is insertion order throughout; changing a record keeps its place. Names are unique where
// they stand; letter case counts in them, but not in paths. A path is either a database file or an
// uploaded file.
//
// Every operation is either done, or throws and has changed nothing (server/store_failure.h). After a
// StoreError the transaction must be rolled back.
//
// Writing needs a transaction (begin ... commit), which may take any number of operations. What
// commit has come back from is on disk.
//
// Used by one thread. One program serves an embedded store at a time; others may look into it meanwhile.
// Several may serve a shared one (server/store_engine.h). Whatever one of them has acknowledged, the next
// read through any other sees:
//   - Who serves calls expectNews when requests have come in, behind the last of them: what was acknowledged
//     ahead of a request is on disk by then. Before anything is read for them, refresh reads the log of
//     changes and takes out of memory what others have changed; one view of the database answers all reads
//     up to the next expectNews, so that no answer is put together from two states.
//   - refreshMemory does with one look at the log where memory alone can answer. What can't be answered so
//     throws NotInMemory, and is asked again behind refresh.
//   - lookAhead lets memory answer while the look at the log is under way; no such answer leaves ahead of confirm.
//   - A transaction that writes has the store for itself from begin to commit, and refreshes in begin.

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <utility>

#include <QByteArray>
#include <QCache>
#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QStringView>

#include "record/literals.h"
#include "server/store_engine.h"
#include "server/store_path.h"

namespace hotel {

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
    using Use = StoreEngine::Use;

    // Opens the store at `place`, as OpenEngine does; a store that is to be served is created when it is
    // missing.
    Store(const QString& place, Use use);
    ~Store();
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    // Others may serve the store as well.
    bool isShared() const { return engine_->isShared(); }
    // What is asked from here on came in later than all that was asked before.
    void expectNews();
    // Learns what others have changed, once after each expectNews.
    void refresh();
    struct NotInMemory {};
    void refreshMemory();
    // Asks for the log behind expectNews without waiting for it: until confirm memory is assumed to have what is new.
    // confirm tells whether it had; if not, what was read while it was assumed is to be read again.
    void lookAhead();
    bool assumes() const { return sight_ == Sight::Assumed; }
    bool confirm();

    // Begins a transaction unless one is under way.
    void begin();
    // Puts the transaction's changes on disk; without one, lets go of the view that reads had. Throws
    // LostCommit when nobody can tell whether the changes are on disk.
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
    // The same as a number that counts in this program only; 0 for a file that isn't there.
    quint64 changesOf(const StorePath& path) const;

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
        qint64 version; // another one after every reading and rewriting of the project
    };
    using Projects = QHash<QString, Project>;
    struct File {
        qint64 id;
        QString name;
        Kind kind;
        quint64 changed;                  // value of changes_ at the last change
        std::optional<Projects> projects; // read when first asked for
    };

    // Runs `sql` with the values for its question marks; change does when nobody needs the answer.
    template<typename... Values>
    Rows run(const char* sql, const Values&... values) {
        if (sight_ == Sight::Memory || sight_ == Sight::Assumed)
            throw NotInMemory();
        return engine_->run(sql, {QVariant(values)...});
    }
    template<typename... Values>
    void change(const char* sql, const Values&... values) {
        engine_->change(sql, {QVariant(values)...});
    }

    void loadFiles();
    qint64 newFileId();
    qint64 newProjectId();

    bool isKnown(const StoreChange& change) const;
    void learn(const QList<StoreChange>& log);
    void learnEntry(const QString& entry);
    void reloadFile(const QString& key);
    QString told() const;
    void tell(const QString& key, const QString& project = {}, const QString& record = {});

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
    void remember(const QString& key);
    void touch(const QString& key, File& file);

    void checkFiles(QStringList& faults);
    void checkOwners(QStringList& faults);
    void checkRecords(QStringList& faults);

    Use use_;
    std::unique_ptr<StoreEngine> engine_;
    bool inTransaction_ = false;

    // The files by key. Ids of what is made next; 0: to be asked for.
    std::map<QString, File> files_;
    qint64 nextFile_ = 0;
    qint64 nextProject_ = 0;

    // Of a shared store: the last row of the log that memory knows of, and what this transaction changes.
    enum class Sight { Old, Assumed, Memory, View };
    Sight sight_ = Sight::Old;
    bool newsCame_ = false; // since the last lookAhead
    StoreChange known_;
    QSet<QString> told_;

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
