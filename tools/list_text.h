#pragma once

// Lists as text files.

#include <QString>
#include <QStringView>

#include "record/text_table.h"

namespace hotel {

// Columns that a text takes in a fixed-width font: characters 1 to 127 one, any other two.
int DisplayWidth(QStringView text);

// `text` filled up with blanks to `width` columns; a longer one stays whole.
QString PaddedTo(int width, QStringView text);

// A list with its headers, one line a row ending in CR LF, every cell filled up to the width of its
// column: the widest text and two blanks.
QString AlignedText(const TextTable& table);

// Writes a text file of the workstation in UTF-8, making the folders of its name. The name may have
// backslashes, as parameters do ("Txt\房态260305.txt"). False when the file can't be made.
bool SaveText(const QString& fileName, const QString& text);

} // namespace hotel
