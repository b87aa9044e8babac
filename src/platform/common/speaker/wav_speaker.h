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

/// A speaker that writes a sound file: mono, 16 bits, 48,000 Hz, with the silences between tones. It keeps
/// the time of the tones. The file is complete after every tone, even if the program ends unexpectedly.
class WavSpeaker : public PlatformSpeaker {
  public:
    static constexpr std::int32_t SampleRate = 48000;

    /// Creates or empties the file at `path`. If that fails, the speaker has failed from the beginning.
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
