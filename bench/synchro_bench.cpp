// SPDX-License-Identifier: MIT
// Repeatedly starts two processes at the same second of the wall clock, and prints the distance of their
// first tones, and their lateness after the second by each process's own clock.
#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include <fmt/format.h>

#include "process/desktop/desktop_process.h"

int main(int argc, char** argv) {
    using namespace quavix;
    constexpr int DefaultRounds = 10;
    constexpr double NsPerMs = 1e6;
    const int rounds = argc > 1 ? std::atoi(argv[1]) : DefaultRounds;
    double worst = 0;
    for (int round = 1; round <= rounds; ++round) {
        const StartTime start(1);
        const DesktopProcess first(start.ChildsArguments(), start.TimeZone);
        const DesktopProcess second(start.ChildsArguments(), start.TimeZone);
        const auto lateMs = [&start](const DesktopProcess& process) {
            return static_cast<double>(std::atoll(process.Output().c_str()) - start.AtNs) / NsPerMs;
        };
        const double one = lateMs(first);
        const double other = lateMs(second);
        const double apart = std::max(one, other) - std::min(one, other);
        worst = std::max(worst, apart);
        fmt::print("{:2}: {:6.3f} ms apart, {:6.3f} and {:6.3f} ms after the second\n", round, apart, one,
                   other);
    }
    fmt::print("worst: {:.3f} ms apart\n", worst);
    return EXIT_SUCCESS;
}
