// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace quavix {

/// State of the PC-speaker output, in words for the user.
struct SpeakerStatus {
    /// Device in use, e.g. "PC speaker" or "sound card (PulseAudio, Built-in Audio)" or "silent".
    std::string InUse{};
    /// Reason why the real PC speaker is not in use; empty if it is.
    std::string Reason{};
    /// Suggested remedy, ready to copy; empty if there is none.
    std::string Remedy{};
    /// True when tones make no sound at all.
    bool Silent = false;
};

/// The PC speaker: one square tone at a time.
///
/// Thread: the user-interface thread.
class Speaker {
  public:
    /// Range of the real speaker's driver in Hz.
    static constexpr std::int32_t LowestHz = 21;
    static constexpr std::int32_t HighestHz = 32766;

    /// Returns true if the speaker can sound a frequency in Hz; any other is silence.
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

    /// Returns the current state; it may change when a device fails.
    virtual SpeakerStatus Status() const = 0;
};

}  // namespace quavix
