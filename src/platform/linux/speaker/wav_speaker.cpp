// SPDX-License-Identifier: MIT
#include "platform/linux/speaker/wav_speaker.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <fcntl.h>
#include <utility>

#include <fmt/format.h>

#include "dsp/square_wave.h"

namespace quavix {
namespace {

constexpr std::int64_t HeaderSize = 44;
constexpr std::int64_t FrameSize = 2;
constexpr std::int64_t MostFrames = (0xFFFF'FFFFLL - HeaderSize) / FrameSize;
constexpr float Gain = 0.25F;

void PutText(std::span<unsigned char> at, const char* text) {
    std::copy_n(text, 4, at.begin());
}

void PutNumber(std::span<unsigned char> at, std::int64_t value, std::size_t bytes) {
    for (std::size_t i = 0; i < bytes; ++i)
        at[i] = static_cast<unsigned char>(value >> (8 * i));
}

}  // namespace

WavSpeaker::WavSpeaker(std::string path, ToneClock clock)
    : path_(std::move(path)),
      clock_(std::move(clock)),
      file_(open(path_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOCTTY, 0666)),
      madeNs_(clock_.Now()) {
    if (!file_ || !WriteHeader())
        failure_ = fmt::format("{} can't be written: {}.", path_, std::strerror(errno));
}

void WavSpeaker::Beep(std::int32_t frequency, std::int32_t durationMs) {
    if (durationMs <= 0)
        return;
    const std::int64_t nowNs = clock_.Now();
    if (!Failed() && CanSound(frequency))
        WriteTone(frequency, durationMs, nowNs);
    clock_.WaitUntil(nowNs + durationMs * ToneClock::NsPerMs);
}

void WavSpeaker::WriteTone(std::int32_t frequency, std::int32_t durationMs, std::int64_t startNs) {
    constexpr std::int64_t NsPerUs = 1000;
    const std::int64_t at = (startNs - madeNs_) / NsPerUs * SampleRate / 1'000'000;
    const std::int64_t length = std::int64_t{durationMs} * SampleRate / 1000;
    std::int64_t next = std::max(at, frames_);
    const std::int64_t end = std::min(next + length, MostFrames);
    SquareWave wave(frequency, SampleRate, length);
    std::array<float, 4096> samples{};
    std::array<unsigned char, samples.size() * FrameSize> bytes{};
    bool written = true;
    // The gap before the tone is a hole in the file, and a hole reads as silence.
    while (written && next < end) {
        const auto count = static_cast<std::size_t>(std::min<std::int64_t>(end - next, samples.size()));
        wave.Render(std::span(samples).first(count));
        for (std::size_t i = 0; i < count; ++i)
            PutNumber(std::span(bytes).subspan(i * FrameSize), std::lrint(samples[i] * Gain * 32767),
                      FrameSize);
        written = WriteAt(HeaderSize + next * FrameSize, bytes.data(), count * FrameSize);
        next += static_cast<std::int64_t>(count);
    }
    if (written) {
        frames_ = next;
        written = WriteHeader();
    }
    if (!written)
        failure_ = fmt::format("{} can't be written: {}.", path_, std::strerror(errno));
    else if (!wave.Finished())
        failure_ = fmt::format("{} is as long as such a file can be.", path_);
}

bool WavSpeaker::WriteHeader() {
    constexpr std::int64_t FormatSize = 16;
    constexpr std::int64_t Pcm = 1;
    std::array<unsigned char, HeaderSize> header{};
    const std::span all(header);
    PutText(all, "RIFF");
    PutNumber(all.subspan(4), HeaderSize - 8 + frames_ * FrameSize, 4);
    PutText(all.subspan(8), "WAVE");
    PutText(all.subspan(12), "fmt ");
    PutNumber(all.subspan(16), FormatSize, 4);
    PutNumber(all.subspan(20), Pcm, 2);
    PutNumber(all.subspan(22), 1, 2);  // channels
    PutNumber(all.subspan(24), SampleRate, 4);
    PutNumber(all.subspan(28), SampleRate * FrameSize, 4);
    PutNumber(all.subspan(32), FrameSize, 2);
    PutNumber(all.subspan(34), 8 * FrameSize, 2);
    PutText(all.subspan(36), "data");
    PutNumber(all.subspan(40), frames_ * FrameSize, 4);
    return WriteAt(0, header.data(), header.size());
}

bool WavSpeaker::WriteAt(std::int64_t offset, const void* data, std::size_t size) {
    const char* from = static_cast<const char*>(data);
    while (size > 0) {
        const ssize_t written = pwrite(file_.Get(), from, size, offset);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        from += written;
        offset += written;
        size -= static_cast<std::size_t>(written);
    }
    return true;
}

SpeakerStatus WavSpeaker::Status() const {
    SpeakerStatus status;
    status.InUse = Failed() ? "silent" : fmt::format("sound file ({})", path_);
    status.Reason = failure_;
    status.Silent = true;
    return status;
}

}  // namespace quavix
