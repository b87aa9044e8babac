// SPDX-License-Identifier: MIT
#include "fmod/use_fmod.h"

#include "shell/scoped.h"

namespace quavix {

UseFmod::UseFmod(MainFields& fields, FmodToneGenerator& generator, EventBoundary& handlers)
    : fields_(fields), generator_(generator), handlers_(handlers), previousRatio_(fields.NoteSilenceRatio) {
    fields_.UseFMODCheck.Watch(handlers_.Wrap("UseFMODCheck_Click", [this] { UseFMODCheck_Click(); }));
    NeverSilentCheck.Watch(handlers_.Wrap("NeverSilentCheck_Click", [this] { NeverSilentCheck_Click(); }));
    fields_.NoteSilenceRatio.State().Watch([this](const SettingState&) { NoteSilenceRatioSlider_Change(); });
}

void UseFmod::UseFMODCheck_Click() {
    if (!fields_.UseFMODCheck)
        generator_.FMODBeepStop();
    fields_.UseFMOD = fields_.UseFMODCheck;
    FMODOptionsFormVisible = fields_.UseFMODCheck.Get();
}

void UseFmod::NeverSilentCheck_Click() {
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

void UseFmod::NoteSilenceRatioSlider_Change() {
    if (NeverSilentCheck && !manuallySettingCheck_)
        ratioManuallyChanged_ = true;
}

}  // namespace quavix
