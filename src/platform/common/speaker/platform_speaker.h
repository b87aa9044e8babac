// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "ports/speaker.h"

namespace quavix {

/// A speaker that can be given up for another one.
class PlatformSpeaker : public Speaker {
  public:
    /// Waits a moment at most until it is known whether the speaker can be had at all; Failed() says so
    /// afterwards. Called before anything else is asked of it.
    virtual void Settle() {}

    /// True once it can make no tone any more and will not recover; Status().Reason then says why.
    virtual bool Failed() const { return false; }
};

/// Result of setting a speaker up: the speaker, or the reason why there is none and what to do about it.
struct SpeakerAttempt {
    std::unique_ptr<PlatformSpeaker> Made;
    std::string Reason;
    std::string Remedy;
};

/// The speaker, or its own words about why it can't be used.
inline SpeakerAttempt UnlessFailed(std::unique_ptr<PlatformSpeaker> speaker) {
    SpeakerAttempt attempt;
    if (speaker->Failed())
        attempt.Reason = speaker->Status().Reason;
    else
        attempt.Made = std::move(speaker);
    return attempt;
}

}  // namespace quavix
