// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace quavix {

/// How a tone is to be made; the last three matter to the sound-card tone generator only.
struct ToneOptions {
    /// The note string is a frequency in hertz, written as a decimal number.
    bool NoteIsFrequency = false;
    /// Keep sounding after the duration.
    bool SpecificContinuous = false;
    /// Stop after the duration even where the generator is never silent otherwise.
    bool SpecificStop = false;
    /// Return before the duration is over.
    bool FMODNoWait = false;
};

/// Makes tones, on whichever output is in use.
///
/// Thread: the user-interface thread.
class Tones {
  public:
    virtual ~Tones() = default;

    /// Sounds a note ("C4", "C#5") or a frequency for `duration` milliseconds and returns when the tone has
    /// ended, except where an output is told not to wait; handlers may run meanwhile. An empty note string
    /// becomes "C4", for the caller too. An unknown note name shows a warning and sounds 0 Hz. A duration or
    /// frequency outside 32 bits raises Overflow.
    virtual void UniBeep(std::string& noteString, double duration, const ToneOptions& options) = 0;
};

}  // namespace quavix
