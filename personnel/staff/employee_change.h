#pragma once

// What is written of an employee: hired, changed, moved to another department or number, let go. He has two records,
// details and brief, in the project of his department; each write is tried twice.

#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>

#include "personnel/staff/staff_list.h"
#include "session/notice.h"

namespace hotel {

// Why a record can't be kept: number, name and department are what everything else goes by. A number of two
// digits is refused: the entries of the lists inside the record bear such names, and it would end at one of them.
std::optional<Notice> RefuseEmployee(QStringView record);

// The next number of the house: one above the greatest that anybody has, filled up with zeros to the length of
// `like`, or, where that is empty, to that of the greatest, and never of two digits.
QString NextEmployeeNumber(QStringView like = {});

enum class SaveStep {
    Refused,     // `notice` tells why; nothing was written
    NumberTaken, // nothing was written; `number` is the one to go on with
    Written,     // `lines` tell whether the old records, if any were to go, are gone
    Failed,      // not all of the new records could be written: `lines`
};
struct SaveOutcome {
    SaveStep step = SaveStep::Refused;
    std::optional<Notice> notice;
    QString number;
    QStringList lines; // what was done, for the user
};

// Writes an employee under his department and number. `before` is where he was read; new for one who is hired.
// Where the department has changed, his records in the old one go; where the number has, they go if `removeOld`.
//
// Somebody who was let go or moved meanwhile, from another desk, is not written: he would be back, or there twice.
//
// The new records are written ahead of the old ones' deletion, so that he is lost at no point: an act that is
// broken off leaves him twice.
SaveOutcome SaveEmployee(const EmployeeKey& before, const QString& record, bool removeOld);

struct DeleteOutcome {
    bool done = false;
    QStringList lines;
};

// Lets an employee go: both records move to the files of former employees, with 处理日期 and 操作人. Each is
// deleted only when it stands there. The details are filed by the moment, so that one person can leave
// twice; within one second the next free one is taken.
DeleteOutcome DeleteEmployee(const EmployeeKey& key);

// --- changes that leave a line in 工作经历 ---

// What is asked before a change is noted, and the words of the line.
struct CareerChange {
    QString question;
    QString words;
    QString department; // he goes there; empty: he stays
    QString post;
};
CareerChange TransferChange(const QString& name, const QString& from, const QString& to,
                            const QString& post);
CareerChange SecondJobChange(const QString& name, const QString& from, const QString& to,
                             const QString& post);
CareerChange EmployeeStatusChange(const QString& name, const QString& from, const QString& to);

// The line, from what the record says of him before the change.
QString CareerEntry(QStringView record, const QString& departmentBefore,
                    const CareerChange& change);

} // namespace hotel
