// SPDX-License-Identifier: MIT
#include "dsp/wav_writer.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <limits>
#include <string_view>

#include "dsp/wav_format.h"

namespace quavix {
namespace {

constexpr std::int64_t HeaderSize = 44;
// What the RIFF size counts besides the sound.
constexpr std::int64_t RiffOverhead = HeaderSize - 8;
constexpr std::uint32_t UnknownSize = std::numeric_limits<std::uint32_t>::max();
constexpr std::size_t BufferSamples = 4096;

class Header {
  public:
    void Text(std::string_view text) {
        for (const char c : text)
            bytes_[size_++] = c;
    }
    void Number(std::uint32_t value, int bytes) {
        for (int i = 0; i < bytes; i++)
            bytes_[size_++] = static_cast<char>(static_cast<unsigned char>(value >> (8 * i)));
    }
    bool WriteTo(std::ostream& out) const {
        return static_cast<bool>(out.write(bytes_.data(), static_cast<std::streamsize>(size_)));
    }

  private:
    std::array<char, HeaderSize> bytes_ = {};
    std::size_t size_ = 0;
};

bool WriteHeader(std::ostream& out, std::int64_t sampleRate, std::int64_t channels,
                 std::optional<std::int64_t> frames) {
    const std::int64_t frameBytes = channels * WavBytesPerSample;
    const std::int64_t dataBytes = frames.value_or(0) * frameBytes;
    Header header;
    header.Text("RIFF");
    header.Number(frames ? static_cast<std::uint32_t>(dataBytes + RiffOverhead) : UnknownSize, 4);
    header.Text("WAVEfmt ");
    header.Number(16, 4);
    header.Number(1, 2);
    header.Number(static_cast<std::uint32_t>(channels), 2);
    header.Number(static_cast<std::uint32_t>(sampleRate), 4);
    header.Number(static_cast<std::uint32_t>(sampleRate * frameBytes), 4);
    header.Number(static_cast<std::uint32_t>(frameBytes), 2);
    header.Number(WavBytesPerSample * 8, 2);
    header.Text("data");
    header.Number(frames ? static_cast<std::uint32_t>(dataBytes) : UnknownSize, 4);
    return header.WriteTo(out);
}

// Nearest whole number of a float within ±2^22, halves to even: the addition pushes the fraction out of the
// mantissa, whose lowest bits are then the number. Unlike the library's rounding it vectorises everywhere.
std::int32_t Nearest(float value) {
    constexpr float Shift = 12582912.0F;  // 1.5 * 2^23
    return std::bit_cast<std::int32_t>(value + Shift) - std::bit_cast<std::int32_t>(Shift);
}

// Each choice on its own and none inside another, so that the loop over it vectorises.
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
                     std::optional<std::int64_t> totalFrames)
    : out_(out), sampleRate_(sampleRate), channels_(channels), statedFrames_(totalFrames) {
    failed_ = sampleRate < 1 || channels < 1 || channels > 32767 ||
              sampleRate_ * channels_ * WavBytesPerSample > std::numeric_limits<std::uint32_t>::max();
    if (failed_)
        return;
    if (totalFrames && !Reserve(*totalFrames)) {
        failed_ = true;
        return;
    }
    start_ = out_.tellp();
    failed_ = !WriteHeader(out_, sampleRate_, channels_, statedFrames_);
}

// Whether that many more frames may be written.
bool WavWriter::Reserve(std::int64_t frames) {
    if (failed_ || finished_ || frames < 0)
        return false;
    constexpr std::int64_t MostBytes = std::int64_t{UnknownSize} - 1 - RiffOverhead;
    if (frames > MostBytes / (channels_ * WavBytesPerSample) - frames_) {
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

bool WavWriter::FixSizes() {
    if (statedFrames_ == frames_)
        return true;
    if (start_ == std::ostream::pos_type(-1))
        return !statedFrames_;
    const std::ostream::pos_type end = out_.tellp();
    return out_.seekp(start_) && WriteHeader(out_, sampleRate_, channels_, frames_) && out_.seekp(end);
}

bool WavWriter::Finish() {
    if (!finished_)
        finished_ = !failed_ && FixSizes() && out_.flush();
    return *finished_;
}

}  // namespace quavix
