#pragma once

// A folio's postings of one kind as a list: 序号, then the fields named by the headers (see posting_kinds.h),
// and the running columns.

#include <QString>
#include <QStringView>

#include <optional>

#include "house/folios/posting_entry.h"
#include "record/numbers.h"
#include "record/text_table.h"

namespace hotel {

inline constexpr int kPostingLimit = 10000; // rows of a list

TextTable EmptyPostingList(PostingKind kind);

// In the order of their numbers, read in one command. Nothing when they could not be read.
std::optional<TextTable> LoadPostings(QStringView folio, PostingKind kind);

// A posting that was just written, as the last row; its running columns go on from the row before, which is
// exact, as amounts are written in cents.
void AppendPosting(PostingKind kind, TextTable& list, QStringView record);

// What a running column comes to: its cell in the last row whose 序号 is above 0; 0 without such a row.
Money LastRunning(const TextTable& list, QStringView runningColumn);

// Only the last row may be deleted, and only by whoever entered it.
bool MayDelete(const TextTable& list, int row, QStringView department, QStringView operatorName);

// What a row's posting was typed as, to be mended and posted again: all but what posting_control names.
PostingValues ValuesOfRow(PostingKind kind, const TextTable& list, int row);

} // namespace hotel
