// SPDX-License-Identifier: MIT
// Measures the precision of the program's timers: for intervals from 1 to 15 ms, and for one that changes
// with every tick, the error of the time between two ticks and the lateness on the absolute timetable.
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <vector>

#include <QCoreApplication>
#include <fmt/format.h>

#include "platform/qt/qt_event_loop.h"

namespace {

using namespace quavix;
using SteadyClock = std::chrono::steady_clock;

double Ms(SteadyClock::duration time) {
    return std::chrono::duration<double, std::milli>(time).count();
}

double Quantile(std::vector<double> values, double share) {
    std::sort(values.begin(), values.end());
    return values[static_cast<std::size_t>(share * static_cast<double>(values.size() - 1))];
}

/// Uses the intervals in turn: each tick sets the next one.
void Measure(const char* name, const std::vector<int>& intervals) {
    constexpr double Seconds = 5;
    constexpr std::ptrdiff_t Ends = 50;
    std::vector<double> errors;
    std::vector<double> lateness;
    double due = 0;
    int missed = 0;
    std::size_t at = 0;
    QtTimers timers;
    const auto start = SteadyClock::now();
    auto last = start;
    Timers::Id timer = 0;
    timer = timers.Start(intervals[0], [&] {
        const auto now = SteadyClock::now();
        due += intervals[at];
        while (Ms(now - start) >= due + intervals[at]) {
            due += intervals[at];
            ++missed;
        }
        errors.push_back(std::abs(Ms(now - last) - intervals[at]));
        lateness.push_back(Ms(now - start) - due);
        last = now;
        at = (at + 1) % intervals.size();
        timers.SetInterval(timer, intervals[at]);
    });
    while (due < Seconds * 1000)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    const double drift = Quantile({lateness.end() - Ends, lateness.end()}, 0.5) -
                         Quantile({lateness.begin(), lateness.begin() + Ends}, 0.5);
    fmt::print("{:>8}  {:6} {:6}  {:7.3f}  {:7.3f}  {:7.3f}  {:7.3f}  {:+8.3f}\n", name, errors.size(),
               missed, Quantile(errors, 0.5), Quantile(errors, 0.99), Quantile(lateness, 0.5),
               Quantile(lateness, 0.99), drift);
    std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    fmt::print("                           interval error (ms)   lateness (ms)      drift\n");
    fmt::print("interval   ticks missed   median     99 %   median     99 %   in 5 s\n");
    for (const int interval : {1, 2, 3, 5, 8, 10, 15})
        Measure(std::to_string(interval).c_str(), {interval});
    Measure("15..1", {15, 10, 8, 6, 5, 4, 3, 2, 1});
}
