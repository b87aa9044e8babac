// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "platform/posix/forked_guard.h"

namespace quavix {

/// Sounds `hz` on the event device until another value is written; 0 is silence. Returns false, with the
/// reason in errno, if the device did not take it. Calls only write().
bool WriteTone(int device, std::int32_t hz);

/// The speaker guard: a small process that switches the speaker's device off (writes 0 to it) when a tone is
/// overdue or the program is gone, for any reason.
class SpeakerGuard {
  public:
    /// `device` must stay open during the lifetime of this object. Does not start the guard yet.
    explicit SpeakerGuard(int device) : device_(device) {}

    /// Ends the guard and waits for its end; the device must be off before.
    ~SpeakerGuard() = default;

    SpeakerGuard(const SpeakerGuard&) = delete;
    SpeakerGuard& operator=(const SpeakerGuard&) = delete;

    /// Starts the guard, replacing an earlier one; preferably before the program has threads. Returns false,
    /// with the reason in Problem(), if that fails.
    bool Start();

    /// Announces a tone until `deadlineNs` of the monotonic clock. Returns false if the guard is gone; the
    /// tone must then not be switched on.
    bool Announce(std::int64_t deadlineNs);

    /// Reports that the tone has been switched off. A missing guard is not reported before the next tone.
    void TellOff();

    const std::string& Problem() const { return problem_; }

  private:
    bool Send(std::int64_t deadlineNs);

    int device_;
    ForkedGuard guard_;
    std::string problem_;
};

}  // namespace quavix
