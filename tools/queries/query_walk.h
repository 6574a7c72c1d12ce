#pragma once

// From a condition text to a list: the walks that ask the server which records match and show them.
//
// A list's headers are the field tags it shows. A walk appends one row a record: the record's name in
// the name column, in every other column the field of its header, line ends turned into blanks and
// white space at both ends taken away.

#include <QDate>
#include <QString>
#include <QStringList>
#include <functional>

#include "record/text_table.h"

namespace hotel {

class CmnGrd;
class GridView;
class Screen;

// Rows that a list may have; the walk ends with the row behind the last of these.
inline constexpr int kWalkLimit = 5000;
inline constexpr int kLargeWalkLimit = 30000;

// Records and sub-records of each that a search inside the records looks at.
inline constexpr int kSubWalkRecordLimit = 10000;
inline constexpr int kSubWalkMatchLimit = 1000;

// Files of one folder that are searched.
inline constexpr int kDatedFileLimit = 1000;

inline constexpr int kNoNameColumn = -1;

enum class WalkEnd {
    Finished,
    Stopped, // by the user, or because the list's screen is closing
    TooMany, // the limit was passed, and the user was told
};

// --- one file ---

// Shows the records of a project that `conditionText` finds, by numbered conditions or keywords
// (tools/queries/query_text.h), in a result screen, which says "Wait" meanwhile. A file that isn't there, and
// a failed command, find nothing. The screen stands when this returns only if its caller runs as a
// handler of it (Screen::Running).
WalkEnd QueryToGrid(const QString& file, const QString& project, const QString& conditionText,
                    int nameColumn, CmnGrd& list);

// The same for any grid, up to kLargeWalkLimit rows. `owner` is the grid's screen, and this part of
// one of its handlers; the walk stops when it is stopped or no longer shown.
WalkEnd QueryToGridLarge(const QString& file, const QString& project, const QString& conditionText,
                         int nameColumn, GridView& grid, Screen& owner);

// Shows the sub-records that match inside the records of a project (tools/queries/record_match.h), a row for
// each. All records are looked at: the server's search knows records only, and would miss those in
// which just one sub-record lacks a field.
WalkEnd QuerySubRecordsToGrid(const QString& file, const QString& project,
                              const QString& conditionText, int nameColumn, CmnGrd& list);

// --- files that carry dates ---

// Whole paths of the database files in `folder` (with its backslash at the end) whose names begin
// with two characters that count above zero.
QStringList DatedFiles(const QString& folder);

// One file a day, or a month, from `first` to `last`, both included; `fileOf` gets the day, or the
// first day of the month.
QStringList DayFiles(QDate first, QDate last, const std::function<QString(QDate)>& fileOf);
QStringList MonthFiles(QDate first, QDate last, const std::function<QString(QDate)>& fileOf);

// QueryToGrid over one file after the other, the rows adding up in the same list; ends with the first
// file that does not end well. At the end the screen is told to show what has come.
WalkEnd QueryFilesToGrid(const QStringList& files, const QString& project,
                         const QString& conditionText, int nameColumn, CmnGrd& list);

// --- the walk itself ---

// Called behind each row with the number of records done and of all that are found; false stops.
using WalkStep = std::function<bool(int done, int total)>;

// The columns of a row by their headers, read from a record.
QStringList CellsOf(QStringView record, const QString& name, const QStringList& headers,
                    int nameColumn);

// Appends what is found to `list`. Behind `limit` rows the walk ends and the user is told.
WalkEnd WalkFound(const QString& file, const QString& project, const QString& conditionText,
                  int nameColumn, TextTable& list, int limit, const WalkStep& step);

} // namespace hotel
