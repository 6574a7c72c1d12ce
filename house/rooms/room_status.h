#pragma once

// What a room's status means. A status is a word; which words there are is data (the category 房态),
// but these the house itself gives a meaning:
//
//     空闲 空房 闲房 空闲房               vacant; the first of them in the category stands for a room
//                                         without a status
//     contains 空 or 闲                   counts as vacant
//     contains 散                         shared: sold bed by bed, each bed on its own folio
//     包房 长包 钟点 散客 会议 团队       arise through reception alone
//     免费                                complimentary: by hand, and left by hand only without guests
//
// A status without 散 sells the room as a whole.

#include <QString>
#include <QStringView>

#include <optional>

#include "session/notice.h"

namespace hotel {

// What an empty status is read as when a room is sold.
inline constexpr QStringView kVacantRoom = u"空房";

// What a stay gets whose guest form names no status.
inline constexpr QStringView kWholeRoom = u"包房";

bool IsVacant(QStringView status);
bool IsShared(QStringView status);

// One of the four words for a vacant room.
bool IsVacantWord(QStringView word);

// One of the six statuses that arise through reception alone.
bool IsReceptionStatus(QStringView status);

// `status`, or kVacantRoom for an empty one.
QString StatusAtSale(QStringView status);

struct StatusDecision {
    bool change = false;
    std::optional<Notice> refusal; // nothing to say when both statuses are the same

    bool operator==(const StatusDecision&) const = default;
};

// May a room with so many guests go from one status to another by hand? A reception status without
// guests may become anything: that clears a stale one.
StatusDecision DecideStatusChange(QStringView oldStatus, QStringView newStatus, int guests);

} // namespace hotel
