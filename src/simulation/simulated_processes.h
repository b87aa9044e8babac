// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <fmt/format.h>

#include "ports/process_end.h"
#include "ports/processes.h"
#include "simulation/simulated_time.h"
#include "simulation/timeline.h"

namespace quavix {

/// One process of any number, that remembers what was done to it. This process is 4711, every window's owner
/// 815.
class SimulatedProcesses : public Processes {
  public:
    std::int32_t CurrentProcessId() override { return 4711; }
    std::int32_t WindowProcessId(std::intptr_t) override { return 815; }
    ProcessHandle Open(std::uint32_t access, std::int32_t processId) override {
        calls_ += fmt::format("open {} rights {}\n", processId, access);
        return (access & RefuseRights) != 0 ? 0 : 1;
    }
    bool SetPriorityClass(ProcessHandle, std::int32_t priorityClass) override {
        calls_ += fmt::format("set {}\n", priorityClass);
        PriorityClass = priorityClass;
        return true;
    }
    std::int32_t GetPriorityClass(ProcessHandle) override {
        calls_ += "get\n";
        return PriorityClass;
    }
    void Close(ProcessHandle) override { calls_ += "close\n"; }

    /// The calls so far, a line each.
    const std::string& Calls() const { return calls_; }

    /// Opening with any of these rights is refused.
    std::uint32_t RefuseRights = 0;
    std::int32_t PriorityClass = 32;

  private:
    std::string calls_;
};

/// Writes the end of the process to the timeline, and goes on.
class RecordedProcessEnd : public ProcessEnd {
  public:
    RecordedProcessEnd(SimulatedTime& time, Timeline& timeline) : time_(time), timeline_(timeline) {}
    void EndProcess() override { timeline_.Record(time_.Now(), "process ends"); }

  private:
    SimulatedTime& time_;
    Timeline& timeline_;
};

}  // namespace quavix
