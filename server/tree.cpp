#include "server/tree.h"

#include <algorithm>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

#include "record/field_walk.h"
#include "server/field_text.h"
#include "server/tree_names.h"

namespace hotel {

namespace {

constexpr QStringView kDatabaseSuffix = u".qvr";
constexpr QStringView kProjectSuffix = u".txt";
const QString kOrderFile = u".order"_s;

bool IsDatabaseName(QStringView name) {
    return name.endsWith(kDatabaseSuffix, Qt::CaseInsensitive);
}

QString ToTreeLines(QString text) {
    return text.replace(kCrLf, u"\n"_s);
}

QString ToStoreLines(QString text) {
    return text.replace(kCrLf, u"\n"_s).replace(u"\n"_s, kCrLf);
}

// --- Import ------------------------------------------------------------------------------------------

class Importer {
public:
    explicit Importer(Store& store) : store_(store) {}

    TreeReport report;

    void importFolder(const QDir& folder, const QString& prefix) {
        for (const QFileInfo& entry :
             folder.entryInfoList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
            const QString name = prefix + FromFileName(entry.fileName());
            const std::optional<StorePath> path = ParseFilePath(name);
            if (!path)
                fault(entry, u"no name for the store"_s);
            else if (!entry.isDir())
                importUpload(entry, *path);
            else if (IsDatabaseName(name))
                importDatabase(QDir(entry.filePath()), *path);
            else
                importFolder(QDir(entry.filePath()), name + kPathSeparator);
        }
    }

private:
    void fault(const QFileInfo& file, const QString& words) {
        report.faults += file.filePath() + u": " + words;
    }

    std::optional<QByteArray> contentOf(const QFileInfo& entry) {
        QFile file(entry.filePath());
        if (file.open(QIODevice::ReadOnly))
            return file.readAll();
        fault(entry, file.errorString());
        return std::nullopt;
    }

    std::optional<QString> textOf(const QFileInfo& entry) {
        const std::optional<QByteArray> content = contentOf(entry);
        if (!content)
            return std::nullopt;
        QStringDecoder decoder(QStringDecoder::Utf8);
        const QString text = decoder.decode(*content);
        if (!decoder.hasError())
            return ToStoreLines(text);
        fault(entry, u"not in UTF-8"_s);
        return std::nullopt;
    }

    void importUpload(const QFileInfo& entry, const StorePath& path) {
        const std::optional<QByteArray> content = contentOf(entry);
        if (!content)
            return;
        try {
            store_.writeUpload(path, *content);
            report.done += path.name + u": uploaded file"_s;
        } catch (const Refusal& refusal) {
            fault(entry, refusal.words());
        }
    }

    void importDatabase(const QDir& folder, const StorePath& path) {
        try {
            store_.createDatabase(path);
        } catch (const Refusal& refusal) {
            fault(QFileInfo(folder.path()), refusal.words());
            return;
        }
        int records = 0;
        const QMap<QString, QFileInfo> files = projectsOf(folder);
        for (const QString& project : inOrder(folder, files.keys()))
            records += importProject(files[project], path, project);
        report.done += path.name + u": %1 projects, %2 records"_s.arg(files.size()).arg(records);
    }

    QMap<QString, QFileInfo> projectsOf(const QDir& folder) {
        QMap<QString, QFileInfo> projects;
        for (const QFileInfo& entry :
             folder.entryInfoList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot)) {
            QString name = entry.fileName();
            const bool isProject = !entry.isDir() && name.endsWith(kProjectSuffix);
            if (isProject)
                name = FromFileName(name.chopped(kProjectSuffix.size()));
            if (isProject && ParseName(name) == name)
                projects.insert(name, entry);
            else
                fault(entry, u"no project of a database file"_s);
        }
        return projects;
    }

    QStringList inOrder(const QDir& folder, QStringList projects) {
        const QFileInfo orderFile(folder.filePath(kOrderFile));
        if (!orderFile.exists())
            return projects;
        QStringList ordered = textOf(orderFile).value_or(QString()).split(kCrLf);
        ordered.removeIf([&](const QString& name) { return !projects.contains(name); });
        projects.removeIf([&](const QString& name) { return ordered.contains(name); });
        return ordered + projects;
    }

    int importProject(const QFileInfo& entry, const StorePath& path, const QString& project) {
        const std::optional<QString> text = textOf(entry);
        if (!text)
            return 0;
        int records = 0;
        try {
            if (!store_.hasProject(path, project))
                store_.writeProject(path, project, u"");
            for (FieldWalk field(*text); field.next(); ++records) {
                const std::optional<QString> name = ParseName(field.name());
                if (name && field.closed())
                    store_.write(path, project, *name, field.value().toString());
                else
                    fault(entry, u"no field: <%1>"_s.arg(field.name()));
            }
        } catch (const Refusal& refusal) {
            fault(entry, refusal.words());
        }
        if (records == 0 && !text->trimmed().isEmpty())
            fault(entry, u"text without fields"_s);
        return records;
    }

    Store& store_;
};

// --- Export ------------------------------------------------------------------------------------------

class Exporter {
public:
    Exporter(Store& store, const QString& tree) : store_(store), tree_(tree) {}

    TreeReport report;

    void exportAll() {
        for (const StorePath& path : store_.paths(Store::Kind::Database))
            exportDatabase(path);
        for (const StorePath& path : store_.paths(Store::Kind::Upload))
            exportUpload(path);
    }

private:
    void fault(const StorePath& path, const QString& words) {
        report.faults += path.name + u": " + words;
    }

    // Folders that two files spell differently are one, as the first one spells them.
    QString treePath(const StorePath& path) {
        const QStringList steps = path.name.split(kPathSeparator);
        QString key;
        QString place = tree_;
        for (const QString& step : steps) {
            key += step.toCaseFolded() + kPathSeparator;
            QString& spelled = spelled_[key];
            if (spelled.isEmpty())
                spelled = place + u'/' + ToFileName(step);
            place = spelled;
        }
        return place;
    }

    bool write(const StorePath& path, const QString& fileName, const QByteArray& content) {
        QDir().mkpath(QFileInfo(fileName).path());
        QFile file(fileName);
        if (file.open(QIODevice::WriteOnly) && file.write(content) == content.size() &&
            file.flush())
            return true;
        fault(path, fileName + u": " + file.errorString());
        return false;
    }

    static bool liesInDatabase(const StorePath& path) {
        const QStringList steps = path.name.split(kPathSeparator);
        return std::any_of(steps.begin(), steps.end() - 1, IsDatabaseName);
    }

    void exportDatabase(const StorePath& path) {
        if (!IsDatabaseName(path.name) || liesInDatabase(path)) {
            fault(path, u"its place in the tree would not be known as a database file"_s);
            return;
        }
        const QString folder = treePath(path);
        QDir().mkpath(folder);
        QStringList projects = store_.projects(path);
        int records = 0;
        for (const QString& project : std::as_const(projects))
            records += exportProject(path, project, folder);
        report.done += path.name + u": %1 projects, %2 records"_s.arg(projects.size()).arg(records);
        if (!std::is_sorted(projects.begin(), projects.end()))
            write(path, folder + u'/' + kOrderFile, (projects.join(u'\n') + u'\n').toUtf8());
    }

    int exportProject(const StorePath& path, const QString& project, const QString& folder) {
        QList<NamedText> records;
        QString text;
        store_.walk(path, project, true, [&](const QString& name, const QString& value) {
            records += NamedText{name, value};
            text += ToTreeLines(FieldText(name, value)) + u'\n';
        });
        if (write(path, folder + u'/' + ToFileName(project) + kProjectSuffix, text.toUtf8()))
            compare(path, project, records, ToStoreLines(text));
        return int(records.size());
    }

    // What an import would make of `text` must be the records again.
    void compare(const StorePath& path, const QString& project, const QList<NamedText>& records,
                 const QString& text) {
        FieldWalk field(text);
        for (const NamedText& record : records) {
            const bool same = field.next() && field.closed() && field.name() == record.name &&
                              field.value() == record.text;
            if (!same) {
                fault(path, u"project %1: record %2 would not come back the same"_s.arg(
                                project, record.name));
                return;
            }
        }
    }

    void exportUpload(const StorePath& path) {
        if (IsDatabaseName(path.name) || liesInDatabase(path)) {
            fault(path, u"its place in the tree would not be known as an uploaded file"_s);
            return;
        }
        if (write(path, treePath(path), store_.upload(path).value_or(QByteArray())))
            report.done += path.name + u": uploaded file"_s;
    }

    Store& store_;
    QString tree_;
    QHash<QString, QString> spelled_; // places in the tree by key of the folder
};

} // namespace

TreeReport ImportTree(Store& store, const QString& tree) {
    Importer importer(store);
    if (!QFileInfo(tree).isDir()) {
        importer.report.faults += tree + u": no folder"_s;
        return importer.report;
    }
    store.begin();
    importer.importFolder(QDir(tree), QString());
    if (importer.report.faults.isEmpty())
        store.commit();
    else
        store.rollback();
    return importer.report;
}

TreeReport ExportTree(Store& store, const QString& tree) {
    Exporter exporter(store, tree);
    const QDir folder(tree);
    if (folder.exists() && !folder.isEmpty())
        exporter.report.faults += tree + u": is not empty"_s;
    else
        exporter.exportAll();
    return exporter.report;
}

} // namespace hotel
