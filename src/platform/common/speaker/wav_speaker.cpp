// SPDX-License-Identifier: MIT
#include "platform/common/speaker/wav_speaker.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <fcntl.h>
#include <utility>

#include <fmt/format.h>

#include "dsp/square_wave.h"
#include "dsp/wav_header.h"
#include "platform/common/speaker/tone_player.h"

namespace quavix {
namespace {

constexpr std::int64_t FrameSize = WavBytesPerSample;  // of one channel
constexpr std::int64_t MostFrames = (std::int64_t{WavUnknownSize} - WavHeaderSize) / FrameSize;

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
    clock_.WaitUntil(nowNs + durationMs * NsPerMs);
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
        for (std::size_t i = 0; i < count; ++i) {
            const long sample = std::lrint(samples[i] * TonePlayer::Gain * 32767);
            bytes[i * FrameSize] = static_cast<unsigned char>(sample);
            bytes[i * FrameSize + 1] = static_cast<unsigned char>(sample >> 8);
        }
        written = WriteAt(WavHeaderSize + next * FrameSize, bytes.data(), count * FrameSize);
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
    const auto header = WavHeader(SampleRate, 1, frames_);
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
