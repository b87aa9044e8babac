// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

// The song's numeric settings: where each starts and what it may be. The fields, the sliders and the song
// reader take their numbers from here.
namespace quavix {

struct Parameter {
    std::int32_t Default;
    std::int32_t Lowest;
    std::int32_t Highest;

    constexpr bool Contains(double value) const { return value >= Lowest && value <= Highest; }
    /// The nearest value of the range, as a slider takes it.
    constexpr double Nearest(double value) const {
        return value < Lowest ? Lowest : value > Highest ? Highest : value;
    }
};

namespace parameter {

/// Tempo in quarter-note beats per minute. Typed values outside the range are marked and ignored; a song's
/// are taken.
inline constexpr Parameter Bpm{140, 40, 600};
/// How far one click on the tempo's arrows goes.
inline constexpr std::int32_t BpmStep = 5;
/// Time that each of two alternating notes sounds, in ms; the same policy as the tempo.
inline constexpr Parameter AlternateTime{20, 15, 2000};
/// Octave of the middle key group. Typed values below the range become its lowest; there is no upper check.
inline constexpr Parameter KeyboardOctave{4, 2, 9};
/// Quarter-note beats per bar for the position display; the nearest value of the range is taken.
inline constexpr Parameter TimeSig{4, 1, 16};
/// Percentage of a line during which its note sounds; the nearest value of the range is taken.
inline constexpr Parameter NoteSilenceRatio{90, 0, 100};
/// Share of the remaining distance that a glide covers per chunk of tone, in ten-thousandths.
inline constexpr Parameter PitchMultiple{2500, 100, 10000};
/// How long a glide sounds after the last note, in ms.
inline constexpr Parameter SoundLength{250, 30, 3000};
/// Octaves by which the motor plays lower than written; the nearest value of the range is taken.
inline constexpr Parameter MotorOct{3, 0, 6};
/// Volume of the voice in ten-thousandths.
inline constexpr Parameter VoiceVol{2000, 0, 10000};
/// Choice in the note-length list; others are ignored. Starts at an eighth.
inline constexpr Parameter NoteLength{3, 0, 4};

}  // namespace parameter
}  // namespace quavix
