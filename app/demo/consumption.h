#pragma once

// What the guests of the demo hotel have had put on their rooms: a table that demo_guests posts as the outlets
// of the house do. A room's first guest signs, on his folio.

#include <QList>
#include <QStringView>
#include <utility>

#include "app/demo/parties.h"
#include "house/folios/folio_posting.h"

namespace hotel {

struct DemoPosting {
    DemoMoment at;
    QStringView room;
    PostingKind kind;
    QList<std::pair<QStringView, QStringView>> fields; // those that the outlet types
};

const QList<DemoPosting>& DemoPostings();

} // namespace hotel
