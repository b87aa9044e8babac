// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>

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

/// What came of trying to set a speaker up: the speaker, or why there is none and what to do about it.
struct SpeakerAttempt {
    std::unique_ptr<PlatformSpeaker> Made;
    std::string Reason;
    std::string Remedy;
};

}  // namespace quavix
