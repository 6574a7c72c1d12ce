#pragma once

// Reading and writing as every act does it: what could not be written is tried once more, without a pause.
// Nothing is rolled back, and nothing is locked: a record is read, changed and written back whole, and the
// last writer wins.
//
// A read has three outcomes. Who only looks takes what is absent and what failed for empty (ReadRecord,
// ReadProject). Who writes back what was read must tell them apart: an empty record may be filled, but what
// a failed read left unseen would be destroyed by the write. ReadToChange is for these.
//
// A status is 0 when it is done.

#include <QString>
#include <QStringView>

#include <optional>

namespace hotel {

enum class Reading {
    Present, // the value is the record's, and may be empty
    Absent,  // the server has no such record, project or file
    Failed,  // nobody knows: no link, no answer in time, nobody logged in, refused
};

struct RecordRead {
    Reading outcome = Reading::Failed;
    QString value; // empty unless present

    bool failed() const { return outcome == Reading::Failed; }
};

// The record, or the project whole, for somebody who will write it back. Nothing may be written after a
// failed read; kUnreadTitle and kUnreadWords say so to the user.
RecordRead ReadToChange(QStringView file, QStringView project, QStringView record);
RecordRead ReadProjectToChange(QStringView file, QStringView project);

inline constexpr QStringView kUnreadTitle = u"没有保存";
inline constexpr QStringView kUnreadWords = u"原有数据读取失败，为避免覆盖，没有保存！请稍候再试！";

// Value of a record, which may be empty; nothing when there is no such record or the server fails.
std::optional<QString> FindRecord(QStringView file, QStringView project, QStringView record);

// The same where a record that is missing is as good as an empty one.
QString ReadRecord(QStringView file, QStringView project, QStringView record);

// A project whole: one field a record. Written whole, the project gets exactly the fields of `text`.
QString ReadProject(QStringView file, QStringView project);
int SaveProject(QStringView file, QStringView project, QStringView text);

// The records in the answer to DbReadRecord for a whole project, one field each. An answer may still have
// the project's own tags around them: where it is too long for GetTag, and where the project is empty.
QStringView RecordsOf(QStringView projectAnswer, QStringView project);

int SaveRecord(QStringView file, QStringView project, QStringView record, QStringView value);
int DeleteRecord(QStringView file, QStringView project, QStringView record);
int UploadFile(const QString& localPath, QStringView remoteName);

// Makes file and project where they are missing; on all but the first write of a day they are there.
void EnsureProject(QStringView file, QStringView project);

} // namespace hotel
