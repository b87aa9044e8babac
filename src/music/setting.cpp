// SPDX-License-Identifier: MIT
#include "music/setting.h"

#include <algorithm>

#include "shell/numbers.h"
#include "shell/runtime_error.h"

namespace quavix {

Setting::Setting(const Parameter& range) : range_(range) {
    Reset();
}

std::optional<std::int32_t> Setting::Typed() const {
    if (Text().empty() || BackColor() != colour::WindowBackground)
        return std::nullopt;
    return Get();
}

void Setting::Type(const std::string& text) {
    if (range_.Rule == InputRule::Nearest) {
        if (IsNumeric(text))
            Set(ToInt32(range_.Nearest(Val(text))));
        return;
    }
    SettingState state = state_;
    Write(state, text);
    state.OfSong = state.Value;
    state_ = state;
}

void Setting::Step(std::int32_t direction) {
    Set(ToInt32(range_.Nearest(static_cast<double>(Get()) + direction * range_.Step)));
}

void Setting::Set(std::int32_t value) {
    state_ = With(value, Shown(value));
}

void Setting::Load(const std::string& text) {
    const std::int32_t value = ToInt32(Val(text));
    if (value < range_.TypeLowest || value > range_.TypeHighest)
        throw RuntimeError(RuntimeError::Overflow);
    state_ = With(value, text);
}

void Setting::SetForNow(std::int32_t value) {
    SettingState state = With(value, Shown(value));
    state.OfSong = OfSong();
    state_ = state;
}

void Setting::Keep() {
    SettingState state = state_;
    state.OfSong = state.Value;
    state_ = state;
}

std::string Setting::Shown(std::int32_t value) const {
    return FormatNumber(value, range_.LeastDigits) + range_.Unit;
}

bool Setting::CanBeTyped(const std::string& text) const {
    if (text.empty())
        return true;
    if (range_.Rule != InputRule::Digits)
        return IsNumeric(text);
    constexpr std::size_t MostDigits = 2;
    return text.size() <= MostDigits &&
           std::all_of(text.begin(), text.end(), [](char digit) { return digit >= '0' && digit <= '9'; });
}

bool Setting::Takes(double number) const {
    return range_.Rule == InputRule::AtLeastLowest ? RoundHalfEven(number) <= range_.TypeHighest
                                                   : range_.Contains(number);
}

/// Applies the rules of the text fields. Impossible text is replaced by the present number or ignored.
void Setting::Write(SettingState& state, const std::string& text) const {
    if (!CanBeTyped(text)) {
        if (range_.Rule != InputRule::Digits)
            Write(state, Shown(state.Value));
        return;
    }
    const double number = Val(text);
    if (range_.Rule == InputRule::AtLeastLowest && !text.empty() && number < range_.Lowest) {
        Write(state, Shown(range_.Lowest));
        return;
    }
    state.Text = text;
    if (text.empty()) {
        if (range_.Rule == InputRule::Digits)
            state.BackColor = colour::WindowBackground;
    } else if (Takes(number)) {
        state.BackColor = colour::WindowBackground;
        state.Value = ToInt32(number);
    } else {
        state.BackColor = colour::Orange;
    }
}

/// Returns the state with a number that is taken even if a field marks its text.
SettingState Setting::With(std::int32_t value, const std::string& text) const {
    SettingState state = state_;
    if (range_.Rule == InputRule::Nearest) {
        state.Value = static_cast<std::int32_t>(range_.Nearest(value));
        state.Text = Shown(state.Value);
    } else {
        state.Value = value;
        Write(state, text);
        state.Value = value;
    }
    state.OfSong = state.Value;
    return state;
}

}  // namespace quavix
