// SPDX-License-Identifier: MIT
#include "fmod/use_fmod.h"

#include "shell/scoped.h"

namespace quavix {

UseFmod::UseFmod(SongFields& song, ModFields& mods, OutputOptions& output, FmodToneGenerator& generator,
                 EventBoundary& handlers)
    : song_(song),
      mods_(mods),
      output_(output),
      generator_(generator),
      previousRatio_(song.NoteSilenceRatio) {
    mods_.UseFMOD.Ticked.Watch(handlers.Wrap("UseFMODCheck_Click", [this] { UseFMODCheck_Click(); }));
    NeverSilentCheck.Watch(handlers.Wrap("NeverSilentCheck_Click", [this] { NeverSilentCheck_Click(); }));
    song_.NoteSilenceRatio.State().Watch([this](const SettingState&) {
        if (NeverSilentCheck && !manuallySettingCheck_)
            ratioManuallyChanged_ = true;
    });
}

void UseFmod::UseFMODCheck_Click() {
    if (!mods_.UseFMOD.Ticked)
        generator_.FMODBeepStop();
    mods_.UseFMOD.InUse = mods_.UseFMOD.Ticked;
    FMODOptionsFormVisible = mods_.UseFMOD.Ticked.Get();
}

void UseFmod::NeverSilentCheck_Click() {
    const ScopedFlag manuallySetting(manuallySettingCheck_);
    output_.DoNotShutUpFMOD = NeverSilentCheck;
    if (NeverSilentCheck) {
        previousRatio_ = song_.NoteSilenceRatio;
        ratioManuallyChanged_ = false;
        song_.NoteSilenceRatio.Set(parameter::NoteSilenceRatio.Highest);
    } else if (!ratioManuallyChanged_) {
        song_.NoteSilenceRatio.Set(previousRatio_);
    }
}

}  // namespace quavix
