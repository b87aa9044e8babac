// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace quavix {

/// What sounds the PC-speaker tones, in words for the user.
struct SpeakerStatus {
    /// What is in use, e.g. "PC speaker" or "sound card (PulseAudio, Built-in Audio)" or "silent".
    std::string InUse{};
    /// Why it is not the real PC speaker; empty where it is.
    std::string Reason{};
    /// What can be done about it, ready to copy; empty where there is nothing to do.
    std::string Remedy{};
    /// True when tones make no sound at all.
    bool Silent = false;
};

/// The PC speaker: one square tone at a time.
///
/// Thread: the user-interface thread.
class Speaker {
  public:
    /// What the real speaker's driver can make, in Hz.
    static constexpr std::int32_t LowestHz = 21;
    static constexpr std::int32_t HighestHz = 32766;

    /// Whether the speaker can make a frequency; any other is silence.
    static constexpr bool CanSound(std::int32_t frequency) {
        return frequency >= LowestHz && frequency <= HighestHz;
    }

    virtual ~Speaker() = default;

    /// Sounds a square tone of `frequency` Hz and returns when `durationMs` milliseconds have passed; no
    /// handler, timer or message of the program runs meanwhile. A frequency outside LowestHz..HighestHz is
    /// silence of the same length; a duration of 0 or less returns at once. A device that fails during the
    /// tone is silence of the same length and shows in Status() afterwards. Whatever happens, the tone never
    /// sounds longer than its duration.
    virtual void Beep(std::int32_t frequency, std::int32_t durationMs) = 0;

    /// What is in use now; may change when a device fails.
    virtual SpeakerStatus Status() const = 0;
};

}  // namespace quavix
