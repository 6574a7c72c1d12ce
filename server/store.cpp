#include "server/store.h"

#include <algorithm>
#include <sys/file.h>

#include <QDir>
#include <QRandomGenerator>
#include <QSqlError>
#include <QUuid>

#include "record/field_walk.h"
#include "record/numbers.h"
#include "server/field_text.h"

namespace hotel {

// The tables. A record's id is its project's id times kRecordsPerProject plus a running number: the
// records of a project lie together in their order, and reading it whole is one sweep.
//
//     file     id, path (the key), name (as written), kind (1 database, 2 uploaded file)
//     project  id, file, name                     ids rise in insertion order
//     record   id, project, name, number, value   number: leading number of the name, for the greatest
//     upload   file, content
static const char* const kTables[] = {
    "CREATE TABLE IF NOT EXISTS file (id INTEGER PRIMARY KEY, path TEXT NOT NULL UNIQUE, "
    "name TEXT NOT NULL, kind INTEGER NOT NULL)",
    "CREATE TABLE IF NOT EXISTS project (id INTEGER PRIMARY KEY, file INTEGER NOT NULL, "
    "name TEXT NOT NULL, UNIQUE (file, name))",
    "CREATE TABLE IF NOT EXISTS record (id INTEGER PRIMARY KEY, project INTEGER NOT NULL, "
    "name TEXT NOT NULL, number DOUBLE PRECISION NOT NULL, value TEXT NOT NULL, "
    "UNIQUE (project, name))",
    "CREATE INDEX IF NOT EXISTS record_number ON record (project, number, id)",
    "CREATE TABLE IF NOT EXISTS upload (file INTEGER PRIMARY KEY, content BLOB NOT NULL)",
};

namespace {

// Characters of values that are kept in memory, and what one takes beyond its characters.
constexpr qsizetype kValueMemory = 32 * 1024 * 1024;
constexpr qsizetype kValueOverhead = 64;

StoreError Failed(const QSqlQuery& query) {
    const QSqlError error = query.lastError();
    return StoreError(error.databaseText().isEmpty() ? error.driverText() : error.databaseText());
}

// An empty text that is stored as such: the database takes a null text for a missing value.
QString Stored(const QString& text) {
    return text.isNull() ? u""_s : text;
}

} // namespace

// --- Statements --------------------------------------------------------------------------------------

Store::Rows::~Rows() {
    if (query_)
        query_->finish();
}

bool Store::Rows::next() {
    if (query_->next())
        return true;
    if (query_->lastError().isValid())
        throw Failed(*query_);
    return false;
}

QSqlQuery& Store::prepared(const char* sql) {
    const auto known = statements_.find(sql);
    if (known != statements_.end())
        return known->second;
    QSqlQuery query(database_);
    query.setForwardOnly(true);
    if (!query.prepare(QString::fromUtf8(sql)))
        throw Failed(query);
    return statements_.emplace(sql, std::move(query)).first->second;
}

Store::Rows Store::executed(QSqlQuery& query) {
    Rows rows(query);
    if (!query.exec())
        throw Failed(query);
    return rows;
}

// --- Opening -----------------------------------------------------------------------------------------

Store::Store(const QString& folder, Use use)
    : folder_(folder), use_(use), connection_{QUuid::createUuid().toString()},
      values_(kValueMemory), stampBase_(QRandomGenerator::system()->generate64()) {
    if (use_ == Use::Serve)
        takeLock();
    openDatabase();
    if (use_ == Use::Serve)
        createTables();
    else
        begin(); // one view of the store for as long as it is looked at
    loadFiles();
}

Store::~Store() = default;

void Store::takeLock() {
    if (!QDir().mkpath(folder_))
        throw StoreError(u"can't make the folder "_s + folder_);
    lock_.setFileName(QDir(folder_).filePath(u"lock"_s));
    if (!lock_.open(QIODevice::ReadWrite))
        throw StoreError(u"can't write into the folder "_s + folder_);
    if (::flock(lock_.handle(), LOCK_EX | LOCK_NB) != 0)
        throw StoreError(u"another program serves the store in "_s + folder_);
}

void Store::openDatabase() {
    database_ = QSqlDatabase::addDatabase(u"QSQLITE"_s, connection_.name);
    database_.setDatabaseName(QDir(folder_).filePath(u"store.db"_s));
    if (use_ == Use::Look)
        database_.setConnectOptions(u"QSQLITE_OPEN_READONLY"_s);
    if (!database_.open())
        throw StoreError(u"can't open the store in "_s + folder_);
    if (use_ == Use::Look)
        return;
    // A commit comes back after its flush of the write-ahead log, so that it survives a power cut.
    for (const char* pragma :
         {"PRAGMA journal_mode = WAL", "PRAGMA synchronous = FULL", "PRAGMA cache_size = -65536"}) {
        QSqlQuery query(database_);
        if (!query.exec(QString::fromUtf8(pragma)))
            throw Failed(query);
    }
}

void Store::createTables() {
    for (const char* sql : kTables) {
        QSqlQuery query(database_);
        if (!query.exec(QString::fromUtf8(sql)))
            throw Failed(query);
    }
}

void Store::loadFiles() {
    files_.clear();
    ++changes_;
    Rows files = run("SELECT id, path, name, kind FROM file");
    while (files.next())
        files_.emplace(files.text(1), File{files.integer(0), files.text(2), Kind(files.integer(3)),
                                           changes_, std::nullopt});
    Rows lastFile = run("SELECT COALESCE(MAX(id), 0) FROM file");
    lastFile.next();
    nextFile_ = lastFile.integer(0) + 1;
    Rows lastProject = run("SELECT COALESCE(MAX(id), 0) FROM project");
    lastProject.next();
    nextProject_ = lastProject.integer(0) + 1;
}

// --- Transactions ------------------------------------------------------------------------------------

void Store::begin() {
    if (inTransaction_)
        return;
    run("BEGIN");
    inTransaction_ = true;
}

void Store::commit() {
    if (!inTransaction_)
        return;
    run("COMMIT");
    inTransaction_ = false;
    before_.clear();
}

void Store::rollback() {
    if (!inTransaction_)
        return;
    inTransaction_ = false;
    database_.rollback(); // fails when the database has rolled back by itself; then all is done
    for (auto file = before_.cbegin(); file != before_.cend(); ++file) {
        if (*file)
            files_[file.key()] = **file;
        else
            files_.erase(file.key());
    }
    before_.clear();
}

// Keeps a file as it stands, ahead of its first change in the transaction. Its projects are not
// kept: they are read again when they are asked for.
void Store::remember(const QString& key) {
    if (before_.contains(key))
        return;
    const auto file = files_.find(key);
    std::optional<File>& kept = before_[key];
    if (file != files_.end())
        kept = File{file->second.id, file->second.name, file->second.kind, file->second.changed,
                    std::nullopt};
}

void Store::touch(const QString& key, File& file) {
    remember(key);
    file.changed = ++changes_;
}

// --- Files -------------------------------------------------------------------------------------------

const Store::File* Store::find(const StorePath& path) const {
    const auto file = files_.find(path.key);
    return file == files_.end() ? nullptr : &file->second;
}

Store::Kind Store::kind(const StorePath& path) const {
    const File* file = find(path);
    return file ? file->kind : Kind::Missing;
}

Store::File* Store::findDatabase(const StorePath& path) {
    const auto file = files_.find(path.key);
    return file != files_.end() && file->second.kind == Kind::Database ? &file->second : nullptr;
}

Store::File& Store::addFile(const StorePath& path, Kind kind) {
    remember(path.key);
    run("INSERT INTO file (id, path, name, kind) VALUES (?, ?, ?, ?)", nextFile_, path.key,
        path.name, int(kind));
    File& file = files_[path.key] = File{nextFile_++, path.name, kind, ++changes_, std::nullopt};
    if (kind == Kind::Database)
        file.projects.emplace();
    return file;
}

Store::File& Store::madeDatabase(const StorePath& path) {
    const auto file = files_.find(path.key);
    if (file == files_.end())
        return addFile(path, Kind::Database);
    if (file->second.kind != Kind::Database)
        throw Refusal(refusal::kNotDatabase);
    return file->second;
}

void Store::createDatabase(const StorePath& path) {
    madeDatabase(path);
}

void Store::removeFile(const StorePath& path) {
    const auto file = files_.find(path.key);
    if (file == files_.end())
        throw Refusal(refusal::kNoFile);
    remember(path.key);
    if (file->second.kind == Kind::Database) {
        for (const Project& project : std::as_const(projectsOf(file->second)))
            deleteProjectRows(project.id);
    } else {
        run("DELETE FROM upload WHERE file = ?", file->second.id);
    }
    run("DELETE FROM file WHERE id = ?", file->second.id);
    files_.erase(file);
}

void Store::renameFile(const StorePath& from, const StorePath& to) {
    const auto file = files_.find(from.key);
    if (file == files_.end())
        throw Refusal(refusal::kNoFile);
    if (from.key != to.key && find(to))
        throw Refusal(refusal::kFileExists);
    remember(from.key);
    remember(to.key);
    run("UPDATE file SET path = ?, name = ? WHERE id = ?", to.key, to.name, file->second.id);
    File renamed = std::move(file->second);
    files_.erase(file);
    renamed.name = to.name;
    renamed.changed = ++changes_;
    files_[to.key] = std::move(renamed);
}

void Store::copyFile(const StorePath& from, const StorePath& to) {
    const auto file = files_.find(from.key);
    if (file == files_.end())
        throw Refusal(refusal::kNoFile);
    if (find(to))
        throw Refusal(refusal::kFileExists);
    File& copy = addFile(to, file->second.kind);
    if (copy.kind == Kind::Upload) {
        run("INSERT INTO upload (file, content) SELECT CAST(? AS INTEGER), content FROM upload "
            "WHERE file = ?",
            copy.id, file->second.id);
        return;
    }
    for (const auto& [id, name] : projectsInOrder(file->second))
        copyProject(id, copy.id, name);
    copy.projects.reset();
}

Store::Listing Store::list(const StorePath& folder) const {
    Listing listing;
    const QString prefix = folder.key.isEmpty() ? QString() : folder.key + kPathSeparator;
    auto file = files_.lower_bound(prefix);
    while (file != files_.end() && file->first.startsWith(prefix)) {
        const QString& name = file->second.name;
        const qsizetype end = file->first.indexOf(kPathSeparator, prefix.size());
        if (end < 0) {
            listing.files += name.sliced(name.lastIndexOf(kPathSeparator) + 1);
            ++file;
        } else {
            const qsizetype depth = prefix.count(kPathSeparator);
            listing.folders += name.section(kPathSeparator, depth, depth);
            file = files_.lower_bound(file->first.first(end) + QChar(kPathSeparator.unicode() + 1));
        }
    }
    listing.folders.sort(Qt::CaseInsensitive);
    return listing;
}

QList<StorePath> Store::paths(Kind kind) const {
    QList<StorePath> paths;
    for (const auto& [key, file] : files_)
        if (file.kind == kind)
            paths += StorePath{key, file.name};
    return paths;
}

QString Store::stamp(const StorePath& path) const {
    const File* file = find(path);
    const quint64 stamp = stampBase_ + (file ? file->changed : 0);
    return QString::number(stamp, 16).rightJustified(16, u'0').toUpper();
}

std::optional<QByteArray> Store::upload(const StorePath& path) {
    const File* file = find(path);
    if (!file || file->kind != Kind::Upload)
        return std::nullopt;
    Rows rows = run("SELECT content FROM upload WHERE file = ?", file->id);
    return rows.next() ? std::optional(rows.bytes(0)) : std::nullopt;
}

void Store::writeUpload(const StorePath& path, const QByteArray& content) {
    if (kind(path) == Kind::Database)
        throw Refusal(refusal::kFileExists);
    const auto known = files_.find(path.key);
    File& file = known == files_.end() ? addFile(path, Kind::Upload) : known->second;
    const QByteArray stored = content.isNull() ? QByteArray("") : content;
    run("DELETE FROM upload WHERE file = ?", file.id);
    run("INSERT INTO upload (file, content) VALUES (?, ?)", file.id, stored);
    touch(path.key, file);
}

// --- Projects ----------------------------------------------------------------------------------------

Store::Projects& Store::projectsOf(File& file) {
    if (!file.projects) {
        Projects projects;
        Rows rows = run("SELECT id, name FROM project WHERE file = ?", file.id);
        while (rows.next())
            projects.insert(rows.text(1), Project{rows.integer(0), ++versions_});
        file.projects = std::move(projects);
    }
    return *file.projects;
}

QList<QPair<qint64, QString>> Store::projectsInOrder(File& file) {
    QList<QPair<qint64, QString>> ordered;
    const Projects& projects = projectsOf(file);
    for (auto project = projects.begin(); project != projects.end(); ++project)
        ordered.append({project->id, project.key()});
    std::sort(ordered.begin(), ordered.end());
    return ordered;
}

Store::Project* Store::findProject(const StorePath& path, const QString& project) {
    File* file = findDatabase(path);
    if (!file)
        return nullptr;
    Projects& projects = projectsOf(*file);
    const auto found = projects.find(project);
    return found == projects.end() ? nullptr : &*found;
}

Store::Project& Store::madeProject(const StorePath& path, const QString& project) {
    File& file = madeDatabase(path);
    Projects& projects = projectsOf(file);
    touch(path.key, file);
    const auto found = projects.find(project);
    if (found != projects.end())
        return *found;
    run("INSERT INTO project (id, file, name) VALUES (?, ?, ?)", nextProject_, file.id, project);
    const qint64 id = nextProject_++;
    return *projects.insert(project, Project{id, ++versions_, FirstRecordId(id)});
}

QStringList Store::projects(const StorePath& path) {
    QStringList names;
    if (File* file = findDatabase(path))
        for (const auto& [id, name] : projectsInOrder(*file))
            names += name;
    return names;
}

bool Store::hasProject(const StorePath& path, const QString& project) {
    return findProject(path, project) != nullptr;
}

void Store::removeProject(const StorePath& path, const QString& project) {
    const Project* found = findProject(path, project);
    if (!found)
        throw Refusal(refusal::kNoProject);
    File& file = *findDatabase(path);
    touch(path.key, file);
    deleteProjectRows(found->id);
    file.projects->remove(project);
}

void Store::deleteProjectRows(qint64 project) {
    run("DELETE FROM record WHERE project = ?", project);
    run("DELETE FROM project WHERE id = ?", project);
}

void Store::copyProject(qint64 fromProject, qint64 toFile, const QString& name) {
    const qint64 id = nextProject_++;
    run("INSERT INTO project (id, file, name) VALUES (?, ?, ?)", id, toFile, name);
    run("INSERT INTO record (id, project, name, number, value) "
        "SELECT id + ?, project + ?, name, number, value FROM record WHERE project = ?",
        FirstRecordId(id - fromProject), id - fromProject, fromProject);
}

std::optional<QString> Store::readProject(const StorePath& path, const QString& project) {
    if (!hasProject(path, project))
        return std::nullopt;
    QString text = u""_s;
    walk(path, project, true, [&](const QString& name, const QString& value) {
        if (!text.isEmpty())
            text += kCrLf;
        text += FieldText(name, value);
    });
    return text;
}

void Store::writeProject(const StorePath& path, const QString& project, QStringView text) {
    QList<NamedText> records;
    QHash<QString, qsizetype> places;
    for (FieldWalk field(text); field.next();) {
        if (!field.closed())
            continue;
        const std::optional<QString> name = ParseName(field.name());
        if (!name)
            throw Refusal(refusal::kBadName);
        const auto place = places.constFind(*name);
        if (place != places.cend()) {
            records[*place].text = field.value().toString();
            continue;
        }
        places.insert(*name, records.size());
        records += NamedText{*name, field.value().toString()};
    }

    Project& target = madeProject(path, project);
    target.version = ++versions_;
    run("DELETE FROM record WHERE project = ?", target.id);
    target.nextRecord = FirstRecordId(target.id);
    for (const NamedText& record : std::as_const(records))
        insertRecord(target, record.name, record.text);
}

// --- Records -----------------------------------------------------------------------------------------

std::optional<QString> Store::read(const StorePath& path, const QString& project,
                                   const QString& record) {
    const Project* found = findProject(path, project);
    if (!found)
        return std::nullopt;
    const ValueKey key(found->version, record);
    if (const QString* value = values_.object(key))
        return *value;
    Rows rows = run("SELECT value FROM record WHERE project = ? AND name = ?", found->id, record);
    if (!rows.next())
        return std::nullopt;
    const QString value = rows.text(0);
    values_.insert(key, new QString(value), value.size() + record.size() + kValueOverhead);
    return value;
}

std::optional<QString> Store::readAnywhere(const StorePath& path, const QString& record) {
    for (const QString& project : projects(path))
        if (std::optional<QString> value = read(path, project, record))
            return value;
    return std::nullopt;
}

void Store::write(const StorePath& path, const QString& project, const QString& record,
                  const QString& value) {
    Project& target = madeProject(path, project);
    values_.remove({target.version, record});
    const Rows update = run("UPDATE record SET value = ? WHERE project = ? AND name = ?",
                            Stored(value), target.id, record);
    if (!update.changedAny())
        insertRecord(target, record, value);
}

void Store::insertRecord(Project& project, const QString& name, const QString& value) {
    if (project.nextRecord == 0) {
        Rows last = run("SELECT COALESCE(MAX(id), ?) FROM record WHERE id >= ? AND id < ?",
                        FirstRecordId(project.id) - 1, FirstRecordId(project.id),
                        FirstRecordId(project.id + 1));
        last.next();
        project.nextRecord = last.integer(0) + 1;
    }
    run("INSERT INTO record (id, project, name, number, value) VALUES (?, ?, ?, ?, ?)",
        project.nextRecord, project.id, name, LeadingNumber(name), Stored(value));
    ++project.nextRecord;
}

void Store::remove(const StorePath& path, const QString& project, const QString& record) {
    const Project* found = findProject(path, project);
    if (!found)
        throw Refusal(refusal::kNoRecord);
    const Rows rows = run("DELETE FROM record WHERE project = ? AND name = ?", found->id, record);
    if (!rows.changedAny())
        throw Refusal(refusal::kNoRecord);
    values_.remove({found->version, record});
    touch(path.key, *findDatabase(path));
}

void Store::walk(const StorePath& path, const QString& project, bool values, const Visitor& visit) {
    if (project.isEmpty()) {
        for (const QString& each : projects(path))
            walk(path, each, values, visit);
        return;
    }
    const Project* found = findProject(path, project);
    if (!found)
        return;
    Rows rows = run(values ? "SELECT name, value FROM record WHERE id >= ? AND id < ? ORDER BY id"
                           : "SELECT name, '' FROM record WHERE id >= ? AND id < ? ORDER BY id",
                    FirstRecordId(found->id), FirstRecordId(found->id + 1));
    while (rows.next())
        visit(rows.text(0), rows.text(1));
}

QList<NamedText> Store::readBlock(const StorePath& path, const QString& project,
                                  const QString& record, int count) {
    QList<NamedText> block;
    const Project* found = findProject(path, project);
    if (!found)
        return block;
    Rows rows = run("SELECT name, value FROM record WHERE id >= "
                    "(SELECT id FROM record WHERE project = ? AND name = ?) AND id < ? "
                    "ORDER BY id LIMIT ?",
                    found->id, record, FirstRecordId(found->id + 1), count);
    while (rows.next())
        block += NamedText{rows.text(0), rows.text(1)};
    return block;
}

std::optional<QString> Store::extremeName(const StorePath& path, const QString& project,
                                          Extreme extreme) {
    const Project* found = findProject(path, project);
    if (!found)
        return std::nullopt;
    const auto answer = [](Rows rows) {
        return rows.next() ? std::optional(rows.text(0)) : std::nullopt;
    };
    switch (extreme) {
    case Extreme::LastText:
        return answer(
            run("SELECT name FROM record WHERE project = ? ORDER BY name DESC LIMIT 1", found->id));
    case Extreme::FirstText:
        return answer(
            run("SELECT name FROM record WHERE project = ? ORDER BY name LIMIT 1", found->id));
    case Extreme::GreatestNumber:
        return answer(run("SELECT name FROM record WHERE project = ? AND number = "
                          "(SELECT MAX(number) FROM record WHERE project = ?) ORDER BY id LIMIT 1",
                          found->id, found->id));
    case Extreme::LeastNumber:
        return answer(run("SELECT name FROM record WHERE project = ? AND number = "
                          "(SELECT MIN(number) FROM record WHERE project = ?) ORDER BY id LIMIT 1",
                          found->id, found->id));
    }
    return std::nullopt;
}

} // namespace hotel
