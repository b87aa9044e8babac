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

/// Sets the priority class of a process. Returns the class read back, or 0 if the process can't be opened.
/// Process 0 means the owner of `window`, or this process if the window is 0 too. Failures of the system
/// calls are ignored.
inline std::int32_t SetProcessPriority(Processes& processes, std::int32_t processId, std::intptr_t window,
                                       std::int32_t priorityClass) {
    if (processId == 0)
        processId = window == 0 ? processes.CurrentProcessId() : processes.WindowProcessId(window);
    ProcessHandle process =
        processes.Open(Processes::SetInformation | Processes::QueryInformation, processId);
    if (process != 0)
        processes.SetPriorityClass(process, priorityClass);
    else
        process = processes.Open(Processes::QueryInformation, processId);
    if (process == 0)
        return 0;
    const std::int32_t priorityClassNow = processes.GetPriorityClass(process);
    processes.Close(process);
    return priorityClassNow;
}

}  // namespace quavix
