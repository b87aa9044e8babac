// SPDX-License-Identifier: MIT
#pragma once

namespace quavix::test {

/// How long a test waits for something that comes sooner even on a busy machine, and fails then.
inline constexpr int PatienceMs = 60'000;

}  // namespace quavix::test
