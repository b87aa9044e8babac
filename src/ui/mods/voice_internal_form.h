// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "fmod/sound_mods.h"
#include "music/main_fields.h"
#include "shell/event_boundary.h"
#include "ui/mods/mod_window.h"

class QLabel;
class QSlider;

namespace quavix {

namespace Ui {
class VoiceInternalForm;
}

/// The sliders and the vowel buttons of the voice.
class VoiceInternalForm : public ModWindow {
    Q_OBJECT

  public:
    VoiceInternalForm(ModFields& mods, OutputOptions& output, SoundMods& sound, EventBoundary& handlers,
                      QWidget* owner);
    ~VoiceInternalForm() override;

  private:
    void Bind(QSlider* slider, Watched<std::int32_t>& value, const Parameter& range, QLabel* label,
              const Watched<std::string>& words);
    void BindSliders();
    void BindFormants();
    void BindVowels();

    ModFields& mods_;
    OutputOptions& output_;
    UseVoice& controls_;
    EventBoundary& handlers_;
    std::unique_ptr<Ui::VoiceInternalForm> ui_;
};

}  // namespace quavix
