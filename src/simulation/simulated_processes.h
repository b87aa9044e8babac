// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <system_error>

#include <fmt/format.h>

#include "ports/batch_files.h"
#include "ports/processes.h"
#include "simulation/simulated_files.h"
#include "simulation/simulated_time.h"

namespace quavix {

/// A simulated process that records all calls, whatever the process id. This process has id 4711; every
/// window belongs to 815.
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

    /// Returns the calls so far, one per line.
    const std::string& Calls() const { return calls_; }

    /// Rights whose request makes Open() fail.
    std::uint32_t RefuseRights = 0;
    std::int32_t PriorityClass = 32;

  private:
    std::string calls_;
};

/// Runs batch files on simulated time, a line every `LineMs`. Commands go to the timeline; "erase" deletes.
class SimulatedBatchFiles : public BatchFiles, private Recorder {
  public:
    SimulatedBatchFiles(SimulatedTime& time, Timeline& timeline, SimulatedFiles& files)
        : Recorder(time, timeline), files_(files) {}

    std::string RegisterCommand() override { return "register "; }
    std::string Quoted(const std::string& fileName) override { return '"' + fileName + '"'; }
    std::error_code Start(const std::string& fileName) override {
        Record("batch " + fileName);
        if (!StartError)
            RunLines(files_.Content(fileName));
        return StartError;
    }

    double LineMs = 125;
    /// Error that Start() returns; none by default.
    std::error_code StartError;
    /// Called before each line runs; if it returns false, this line and the later ones do not run.
    std::function<bool(const std::string& line)> OnLine;

  private:
    void RunLines(const std::string& lines) {
        if (lines.empty())
            return;
        const double nowMs = static_cast<double>(time_.Now()) / SimulatedTime::CountsPerMs;
        time_.At(nowMs + LineMs, [this, lines] {
            const std::size_t end = lines.find('\n');
            const std::string line = lines.substr(0, end);
            if (OnLine && !OnLine(line))
                return;
            Record("batch line " + line);
            const std::string erase = "erase \"";
            if (line.starts_with(erase))
                files_.Delete(line.substr(erase.size(), line.size() - erase.size() - 1));
            RunLines(end == std::string::npos ? "" : lines.substr(end + 1));
        });
    }

    SimulatedFiles& files_;
};

}  // namespace quavix
