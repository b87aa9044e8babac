// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "music/parameters.h"
#include "shell/watched.h"

namespace quavix {

/// Colour values as red + green × 256 + blue × 65536.
namespace colour {
inline constexpr std::int32_t Orange = 33023;
inline constexpr std::int32_t DarkGreen = 32768;
inline constexpr std::int32_t Red = 255;
inline constexpr std::int32_t Yellow = 65535;
/// The system's window background.
inline constexpr std::int32_t WindowBackground = -1;
}  // namespace colour

/// A setting as the program uses it and as its control shows it.
struct SettingState {
    /// The number in use.
    std::int32_t Value = 0;
    /// The number without what SetForNow() has set.
    std::int32_t OfSong = 0;
    /// Text of the field, or the caption beside the slider.
    std::string Text{};
    /// The field is orange while its text is a number that was ignored.
    std::int32_t BackColor = colour::WindowBackground;

    friend bool operator==(const SettingState&, const SettingState&) = default;
};

/// One number that the user types, slides or steps and that songs bring along. Its Parameter says what it may
/// be and what becomes of other input. Watchers are told after all parts of the state have been set.
class Setting {
  public:
    explicit Setting(const Parameter& range);

    std::int32_t Get() const { return state_.Get().Value; }
    operator std::int32_t() const { return Get(); }
    const std::string& Text() const { return state_.Get().Text; }
    std::int32_t BackColor() const { return state_.Get().BackColor; }
    std::int32_t OfSong() const { return state_.Get().OfSong; }
    const Watched<SettingState>& State() const { return state_; }
    const Parameter& Range() const { return range_; }

    /// The number that the text is; none for an empty text, and for a number that was ignored.
    std::optional<std::int32_t> Typed() const;

    /// Takes the content of the text field as the parameter's rule says. An empty text changes the text only.
    void Type(const std::string& text);
    /// Clicks an arrow beside the text field: one step up (1) or down (-1), to the end of the range at most.
    void Step(std::int32_t direction);
    /// Takes a number and shows it. Only a slider limits it to its range; a field marks one outside.
    void Set(std::int32_t value);
    /// Takes a song's text, read leniently, and shows it as a field can. Raises Overflow if the setting's
    /// type does not hold the number; nothing changes then.
    void Load(const std::string& text);
    /// Returns to the default.
    void Reset() { Set(range_.Default); }

    /// Sets a number that does not belong to the song, until the next change by other means.
    void SetForNow(std::int32_t value);
    /// Makes the number in use the song's.
    void Keep();

  private:
    std::string Shown(std::int32_t value) const;
    bool CanBeTyped(const std::string& text) const;
    bool Takes(double number) const;
    void Write(SettingState& state, const std::string& text) const;
    SettingState With(std::int32_t value, const std::string& text) const;

    Parameter range_;
    Watched<SettingState> state_;
};

}  // namespace quavix
