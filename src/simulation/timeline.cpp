// SPDX-License-Identifier: MIT
#include "simulation/timeline.h"

#include <fmt/format.h>

namespace quavix {

void Timeline::Record(std::int64_t time, std::string_view event) {
    constexpr std::int64_t PerTenThousandth = 1000;
    constexpr std::int64_t PerSecond = 10'000'000;
    lines_.push_back(
        fmt::format("{}.{:04} {}", time / PerSecond, time % PerSecond / PerTenThousandth, event));
}

std::string Timeline::Text(std::string_view about) const {
    std::string text;
    for (const std::string& line : lines_) {
        if (std::string_view(line).substr(line.find(' ') + 1).starts_with(about))
            text += line + "\n";
    }
    return text;
}

}  // namespace quavix
