// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <limits>

// The numeric settings: where each starts, what it may be, and what becomes of other numbers. The fields, the
// sliders and the song reader take their numbers from here.
namespace quavix {

/// Treatment of a number outside a setting's range, and of a text that is no number.
enum class InputRule {
    /// A slider's: the nearest number of the range is taken, wherever it comes from.
    Nearest,
    /// A text field's: a typed number outside the range marks the field and is ignored, any other text
    /// becomes the present number. A song's number is taken.
    Marked,
    /// The same without an upper end, and a typed number below the range becomes its lowest.
    AtLeastLowest,
    /// Like Marked; only digits can be typed, at most two.
    Digits,
};

struct Parameter {
    std::int32_t Default;
    std::int32_t Lowest;
    std::int32_t Highest;
    InputRule Rule = InputRule::Nearest;
    /// The integer type that holds the setting.
    std::int32_t TypeLowest = std::numeric_limits<std::int32_t>::min();
    std::int32_t TypeHighest = std::numeric_limits<std::int32_t>::max();
    /// Change of one click on the arrows beside the field.
    std::int32_t Step = 1;
    /// Form of the shown number: at least so many digits, then the unit.
    int LeastDigits = 1;
    const char* Unit = "";

    constexpr bool Contains(double value) const { return value >= Lowest && value <= Highest; }
    /// The nearest value of the range.
    constexpr double Nearest(double value) const {
        return value < Lowest ? Lowest : value > Highest ? Highest : value;
    }
};

namespace parameter {

/// Tempo in quarter-note beats per minute.
inline constexpr Parameter Bpm{
    .Default = 140, .Lowest = 40, .Highest = 600, .Rule = InputRule::Marked, .Step = 5};
/// Time that each of two alternating notes sounds, in ms.
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
/// Percentage of a line during which its note sounds.
inline constexpr Parameter NoteSilenceRatio{
    .Default = 90, .Lowest = 0, .Highest = 100, .LeastDigits = 2, .Unit = "%"};
/// Share of the remaining distance that a glide covers per chunk of tone, in ten-thousandths.
inline constexpr Parameter PitchMultiple{2500, 100, 10000};
/// How long a glide sounds after the last note, in ms.
inline constexpr Parameter SoundLength{250, 30, 3000};
/// Octaves by which the motor plays lower than written.
inline constexpr Parameter MotorOct{3, 0, 6};
/// Volume of the voice in ten-thousandths.
inline constexpr Parameter VoiceVol{2000, 0, 10000};
/// Choice in the note-length list; others are ignored. Starts at an eighth.
inline constexpr Parameter NoteLength{3, 0, 4};
/// Numbers of a time of day.
inline constexpr Parameter Hour{.Default = 0, .Lowest = 0, .Highest = 23, .Rule = InputRule::Digits};
inline constexpr Parameter Minute{.Default = 0, .Lowest = 0, .Highest = 59, .Rule = InputRule::Digits};
inline constexpr Parameter Second = Minute;

}  // namespace parameter
}  // namespace quavix
