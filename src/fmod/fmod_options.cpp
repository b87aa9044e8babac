// SPDX-License-Identifier: MIT
#include "fmod/fmod_options.h"

#include "shell/scoped.h"

namespace quavix {

FmodOptions::FmodOptions(MainFields& fields, EventBoundary& handlers)
    : fields_(fields), handlers_(handlers), previousRatio_(fields.NoteSilenceRatio) {
    NeverSilentCheck.Watch(
        [this](bool) { handlers_.Run("NeverSilentCheck_Click", [this] { NeverSilentCheck_Click(); }); });
    fields_.NoteSilenceRatio.State().Watch([this](const SettingState&) { NoteSilenceRatioSlider_Change(); });
}

void FmodOptions::NeverSilentCheck_Click() {
    const ScopedFlag manuallySetting(manuallySettingCheck_);
    fields_.DoNotShutUpFMOD = NeverSilentCheck;
    if (NeverSilentCheck) {
        previousRatio_ = fields_.NoteSilenceRatio;
        ratioManuallyChanged_ = false;
        fields_.NoteSilenceRatio.Set(parameter::NoteSilenceRatio.Highest);
    } else if (!ratioManuallyChanged_) {
        fields_.NoteSilenceRatio.Set(previousRatio_);
    }
}

void FmodOptions::NoteSilenceRatioSlider_Change() {
    if (NeverSilentCheck && !manuallySettingCheck_)
        ratioManuallyChanged_ = true;
}

}  // namespace quavix
