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

/// Opens the best sound device; if it is lost, the best of the remaining ones takes its place. `delayFrames`
/// is the wanted delay between a call and the loudspeaker. Returns null if no device can be opened.
std::unique_ptr<Output> OpenDevice(const std::shared_ptr<Mixer>& mixer, int delayFrames);

/// Opens an output without a device, which writes the sound to the WAV file `fileName` unless that is null.
/// It mixes one block with each Update() if `byUpdate`, otherwise at the speed of a device. Returns null if
/// the file cannot be opened.
std::unique_ptr<Output> OpenSoundless(const std::shared_ptr<Mixer>& mixer, const char* fileName,
                                      bool byUpdate);

}  // namespace quavix::sound_engine
