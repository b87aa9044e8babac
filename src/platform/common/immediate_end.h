// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <cstdlib>

#include "ports/process_end.h"

namespace quavix {

/// Ends the process without destructors or exit handlers, because a tone or playback may be in progress on
/// the stack.
class ImmediateEnd : public ProcessEnd {
  public:
    [[noreturn]] void EndProcess() override {
        std::fflush(nullptr);
        std::_Exit(EXIT_SUCCESS);
    }
};

}  // namespace quavix
