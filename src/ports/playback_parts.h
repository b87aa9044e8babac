// SPDX-License-Identifier: MIT
#pragma once

namespace quavix {

// What playback drives beside the tones of a line. All calls come from the user-interface thread and return
// at once, except where said.

/// The singing voice.
class Voice {
  public:
    virtual ~Voice() = default;
    /// Volume, 0 (silent) to 1.
    virtual void ChangeVoiceVol(double volume) = 0;
    /// Pitch of the voice's source, in Hz.
    virtual void ChangeBaseFreq(double frequency) = 0;
};

/// What happens at the start of every played line, before its tones.
class BeatHook {
  public:
    virtual ~BeatHook() = default;
    /// May sound tones, and so take time.
    virtual void LineStarts() = 0;
};

/// The window that starts playback at a given time of day, as far as playback has to do with it.
class SynchronizedStart {
  public:
    virtual ~SynchronizedStart() = default;
    /// True from the click that starts the waiting until the wait button is clicked again.
    virtual bool CurrentlyWaiting() const = 0;
    /// The click on "Start waiting" or "Stop waiting".
    virtual void WaitButtonClick() = 0;
    /// False while a playback that the window has started has to hand its wait button back at its end.
    virtual bool ShouldBeNotWaiting() const = 0;
    /// Sets ShouldBeNotWaiting() and enables the wait button.
    virtual void ReenableWaitButton() = 0;
};

}  // namespace quavix
