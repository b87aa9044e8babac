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

    /// True while FMOD is in use: the options window is shown.
    Watched<bool> FMODOptionsFormVisible;

    /// If ticked, tones are not paused between notes, and the note/silence ratio is 100 %, unless the user
    /// changes it meanwhile.
    Watched<bool> NeverSilentCheck;

  private:
    void UseFMODCheck_Click();
    void NeverSilentCheck_Click();

    SongFields& song_;
    ModFields& mods_;
    OutputOptions& output_;
    FmodToneGenerator& generator_;
    /// The ratio before the option was ticked.
    std::int32_t previousRatio_;
    /// True if the ratio was changed by other means since then; it is not restored then.
    bool ratioManuallyChanged_ = false;
    /// True while the option itself changes the ratio.
    bool manuallySettingCheck_ = false;
};

}  // namespace quavix
