#pragma once

// A list that is stored as a project of its own: one record a row, keyed by the number of the row as "#0", its
// fields those of the columns.

#include <QString>
#include <QStringView>

#include "link/records.h"
#include "record/text_table.h"

namespace hotel {

// Replaces the list's rows by the records of a project, in its order: in every column the field of its header,
// in `keyColumn` (-1: none) the record's key. A project or file that isn't there is empty; when the read
// failed, the list stays as it was.
Reading LoadProjectAsList(const QString& file, QStringView project, TextTable& list,
                          int keyColumn = -1);

// The same from the text of a project.
void ReadList(QStringView records, TextTable& list, int keyColumn = -1);

// Replaces all that is stored by the list, in one write. File and project are made where they are missing.
bool SaveListAsProject(const QString& file, QStringView project, const TextTable& list);

} // namespace hotel
