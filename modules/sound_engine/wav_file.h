// SPDX-License-Identifier: MIT
#pragma once

#include <fstream>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "dsp/wav_writer.h"

namespace quavix::sound_engine {

/// Blocks of mono sound as a stereo WAV file.
class WavFile {
  public:
    static constexpr int Channels = 2;

    /// Replaces the file. Blocks have at most `mostFrames`.
    WavFile(const std::string& name, int framesPerSecond, std::size_t mostFrames);
    /// Completes the file.
    ~WavFile();
    WavFile(const WavFile&) = delete;
    WavFile& operator=(const WavFile&) = delete;

    /// Whether all went well so far.
    bool Good() const { return good_; }

    void Write(std::span<const float> block);
    void WriteSilence(std::size_t frames);

  private:
    std::ofstream stream_;
    std::optional<WavWriter> writer_;
    std::vector<float> frames_;
    bool good_ = false;
};

}  // namespace quavix::sound_engine
