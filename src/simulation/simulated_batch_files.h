// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <system_error>

#include "ports/batch_files.h"
#include "simulation/simulated_files.h"
#include "simulation/simulated_time.h"
#include "simulation/timeline.h"

namespace quavix {

/// Runs batch files on simulated time, a line after `LineMs`. Commands go to the timeline; "erase" deletes.
class SimulatedBatchFiles : public BatchFiles {
  public:
    SimulatedBatchFiles(SimulatedTime& time, Timeline& timeline, SimulatedFiles& files)
        : time_(time), timeline_(timeline), files_(files) {}

    std::string RegisterCommand() override { return "register "; }
    std::string Quoted(const std::string& fileName) override { return '"' + fileName + '"'; }
    std::error_code Start(const std::string& fileName) override {
        timeline_.Record(time_.Now(), "batch " + fileName);
        if (!StartError)
            RunLines(files_.Content(fileName));
        return StartError;
    }

    double LineMs = 125;
    /// Why no batch file starts.
    std::error_code StartError;
    /// Runs with each line before the line does; false: the line and those after it never run.
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
            timeline_.Record(time_.Now(), "batch line " + line);
            const std::string erase = "erase \"";
            if (line.starts_with(erase))
                files_.Delete(line.substr(erase.size(), line.size() - erase.size() - 1));
            RunLines(end == std::string::npos ? "" : lines.substr(end + 1));
        });
    }

    SimulatedTime& time_;
    Timeline& timeline_;
    SimulatedFiles& files_;
};

}  // namespace quavix
