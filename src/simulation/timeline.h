// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <fmt/format.h>

namespace quavix {

/// What happened when, as text: one line per event, "12.5000 speaker 440 Hz 250 ms", the time in seconds of
/// simulated time with four decimals. Every simulated port writes to it.
class Timeline {
  public:
    /// `time` in counts of 100 ns.
    void Record(std::int64_t time, std::string_view event) {
        constexpr std::int64_t PerTenThousandth = 1000;
        constexpr std::int64_t PerSecond = 10'000'000;
        lines_.push_back(
            fmt::format("{}.{:04} {}", time / PerSecond, time % PerSecond / PerTenThousandth, event));
    }

    const std::vector<std::string>& Lines() const { return lines_; }

    /// All lines, each ended by a line feed; with `about`, only those whose event begins with it ("speaker").
    std::string Text(std::string_view about = {}) const {
        std::string text;
        for (const std::string& line : lines_) {
            if (std::string_view(line).substr(line.find(' ') + 1).starts_with(about))
                text += line + "\n";
        }
        return text;
    }

    void Clear() { lines_.clear(); }

  private:
    std::vector<std::string> lines_;
};

}  // namespace quavix
