#pragma once

// The condition language inside one record: a record may hold a field whose value is again a list of
// records (a guest list, work experience), and conditions may be about these.

#include <QString>

namespace hotel {

// Sub-records that are looked at, and names that are kept for further calls.
inline constexpr int kSubRecordLimit = 32000;
inline constexpr int kMatchesKept = 2000;

// Name of the n-th sub-record (n from 1) of `recordText` that satisfies `queryText`, or an empty
// text. `queryText` is a condition text, and behind it `<记录查询字段>` naming the field that holds
// the sub-records; without that the record's own fields are the sub-records. In a condition 记录名
// is the sub-record's tag. Without a condition text nothing matches.
//
// The finished lists of the six pairs of texts used last are kept, so that a walk with n from 1 up
// costs one pass over the record. A kept list ends at kMatchesKept names; only the call that makes
// it serves a greater n, deliberately.
QString MatchRecordConditions(const QString& recordText, const QString& queryText, int n);

} // namespace hotel
