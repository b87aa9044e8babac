// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

#include "music/main_fields.h"
#include "ports/process_end.h"
#include "shell/debug_log.h"

namespace quavix {

/// The end of the program: releases the outputs, then ends the process, whatever is on the stack.
class Shutdown {
  public:
    Shutdown(ProgramState& state, DebugLog& log, ProcessEnd& end) : state_(state), log_(log), end_(end) {}

    /// Adds a function to run before all outputs are released.
    void BeforeShutDown(std::function<void()> release) { first_.push_back(std::move(release)); }

    /// Adds a function that releases an output; they run in the order of adding.
    void OnShutDown(std::function<void()> release) { releases_.push_back(std::move(release)); }

    /// Ends the process in any case: failures to release an output or to write the log are ignored. A second
    /// call during the first does nothing.
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
