#pragma once

// The commands of the record server: every screen reaches the server through these and never writes
// a command itself. They act on the current link, Link(), which keeps their memos and caches.
//
// The store has three levels: a database file (a relative path with backslashes, ending in ".qvr"),
// projects inside it, and named records inside a project, whose value is record text. In all calls:
//
//   - A status is 0 when it is done and not 0 otherwise.
//   - A list is served one entry a call: n = 1, 2, 3, ... until the empty text. n = 1 asks the
//     server anew, further calls with the same arguments cost nothing. A nested walk of the same call
//     replaces the list: a screen that needs two lists at once copies the first. A failed command
//     is an empty list.
//   - A text answer is given as it came where it holds <ERROR>, see IsError.
//   - Nothing fails with an exception.

#include <QString>
#include <QStringView>

#include "link/Wck_comm.h"

namespace hotel {

// Entries that a list holds; further ones are left out without an error.
inline constexpr int kUserListLimit = 1024;
inline constexpr int kProjectListLimit = 3000;
inline constexpr int kFileListLimit = 3000;
inline constexpr int kRecordListLimit = 32000;

// Session

// Logs the user in on this connection. The password itself is not sent but a digest of it with the
// workstation's date. Gives 0 logged in, 1 wrong password, 2 link not up, -1 any other refusal (and
// a password that can't be digested). The link keeps user and password on success and forgets the
// ones before otherwise.
int DbLogin(const QString& user, const QString& password);

// Name of the n-th user that may log in.
QString DbUserList(int n);

// Name of the file that holds the users, or empty.
QString DbUserFileName();

// "yyyy-MM-dd" and "HH:mm:ss" of the server, or empty. A text of another length is no answer.
QString DbServerDate();
QString DbServerTime(Wck_comm& link = Link());

// Files

// Creating a file that exists is harmless, as it is with a project.
int DbCreateFile(QStringView file);

enum FileCheck : qint16 {
    kFileExists = 0, // a number, negative if not
    kFirstIndex = 2, // first and last year or month of a set of attendance files
    kLastIndex = 3,
    kCallStamp = 5, // stamp of a call record file, eight characters when present
    kFileStamp = 6, // equal text means that the file is unchanged
};

// What the server says about a file; "-1" when it says nothing.
QString DbCheckFile(QStringView file, FileCheck code);

// The files below `path` whose description matches.
QString DbFileList(QStringView path, QStringView description, int n);

// Projects

int DbCreateProject(QStringView file, QStringView project, QStringView initialValue = {});
int DbDeleteProject(QStringView file, QStringView project);
QString DbProjectList(QStringView file, int n);

// Records

// Value of the record. The whole answer when the value is empty or there is no such record: callers
// test with IsError and by GetTag of a field that they expect, never by emptiness alone. With an
// empty project name and a project's name as record it is the whole project, one field a record.
QString DbReadRecord(QStringView file, QStringView project, QStringView record);

// As DbReadRecord for walks: the server sends further records along, and they answer the calls of
// the next 2 seconds. Gives the value only, empty when there is none. A write does not invalidate
// what was read, deliberately: within the 2 seconds the old value may come.
QString DbReadRecordBuffered(QStringView file, QStringView project, QStringView record);

// A record of the file read without naming its project, trusted for `trustSeconds` and after that
// for as long as the file's stamp is the same. Ten records are kept; a new one takes the place of
// the least used. Gives the value, or the whole answer when there is none.
QString DbReadCached(QStringView file, QStringView record, int trustSeconds);

// Writes a record, creating what is missing. An empty record name sends nothing and is done.
int DbModifyRecord(QStringView file, QStringView project, QStringView record, QStringView value);
int DbCreateRecord(QStringView file, QStringView project, QStringView record, QStringView value);
int DbDeleteRecord(QStringView file, QStringView project, QStringView record);

QString DbRecordList(QStringView file, QStringView project, int n);

// Names of the records found by keywords: all of `required`, any of `optional`, none of `excluded`,
// each separated by ","; an empty `project` searches the whole file. With n above 1 the list of the
// last fetch is served, deliberately whatever the other arguments are.
QString DbFindRecords(QStringView file, QStringView project, QStringView required,
                      QStringView optional, QStringView excluded, int n);

// Names of the records found by a condition text (record/conditions.h). Asks first whether the file
// exists; where it does not, nothing is found.
QString DbFieldFind(QStringView file, QStringView project, QStringView conditionText, int n);

// Files of the workstation. Meant for pictures and small format files: the content travels in one
// command, in hexadecimal, and one of kFileLimit bytes or more could not be received again.
inline constexpr qint64 kFileLimit = 1'000'000;

// Both give 0 on success, otherwise -1. A file that could not come back is not sent. A local file that exists is only touched when all that arrived has been
// checked; an empty file can't be downloaded.
int DbDownloadFile(QStringView remoteName, const QString& localPath);
int DbUploadFile(const QString& localPath, QStringView remoteName);

} // namespace hotel
