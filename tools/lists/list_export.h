#pragma once

// Lists as text files. Files are UTF-8, lines end with CR LF.

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

#include "record/text_table.h"

namespace hotel {

// The seven layouts by their names, in the order in which they are offered:
//
//     逗号，       cells with a full-width comma between them
//     逗号,        cells with a comma between them
//     双引号空格   each cell in double quotes, a blank between them
//     双引号逗号   each cell in double quotes, a comma between them
//     空格紧缩     a blank between the cells
//     空格对齐     cells filled up with blanks to the width of their column
//     表停字符     the same with a TAB between them
//
// Nothing is escaped, and no cell is ever cut.
QStringList ExportLayouts();

// All rows of `list`, the headers first. `widths`: of each column, in display columns (see
// DisplayWidth); only the two layouts that fill up look at them.
QString ExportText(const TextTable& list, QStringView layout, const QList<int>& widths);

// Display columns of a text: a character from code 1 to 127 takes one, any other two.
int DisplayWidth(QStringView text);

// Display columns of a column of a grid that is `pixels` wide.
int DisplayColumns(int pixels);

// Writes a text file. Names come with the backslashes of the parameters ("Txt\房态260305.txt") and with
// folders that need not be there yet. False when it can't be made, which the user is told.
bool WriteTextFile(const QString& name, const QString& text);

// Asks for a file name (proposed: today as yyMMdd + 清单.txt), writes the list there and tells. A
// list without data rows, and an empty name, do nothing. False when nothing was written.
bool SaveListFile(const TextTable& list, QStringView layout, const QList<int>& widths);

// Asks by an input box for the name of the file for `listName` and writes the list there in aligned
// columns. Proposed is `proposedName`, at the start today as yyMMdd + .txt in the program's folder.
// A list without data rows, and an empty answer, do nothing. False when nothing was written.
bool SaveGridToText(const TextTable& list, const QString& listName,
                    const QString& proposedName = {});

} // namespace hotel
