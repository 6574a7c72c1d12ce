#include "record/numbers.h"
#include "server/store.h"

namespace hotel {

QStringList Store::check() {
    QStringList faults = engine_->faults();
    checkFiles(faults);
    checkOwners(faults);
    checkRecords(faults);
    return faults;
}

void Store::checkFiles(QStringList& faults) {
    for (const auto& [key, file] : files_) {
        const std::optional<StorePath> path = ParseFilePath(file.name);
        if (!path || path->key != key)
            faults += u"file %1: its key is \"%2\""_s.arg(file.name, key);
        if (file.kind != Kind::Database && file.kind != Kind::Upload)
            faults += u"file %1: of no known kind"_s.arg(file.name);
    }
}

// Every row belongs to another: what is owned by nothing is out of everybody's reach.
void Store::checkOwners(QStringList& faults) {
    const auto list = [&](Rows rows) {
        while (rows.next())
            faults += rows.text(0);
    };
    list(run("SELECT 'project ' || project.name || ': its file is missing' FROM project "
             "LEFT JOIN file ON file.id = project.file AND file.kind = 1 WHERE file.id IS NULL"));
    list(run("SELECT 'record ' || record.name || ': its project is missing' FROM record "
             "LEFT JOIN project ON project.id = record.project WHERE project.id IS NULL"));
    list(run("SELECT 'upload ' || upload.file || ': its file is missing' FROM upload "
             "LEFT JOIN file ON file.id = upload.file AND file.kind = 2 WHERE file.id IS NULL"));
    list(run(
        "SELECT 'file ' || file.name || ': its content is missing' FROM file "
        "LEFT JOIN upload ON upload.file = file.id WHERE file.kind = 2 AND upload.file IS NULL"));
}

void Store::checkRecords(QStringList& faults) {
    Rows rows = run("SELECT id, project, name, number FROM record");
    while (rows.next()) {
        const QString name = rows.text(2);
        if (rows.integer(0) / kRecordsPerProject != rows.integer(1))
            faults += u"record %1: lies outside of its project"_s.arg(name);
        if (rows.number(3) != LeadingNumber(name))
            faults += u"record %1: its number is wrong"_s.arg(name);
        if (ParseName(name) != name)
            faults += u"record %1: a name that can't be asked for"_s.arg(name);
    }
}

} // namespace hotel
