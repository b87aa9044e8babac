// SPDX-License-Identifier: MIT
#include "dsp/wav_header.h"

#include <cstddef>
#include <string_view>

namespace quavix {
namespace {

class Header {
  public:
    void Text(std::string_view text) {
        for (const char c : text)
            Bytes[size_++] = c;
    }
    void Number(std::int64_t value, int bytes) {
        for (int i = 0; i < bytes; ++i)
            Bytes[size_++] = static_cast<char>(static_cast<unsigned char>(value >> (8 * i)));
    }

    std::array<char, WavHeaderSize> Bytes{};

  private:
    std::size_t size_ = 0;
};

}  // namespace

std::array<char, WavHeaderSize> WavHeader(std::int64_t sampleRate, std::int64_t channels,
                                          std::optional<std::int64_t> frames) {
    constexpr std::int64_t FormatSize = 16;
    constexpr std::int64_t Pcm = 1;
    const std::int64_t frameBytes = channels * WavBytesPerSample;
    const std::int64_t dataBytes = frames.value_or(0) * frameBytes;
    Header header;
    header.Text("RIFF");
    header.Number(frames ? dataBytes + WavRiffOverhead : WavUnknownSize, 4);
    header.Text("WAVEfmt ");
    header.Number(FormatSize, 4);
    header.Number(Pcm, 2);
    header.Number(channels, 2);
    header.Number(sampleRate, 4);
    header.Number(sampleRate * frameBytes, 4);
    header.Number(frameBytes, 2);
    header.Number(std::int64_t{WavBytesPerSample} * 8, 2);
    header.Text("data");
    header.Number(frames ? dataBytes : WavUnknownSize, 4);
    return header.Bytes;
}

}  // namespace quavix
