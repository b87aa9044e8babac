// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>

#include "ports/timers.h"

namespace quavix {

/// A high-resolution timer with named entries, each of which ticks by itself while it is enabled. Intervals
/// are milliseconds; 0 and below stand for the shortest that there is, 1. A name that is no entry's raises
/// InvalidProcedureCall.
class HiResTimer {
  public:
    /// `tick` is given the name of the entry that ticks, inside the event loop. It may change every entry,
    /// its own too.
    HiResTimer(Timers& timers, std::function<void(const std::string& sKey)> tick);
    ~HiResTimer();
    HiResTimer(const HiResTimer&) = delete;
    HiResTimer& operator=(const HiResTimer&) = delete;

    /// Adds an entry. A name that is there already raises InvalidProcedureCall.
    void Add(const std::string& key, std::int32_t intervalMs, bool enabled);

    /// The next tick comes that much after the last one was due, so that ticks of changing intervals follow
    /// one another without drift.
    void SetInterval(const std::string& key, std::int32_t intervalMs);
    std::int32_t Interval(const std::string& key) const;

    /// Enabled anew, an entry counts from the start.
    void SetEnabled(const std::string& key, bool enabled);
    bool Enabled(const std::string& key) const;

  private:
    struct Entry {
        std::int32_t IntervalMs = 0;
        /// Runs only while the entry is enabled.
        Timers::Id Timer = 0;
    };

    Entry& At(const std::string& key);
    const Entry& At(const std::string& key) const;

    Timers& timers_;
    std::function<void(const std::string& sKey)> tick_;
    std::map<std::string, Entry> entries_;
};

}  // namespace quavix
