#pragma once

// What of the day the user's rights let him know, and where its lines lead. A part of the day is his if he is offered
// an entry of the main menu that shows the same; the first such entry is also where its lines lead.

#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>

#include "house/stays/today.h"

namespace hotel {

struct MenuEntry;

enum class TodayKind { House, Arrivals, Departures, Balances, Repairs };

// By the rights of the current session.
TodayParts PartsByRights();

struct TodayWay {
    const MenuEntry* entry;
    QStringView screen; // of the house, the entry's own as a rule
    QString argument;   // what it is opened with, as a folio
};

// Where a line leads; nothing when the user has no way there any more.
std::optional<TodayWay> WayOfLine(TodayKind kind, const QStringList& cells);

} // namespace hotel
