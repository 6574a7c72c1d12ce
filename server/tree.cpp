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

// Counts the records and tells of every kProgressStep-th.
class Counter {
public:
    explicit Counter(const TreeProgress& progress) : progress_(progress) {}

    void count(const StorePath& path) {
        if (++records_ % kProgressStep == 0 && progress_)
            progress_(records_, path.name);
    }

private:
    TreeProgress progress_;
    qint64 records_ = 0;
};

// --- Import ------------------------------------------------------------------------------------------

// The fields of a project's file, one after the other, in the lines of the store.
class FieldFile {
public:
    explicit FieldFile(const QString& name) : file_(name) { file_.open(QIODevice::ReadOnly); }

    // Moves to the next field; false behind the last one, or ahead of what is none.
    bool next() {
        while (true) {
            FieldWalk field(QStringView(text_).sliced(position_));
            const bool isThere = field.next();
            if (isThere && field.closed()) {
                name_ = field.name().toString();
                value_ = field.value().toString();
                position_ = field.value().end() - text_.cbegin() + ClosingTag(name_).size();
                return true;
            }
            if (!readOn()) {
                if (isThere)
                    fault_ = u"no field: <%1>"_s.arg(field.name());
                return false;
            }
        }
    }

    const QString& name() const { return name_; }
    const QString& value() const { return value_; }

    // What ended the fields ahead of the file's end; empty when nothing did.
    QString fault() const {
        if (!file_.isOpen() || file_.error() != QFile::NoError)
            return file_.errorString();
        if (decoder_.hasError())
            return u"not in UTF-8"_s;
        return !fault_.isEmpty() || !hasText_ || !name_.isEmpty() ? fault_
                                                                  : u"text without fields"_s;
    }

private:
    static constexpr qsizetype kPiece = 64 * 1024; // bytes

    static QString ClosingTag(const QString& name) { return u"</"_s + name + u'>'; }

    // Gets as much again as is held and not used, so that a long value is not searched over and over.
    bool readOn() {
        const QByteArray bytes = file_.read(qMax(kPiece, text_.size() - position_));
        if (bytes.isEmpty() || decoder_.hasError())
            return false;
        QString piece = lineEnd_ + QString(decoder_.decode(bytes));
        lineEnd_ = piece.endsWith(u'\r') && !file_.atEnd() ? u"\r"_s : QString();
        piece.chop(lineEnd_.size());
        hasText_ = hasText_ || !piece.trimmed().isEmpty();
        text_ = text_.sliced(position_) + ToStoreLines(piece);
        position_ = 0;
        return true;
    }

    QFile file_;
    QStringDecoder decoder_{QStringDecoder::Utf8};
    QString text_;
    qsizetype position_ = 0;
    QString lineEnd_; // half of one, at the end of a piece
    bool hasText_ = false;
    QString name_;
    QString value_;
    QString fault_;
};

class Importer {
public:
    Importer(Store& store, const TreeProgress& progress) : store_(store), counter_(progress) {}

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
        qint64 records = 0;
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

    qint64 importProject(const QFileInfo& entry, const StorePath& path, const QString& project) {
        qint64 records = 0;
        FieldFile field(entry.filePath());
        try {
            if (!store_.hasProject(path, project))
                store_.writeProject(path, project, u"");
            for (; field.next(); ++records) {
                const std::optional<QString> name = ParseName(field.name());
                if (!name)
                    throw Refusal(u"no field: <%1>"_s.arg(field.name()));
                store_.write(path, project, *name, field.value());
                counter_.count(path);
            }
        } catch (const Refusal& refusal) {
            fault(entry, refusal.words());
            return records;
        }
        if (const QString words = field.fault(); !words.isEmpty())
            fault(entry, words);
        return records;
    }

    Store& store_;
    Counter counter_;
};

// --- Export ------------------------------------------------------------------------------------------

class Exporter {
public:
    Exporter(Store& store, const QString& tree, const TreeProgress& progress)
        : store_(store), tree_(tree), counter_(progress) {}

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
        qint64 records = 0;
        for (const QString& project : std::as_const(projects))
            records += exportProject(path, project, folder);
        report.done += path.name + u": %1 projects, %2 records"_s.arg(projects.size()).arg(records);
        if (!std::is_sorted(projects.begin(), projects.end()))
            write(path, folder + u'/' + kOrderFile, (projects.join(u'\n') + u'\n').toUtf8());
    }

    qint64 exportProject(const StorePath& path, const QString& project, const QString& folder) {
        qint64 records = 0;
        QFile file(folder + u'/' + ToFileName(project) + kProjectSuffix);
        bool isWritten = file.open(QIODevice::WriteOnly);
        QString changed; // the first record that would be another one
        store_.walk(path, project, true, [&](const QString& name, const QString& value) {
            const QString text = ToTreeLines(FieldText(name, value));
            const QByteArray bytes = (text + u'\n').toUtf8();
            isWritten = isWritten && file.write(bytes) == bytes.size();
            if (changed.isEmpty() && !comesBack(name, value, ToStoreLines(text)))
                changed = name;
            ++records;
            counter_.count(path);
        });
        if (!isWritten || !file.flush())
            fault(path, file.fileName() + u": " + file.errorString());
        else if (!changed.isEmpty())
            fault(path,
                  u"project %1: record %2 would not come back the same"_s.arg(project, changed));
        return records;
    }

    // An import makes the same record of `text`.
    static bool comesBack(const QString& name, const QString& value, const QString& text) {
        FieldWalk field(text);
        return field.next() && field.closed() && field.name() == name && field.value() == value;
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
    Counter counter_;
    QHash<QString, QString> spelled_; // places in the tree by key of the folder
};

} // namespace

TreeReport ImportTree(Store& store, const QString& tree, const TreeProgress& progress) {
    Importer importer(store, progress);
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

TreeReport ExportTree(Store& store, const QString& tree, const TreeProgress& progress) {
    Exporter exporter(store, tree, progress);
    const QDir folder(tree);
    if (folder.exists() && !folder.isEmpty())
        exporter.report.faults += tree + u": is not empty"_s;
    else
        exporter.exportAll();
    return exporter.report;
}

} // namespace hotel
