// SPDX-License-Identifier: MIT
#pragma once

#include "music/main_fields.h"
#include "playback/position_display.h"
#include "playback/tone_dispatcher.h"
#include "ports/message_boxes.h"
#include "shell/debug_log.h"
#include "shell/event_boundary.h"

namespace quavix {

/// The beat sound: a short kick before each line that starts on a whole beat. Where the beats are it takes
/// from the position labels, so it follows the music only while these are updated. Switched by UseBeatCheck,
/// which it watches for as long as the fields live; it must live as long.
class Beat {
  public:
    Beat(ModFields& mods, PositionDisplay& position, ToneDispatcher& tones, MessageBoxes& boxes,
         EventBoundary& handlers, DebugLog& log);
    Beat(const Beat&) = delete;
    Beat& operator=(const Beat&) = delete;

    // The beats that the sound is for.
    Watched<bool> optBeatAll{true};
    Watched<bool> optBeatEven{false};

    /// Plays the kick where the line starts on a beat that is wanted; returns when it has ended.
    void LineStarts();

    /// Sweeps in tones of 15 ms from `startFreq` (Hz), each `reduceRate` (above 0, below 1) times as high as
    /// the one before, for as long as they are above `endFreq` (Hz, above 0). Nothing sounds from 16000 Hz
    /// on.
    void BeatSound(double startFreq, double endFreq, double reduceRate);

  private:
    void UseBeatCheck_Click();

    ModFields& mods_;
    PositionDisplay& position_;
    ToneDispatcher& tones_;
    MessageBoxes& boxes_;
    DebugLog& log_;
};

}  // namespace quavix
