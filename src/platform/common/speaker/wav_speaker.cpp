// SPDX-License-Identifier: MIT
#include "platform/common/speaker/wav_speaker.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

#include <fmt/format.h>

#include "dsp/square_wave.h"
#include "platform/common/speaker/tone_player.h"
#include "shell/utf8_path.h"

namespace quavix {

WavSpeaker::WavSpeaker(std::string path, ToneClock clock)
    : path_(std::move(path)),
      clock_(std::move(clock)),
      file_(PathOf(path_), std::ios::binary | std::ios::trunc),
      madeNs_(clock_.Now()) {
    if (file_.is_open())
        wav_.emplace(file_, SampleRate, 1);
    if (!wav_ || !wav_->StateSizes())
        SetFailure();
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
    SquareWave wave(frequency, SampleRate, std::int64_t{durationMs} * SampleRate / 1000);
    std::array<float, 4096> block{};
    bool isWritten = wav_->SkipSilence(at - wav_->Frames());
    while (isWritten && wave.Left() > 0) {
        const auto count = static_cast<std::size_t>(std::min<std::int64_t>(wave.Left(), block.size()));
        const std::span<float> samples = std::span(block).first(count);
        wave.Render(samples);
        for (float& sample : samples)
            sample *= TonePlayer::Gain;
        isWritten = wav_->Write(samples);
    }
    if (!wav_->StateSizes() || !isWritten)
        SetFailure();
}

void WavSpeaker::SetFailure() {
    if (wav_ && wav_->TooLong())
        failure_ = fmt::format("{} is as long as such a file can be.", path_);
    else
        failure_ = fmt::format("{} can't be written: {}.", path_, std::strerror(errno));
}

SpeakerStatus WavSpeaker::Status() const {
    return {.InUse = Failed() ? "silent" : fmt::format("sound file ({})", path_),
            .Reason = failure_,
            .Silent = true};
}

}  // namespace quavix
