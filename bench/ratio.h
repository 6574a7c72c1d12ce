#pragma once

// Every benchmark measures against a floor in the same run and prints one line for each ratio:
//
//     ratio get_tag_at_end 0.31 (limit 2.00)

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <utility>
#include <vector>

#include <sched.h>

namespace hotel::bench {

// What a stretch of work is measured by: the time that passes, for work that waits for another thread
// or process; or the processor time of the calling thread, which other programs don't add to.
enum class Time { Passing, Processor };

// The clock's nanoseconds, from a beginning of its own.
inline double Now(Time time) {
    timespec now{};
    clock_gettime(time == Time::Passing ? CLOCK_MONOTONIC : CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e9 + double(now.tv_nsec);
}

// Nanoseconds that one call of `work` takes on average, over at least ten milliseconds of calls. What
// `work` returns is kept from being optimized away.
template<typename Work>
double Nanoseconds(Work&& work, Time time = Time::Passing) {
    constexpr double kLeastNanoseconds = 10e6;
    const double start = Now(time);
    double taken = 0;
    int calls = 0;
    do {
        benchmark::DoNotOptimize(work());
        ++calls;
        taken = Now(time) - start;
    } while (taken < kLeastNanoseconds);
    return taken / calls;
}

// Time of `work` by that of `floor`, each divided by how many things it does. Both are measured by
// turns, so that a busy machine burdens both alike; the median of the rounds is taken.
template<size_t kRounds = 15, typename Work, typename Floor>
double MedianRatio(Work&& work, Floor&& floor, double workThings = 1, double floorThings = 1,
                   Time time = Time::Passing) {
    std::array<double, kRounds> ratios;
    for (double& ratio : ratios)
        ratio = (Nanoseconds(work, time) / workThings) / (Nanoseconds(floor, time) / floorThings);
    std::sort(ratios.begin(), ratios.end());
    return ratios[ratios.size() / 2];
}

// The same by processor time, for work that its own thread does.
template<typename Work, typename Floor>
double ProcessorRatio(Work&& work, Floor&& floor, double workThings = 1, double floorThings = 1) {
    return MedianRatio(work, floor, workThings, floorThings, Time::Processor);
}

inline void PrintRatio(const char* name, double ratio, double limit) {
    std::printf("ratio %s %.2f (limit %.2f)%s\n", name, ratio, limit, ratio > limit ? " OVER" : "");
}

// Nanoseconds of one exchange of each kind, taken by turns. Of two processes that wait for each other
// the average, and even the median, tells how busy the machine is; the fastest tenth does not.
template<typename First, typename Second>
std::pair<double, double> UndisturbedExchanges(First&& first, Second&& second) {
    constexpr size_t kRounds = 5000;
    std::vector<double> firstTimes;
    std::vector<double> secondTimes;
    const auto measure = [](auto&& exchange, std::vector<double>& times) {
        const double start = Now(Time::Passing);
        benchmark::DoNotOptimize(exchange());
        times.push_back(Now(Time::Passing) - start);
    };
    for (size_t round = 0; round < kRounds; ++round) {
        measure(first, firstTimes);
        measure(second, secondTimes);
    }
    const auto fastestTenth = [](std::vector<double>& times) {
        std::nth_element(times.begin(), times.begin() + kRounds / 10, times.end());
        return times[kRounds / 10];
    };
    return {fastestTenth(firstTimes), fastestTenth(secondTimes)};
}

// Puts this process, or another one, on the processor that it runs on now, and so all that it starts
// from here on: where the scheduler happens to put two processes that wait for each other would cost
// more than what is measured.
inline void ShareOneProcessor(pid_t process = 0) {
    cpu_set_t processors;
    CPU_ZERO(&processors);
    CPU_SET(::sched_getcpu(), &processors);
    ::sched_setaffinity(process, sizeof processors, &processors);
}

// The ratio of such exchanges, with the two times.
template<typename Work, typename Floor>
void PrintExchangeRatio(const char* name, Work&& work, Floor&& floor, double limit) {
    const auto [workTime, floorTime] = UndisturbedExchanges(work, floor);
    std::printf("%s: %.1f us by %.1f us\n", name, workTime / 1000, floorTime / 1000);
    PrintRatio(name, workTime / floorTime, limit);
}

} // namespace hotel::bench
