// SPDX-License-Identifier: MIT
#pragma once

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
