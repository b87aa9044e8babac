// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <istream>
#include <span>
#include <vector>

namespace quavix {

/// Reads 16-bit PCM sound from a RIFF/WAVE stream piece by piece, as one channel: the first one of each
/// frame. Any thread, one at a time; the stream must outlive the reader.
class WavReader {
  public:
    /// Reads the header from where `in` stands (opened as binary).
    explicit WavReader(std::istream& in);

    /// Whether the header is one of such a sound; otherwise there is nothing to read.
    bool IsGood() const { return channels_ > 0; }
    std::int32_t SampleRate() const { return sampleRate_; }

    /// Reads up to `samples.size()` frames as -1..1 and returns how many; 0 at the end of the sound, be it
    /// the one that the header states or the stream's own.
    std::size_t Read(std::span<float> samples);

  private:
    bool ReadHeader();
    void ReadFormat(std::uint32_t size);

    std::istream& in_;
    std::int32_t channels_ = 0;
    std::int32_t sampleRate_ = 0;
    std::uint32_t bytesLeft_ = 0;
    std::vector<unsigned char> bytes_;
};

}  // namespace quavix
