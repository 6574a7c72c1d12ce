#pragma once

// The log of a night audit, one line an entry: on paper and as a text file.

#include <QString>
#include <QStringList>

namespace hotel {

// Shows the log in the preview, over as many pages as it takes, each with 共, 页，第 and 页 and the auditor at
// its foot. The page and the type are those of the format YsjlFmt:
//
//     纸张                 the paper (tools/paper/print_form.h)
//     正文\夜审记录清单    左边界, 上边界 (centimetres inside the margins), 字体, 字号, 粗体, and 行距, the
//                          millimetres from line to line; none of it: 5
//
// (Waits on the server, which keeps the format; without it the log is printed in the default type.)
void PrintAuditLog(const QStringList& log, const QString& auditor);

// What a file of the log is named at first: output folder, 夜审纪录, the day as yyMMdd, .txt.
QString ProposedAuditLogFile();

// Asks for the file and writes the log there. False when nothing was written: cancelled, or the file can't be
// made, which is told.
bool SaveAuditLog(const QStringList& log);

} // namespace hotel
