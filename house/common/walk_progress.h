#pragma once

#include <functional>

namespace hotel {

// How an act that walks over many records keeps its screen alive: called between two of them with how many
// of all are done, it may let events through, and tells whether the walk goes on. Where there is nobody to
// tell it is empty.
using WalkProgress = std::function<bool(int done, int total)>;

inline bool GoesOn(const WalkProgress& progress, int done, int total) {
    return !progress || progress(done, total);
}

} // namespace hotel
