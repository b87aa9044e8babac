// SPDX-License-Identifier: MIT
#include "shell/process_priority.h"

namespace quavix {

std::int32_t SetProcessPriority(Processes& processes, std::int32_t processId, std::intptr_t window,
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
