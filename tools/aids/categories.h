#pragma once

// The category database: all the short lists of the system (kinds of identity document, room types,
// room states...), one project a list, kept by staff on the screen FlmcFrm and read by every other.
//
// A category is one record text with a field a row, 记录01, 记录02, ... 记录100, whose value is record
// text again, with a field a column:
//
//     内容     the entry's text
//     快捷键   its short key, capitals
//     颜色     of room states: the colour on the room board, 0xBBGGRR as a decimal number
//     房价, 钟点价 ...   of room types: every further column is a rate, its value the price
//
// An empty cell is stored as one blank. The first row whose 内容 is empty ends the list.

#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>

#include "record/text_table.h"

namespace hotel {

inline constexpr int kCategoryRowLimit = 2000;
inline constexpr int kCategoryColumnLimit = 20;
inline constexpr int kCategoryLimit = 1000;

namespace tag {
inline constexpr QStringView kEntry = u"内容";
inline constexpr QStringView kShortKey = u"快捷键";
inline constexpr QStringView kColour = u"颜色";
} // namespace tag

namespace category {
// A description of the database stands among the categories and is none.
inline constexpr QStringView kDescription = u"库说明";
inline constexpr QStringView kRoomTypes = u"客房类型";
inline constexpr QStringView kRoomStates = u"房态";
inline constexpr QStringView kGuarantees = u"信用保证种类";
} // namespace category

// How the number of a row is written, in its tag and in lists.
inline constexpr QStringView kCategoryNumberFormat = u"#00";

// Tag of a row, counted from 1: "记录01", "记录100".
QString CategoryRowTag(int row);

// The entries of a category as they stand: not sorted, not trimmed, duplicates kept. Ends at the first
// missing row, or at kCategoryRowLimit.
QStringList CategoryEntries(QStringView categoryText);

// A category as a list to edit: columns 编号 ("#00"), 内容, 快捷键, and each further column of its rows
// in the order in which it is first met. A text without rows gives one empty row.
TextTable CategoryTable(QStringView categoryText);

// The record text of such a list; column 0 is not stored. Stops at the first row with an empty 内容.
QString CategoryText(const TextTable& table);

// The category database: parameters XtsjLj and Flmcxx put together.
QString CategoryFile();

// The entries of a category, read from the server: none where there is no such category, nothing when the
// read fails. LoadCategory takes both for an empty list. (Wait on the server.)
std::optional<QStringList> ReadCategory(QStringView categoryName);
QStringList LoadCategory(QStringView categoryName);

// The names of all categories, without the description. (Wait on the server.)
QStringList LoadCategoryNames();

} // namespace hotel
