#pragma once

// Files of a test.

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace hotel {

inline QByteArray FileBytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

inline QString FileText(const QString& path) {
    return QString::fromUtf8(FileBytes(path));
}

// Gives back the path. Makes the folders above the file.
inline QString WriteBytes(const QString& path, const QByteArray& bytes) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("The test can't write its file.");
    return path;
}

// A temporary folder that is the current one for as long as it stands.
class WorkingFolder {
public:
    WorkingFolder() { QDir::setCurrent(folder_.path()); }
    ~WorkingFolder() { QDir::setCurrent(before_); }
    QString filePath(const QString& name) const { return folder_.filePath(name); }

private:
    QTemporaryDir folder_;
    QString before_ = QDir::currentPath();
};

} // namespace hotel
