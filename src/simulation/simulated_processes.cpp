// SPDX-License-Identifier: MIT
#include "simulation/simulated_processes.h"

#include <fmt/format.h>

namespace quavix {

ProcessHandle SimulatedProcesses::Open(std::uint32_t access, std::int32_t processId) {
    calls_ += fmt::format("open {} rights {}\n", processId, access);
    return (access & RefuseRights) != 0 ? 0 : 1;
}

bool SimulatedProcesses::SetPriorityClass(ProcessHandle, std::int32_t priorityClass) {
    calls_ += fmt::format("set {}\n", priorityClass);
    PriorityClass = priorityClass;
    return true;
}

std::int32_t SimulatedProcesses::GetPriorityClass(ProcessHandle) {
    calls_ += "get\n";
    return PriorityClass;
}

void SimulatedProcesses::Close(ProcessHandle) {
    calls_ += "close\n";
}

}  // namespace quavix
