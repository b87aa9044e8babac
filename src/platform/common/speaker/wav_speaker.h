// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <fstream>
#include <optional>
#include <string>

#include "dsp/wav.h"
#include "platform/common/monotonic.h"
#include "platform/common/speaker/platform_speaker.h"

namespace quavix {

/// Keeps the time of the tones and writes what would have been heard since it was made, silences included, as
/// mono 16-bit sound at 48,000 Hz. The file is whole after every tone, however the program ends.
class WavSpeaker : public PlatformSpeaker {
  public:
    static constexpr std::int32_t SampleRate = 48000;

    /// Empties the file at `path`, or makes it. A file that can't be written: failed from the beginning.
    WavSpeaker(std::string path, ToneClock clock);

    void Beep(std::int32_t frequency, std::int32_t durationMs) override;
    SpeakerStatus Status() const override;
    bool Failed() const override { return !failure_.empty(); }

  private:
    void WriteTone(std::int32_t frequency, std::int32_t durationMs, std::int64_t startNs);
    void SetFailure();

    std::string path_;
    ToneClock clock_;
    std::ofstream file_;
    std::optional<WavWriter> wav_;
    std::int64_t madeNs_;
    std::string failure_;
};

}  // namespace quavix
