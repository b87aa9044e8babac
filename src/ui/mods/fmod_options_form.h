// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "fmod/sound_mods.h"
#include "music/main_fields.h"
#include "shell/event_boundary.h"
#include "ui/mods/mod_window.h"

namespace quavix {

namespace Ui {
class FMODOptionsForm;
}

/// The waveform of the sound card's tones, and the never-silent option.
class FMODOptionsForm : public ModWindow {
    Q_OBJECT

  public:
    FMODOptionsForm(ModFields& mods, SoundMods& sound, EventBoundary& handlers, QWidget* owner);
    ~FMODOptionsForm() override;

  private:
    std::unique_ptr<Ui::FMODOptionsForm> ui_;
};

}  // namespace quavix
