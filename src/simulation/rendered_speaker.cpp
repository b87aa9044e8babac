// SPDX-License-Identifier: MIT
#include "simulation/rendered_speaker.h"

#include <algorithm>
#include <array>
#include <span>

#include "dsp/square_wave.h"

namespace quavix {

std::int64_t RenderedSpeaker::FrameNow() const {
    // Whole seconds apart, so that the product stays in range for centuries.
    const std::int64_t seconds = time_.Now() / SimulatedTime::CountsPerSecond;
    const std::int64_t rest = time_.Now() % SimulatedTime::CountsPerSecond;
    constexpr std::int64_t Half = SimulatedTime::CountsPerSecond / 2;
    return seconds * sampleRate_ + (rest * sampleRate_ + Half) / SimulatedTime::CountsPerSecond;
}

void RenderedSpeaker::Check(bool written) const {
    if (written)
        return;
    throw RenderError(out_.TooLong() ? "the sound is too long for a WAV file (4 GiB)"
                                     : "the sound can't be written any further");
}

void RenderedSpeaker::CatchUp() {
    Check(out_.WriteSilence(FrameNow() - out_.Frames()));
}

void RenderedSpeaker::Beep(std::int32_t frequency, std::int32_t durationMs) {
    if (durationMs <= 0)
        return;
    CatchUp();
    time_.Block(durationMs);
    std::int64_t left = FrameNow() - out_.Frames();
    SquareWave tone(CanSound(frequency) ? frequency : 0, sampleRate_, left);
    std::array<float, 4096> block;
    while (left > 0) {
        const auto count = static_cast<std::size_t>(std::min<std::int64_t>(left, block.size()));
        const std::span<float> samples = std::span(block).first(count);
        tone.Render(samples);
        Check(out_.Write(samples));
        left -= static_cast<std::int64_t>(count);
    }
}

}  // namespace quavix
