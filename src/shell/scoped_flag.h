// SPDX-License-Identifier: MIT
#pragma once

#include <utility>

namespace quavix {

/// Sets a flag for as long as it lives, and then gives the flag back what it was.
class ScopedFlag {
  public:
    explicit ScopedFlag(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
    ~ScopedFlag() { flag_ = before_; }
    ScopedFlag(const ScopedFlag&) = delete;
    ScopedFlag& operator=(const ScopedFlag&) = delete;

  private:
    bool& flag_;
    bool before_;
};

}  // namespace quavix
