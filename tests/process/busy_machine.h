// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace quavix {

/// How much later than it should something may be seen on a busy machine, in nanoseconds.
inline constexpr std::int64_t SlackNs = 250'000'000;

}  // namespace quavix
