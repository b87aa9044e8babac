// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "platform/posix/forked_guard.h"

namespace quavix {

/// Sounds `hz` on the event device until another value is written; 0 is silence. False: the device did not
/// take it, errno says why. Calls nothing but write().
bool WriteTone(int device, std::int32_t hz);

/// A small process of its own that switches the speaker's device off when a tone is past its end or the
/// program is gone, however it went. Switched off means: 0 is written to the device.
class SpeakerGuard {
  public:
    /// `device` must stay open as long as this object is there. Starts nothing yet.
    explicit SpeakerGuard(int device) : device_(device) {}

    /// Ends the guard and waits for its end; the device must be off by then.
    ~SpeakerGuard() = default;

    SpeakerGuard(const SpeakerGuard&) = delete;
    SpeakerGuard& operator=(const SpeakerGuard&) = delete;

    /// Starts the guard, in place of an earlier one; best while the program has no threads. False: it could
    /// not be started, and Problem() says why.
    bool Start();

    /// Says that a tone is about to sound until `deadlineNs` of the monotonic clock. False: nobody is
    /// watching, and the tone must not be switched on.
    bool Announce(std::int64_t deadlineNs);

    /// Says that the tone has been switched off. A guard that is gone is not reported before the next tone.
    void TellOff();

    const std::string& Problem() const { return problem_; }

  private:
    bool Send(std::int64_t deadlineNs);

    int device_;
    ForkedGuard guard_;
    std::string problem_;
};

}  // namespace quavix
