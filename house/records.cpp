#include "house/records.h"

#include "link/serv_api.h"
#include "record/record_text.h"

namespace hotel {

namespace {

template<typename Write>
int Twice(Write write) {
    const int status = write();
    return status == 0 ? status : write();
}

// The answer stands in for a value that is empty.
bool IsEmptyField(QStringView answer, QStringView record) {
    return TrimWhite(answer) == u"<"_s + record + u"></" + record + u'>';
}

} // namespace

std::optional<QString> FindRecord(QStringView file, QStringView project, QStringView record) {
    const QString value = DbReadRecord(file, project, record);
    if (value.isEmpty() || IsError(value))
        return {};
    return IsEmptyField(value, record) ? QString() : value;
}

QString ReadRecord(QStringView file, QStringView project, QStringView record) {
    return FindRecord(file, project, record).value_or(QString());
}

QString ReadProject(QStringView file, QStringView project) {
    return ReadRecord(file, {}, project);
}

int SaveProject(QStringView file, QStringView project, QStringView text) {
    return SaveRecord(file, {}, project, text);
}

int SaveRecord(QStringView file, QStringView project, QStringView record, QStringView value) {
    return Twice([&] { return DbModifyRecord(file, project, record, value); });
}

int DeleteRecord(QStringView file, QStringView project, QStringView record) {
    return Twice([&] { return DbDeleteRecord(file, project, record); });
}

int UploadFile(const QString& localPath, QStringView remoteName) {
    return Twice([&] { return DbUploadFile(localPath, remoteName); });
}

void EnsureProject(QStringView file, QStringView project) {
    DbCreateFile(file);
    DbCreateProject(file, project);
}

} // namespace hotel
