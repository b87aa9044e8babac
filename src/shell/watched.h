// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <utility>

namespace quavix {

/// A value that others can watch. Watchers run at once, in the order in which they came, each time a
/// different value is set. A watcher may set the value again; the last one set wins and everybody is told of
/// it.
///
/// The watched value must outlive its watchers' use of it; a watcher is not removed except with the value.
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
            // By index: a watcher may add another one, and that is told as well.
            for (std::size_t i = 0; i < watchers_.size(); ++i)
                watchers_[i](value_);
        }
        return *this;
    }

    /// Calls `watcher` with every new value from now on.
    void Watch(std::function<void(const T&)> watcher) const { watchers_.push_back(std::move(watcher)); }

  private:
    T value_{};
    // A watcher that runs stays where it is when others come. Watching a value is no change of it.
    mutable std::deque<std::function<void(const T&)>> watchers_;
};

}  // namespace quavix
