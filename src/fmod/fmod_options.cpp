// SPDX-License-Identifier: MIT
#include "fmod/fmod_options.h"

namespace quavix {

FmodOptions::FmodOptions(MainFields& fields, EventBoundary& handlers)
    : fields_(fields), handlers_(handlers), previousRatio_(fields.NoteSilenceRatioSlider) {
    NeverSilentCheck.Watch(
        [this](bool) { handlers_.Run("NeverSilentCheck_Click", [this] { NeverSilentCheck_Click(); }); });
    fields_.NoteSilenceRatioSlider.Watch([this](std::int32_t) { NoteSilenceRatioSlider_Change(); });
}

void FmodOptions::NeverSilentCheck_Click() {
    manuallySettingCheck_ = true;
    fields_.DoNotShutUpFMOD = NeverSilentCheck;
    if (NeverSilentCheck) {
        previousRatio_ = fields_.NoteSilenceRatioSlider;
        ratioManuallyChanged_ = false;
        fields_.NoteSilenceRatioSlider = parameter::NoteSilenceRatio.Highest;
    } else if (!ratioManuallyChanged_) {
        fields_.NoteSilenceRatioSlider = previousRatio_;
    }
    manuallySettingCheck_ = false;
}

void FmodOptions::NoteSilenceRatioSlider_Change() {
    if (NeverSilentCheck && !manuallySettingCheck_)
        ratioManuallyChanged_ = true;
}

}  // namespace quavix
