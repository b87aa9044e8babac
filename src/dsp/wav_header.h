// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>

namespace quavix {

inline constexpr std::int64_t WavHeaderSize = 44;
/// What the RIFF size counts besides the sound.
inline constexpr std::int64_t WavRiffOverhead = WavHeaderSize - 8;
/// All WAV files here hold whole numbers of 16 bits.
inline constexpr int WavBytesPerSample = 2;
/// Stands in the header in the place of both sizes where they aren't known yet.
inline constexpr std::uint32_t WavUnknownSize = 0xFFFF'FFFF;

/// What stands in front of 16-bit PCM sound in a RIFF/WAVE file. `sampleRate` is 1 or more, `channels`
/// 1..32767; without `frames` the sizes are "unknown", and as many as that they must not reach.
std::array<char, WavHeaderSize> WavHeader(std::int64_t sampleRate, std::int64_t channels,
                                          std::optional<std::int64_t> frames);

}  // namespace quavix
