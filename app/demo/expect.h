#pragma once

// What the demo hotel is brought to life with is expected to come out; where it doesn't, that is told with the words
// that the staff would have seen.

#include <optional>
#include <stdexcept>

#include <QString>

#include "session/notice.h"

namespace hotel {

class DemoFailure : public std::runtime_error {
public:
    explicit DemoFailure(const QString& words) : std::runtime_error(words.toStdString()) {}
};

inline void Expect(bool came, const QString& words) {
    if (!came)
        throw DemoFailure(words);
}

inline void ExpectNone(const std::optional<Notice>& notice) {
    if (notice)
        throw DemoFailure(notice->title + QStringLiteral("：") + notice->words);
}

} // namespace hotel
