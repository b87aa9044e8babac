// SPDX-License-Identifier: MIT
#pragma once

#include <utility>

namespace quavix {

/// Gives a value (plain or watched) another content for as long as it lives, and a third one afterwards.
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

/// Sets a flag for as long as it lives, and then gives the flag back what it was.
class ScopedFlag : public ScopedValue<bool, bool> {
  public:
    explicit ScopedFlag(bool& flag) : ScopedValue(flag, true, flag) {}
};

/// Counts up for as long as it lives.
class ScopedCount {
  public:
    explicit ScopedCount(int& count) : count_(count) { ++count_; }
    ~ScopedCount() { --count_; }
    ScopedCount(const ScopedCount&) = delete;
    ScopedCount& operator=(const ScopedCount&) = delete;

  private:
    int& count_;
};

/// Calls a function at the end of its scope, also after an error. The function must not raise one.
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
