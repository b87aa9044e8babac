// SPDX-License-Identifier: MIT
#pragma once

#include "ports/processes.h"

namespace quavix {

/// Processes with their nice values as priority classes. The system's first process is out of bounds: it
/// can't be opened. A handle is the process's id with the rights it was opened with, so that there is nothing
/// to leak.
class PosixProcesses : public Processes {
  public:
    std::int32_t CurrentProcessId() override;
    /// Windows of other processes are not known here: always 0.
    std::int32_t WindowProcessId(std::intptr_t window) override;
    ProcessHandle Open(std::uint32_t access, std::int32_t processId) override;
    bool SetPriorityClass(ProcessHandle process, std::int32_t priorityClass) override;
    std::int32_t GetPriorityClass(ProcessHandle process) override;
    void Close(ProcessHandle process) override;
};

}  // namespace quavix
