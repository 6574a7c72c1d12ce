#include "link/records.h"

#include "link/serv_api.h"
#include "record/field_walk.h"
#include "record/record_text.h"

namespace hotel {

namespace {

// How the server answers for what it doesn't have.
constexpr QStringView kNoSuchRecord = u"没有该记录";

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

RecordRead ReadToChange(QStringView file, QStringView project, QStringView record) {
    const QString answer = DbReadRecord(file, project, record);
    if (IsError(answer) && answer.contains(kNoSuchRecord))
        return {Reading::Absent, {}};
    if (answer.isEmpty() || IsError(answer))
        return {Reading::Failed, {}};
    return {Reading::Present, IsEmptyField(answer, record) ? QString() : answer};
}

RecordRead ReadProjectToChange(QStringView file, QStringView project) {
    RecordRead read = ReadToChange(file, {}, project);
    read.value = RecordsOf(read.value, project).toString();
    return read;
}

std::optional<QString> FindRecord(QStringView file, QStringView project, QStringView record) {
    const RecordRead read = ReadToChange(file, project, record);
    return read.outcome == Reading::Present ? std::optional(read.value) : std::nullopt;
}

QString ReadRecord(QStringView file, QStringView project, QStringView record) {
    return ReadToChange(file, project, record).value;
}

QString ReadProject(QStringView file, QStringView project) {
    return ReadProjectToChange(file, project).value;
}

QStringView RecordsOf(QStringView projectAnswer, QStringView project) {
    FieldWalk walk(projectAnswer);
    const bool wrapped = walk.next() && walk.name() == project &&
                         (projectAnswer.size() >= kTagTextLimit || walk.value().isEmpty());
    return wrapped ? walk.value() : projectAnswer;
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
