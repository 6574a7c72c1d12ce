#pragma once

// Reading and writing as every act of the house does it: what can't be read counts as empty, and
// what could not be written is tried once more, without a pause. Nothing is rolled back, and nothing
// is locked: a record is read, changed and written back whole, and the last writer wins.
//
// A status is 0 when it is done.

#include <QString>
#include <QStringView>

#include <optional>

namespace hotel {

// Value of a record, which may be empty; nothing when there is no such record or the server fails.
std::optional<QString> FindRecord(QStringView file, QStringView project, QStringView record);

// The same where a record that is missing is as good as an empty one.
QString ReadRecord(QStringView file, QStringView project, QStringView record);

// A project whole: one field a record. Written whole, the project gets exactly the fields of `text`.
QString ReadProject(QStringView file, QStringView project);
int SaveProject(QStringView file, QStringView project, QStringView text);

int SaveRecord(QStringView file, QStringView project, QStringView record, QStringView value);
int DeleteRecord(QStringView file, QStringView project, QStringView record);
int UploadFile(const QString& localPath, QStringView remoteName);

// Makes file and project where they are missing; on all but the first write of a day they are there.
void EnsureProject(QStringView file, QStringView project);

} // namespace hotel
