#include "platform/work_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace hotel {

namespace {

QString OwnFolder(const QString& programFolder, QStandardPaths::StandardLocation ofUser) {
    if (QFileInfo(programFolder).isWritable())
        return programFolder;
    const QString folder = QStandardPaths::writableLocation(ofUser);
    QDir().mkpath(folder);
    return folder;
}

} // namespace

QString PictureFolder() {
    return PictureFolder(QCoreApplication::applicationDirPath());
}

QString PictureFolder(const QString& programFolder) {
    return OwnFolder(programFolder, QStandardPaths::AppLocalDataLocation);
}

QString SettingsFolder() {
    return OwnFolder(QCoreApplication::applicationDirPath(), QStandardPaths::AppLocalDataLocation);
}

QString ListFolder() {
    return ListFolder(QCoreApplication::applicationDirPath());
}

QString ListFolder(const QString& programFolder) {
    return OwnFolder(programFolder, QStandardPaths::DocumentsLocation);
}

} // namespace hotel
