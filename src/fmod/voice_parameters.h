// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "music/parameters.h"

// Sliders of the voice. Volumes are in ten-thousandths, frequencies in Hz. The voice's own volume is among
// the main window's parameters, because playback reads it.
namespace quavix::parameter {

/// Volumes of the voice's tone, and of the breath in it.
inline constexpr Parameter SawVol{1500, 0, 10000};
inline constexpr Parameter NoiseVol{200, 0, 10000};
inline constexpr Parameter CutoffFreq{6000, 100, 12000};
/// Shift of all formants together, in thousandths: below 0 the voice sounds bigger, above 0 smaller.
inline constexpr Parameter FormantTimbre{0, -500, 500};
/// Greatest random deviation of the formants to either side. A little keeps a long note alive.
inline constexpr Parameter FormantRandomFreq{10, 0, 500};
/// Ranges of each formant; the formants start as a vowel, not with these defaults.
inline constexpr Parameter FormantFreq{1000, 100, 5000};
inline constexpr Parameter FormantVol{100, 0, 100};

}  // namespace quavix::parameter

namespace quavix {

/// Number of formants, the bands of a voice's sound that make its vowel.
inline constexpr std::size_t FormantCount = 4;

/// A formant: its frequency in Hz, and its volume, 0 to 100.
struct Formant {
    std::int32_t Frequency;
    std::int32_t Volume;
};

using Vowel = std::array<Formant, FormantCount>;

/// Formants of the vowel buttons.
namespace vowel {
inline constexpr Vowel A{{{1180, 92}, {1675, 100}, {2558, 90}, {3355, 60}}};
inline constexpr Vowel E{{{814, 98}, {1934, 100}, {2623, 96}, {3829, 65}}};
inline constexpr Vowel I{{{426, 65}, {2537, 94}, {2989, 80}, {4001, 70}}};
inline constexpr Vowel O{{{900, 88}, {1158, 88}, {2258, 87}, {3355, 60}}};
inline constexpr Vowel U{{{512, 55}, {2020, 90}, {2429, 90}, {3742, 70}}};
}  // namespace vowel

}  // namespace quavix
