// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quavix::test {

/// The sound of a WAV file.
struct WavSound {
    std::int32_t SampleRate = 0;
    std::int32_t Channels = 0;
    /// -1..1; a frame's samples one after the other.
    std::vector<float> Samples;
    /// The size the "data" chunk states in its header, in bytes; 0xFFFFFFFF is "unknown".
    std::uint32_t StatedDataBytes = 0;
    /// The size the RIFF header states, in bytes.
    std::uint32_t StatedRiffBytes = 0;

    /// Frames of sound that are really there.
    std::size_t Frames() const { return Samples.size() / static_cast<std::size_t>(Channels); }
};

/// The sound in `bytes`: RIFF/WAVE, 16-bit PCM, one or two channels. The sound ends where the bytes do, where
/// the "data" chunk states more than there is. Nothing for anything else, whatever the bytes are.
std::optional<WavSound> ReadWav(std::string_view bytes);

/// The same from a file; nothing too when it cannot be read.
std::optional<WavSound> ReadWavFile(const std::string& fileName);

}  // namespace quavix::test
