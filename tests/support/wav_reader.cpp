// SPDX-License-Identifier: MIT
#include "support/wav_reader.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace quavix::test {
namespace {

// `bytes` has been made sure to hold them.
std::uint32_t Number(std::string_view bytes, std::size_t at, std::size_t size) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < size; i++)
        value |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at + i])) << (8 * i);
    return value;
}

bool ReadFormat(std::string_view chunk, WavSound& sound) {
    if (chunk.size() < 16)
        return false;
    const std::uint32_t channels = Number(chunk, 2, 2);
    const std::uint32_t rate = Number(chunk, 4, 4);
    const bool known = Number(chunk, 0, 2) == 1 && (channels == 1 || channels == 2) && rate >= 1 &&
                       rate <= 0x7FFFFFFF && Number(chunk, 14, 2) == 16;
    if (!known || Number(chunk, 12, 2) != channels * 2 || Number(chunk, 8, 4) != rate * channels * 2)
        return false;
    sound.SampleRate = static_cast<std::int32_t>(rate);
    sound.Channels = static_cast<std::int32_t>(channels);
    return true;
}

void ReadSamples(std::string_view chunk, WavSound& sound) {
    const std::size_t frameBytes = static_cast<std::size_t>(sound.Channels) * 2;
    const std::size_t bytes = chunk.size() / frameBytes * frameBytes;
    sound.Samples.reserve(bytes / 2);
    for (std::size_t at = 0; at < bytes; at += 2)
        sound.Samples.push_back(static_cast<float>(static_cast<std::int16_t>(Number(chunk, at, 2))) /
                                32767.0F);
}

}  // namespace

std::optional<WavSound> ReadWav(std::string_view bytes) {
    if (bytes.size() < 12 || bytes.substr(0, 4) != "RIFF" || bytes.substr(8, 4) != "WAVE")
        return std::nullopt;
    WavSound sound;
    sound.StatedRiffBytes = Number(bytes, 4, 4);
    std::string_view left = bytes.substr(12);
    while (left.size() >= 8) {
        const std::string_view name = left.substr(0, 4);
        const std::size_t stated = Number(left, 4, 4);
        left.remove_prefix(8);
        const std::string_view chunk = left.substr(0, stated);
        if (name == "fmt " && !ReadFormat(chunk, sound))
            return std::nullopt;
        if (name == "data") {
            if (sound.Channels == 0)
                return std::nullopt;
            sound.StatedDataBytes = static_cast<std::uint32_t>(stated);
            ReadSamples(chunk, sound);
            return sound;
        }
        left.remove_prefix(std::min(left.size(), stated + stated % 2));
    }
    return std::nullopt;
}

std::optional<WavSound> ReadWavFile(const std::string& fileName) {
    std::ifstream file(fileName, std::ios::binary);
    if (!file)
        return std::nullopt;
    const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    return ReadWav(bytes);
}

}  // namespace quavix::test
