// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace quavix {

/// Only what hangs takes so many nanoseconds longer than it should, however busy the machine is.
inline constexpr std::int64_t HangNs = 60'000'000'000;

}  // namespace quavix
