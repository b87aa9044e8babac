// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <utility>

namespace quavix {

/// A value that can be watched. Watchers run at once, in the order in which they were added, whenever the
/// value changes. A watcher may set the value again; the last value wins, and all watchers are told of it.
///
/// The value must outlive its watchers' use of it; watchers can't be removed.
template <typename T>
class Watched {
  public:
    Watched() = default;
    explicit Watched(T value) : value_(std::move(value)) {}
    Watched(const Watched&) = delete;
    Watched& operator=(const Watched&) = delete;

    const T& Get() const { return value_; }
    operator const T&() const { return value_; }

    Watched& operator=(T value) {
        if (!(value == value_)) {
            value_ = std::move(value);
            // By index, because a watcher may add another one, which is told as well.
            for (std::size_t i = 0; i < watchers_.size(); ++i)
                watchers_[i](value_);
        }
        return *this;
    }

    /// Calls `watcher` with every new value from now on.
    void Watch(std::function<void(const T&)> watcher) const { watchers_.push_back(std::move(watcher)); }

  private:
    T value_{};
    // A deque keeps a running watcher in place when others are added.
    mutable std::deque<std::function<void(const T&)>> watchers_;
};

}  // namespace quavix
