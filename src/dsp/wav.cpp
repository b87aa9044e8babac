// SPDX-License-Identifier: MIT
#include "dsp/wav.h"

#include <algorithm>
#include <array>
#include <bit>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

namespace quavix {
namespace {

constexpr std::uint32_t FormatBytes = 16;
constexpr std::uint32_t Pcm = 1;
constexpr std::uint32_t UnknownSize = 0xFFFF'FFFF;
constexpr std::size_t BufferSamples = 4096;

/// Bytes that the size in a RIFF header counts besides the sound.
constexpr std::int64_t RiffOverhead = 36;
/// Content of the chunk "ds64": size of the file, size of the sound, number of frames, length of a table.
constexpr std::uint32_t LongSizesBytes = 3 * 8 + 4;
constexpr std::int64_t RoomBytes = 8 + LongSizesBytes;

void AppendNumber(std::string& bytes, std::int64_t value, int size) {
    for (int i = 0; i < size; ++i)
        bytes += static_cast<char>(static_cast<unsigned char>(value >> (8 * i)));
}

// Returns the nearest whole number of a float within ±2^22, halves to even: the addition pushes the fraction
// out of the mantissa, whose lowest bits are then the number. Unlike the library's rounding, it vectorises on
// every target.
std::int32_t Nearest(float value) {
    constexpr float Shift = 12582912.0F;  // 1.5 * 2^23
    return std::bit_cast<std::int32_t>(value + Shift) - std::bit_cast<std::int32_t>(Shift);
}

// Separate, not nested, choices let the compiler vectorise a loop over this.
std::int16_t ToPcm(float sample) {
    const float number = sample == sample ? sample : 0.0F;
    const float notBelow = number < -1.0F ? -1.0F : number;
    const float clipped = notBelow > 1.0F ? 1.0F : notBelow;
    return static_cast<std::int16_t>(Nearest(clipped * 32767.0F));
}

std::int16_t LittleEndian(std::int16_t value) {
    if constexpr (std::endian::native == std::endian::little)
        return value;
    const auto bits = static_cast<std::uint16_t>(value);
    return static_cast<std::int16_t>(static_cast<std::uint16_t>((bits >> 8) | (bits << 8)));
}

}  // namespace

WavWriter::WavWriter(std::ostream& out, std::int32_t sampleRate, std::int32_t channels,
                     std::int64_t mostRiffBytes)
    : out_(out), sampleRate_(sampleRate), channels_(channels), mostRiffBytes_(mostRiffBytes) {
    failed_ = sampleRate < 1 || channels < 1 || channels > 32767 ||
              sampleRate_ * channels_ * WavBytesPerSample > std::numeric_limits<std::uint32_t>::max();
}

void WavWriter::MakeRoom() {
    hasRoom_ = hasRoom_ || (!begun_ && out_.tellp() != std::ostream::pos_type(-1));
}

// Writes the header if it is not there yet. Returns false after an error.
bool WavWriter::Begin() {
    if (!failed_ && !std::exchange(begun_, true)) {
        start_ = out_.tellp();
        failed_ = !WriteHeader(std::nullopt);
    }
    return !failed_;
}

bool WavWriter::WriteHeader(std::optional<std::int64_t> frames) {
    const std::int64_t frameBytes = channels_ * WavBytesPerSample;
    const std::int64_t dataBytes = frames.value_or(0) * frameBytes;
    const std::int64_t riffBytes = RiffOverhead + (hasRoom_ ? RoomBytes : 0) + dataBytes;
    const bool isLong = riffBytes > mostRiffBytes_;
    const bool isStated = frames && !isLong;
    std::string header = isLong ? "RF64" : "RIFF";
    AppendNumber(header, isStated ? riffBytes : UnknownSize, 4);
    header += "WAVE";
    if (hasRoom_) {
        header += isLong ? "ds64" : "JUNK";
        AppendNumber(header, LongSizesBytes, 4);
        for (const std::int64_t size : {riffBytes, dataBytes, frames.value_or(0)})
            AppendNumber(header, isLong ? size : 0, 8);
        AppendNumber(header, 0, 4);
    }
    header += "fmt ";
    AppendNumber(header, FormatBytes, 4);
    AppendNumber(header, Pcm, 2);
    AppendNumber(header, channels_, 2);
    AppendNumber(header, sampleRate_, 4);
    AppendNumber(header, sampleRate_ * frameBytes, 4);
    AppendNumber(header, frameBytes, 2);
    AppendNumber(header, std::int64_t{WavBytesPerSample} * 8, 2);
    header += "data";
    AppendNumber(header, isStated ? dataBytes : UnknownSize, 4);
    return static_cast<bool>(out_.write(header.data(), static_cast<std::streamsize>(header.size())));
}

// Returns true if that many more frames may be written.
bool WavWriter::Reserve(std::int64_t frames) {
    if (!Begin() || finished_ || frames < 0)
        return false;
    const std::int64_t mostBytes = hasRoom_
                                       ? std::numeric_limits<std::int64_t>::max() - RiffOverhead - RoomBytes
                                       : mostRiffBytes_ - RiffOverhead;
    if (frames > mostBytes / (channels_ * WavBytesPerSample) - frames_) {
        tooLong_ = true;
        return false;
    }
    return true;
}

bool WavWriter::Write(std::span<const float> samples) {
    const auto count = static_cast<std::int64_t>(samples.size());
    if (failed_ || count % channels_ != 0 || !Reserve(count / channels_))
        return false;
    std::array<std::int16_t, BufferSamples> buffer;
    while (!samples.empty()) {
        const std::size_t size = std::min(samples.size(), buffer.size());
        for (std::size_t i = 0; i < size; i++) {
            buffer[i] = LittleEndian(ToPcm(samples[i]));
        }
        if (!out_.write(reinterpret_cast<const char*>(buffer.data()),
                        static_cast<std::streamsize>(size * WavBytesPerSample))) {
            failed_ = true;
            return false;
        }
        samples = samples.subspan(size);
    }
    frames_ += count / channels_;
    return true;
}

bool WavWriter::WriteSilence(std::int64_t frames) {
    if (!Reserve(std::max<std::int64_t>(frames, 0)))
        return false;
    static constexpr std::array<char, 8192> Zeros = {};
    std::int64_t left = std::max<std::int64_t>(frames, 0) * channels_ * WavBytesPerSample;
    while (left > 0) {
        const std::int64_t size = std::min(left, static_cast<std::int64_t>(Zeros.size()));
        if (!out_.write(Zeros.data(), static_cast<std::streamsize>(size))) {
            failed_ = true;
            return false;
        }
        left -= size;
    }
    frames_ += std::max<std::int64_t>(frames, 0);
    return true;
}

bool WavWriter::SkipSilence(std::int64_t frames) {
    if (!Begin() || !CanSeek() || frames <= 0)
        return WriteSilence(frames);
    if (!Reserve(frames))
        return false;
    failed_ = !out_.seekp(frames * channels_ * WavBytesPerSample, std::ios::cur);
    frames_ += failed_ ? 0 : frames;
    return !failed_;
}

bool WavWriter::StateSizes() {
    if (Begin() && CanSeek()) {
        const std::ostream::pos_type end = out_.tellp();
        failed_ = !(out_.seekp(start_) && WriteHeader(frames_) && out_.seekp(end));
    }
    failed_ = failed_ || !out_.flush();
    return !failed_;
}

bool WavWriter::Finish() {
    if (!finished_)
        finished_ = StateSizes();
    return *finished_;
}

namespace {

std::uint64_t Number(std::span<const unsigned char> bytes) {
    std::uint64_t value = 0;
    for (std::size_t i = bytes.size(); i > 0; --i)
        value = value << 8 | bytes[i - 1];
    return value;
}

/// Reads the next bytes of the stream; the stream fails if there are fewer.
template <std::size_t Size>
std::array<unsigned char, Size> Take(std::istream& in) {
    std::array<unsigned char, Size> bytes{};
    in.read(reinterpret_cast<char*>(bytes.data()), Size);
    return bytes;
}

/// Skips bytes, and the padding byte that makes the length of a chunk even.
void PassOver(std::istream& in, std::uint64_t bytes) {
    in.ignore(static_cast<std::streamsize>(bytes + bytes % 2));
}

bool IsTag(std::span<const unsigned char> bytes, std::string_view tag) {
    return std::equal(tag.begin(), tag.end(), bytes.begin());
}

}  // namespace

WavReader::WavReader(std::istream& in) : in_(in) {
    if (!ReadHeader())
        channels_ = 0;
}

bool WavReader::ReadHeader() {
    const auto riff = Take<12>(in_);
    const bool isLong = IsTag(riff, "RF64");
    if (!in_ || !(isLong || IsTag(riff, "RIFF")) || !IsTag(std::span(riff).subspan(8), "WAVE"))
        return false;
    std::uint64_t unknownSize = std::numeric_limits<std::uint64_t>::max();
    for (;;) {
        const auto chunk = Take<8>(in_);
        if (!in_)
            return false;
        const std::uint64_t size = Number(std::span(chunk).last(4));
        if (IsTag(chunk, "data")) {
            bytesLeft_ = size == UnknownSize ? unknownSize : size;
            return IsGood();
        }
        if (IsTag(chunk, "fmt ")) {
            if (!ReadFormat(size))
                return false;
        } else if (isLong && IsTag(chunk, "ds64") && size >= LongSizesBytes) {
            const auto sizes = Take<LongSizesBytes>(in_);
            unknownSize = Number(std::span(sizes).subspan(8, 8));
            PassOver(in_, size - LongSizesBytes);
        } else {
            PassOver(in_, size);
        }
    }
}

bool WavReader::ReadFormat(std::uint64_t size) {
    const auto format = Take<FormatBytes>(in_);
    const std::span bytes(format);
    const std::uint64_t channels = Number(bytes.subspan(2, 2));
    const std::uint64_t rate = Number(bytes.subspan(4, 4));
    const std::uint64_t frameBytes = channels * WavBytesPerSample;
    if (!in_ || size < FormatBytes || Number(bytes.first(2)) != Pcm || channels == 0 || rate == 0 ||
        rate > std::numeric_limits<std::int32_t>::max() || Number(bytes.subspan(8, 4)) != rate * frameBytes ||
        Number(bytes.subspan(12, 2)) != frameBytes ||
        Number(bytes.last(2)) != std::uint64_t{WavBytesPerSample} * 8)
        return false;
    channels_ = static_cast<std::int32_t>(channels);
    sampleRate_ = static_cast<std::int32_t>(rate);
    PassOver(in_, size - FormatBytes);
    return true;
}

std::size_t WavReader::Read(std::span<float> samples) {
    constexpr float FullScale = 32767;
    if (!IsGood())
        return 0;
    const auto channels = static_cast<std::size_t>(channels_);
    const std::size_t frameBytes = channels * WavBytesPerSample;
    const std::size_t frames = std::min<std::uint64_t>(samples.size() / channels, bytesLeft_ / frameBytes);
    bytes_.resize(frames * frameBytes);
    in_.read(reinterpret_cast<char*>(bytes_.data()), static_cast<std::streamsize>(bytes_.size()));
    const std::size_t read = static_cast<std::size_t>(in_.gcount()) / frameBytes * channels;
    bytesLeft_ -= read * WavBytesPerSample;
    for (std::size_t i = 0; i < read; ++i) {
        const auto bits = static_cast<std::uint16_t>(bytes_[2 * i] | bytes_[2 * i + 1] << 8);
        samples[i] = static_cast<float>(static_cast<std::int16_t>(bits)) / FullScale;
    }
    return read;
}

}  // namespace quavix
