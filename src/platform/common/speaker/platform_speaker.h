// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "ports/speaker.h"

namespace quavix {

/// A speaker that can fail and be replaced by another one.
class PlatformSpeaker : public Speaker {
  public:
    /// Waits a short time until it is known whether the speaker works; Failed() has the result. Called before
    /// any other function.
    virtual void Settle() {}

    /// Returns true once the speaker has failed for good; Status().Reason then has the reason.
    virtual bool Failed() const { return false; }
};

/// Result of setting a speaker up: the speaker, or the reason why there is none and a remedy.
struct SpeakerAttempt {
    std::unique_ptr<PlatformSpeaker> Made{};
    std::string Reason{};
    std::string Remedy{};
};

/// Returns the speaker, or its own reason if it has failed.
inline SpeakerAttempt UnlessFailed(std::unique_ptr<PlatformSpeaker> speaker) {
    if (speaker->Failed())
        return {.Reason = speaker->Status().Reason};
    return {.Made = std::move(speaker)};
}

}  // namespace quavix
