// SPDX-License-Identifier: MIT
#include "rendering/rendered_speaker.h"

#include <algorithm>
#include <array>
#include <span>

#include "dsp/square_wave.h"

namespace quavix {

void RenderedSpeaker::Beep(std::int32_t frequency, std::int32_t durationMs) {
    if (durationMs <= 0)
        return;
    Finish();
    time_.Block(durationMs);
    SquareWave tone(CanSound(frequency) ? frequency : 0, out_.Rate(), FramesToGo());
    std::array<float, 4096> block;
    while (tone.Left() > 0) {
        const auto count = static_cast<std::size_t>(std::min<std::int64_t>(tone.Left(), block.size()));
        const std::span<float> samples = std::span(block).first(count);
        tone.Render(samples);
        out_.Write(samples);
    }
}

}  // namespace quavix
