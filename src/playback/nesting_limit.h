// SPDX-License-Identifier: MIT
#pragma once

namespace quavix {

/// The most runs of one handler inside one another, each started in a wait of the one before. Every run stays
/// on the stack until the ones inside it have ended, so clicks must not nest without a limit.
inline constexpr int MostNestedRuns = 8;

}  // namespace quavix
