#pragma once

#include <QString>

namespace hotel {

// What an act has to tell the user. The act decides and writes; the screen shows the words under
// their title.
struct Notice {
    QString title;
    QString words;

    bool operator==(const Notice&) const = default;
};

} // namespace hotel
