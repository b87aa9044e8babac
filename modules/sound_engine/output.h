// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "modules/sound_engine/mixer.h"

namespace quavix::sound_engine {

/// The destination of the sound. Mixing begins with construction and ends with destruction.
///
/// Thread: the caller's side.
class Output {
  public:
    Output() = default;
    virtual ~Output() = default;
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    /// Current frames per second.
    virtual int Rate() const = 0;
    /// Channels per frame.
    virtual int Channels() const = 0;
    /// A SoundFormat.
    virtual int Format() const = 0;

    /// Called by the caller from time to time. Returns false if mixed sound could not be written.
    virtual bool Update() { return true; }
};

/// The caller's choice of an output.
struct OutputChoice {
    /// A SoundOutput.
    int Kind = 0;
    /// Name of the WAV file; may be null.
    const char* FileName = nullptr;
    /// Wanted delay between a call and the loudspeaker, in frames.
    int DelayFrames = 0;
};

}  // namespace quavix::sound_engine
