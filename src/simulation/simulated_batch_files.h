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
    std::error_code Start(const std::string& fileName) override;

    double LineMs = 125;
    /// Why no batch file starts.
    std::error_code StartError;
    /// Runs with each line before the line does; false: the line and those after it never run.
    std::function<bool(const std::string& line)> OnLine;

  private:
    void RunLines(const std::string& lines);

    SimulatedTime& time_;
    Timeline& timeline_;
    SimulatedFiles& files_;
};

}  // namespace quavix
