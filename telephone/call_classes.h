#pragma once

// The classes of calls, numbered from 1. The first two characters of a prefix row's class text decide.

#include <QStringView>

#include <algorithm>
#include <array>

namespace hotel {

inline constexpr std::array<QStringView, 7> kCallClasses = {u"市话", u"特服", u"省内", u"国内",
                                                            u"国际", u"农话", u"专网"};
inline constexpr int kLocalClass = 1;

// 1 to 7; 0 for a text that begins with no class.
inline int CallClassOf(QStringView classText) {
    const auto* found =
        std::ranges::find(kCallClasses, classText.first(std::min(classText.size(), qsizetype(2))));
    return found == kCallClasses.end() ? 0 : int(found - kCallClasses.begin()) + 1;
}

} // namespace hotel
