#pragma once

// Kept plans: lists of numbered records that are added, changed or closed, deleted by rule, and tidied into a history
// of monthly files. Reservations, repairs and receivables are such lists; a further one is a PlanKind and its screen's
// PlanPanel (tools/plans/plan_screen.h).
//
// A record's key is its number, yyMMddHHmmss: the moment at which it was made. Live records stand in one project of one
// file; those that are done stand in the same project of the file of the month in which they were made,
// <folder>yy\yyMM.QVR.
//
// The acts work on the list that the screen shows, and on the server record by record: what other desks have added or
// changed meanwhile stays as it is. There is no lock; of two desks that change one plan the last one wins.

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <functional>
#include <optional>

#include "record/text_table.h"
#include "session/notice.h"

namespace hotel {

struct PlanKind {
    QStringView project;
    QStringList columns;         // of the list, each a field of the record; the first is the number
    bool numberIsField = false;  // the number stands in the record too, not only as its key
    QString (*file)() = nullptr; // of the live records
    QString (*folder)() = nullptr; // of the history, with its backslash

    // What a record that is to be added or changed lacks; nothing when it may be written.
    std::optional<Notice> (*check)(QStringView record) = nullptr;
    // The fields that a plan is closed by. They are empty until then, and closing touches nothing else. Without
    // any, a change rewrites all fields but those of the maker.
    QStringList closing;
    std::optional<Notice> (*checkClosing)(QStringView record) = nullptr;
    QStringView closedOn = {}; // the date among them, proposed as today
    QStringView closer = {};   // the person among them; empty when it is closed: whoever closes it

    // Who made a plan; only he may delete it.
    QStringView makerUnit;
    QStringView maker;
    // Where it is given, only the last plan of the list may be deleted, and only on the day that stands here.
    QStringView madeOn = {};

    // Whether tidying moves the row's plan to the history.
    bool (*isDone)(const TextTable& list, int row, QDate today) = nullptr;

    QStringView notSaved;   // words, under 意外错误: a plan couldn't be added
    QStringView notChanged; // likewise: it couldn't be changed or closed
    QStringView notToday;   // under 操作禁止: madeOn forbids the deletion
    QStringView notOwn;     // likewise: somebody else made it
};

// The list, with the number in the first column; nothing when the server doesn't give it.
std::optional<TextTable> LoadPlans(const PlanKind& kind);

// The number of a new plan: this second, or the next one that is neither in the list nor in the file. Nothing when the
// file can't be asked, or five hundred seconds are taken.
std::optional<QString> FreePlanNumber(const PlanKind& kind, const TextTable& list);

struct PlanOutcome {
    bool done = false;
    std::optional<Notice> notice = {};
    int row = 0; // of the list: where the plan stands now
};

// Adds a plan to the server and the list; a list that only has its blank row has that filled. `record` has the fields of the columns and whatever
// else the plan keeps. Its number is taken anew where it is empty or stands already, in the list or from another desk.
PlanOutcome AddPlan(const PlanKind& kind, TextTable& list, const QString& record);

// Changes or closes the plan of a row. Fields that `record` doesn't hold are emptied, as far as the kind lets them be
// changed; a field of the server's record that is no column is kept unless `record` has it in `more`.
PlanOutcome ChangePlan(const PlanKind& kind, TextTable& list, int row, const QString& record,
                       const QStringList& more = {});

// Deletes the plan of a row by the kind's rule. A list keeps one row: its last one is blanked.
PlanOutcome DeletePlan(const PlanKind& kind, TextTable& list, int row);

struct TidyOutcome {
    int moved = 0;
    int failed = 0; // stay in the list; the next tidying tries them again
};

// Moves what is done to its history, from the last row to the first. `goesOn` is told how many rows have been looked
// at, of how many; false stops it there.
TidyOutcome TidyPlans(const PlanKind& kind, TextTable& list,
                      const std::function<bool(int done, int all)>& goesOn = {});

// The history file of a number, and of a month.
QString PlanHistoryFile(const PlanKind& kind, QStringView number);
QString PlanHistoryFile(const PlanKind& kind, QDate month);

// Whether the row holds a plan, and no blank.
bool IsPlan(const TextTable& list, int row);

} // namespace hotel
