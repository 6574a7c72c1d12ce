// What servers of one store tell each other. A transaction is described by its entries, one a line:
//
//     path                     the file was made, removed, renamed, or a project of it made or removed
//     path TAB project         the project was rewritten
//     path TAB project TAB record
//
// or, when there are very many of them, by one that says so.

#include "server/store.h"

namespace hotel {

namespace {

constexpr QChar kNextEntry = u'\n';
constexpr QChar kNextPart = u'\t';
const QString kEverything = u"*"_s;
constexpr qsizetype kToldAtMost = 200;

bool CanStandInEntry(const QString& name) {
    return !name.contains(kNextEntry) && !name.contains(kNextPart);
}

} // namespace

void Store::tell(const QString& key, const QString& project, const QString& record) {
    if (!isShared() || told_.size() > kToldAtMost)
        return;
    QString entry = key;
    if (!project.isEmpty() && CanStandInEntry(project) && CanStandInEntry(record)) {
        entry += kNextPart + project;
        if (!record.isEmpty())
            entry += kNextPart + record;
    }
    told_.insert(entry);
}

QString Store::told() const {
    return told_.size() > kToldAtMost ? kEverything : QStringList(told_.values()).join(kNextEntry);
}

void Store::expectNews() {
    if (!isShared() || inTransaction_ || use_ == Use::Look)
        return;
    if (std::exchange(sight_, Sight::Old) == Sight::View)
        engine_->endView();
}

void Store::lookAhead() {
    newsCame_ = false;
    if (!isShared() || inTransaction_ || sight_ != Sight::Old || use_ == Use::Look)
        return;
    engine_->ask(known_.number);
    sight_ = Sight::Assumed;
}

bool Store::confirm() {
    if (sight_ == Sight::Assumed)
        refreshMemory();
    return !std::exchange(newsCame_, false);
}

void Store::refresh() {
    if (!isShared() || inTransaction_ || sight_ == Sight::View || use_ == Use::Look)
        return;
    sight_ = Sight::View;
    learn(engine_->view(known_.number));
}

void Store::refreshMemory() {
    if (!isShared() || inTransaction_ || sight_ == Sight::Memory || sight_ == Sight::View ||
        use_ == Use::Look)
        return;
    const QList<StoreChange> log = engine_->glance(known_.number);
    if (log.size() == 1 && isKnown(log.first()))
        sight_ = Sight::Memory;
    else
        refresh();
}

bool Store::isKnown(const StoreChange& change) const {
    return change.number == known_.number && change.writer == known_.writer;
}

// `log` begins with the row that is known already. When it does not, the log was cut meanwhile, or another
// database has taken over that had not heard of all: nothing in memory counts any more.
void Store::learn(const QList<StoreChange>& log) {
    if (!isShared())
        return;
    newsCame_ = newsCame_ || log.size() != 1 || !isKnown(log.first());
    if (log.isEmpty() || !isKnown(log.first())) {
        loadFiles();
        Rows last = run("SELECT id, writer FROM change ORDER BY id DESC LIMIT 1");
        if (!last.next())
            throw StoreError(u"the log of changes is empty"_s);
        known_ = {last.integer(0), last.integer(1), {}};
        return;
    }
    for (const StoreChange& change : log.sliced(1)) {
        if (change.what == kEverything)
            loadFiles();
        else
            for (const QString& entry : change.what.split(kNextEntry, Qt::SkipEmptyParts))
                learnEntry(entry);
    }
    known_ = log.last();
}

void Store::learnEntry(const QString& entry) {
    const QStringList parts = entry.split(kNextPart);
    const auto file = files_.find(parts[0]);
    if (parts.size() == 1 || file == files_.end())
        return reloadFile(parts[0]);
    file->second.changed = ++changes_;
    if (!file->second.projects)
        return;
    const auto project = file->second.projects->find(parts[1]);
    if (project == file->second.projects->end())
        file->second.projects.reset();
    else if (parts.size() == 2)
        project->version = ++versions_;
    else
        values_.remove({project->version, parts[2]});
}

void Store::reloadFile(const QString& key) {
    nextFile_ = nextProject_ = 0;
    files_.erase(key);
    Rows rows = run("SELECT id, name, kind FROM file WHERE path = ?", key);
    if (rows.next())
        files_[key] =
            File{rows.integer(0), rows.text(1), Kind(rows.integer(2)), ++changes_, std::nullopt};
}

} // namespace hotel
