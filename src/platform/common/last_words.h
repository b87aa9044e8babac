// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/posix/forked_guard.h"

namespace quavix {

/// Has a text written to a device when this process dies, even if it is killed.
class LastWords {
  public:
    /// Takes effect until Withdraw() or the end of the object. False: it can't be had, and Problem() says
    /// why.
    bool Leave(int device, const std::string& words);

    void Withdraw() { guard_.End(); }

    const std::string& Problem() const { return guard_.Problem(); }

  private:
    ForkedGuard guard_;
};

}  // namespace quavix
