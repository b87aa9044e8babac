// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "fmod/fmod_tone_generator.h"
#include "music/main_fields.h"
#include "shell/event_boundary.h"

namespace quavix {

/// The check box "Use FMOD", which sends all tones to the sound card, and the never-silent option of its
/// window.
class UseFmod {
  public:
    UseFmod(SongFields& song, ModFields& mods, OutputOptions& output, FmodToneGenerator& generator,
            EventBoundary& handlers);
    UseFmod(const UseFmod&) = delete;
    UseFmod& operator=(const UseFmod&) = delete;

    /// The options window is shown while FMOD is in use.
    Watched<bool> FMODOptionsFormVisible;

    /// Ticked, tones are not paused between notes. The note/silence ratio goes to 100 % for as long, unless
    /// the user moves it meanwhile.
    Watched<bool> NeverSilentCheck;

  private:
    void UseFMODCheck_Click();
    void NeverSilentCheck_Click();
    void NoteSilenceRatioSlider_Change();

    SongFields& song_;
    ModFields& mods_;
    OutputOptions& output_;
    FmodToneGenerator& generator_;
    EventBoundary& handlers_;
    /// The ratio when the option was ticked.
    std::int32_t previousRatio_;
    /// Somebody else has moved the ratio since then, and keeps it.
    bool ratioManuallyChanged_ = false;
    /// The ratio's changes are the option's own.
    bool manuallySettingCheck_ = false;
};

}  // namespace quavix
