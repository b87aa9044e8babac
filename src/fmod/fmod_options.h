// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "music/main_fields.h"
#include "shell/event_boundary.h"

namespace quavix {

/// The never-silent option of FMODOptionsForm: tones are not paused between notes, and the note/silence ratio
/// goes to 100 % for as long, unless the user moves it meanwhile.
class FmodOptions {
  public:
    FmodOptions(MainFields& fields, EventBoundary& handlers);
    FmodOptions(const FmodOptions&) = delete;
    FmodOptions& operator=(const FmodOptions&) = delete;

    Watched<bool> NeverSilentCheck;

  private:
    void NeverSilentCheck_Click();
    void NoteSilenceRatioSlider_Change();

    MainFields& fields_;
    EventBoundary& handlers_;
    /// The ratio when the option was ticked.
    std::int32_t previousRatio_;
    /// Somebody else has moved the ratio since then, and keeps it.
    bool ratioManuallyChanged_ = false;
    /// The ratio's changes are the option's own.
    bool manuallySettingCheck_ = false;
};

}  // namespace quavix
