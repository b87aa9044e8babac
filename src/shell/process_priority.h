// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "ports/processes.h"

namespace quavix {

/// Names of the priority classes, for display.
namespace priority {
inline constexpr const char* Idle = "Idle";
inline constexpr const char* BelowNormal = "Below Normal";
inline constexpr const char* Normal = "Normal";
inline constexpr const char* AboveNormal = "Above Normal";
inline constexpr const char* High = "High";
inline constexpr const char* Realtime = "Realtime";
inline constexpr const char* Unknown = "Unknown:";
}  // namespace priority

/// Sets the priority class of a process and returns the class read back, 0 when the process can't be opened
/// at all. Process 0 stands for the owner of `window`, or for this process where the window is 0 too.
/// Failures of the system calls are ignored.
std::int32_t SetProcessPriority(Processes& processes, std::int32_t processId, std::intptr_t window,
                                std::int32_t priorityClass);

}  // namespace quavix
