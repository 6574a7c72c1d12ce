#pragma once

// What an employee is known by at the punching desk: his card and his photograph.

#include <QString>

#include <optional>

#include "personnel/staff/staff_list.h"
#include "session/notice.h"

namespace hotel {

// A card as it was swiped: what the reader puts around it doesn't count.
QString CardText(const QString& swiped);

// Why an employee can't have that card: somebody else holds it.
std::optional<Notice> RefuseCard(const QString& card, const EmployeeKey& owner);

struct CardOutcome {
    bool done = false;
    Notice notice;
};
// Writes the card into both records of an employee who is on file, at once: he may punch with it.
CardOutcome GiveCard(const EmployeeKey& owner, const QString& card);
Notice CardGiven();

// The limit is exact, although its words round it.
inline constexpr qint64 kPhotographLimit = 125'000; // bytes

// Why a file can't be his photograph.
std::optional<Notice> RefusePhotograph(const QString& path);

} // namespace hotel
