// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "music/parameters.h"

// The sliders of the voice. Volumes are in ten-thousandths, frequencies in Hz. The voice's own volume stands
// with the main window's parameters, as playback reads it.
namespace quavix::parameter {

/// The buzzing source, and the breath in it.
inline constexpr Parameter SawVol{1500, 0, 10000};
inline constexpr Parameter NoiseVol{200, 0, 10000};
inline constexpr Parameter CutoffFreq{6000, 100, 12000};
/// Shift of all formants together, in thousandths: below 0 the voice is that of a bigger body, above of a
/// smaller one.
inline constexpr Parameter FormantTimbre{0, -500, 500};
/// How far the formants move at random to either side. A little of it keeps a long note alive.
inline constexpr Parameter FormantRandomFreq{10, 0, 500};
/// Each formant's; together they start as a vowel, not with these defaults.
inline constexpr Parameter FormantFreq{1000, 100, 5000};
inline constexpr Parameter FormantVol{100, 0, 100};

}  // namespace quavix::parameter

namespace quavix {

/// How many formants the voice has: the bands of a voice's sound that make its vowel.
inline constexpr std::size_t FormantCount = 4;

/// A formant: its frequency in Hz, and its volume, 0 to 100.
struct Formant {
    std::int32_t Frequency;
    std::int32_t Volume;
};

using Vowel = std::array<Formant, FormantCount>;

/// Formants that the vowel buttons set.
namespace vowel {
inline constexpr Vowel A{{{1180, 92}, {1675, 100}, {2558, 90}, {3355, 60}}};
inline constexpr Vowel E{{{814, 98}, {1934, 100}, {2623, 96}, {3829, 65}}};
inline constexpr Vowel I{{{426, 65}, {2537, 94}, {2989, 80}, {4001, 70}}};
inline constexpr Vowel O{{{900, 88}, {1158, 88}, {2258, 87}, {3355, 60}}};
inline constexpr Vowel U{{{512, 55}, {2020, 90}, {2429, 90}, {3742, 70}}};
}  // namespace vowel

}  // namespace quavix
