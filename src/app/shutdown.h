// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

#include "music/main_fields.h"
#include "ports/process_end.h"
#include "shell/debug_log.h"

namespace quavix {

/// The end of the program: outputs are released, then the process ends, whatever is on the stack.
class Shutdown {
  public:
    Shutdown(ProgramState& state, DebugLog& log, ProcessEnd& end) : state_(state), log_(log), end_(end) {}

    /// Adds what is shut down before all outputs.
    void BeforeShutDown(std::function<void()> release) { first_.push_back(std::move(release)); }

    /// Adds what releases an output, run in the order of adding.
    void OnShutDown(std::function<void()> release) { releases_.push_back(std::move(release)); }

    /// Ends the process. Nothing stops it: an output that can't be released, or a log that can't be written,
    /// is left as it is. A second call while the first is under way does nothing.
    void CloseProgram();

  private:
    void DoShutDownStuff();

    ProgramState& state_;
    DebugLog& log_;
    ProcessEnd& end_;
    std::vector<std::function<void()>> first_;
    std::vector<std::function<void()>> releases_;
};

}  // namespace quavix
