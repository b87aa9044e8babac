// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "modules/sound_engine/mixer.h"

namespace quavix::sound_engine {

/// Where the sound goes. Begins when it is made, and ends when it is destroyed: then nobody mixes any more.
///
/// Thread: the caller's side.
class Output {
  public:
    Output() = default;
    virtual ~Output() = default;
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    /// Frames per second, as of now.
    virtual int Rate() const = 0;
    /// Of a frame.
    virtual int Channels() const = 0;
    /// A SoundFormat.
    virtual int Format() const = 0;

    /// Called by the caller now and then. False: what was mixed could not be written.
    virtual bool Update() { return true; }
};

/// What a caller may choose.
struct OutputChoice {
    /// A SoundOutput.
    int Kind = 0;
    /// For the WAV files; null for none.
    const char* FileName = nullptr;
    /// What is wanted between a call and the loudspeaker, in frames.
    int DelayFrames = 0;
};

}  // namespace quavix::sound_engine
