// SPDX-License-Identifier: MIT
#include "playback/time_box.h"

#include <algorithm>
#include <charconv>

namespace quavix {
namespace {

/// So many digits can be typed, leading zeros with them.
bool CanBePartOfATime(const std::string& text) {
    constexpr std::size_t MostDigits = 2;
    return text.size() <= MostDigits &&
           std::all_of(text.begin(), text.end(), [](char digit) { return digit >= '0' && digit <= '9'; });
}

}  // namespace

TimeBox::TimeBox(int highest) : highest_(highest) {
    Text.Watch([this](const std::string&) { Change(); });
}

std::optional<int> TimeBox::Number() const {
    const std::string& text = Text.Get();
    int number = 0;
    const auto end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    if (read.ec != std::errc() || read.ptr != end || number < 0 || number > highest_)
        return std::nullopt;
    return number;
}

void TimeBox::Change() {
    if (!CanBePartOfATime(Text)) {
        Text = accepted_;
        return;
    }
    accepted_ = Text;
    BackColor = accepted_.empty() || Number() ? colour::WindowBackground : colour::Orange;
}

}  // namespace quavix
