#pragma once

// Every benchmark measures against a floor in the same run and prints one line for each ratio:
//
//     ratio get_tag_at_end 0.31 (limit 2.00)

#include <benchmark/benchmark.h>

#include <QElapsedTimer>

#include <algorithm>
#include <array>
#include <cstdio>

namespace hotel::bench {

// Nanoseconds that one call of `work` takes on average, over at least ten milliseconds of calls. What
// `work` returns is kept from being optimized away.
template<typename Work>
double Nanoseconds(Work&& work) {
    constexpr qint64 kLeastNanoseconds = 10'000'000;
    QElapsedTimer timer;
    timer.start();
    int calls = 0;
    do {
        benchmark::DoNotOptimize(work());
        ++calls;
    } while (timer.nsecsElapsed() < kLeastNanoseconds);
    return double(timer.nsecsElapsed()) / calls;
}

// Time of `work` by that of `floor`, each divided by how many things it does. Both are measured by
// turns, so that a busy machine burdens both alike; the median of the rounds is taken.
template<typename Work, typename Floor>
double MedianRatio(Work&& work, Floor&& floor, double workThings = 1, double floorThings = 1) {
    std::array<double, 15> ratios;
    for (double& ratio : ratios)
        ratio = (Nanoseconds(work) / workThings) / (Nanoseconds(floor) / floorThings);
    std::sort(ratios.begin(), ratios.end());
    return ratios[ratios.size() / 2];
}

inline void PrintRatio(const char* name, double ratio, double limit) {
    std::printf("ratio %s %.2f (limit %.2f)%s\n", name, ratio, limit, ratio > limit ? " OVER" : "");
}

} // namespace hotel::bench
