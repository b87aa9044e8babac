// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "music/main_fields.h"
#include "playback/synchro_play.h"
#include "shell/event_boundary.h"
#include "ui/mods/mod_window.h"

namespace quavix {

namespace Ui {
class SynchroForm;
}

/// The window of the synchronized start: the time, the place in the music, and the wait button.
class SynchroForm : public ModWindow {
    Q_OBJECT

  public:
    explicit SynchroForm(ModFields& mods, SynchroPlay& synchro, EventBoundary& handlers,
                         QWidget* owner = nullptr);
    ~SynchroForm() override;

  private:
    std::unique_ptr<Ui::SynchroForm> ui_;
};

}  // namespace quavix
