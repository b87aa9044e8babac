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
/// Stands for the system's window background.
inline constexpr std::int32_t WindowBackground = -1;
}  // namespace colour

/// A setting's value, and its presentation in its control.
struct SettingState {
    /// The number in use.
    std::int32_t Value = 0;
    /// The song's number: the number in use without the effect of SetForNow().
    std::int32_t OfSong = 0;
    /// Text of the field, or the caption beside the slider.
    std::string Text{};
    /// Background of the field: orange while its text is an ignored number.
    std::int32_t BackColor = colour::WindowBackground;

    friend bool operator==(const SettingState&, const SettingState&) = default;
};

/// A number that the user types, slides or steps, and that songs contain. Its Parameter holds its range and
/// the rule for other input. Watchers are called after the whole state has been set.
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

    /// Returns the number in the text; none for an empty text, and for an ignored number.
    std::optional<std::int32_t> Typed() const;

    /// Takes the content of the text field by the parameter's rule. An empty text changes the text only. A
    /// slider takes the nearest number of its range, and ignores other text.
    void Type(const std::string& text);
    /// Moves one step up (1) or down (-1), as an arrow beside the text field does, within the range.
    void Step(std::int32_t direction);
    /// Sets a number and shows it. A slider limits it to its range; a field takes it, and marks one outside.
    void Set(std::int32_t value);
    /// Takes a song's text, read leniently, and shows it. Raises Overflow, with nothing changed, if the
    /// number is out of range of the setting's type.
    void Load(const std::string& text);
    /// Returns to the default.
    void Reset() { Set(range_.Default); }

    /// Sets a number that is not the song's, until the next change by other means.
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
