// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quavix::test {

/// The sound of a WAV file.
struct WavSound {
    std::int32_t SampleRate = 0;
    std::int32_t Channels = 0;
    /// -1..1; a frame's samples one after the other.
    std::vector<float> Samples;

    std::size_t Frames() const { return Samples.size() / static_cast<std::size_t>(Channels); }
};

/// Returns all sound that WavReader finds in `bytes`, or nothing if it rejects them.
std::optional<WavSound> ReadWav(const std::string& bytes);

/// Returns the sound of a file, or nothing if the file can't be read or is rejected.
std::optional<WavSound> ReadWavFile(const std::string& fileName);

}  // namespace quavix::test
