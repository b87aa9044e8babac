// SPDX-License-Identifier: MIT
#pragma once

namespace quavix {

/// Greatest number of nested runs of one handler, each started in a wait of the one before. A run stays on
/// the stack until the inner ones have ended, so clicks must not nest without limit.
inline constexpr int MostNestedRuns = 8;

}  // namespace quavix
