// SPDX-License-Identifier: MIT
#pragma once

#include <utility>

namespace quavix {

/// Sets a value (plain or watched) during its lifetime, and another one afterwards.
template <typename Target, typename Content>
class ScopedValue {
  public:
    ScopedValue(Target& target, Content meanwhile, Content afterwards)
        : target_(target), afterwards_(std::move(afterwards)) {
        target_ = std::move(meanwhile);
    }
    ~ScopedValue() { target_ = std::move(afterwards_); }
    ScopedValue(const ScopedValue&) = delete;
    ScopedValue& operator=(const ScopedValue&) = delete;

  private:
    Target& target_;
    Content afterwards_;
};

/// Sets a flag during its lifetime, and restores the old value afterwards.
class ScopedFlag : public ScopedValue<bool, bool> {
  public:
    explicit ScopedFlag(bool& flag) : ScopedValue(flag, true, flag) {}
};

/// Increments a counter during its lifetime.
class ScopedCount {
  public:
    explicit ScopedCount(int& count) : count_(count) { ++count_; }
    ~ScopedCount() { --count_; }
    ScopedCount(const ScopedCount&) = delete;
    ScopedCount& operator=(const ScopedCount&) = delete;

  private:
    int& count_;
};

/// Greatest number of nested runs of one handler, each started in a wait of the one before. A run stays on
/// the stack until the inner ones have ended, so clicks must not nest without limit.
inline constexpr int MostNestedRuns = 8;

/// Calls a function at the end of its scope, even after an error. The function must not raise errors.
template <typename Function>
class AtScopeEnd {
  public:
    explicit AtScopeEnd(Function function) : function_(std::move(function)) {}
    ~AtScopeEnd() { function_(); }
    AtScopeEnd(const AtScopeEnd&) = delete;
    AtScopeEnd& operator=(const AtScopeEnd&) = delete;

  private:
    Function function_;
};

}  // namespace quavix
