// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "platform/common/monotonic.h"

namespace quavix {

/// A clock that shows what it is told, and passes time by waiting only.
struct FakeTime {
    std::int64_t NowNs = 5 * NsPerSecond;

    ToneClock Clock() {
        return {[this] { return NowNs; }, [this](std::int64_t deadlineNs) { NowNs = deadlineNs; }};
    }
};

}  // namespace quavix
