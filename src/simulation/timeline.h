// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quavix {

/// What happened when, as text: one line per event, "12.5000 speaker 440 Hz 250 ms", the time in seconds of
/// simulated time with four decimals. Every simulated port writes to it.
class Timeline {
  public:
    /// `time` in counts of 100 ns.
    void Record(std::int64_t time, std::string_view event);

    const std::vector<std::string>& Lines() const { return lines_; }

    /// All lines, each ended by a line feed; with `about`, only those whose event begins with it ("speaker").
    std::string Text(std::string_view about = {}) const;

    void Clear() { lines_.clear(); }

  private:
    std::vector<std::string> lines_;
};

}  // namespace quavix
