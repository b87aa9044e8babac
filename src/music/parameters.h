// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <limits>

// The numeric settings: their defaults, ranges and rules for other numbers. The fields, the sliders and the
// song reader use them.
namespace quavix {

/// Treatment of numbers outside a setting's range, and of texts that are no number.
enum class InputRule {
    /// For sliders: any number becomes the nearest one in the range.
    Nearest,
    /// For text fields: a typed number outside the range marks the field and is ignored; any other text is
    /// replaced by the present number. A song's number is taken even outside the range.
    Marked,
    /// Same, but limited above by the type only; a typed number below the range becomes the lowest.
    AtLeastLowest,
    /// Same as Marked, but only digits can be typed, at most two.
    Digits,
};

struct Parameter {
    std::int32_t Default;
    std::int32_t Lowest;
    std::int32_t Highest;
    InputRule Rule = InputRule::Nearest;
    /// Range of the integer type that holds the setting.
    std::int32_t TypeLowest = std::numeric_limits<std::int32_t>::min();
    std::int32_t TypeHighest = std::numeric_limits<std::int32_t>::max();
    /// Change per click on the arrows beside the field.
    std::int32_t Step = 1;
    /// Form of the shown number: at least this many digits, then the unit.
    int LeastDigits = 1;
    const char* Unit = "";

    constexpr bool Contains(double value) const { return value >= Lowest && value <= Highest; }
    /// Returns the nearest value of the range.
    constexpr double Nearest(double value) const {
        return value < Lowest ? Lowest : value > Highest ? Highest : value;
    }
};

namespace parameter {

/// Tempo in quarter-note beats per minute.
inline constexpr Parameter Bpm{
    .Default = 140, .Lowest = 40, .Highest = 600, .Rule = InputRule::Marked, .Step = 5};
/// Duration of each of two alternating notes, in ms.
inline constexpr Parameter AlternateTime{.Default = 20,
                                         .Lowest = 15,
                                         .Highest = 2000,
                                         .Rule = InputRule::Marked,
                                         .TypeLowest = std::numeric_limits<std::int16_t>::min(),
                                         .TypeHighest = std::numeric_limits<std::int16_t>::max()};
/// Octave of the middle key group.
inline constexpr Parameter KeyboardOctave{.Default = 4,
                                          .Lowest = 2,
                                          .Highest = 9,
                                          .Rule = InputRule::AtLeastLowest,
                                          .TypeLowest = std::numeric_limits<std::uint8_t>::min(),
                                          .TypeHighest = std::numeric_limits<std::uint8_t>::max()};
/// Quarter-note beats per bar for the position display.
inline constexpr Parameter TimeSig{4, 1, 16};
/// Part of a line's time during which its note sounds, in percent.
inline constexpr Parameter NoteSilenceRatio{
    .Default = 90, .Lowest = 0, .Highest = 100, .LeastDigits = 2, .Unit = "%"};
/// Part of the remaining distance that a glide covers per chunk of tone, in ten-thousandths.
inline constexpr Parameter PitchMultiple{2500, 100, 10000};
/// Duration of a glide after the last note, in ms.
inline constexpr Parameter SoundLength{250, 30, 3000};
/// Number of octaves by which the motor plays lower than written.
inline constexpr Parameter MotorOct{3, 0, 6};
/// Volume of the voice in ten-thousandths.
inline constexpr Parameter VoiceVol{2000, 0, 10000};
/// Index in the note-length list; other values are ignored. The default is an eighth.
inline constexpr Parameter NoteLength{3, 0, 4};
/// Parts of a time of day.
inline constexpr Parameter Hour{.Default = 0, .Lowest = 0, .Highest = 23, .Rule = InputRule::Digits};
inline constexpr Parameter Minute{.Default = 0, .Lowest = 0, .Highest = 59, .Rule = InputRule::Digits};
inline constexpr Parameter Second = Minute;

}  // namespace parameter
}  // namespace quavix
