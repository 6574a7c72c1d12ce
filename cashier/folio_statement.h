#pragma once

// The statement of a folio that a guest takes along: all its postings day by day, and what they come to.

#include <QList>
#include <QString>
#include <QStringView>

#include "house/folios/posting_kinds.h"
#include "record/text_table.h"

namespace hotel {

struct PostingsOfKind {
    PostingKind kind;
    TextTable list; // see house/folios/posting_list.h
};

// Columns 日期 时间 项目 说明 客人 房间号 消费 实收 信用. In the order of their moments, those of one moment
// by kind; a line with each day's sums stands behind it, the whole sums and the balance stand last.
TextTable FolioStatement(const QList<PostingsOfKind>& postings);

// Prints it, with the hotel's name, and shows it in the preview.
void PrintFolioStatement(const QString& folio, const QString& guest,
                         const QList<PostingsOfKind>& postings);

} // namespace hotel
