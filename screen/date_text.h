#pragma once

// Dates and times as clerks type them.

#include <QDate>
#include <QString>
#include <QStringView>

namespace hotel {

// "2026-03-05" from "2026.3.5", "2026/3/5", "2026-3-5", "2026年3月5日" or "20260305", in plain or
// full-width characters; without the year ("3.5", "0305") it is the one nearest to today. Empty when
// the text is no date.
QString DateFromTyped(QStringView typed, QDate today);

// "09:05:30" from "9:5:30" or "090530"; "09:05:00" from "9:5", "905" or "0905"; "09:00:00" from
// "9". Point and full-width colon count as a colon. Empty when the text is no time.
QString TimeFromTyped(QStringView typed);

} // namespace hotel
