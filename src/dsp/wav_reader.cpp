// SPDX-License-Identifier: MIT
#include "dsp/wav_reader.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "dsp/wav_format.h"

namespace quavix {
namespace {

std::uint32_t LittleEndian(std::span<const unsigned char> bytes) {
    std::uint32_t value = 0;
    for (std::size_t i = bytes.size(); i > 0; --i)
        value = value << 8 | bytes[i - 1];
    return value;
}

/// The next bytes of the stream; the stream fails where there are fewer.
template <std::size_t Size>
std::array<unsigned char, Size> Take(std::istream& in) {
    std::array<unsigned char, Size> bytes{};
    in.read(reinterpret_cast<char*>(bytes.data()), Size);
    return bytes;
}

bool IsTag(std::span<const unsigned char> bytes, std::string_view tag) {
    return std::equal(bytes.begin(), bytes.end(), tag.begin(), tag.end());
}

}  // namespace

WavReader::WavReader(std::istream& in) : in_(in) {
    if (!ReadHeader())
        channels_ = 0;
}

bool WavReader::ReadHeader() {
    const auto riff = Take<12>(in_);
    if (!in_ || !IsTag(std::span(riff).first(4), "RIFF") || !IsTag(std::span(riff).last(4), "WAVE"))
        return false;
    for (;;) {
        const auto chunk = Take<8>(in_);
        if (!in_)
            return false;
        const std::uint32_t size = LittleEndian(std::span(chunk).last(4));
        if (IsTag(std::span(chunk).first(4), "data")) {
            bytesLeft_ = size;
            return channels_ > 0;
        }
        if (IsTag(std::span(chunk).first(4), "fmt "))
            ReadFormat(size);
        else
            in_.ignore(static_cast<std::streamsize>(size) + size % 2);  // chunks have an even length
    }
}

void WavReader::ReadFormat(std::uint32_t size) {
    constexpr std::uint32_t Pcm = 1;
    constexpr std::uint32_t KnownSize = 16;
    const auto format = Take<KnownSize>(in_);
    const std::span bytes(format);
    const bool is16BitPcm =
        LittleEndian(bytes.first(2)) == Pcm && LittleEndian(bytes.last(2)) == 8 * WavBytesPerSample;
    if (size < KnownSize || !is16BitPcm)
        return;
    channels_ = static_cast<std::int32_t>(LittleEndian(bytes.subspan(2, 2)));
    sampleRate_ = static_cast<std::int32_t>(LittleEndian(bytes.subspan(4, 4)));
    in_.ignore(static_cast<std::streamsize>(size - KnownSize) + size % 2);
}

std::size_t WavReader::Read(std::span<float> samples) {
    constexpr float FullScale = 32767;
    if (!IsGood())
        return 0;
    const std::size_t frameBytes = static_cast<std::size_t>(channels_) * WavBytesPerSample;
    bytes_.resize(std::min<std::size_t>(samples.size(), bytesLeft_ / frameBytes) * frameBytes);
    in_.read(reinterpret_cast<char*>(bytes_.data()), static_cast<std::streamsize>(bytes_.size()));
    const std::size_t frames = static_cast<std::size_t>(in_.gcount()) / frameBytes;
    bytesLeft_ -= static_cast<std::uint32_t>(frames * frameBytes);
    for (std::size_t i = 0; i < frames; ++i) {
        const std::uint32_t bits = LittleEndian(std::span(bytes_).subspan(i * frameBytes, WavBytesPerSample));
        samples[i] = static_cast<float>(static_cast<std::int16_t>(bits)) / FullScale;
    }
    return frames;
}

}  // namespace quavix
