// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "music/main_fields.h"
#include "playback/beat.h"
#include "shell/event_boundary.h"
#include "ui/mods/mod_window.h"

namespace quavix {

namespace Ui {
class BeatForm;
}

/// The choice of the beats that the beat sound plays on.
class BeatForm : public ModWindow {
    Q_OBJECT

  public:
    explicit BeatForm(ModFields& mods, Beat& beat, EventBoundary& handlers, QWidget* parent = nullptr);
    ~BeatForm() override;

  private:
    std::unique_ptr<Ui::BeatForm> ui_;
};

}  // namespace quavix
