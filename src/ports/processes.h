// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace quavix {

/// Identifies an open process; 0 is none.
using ProcessHandle = std::intptr_t;

/// The processes of the system and their priority classes (64 idle, 16384 below normal, 32 normal, 32768
/// above normal, 128 high, 256 realtime).
///
/// Thread: the user-interface thread. A failed call returns 0 or false and changes nothing.
class Processes {
  public:
    /// Rights for Open(): to set and to query information.
    static constexpr std::uint32_t SetInformation = 0x200;
    static constexpr std::uint32_t QueryInformation = 0x400;

    virtual ~Processes() = default;

    virtual std::int32_t CurrentProcessId() = 0;
    /// Returns the process that owns a window; 0 if there is no such window.
    virtual std::int32_t WindowProcessId(std::intptr_t window) = 0;
    /// Opens a process with the given rights. Returns 0 if it does not exist or the rights are refused.
    virtual ProcessHandle Open(std::uint32_t access, std::int32_t processId) = 0;
    virtual bool SetPriorityClass(ProcessHandle process, std::int32_t priorityClass) = 0;
    /// Returns the priority class, or 0 on failure.
    virtual std::int32_t GetPriorityClass(ProcessHandle process) = 0;
    virtual void Close(ProcessHandle process) = 0;
};

}  // namespace quavix
