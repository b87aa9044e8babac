// SPDX-License-Identifier: MIT
#pragma once

#include "ports/clock.h"

namespace quavix {

/// The system's monotonic clock, in counts of 100 ns, and its wall clock.
class SystemClock : public Clock {
  public:
    std::int64_t PerformanceCounter() override;
    std::int64_t PerformanceFrequency() override { return 10'000'000; }
    std::uint32_t TickCount() override;
    TimeOfDay LocalTime() override;
    Date LocalDate() override;
};

}  // namespace quavix
