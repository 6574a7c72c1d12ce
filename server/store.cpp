#include "server/store.h"

#include <algorithm>

#include <QRandomGenerator>

#include "record/field_walk.h"
#include "record/numbers.h"
#include "server/field_text.h"

namespace hotel {

namespace {

// Characters of values that are kept in memory, and what one takes beyond its characters.
constexpr qsizetype kValueMemory = 32 * 1024 * 1024;
constexpr qsizetype kValueOverhead = 64;

// An empty text that is stored as such: the database takes a null text for a missing value.
QString Stored(const QString& text) {
    return text.isNull() ? u""_s : text;
}

} // namespace

// --- Opening -----------------------------------------------------------------------------------------

Store::Store(const QString& place, Use use)
    : use_(use), engine_(OpenEngine(place, use)), values_(kValueMemory),
      stampBase_(QRandomGenerator::system()->generate64()) {
    if (use_ == Use::Look)
        engine_->view(known_.number); // for as long as it is looked at
    if (use_ == Use::Serve && isShared()) {
        refresh();
        expectNews();
    } else {
        loadFiles();
    }
}

Store::~Store() = default;

void Store::loadFiles() {
    files_.clear();
    ++changes_;
    nextFile_ = nextProject_ = 0;
    Rows files = run("SELECT id, path, name, kind FROM file");
    while (files.next())
        files_.emplace(files.text(1), File{files.integer(0), files.text(2), Kind(files.integer(3)),
                                           changes_, std::nullopt});
}

qint64 Store::newFileId() {
    if (nextFile_ == 0) {
        Rows last = run("SELECT COALESCE(MAX(id), 0) FROM file");
        last.next();
        nextFile_ = last.integer(0) + 1;
    }
    return nextFile_++;
}

qint64 Store::newProjectId() {
    if (nextProject_ == 0) {
        Rows last = run("SELECT COALESCE(MAX(id), 0) FROM project");
        last.next();
        nextProject_ = last.integer(0) + 1;
    }
    return nextProject_++;
}

// --- Transactions ------------------------------------------------------------------------------------

void Store::begin() {
    if (inTransaction_)
        return;
    sight_ = Sight::Old;
    const QList<StoreChange> log = engine_->begin(known_.number);
    inTransaction_ = true;
    learn(log);
}

void Store::commit() {
    if (!inTransaction_) {
        expectNews();
        return;
    }
    StoreChange own;
    if (isShared())
        own = {known_.number + 1, qint64(QRandomGenerator::system()->generate64()), told()};
    engine_->commit(own);
    inTransaction_ = false;
    known_ = own;
    told_.clear();
    before_.clear();
}

void Store::rollback() {
    engine_->rollback();
    sight_ = Sight::Old;
    nextFile_ = nextProject_ = 0; // they may have been asked for behind a removal that is undone
    if (!inTransaction_)
        return;
    inTransaction_ = false;
    for (auto file = before_.cbegin(); file != before_.cend(); ++file) {
        if (*file)
            files_[file.key()] = **file;
        else
            files_.erase(file.key());
    }
    told_.clear();
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
    tell(path.key);
    const qint64 id = newFileId();
    change("INSERT INTO file (id, path, name, kind) VALUES (?, ?, ?, ?)", id, path.key, path.name,
           int(kind));
    File& file = files_[path.key] = File{id, path.name, kind, ++changes_, std::nullopt};
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
    tell(path.key);
    if (file->second.kind == Kind::Database) {
        for (const Project& project : std::as_const(projectsOf(file->second)))
            deleteProjectRows(project.id);
    } else {
        change("DELETE FROM upload WHERE file = ?", file->second.id);
    }
    change("DELETE FROM file WHERE id = ?", file->second.id);
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
    tell(from.key);
    tell(to.key);
    change("UPDATE file SET path = ?, name = ? WHERE id = ?", to.key, to.name, file->second.id);
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
        change("INSERT INTO upload (file, content) SELECT CAST(? AS BIGINT), content FROM upload "
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
    return QString::number(stampBase_ + changesOf(path), 16).rightJustified(16, u'0').toUpper();
}

quint64 Store::changesOf(const StorePath& path) const {
    const File* file = find(path);
    return file ? file->changed : 0;
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
    change("DELETE FROM upload WHERE file = ?", file.id);
    change("INSERT INTO upload (file, content) VALUES (?, ?)", file.id, stored);
    tell(path.key);
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
    tell(path.key);
    const qint64 id = newProjectId();
    change("INSERT INTO project (id, file, name) VALUES (?, ?, ?)", id, file.id, project);
    return *projects.insert(project, Project{id, ++versions_});
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
    tell(path.key);
    deleteProjectRows(found->id);
    file.projects->remove(project);
}

void Store::deleteProjectRows(qint64 project) {
    change("DELETE FROM record WHERE project = ?", project);
    change("DELETE FROM project WHERE id = ?", project);
}

void Store::copyProject(qint64 fromProject, qint64 toFile, const QString& name) {
    const qint64 id = newProjectId();
    change("INSERT INTO project (id, file, name) VALUES (?, ?, ?)", id, toFile, name);
    change("INSERT INTO record (id, project, name, number, value) "
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
    tell(path.key, project);
    change("DELETE FROM record WHERE project = ?", target.id);
    qint64 id = FirstRecordId(target.id);
    for (const NamedText& record : std::as_const(records))
        change("INSERT INTO record (id, project, name, number, value) VALUES (?, ?, ?, ?, ?)", id++,
               target.id, record.name, LeadingNumber(record.name), Stored(record.text));
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
    tell(path.key, project, record);
    const qint64 first = FirstRecordId(target.id);
    change("INSERT INTO record (id, project, name, number, value) VALUES "
           "(COALESCE((SELECT id FROM record WHERE id >= ? AND id < ? ORDER BY id DESC LIMIT 1) + "
           "1, ?), "
           "?, ?, ?, ?) ON CONFLICT (project, name) DO UPDATE SET value = excluded.value",
           first, FirstRecordId(target.id + 1), first, target.id, record, LeadingNumber(record),
           Stored(value));
}

void Store::remove(const StorePath& path, const QString& project, const QString& record) {
    const Project* found = findProject(path, project);
    if (!found)
        throw Refusal(refusal::kNoRecord);
    const Rows rows = run("DELETE FROM record WHERE project = ? AND name = ?", found->id, record);
    if (!rows.changedAny())
        throw Refusal(refusal::kNoRecord);
    values_.remove({found->version, record});
    tell(path.key, project, record);
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
