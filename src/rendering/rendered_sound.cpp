// SPDX-License-Identifier: MIT
#include "rendering/rendered_sound.h"

namespace quavix {

void SoundFile::Expect(double seconds) {
    // A tenth more, because each pass of a MIDI file lasts until its last step ends.
    constexpr double Margin = 1.1;
    if (seconds * Margin * rate_ * WavBytesPerSample > MostRiffBytes)
        wav_.MakeRoom();
}

void SoundFile::Check(bool written) const {
    if (!written)
        throw RenderError(wav_.TooLong() ? "the sound is too long for a WAV file (4 GiB)"
                                         : "the sound can't be written any further");
}

std::int64_t FrameAt(std::int64_t counts, std::int64_t rate) {
    // Whole seconds are computed separately, so that the product stays in range for centuries.
    const std::int64_t seconds = counts / SimulatedTime::CountsPerSecond;
    const std::int64_t rest = counts % SimulatedTime::CountsPerSecond;
    constexpr std::int64_t Half = SimulatedTime::CountsPerSecond / 2;
    return seconds * rate + (rest * rate + Half) / SimulatedTime::CountsPerSecond;
}

}  // namespace quavix
