#pragma once

// What the guests of the demo hotel have had put on their rooms: a table that demo_guests posts as the outlets
// of the house do. A guest signs, on his folio.

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
    QStringView guest = {};                            // empty: the one in the first bed
    QStringView mistyped = {}; // an amount that was posted first by mistake, and taken back
};

const QList<DemoPosting>& DemoPostings();

} // namespace hotel
