#pragma once

// The rooms that may be sold: those in a status the clerk lets through and with a free bed. A shared
// room with a free bed is offered again, so that a further walk-in guest can join it.

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

#include "house/guests/working_set.h"
#include "record/text_table.h"

namespace hotel {

// The statuses joined into the text that IsOffered looks into.
QString StatusFilter(const QStringList& statuses);

// A room is offered when its status (empty: vacant) occurs anywhere inside the filter text, not only
// as one of its words, and it has fewer guests than beds.
bool IsOffered(QStringView record, QStringView statusFilter);

// Fills a list of offered rooms by its own titles, sorted by its first column. The rooms of `taken`
// are left out. One read.
void LoadKxkfQd(TextTable& grid, QStringView statusFilter, const QList<ChosenRoom>& taken = {});

// The same for the rooms in one of these statuses: the status is the whole word.
void LoadRoomsInStatus(TextTable& grid, const QStringList& statuses);

// The rooms that a clerk has typed: numbers apart by blanks or commas, and ranges ("8301-8312"),
// which stand for all offered rooms from the one number to the other; in plain characters. `unknown`:
// what is no offered room.
struct TypedRooms {
    QStringList rooms; // in the order typed, each once
    QStringList unknown;
};
TypedRooms RoomsTyped(QStringView typed, const QStringList& offered);

} // namespace hotel
