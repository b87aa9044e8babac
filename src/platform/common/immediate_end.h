// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <cstdlib>

#include "ports/process_end.h"

namespace quavix {

/// Ends the process without running destructors or exit handlers, which might find the middle of a tone or of
/// playback on the stack.
class ImmediateEnd : public ProcessEnd {
  public:
    [[noreturn]] void EndProcess() override {
        std::fflush(nullptr);
        std::_Exit(EXIT_SUCCESS);
    }
};

}  // namespace quavix
