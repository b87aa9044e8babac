// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <string>

namespace quavix::test {

/// The note string nearest to a frequency, "A4" for 440 Hz.
inline std::string NoteName(double frequencyHz) {
    static constexpr std::array<const char*, 12> Names = {"C",  "C#", "D",  "D#", "E",  "F",
                                                          "F#", "G",  "G#", "A",  "A#", "B"};
    constexpr double A4Hz = 440;
    constexpr int A4 = 57;
    constexpr int Notes = 12;
    const int note = A4 + static_cast<int>(std::lround(Notes * std::log2(frequencyHz / A4Hz)));
    return Names[static_cast<std::size_t>(note % Notes)] + std::to_string(note / Notes);
}

}  // namespace quavix::test
