// SPDX-License-Identifier: MIT
#pragma once

#include "music/main_fields.h"
#include "playback/position_display.h"
#include "playback/tone_dispatcher.h"
#include "ports/message_boxes.h"
#include "shell/debug_log.h"
#include "shell/event_boundary.h"

namespace quavix {

/// The beat sound: a short kick before each line that starts on a whole beat. It reads the beat from the
/// position labels, so it works only while these are updated. Switched by UseBeatCheck, which it watches
/// during the whole lifetime of the fields; it must live as long.
class Beat {
  public:
    Beat(ModFields& mods, PositionDisplay& position, ToneDispatcher& tones, MessageBoxes& boxes,
         EventBoundary& handlers, DebugLog& log);

    // Beats on which the sound plays.
    Watched<bool> optBeatAll{true};
    Watched<bool> optBeatEven{false};

    /// Plays the kick if the line starts on a wanted beat; returns when it has ended.
    void LineStarts();

    /// Sounds a sweep in tones of 15 ms: from `startFreq` (Hz), each `reduceRate` (above 0, below 1) times as
    /// high as the one before, while above `endFreq` (Hz, above 0). Tones of 16000 Hz or more are silent.
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
