#pragma once

// Lists and records: what joins the commands of serv_api to the lists of the screens. A list is a
// TextTable whose headers are the field tags of the records in it; one column may hold the key.
//
// A read counts as failed when the answer is empty or holds <ERROR>.

#include <QString>
#include <QStringList>
#include <QStringView>
#include <functional>

#include "record/text_table.h"

namespace hotel {

// Records that a list takes from a project; further ones are left out and nothing tells the user.
inline constexpr int kProjectLoadLimit = 10000;
// Records that a list takes from a search.
inline constexpr int kFoundLoadLimit = 9999;

// Header of the key column of a list that names no other.
inline constexpr QStringView kKeyHeader = u"记录号";
// A list without a key column.
inline constexpr int kNoKeyColumn = -1;

// How a long load shows itself: called after every kRowsPerStep rows and once more at the end, when
// the list is complete. `rows` counts the records loaded. False stops the load; the rows that have
// come stay.
using LoadProgress = std::function<bool(int rows, bool atEnd)>;
inline constexpr int kRowsPerStep = 20;

// GetTag's value, or `fallback` when that is empty.
QString GetTagDefault(QStringView text, QStringView tag, const QString& fallback);

// Appends all records of a project to `list`: the name in the key column, in every other column the
// field of its header. A list whose only row is blank has that row filled first. A failed read
// leaves the list as it was. Gives the number of records loaded.
int LoadProjectToGrid(const QString& file, const QString& project, TextTable& list,
                      int keyColumn = kNoKeyColumn, const LoadProgress& progress = {});

// The same with the records that `conditionText` finds (record/conditions.h).
int LoadFoundToGrid(const QString& file, const QString& project, const QString& conditionText,
                    TextTable& list, int keyColumn = kNoKeyColumn,
                    const LoadProgress& progress = {});

// Shows `record` in the first row whose key is `key`, or in a new row. Without a key column that is
// the one headed 记录号. Gives the row; 0 for an empty key and for a list without that column, which
// stays as it is.
int SetGridRowByKey(TextTable& list, const QString& key, QStringView record,
                    int keyColumn = kNoKeyColumn);

// `record` with the fields that the row's cells carry; fields that the list doesn't show are kept,
// a column without a header is not written.
QString GridRowToText(const TextTable& list, int row, const QString& record,
                      int keyColumn = kNoKeyColumn);

// Writes a row back over the record that its key names, in two attempts. Gives 0 when it is
// written. A row without a key is not written and counts as done; over a record that could not be read
// nothing is written, and the status is not 0.
int SaveGridRow(const QString& file, const QString& project, const TextTable& list, int row,
                int keyColumn);

// Moves a record: reads it, writes it at the target (file and project are made on the way), deletes
// it at the source. Write and delete are tried twice. Gives 0 when the record has moved. A missing
// record writes nothing; a failed delete leaves the record in both places. A record that is moved onto
// itself stays as it is and has moved.
int MoveRecord(const QString& sourceFile, const QString& sourceProject, const QString& key,
               const QString& targetFile, const QString& targetProject, const QString& targetKey);

// `text` with the entries of a drop-down as fields 记录01, 记录02, ...; an entry that is empty
// leaves its number out.
QString ListToRecordText(const QStringList& entries, const QString& text);

} // namespace hotel
