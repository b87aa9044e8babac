// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "music/main_fields.h"
#include "playback/pitch_glide.h"
#include "shell/event_boundary.h"
#include "ui/mods/mod_window.h"

namespace quavix {

namespace Ui {
class PortamentoForm;
}

/// The speed of the tweeble portamento's glides, and its duration.
class PortamentoForm : public ModWindow {
    Q_OBJECT

  public:
    explicit PortamentoForm(ModFields& mods, PitchGlide& glide, EventBoundary& handlers,
                            QWidget* parent = nullptr);
    ~PortamentoForm() override;

  private:
    std::unique_ptr<Ui::PortamentoForm> ui_;
};

}  // namespace quavix
