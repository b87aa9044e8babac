// SPDX-License-Identifier: MIT
#pragma once

#include <QGroupBox>

#include "music/main_fields.h"
#include "playback/motor_mod_module.h"
#include "ports/message_boxes.h"
#include "shell/event_boundary.h"
#include "ui/mods/mod_texts.h"

class QGridLayout;

namespace quavix {

/// The check boxes of the mods, each with a button that explains it. Unavailable mods are disabled, but can
/// still be explained.
class ModsPanel : public QGroupBox {
    Q_OBJECT

  public:
    explicit ModsPanel(ModFields& mods, OutputOptions& output, MotorModModule& motor, MessageBoxes& boxes,
                       EventBoundary& handlers, QWidget* parent = nullptr);

  private:
    void AddMod(const text::Mod& mod);
    void AddMotorSettings();
    void ShowHelp(const text::Mod& mod);

    ModFields& mods_;
    OutputOptions& output_;
    MotorModModule& motor_;
    MessageBoxes& boxes_;
    EventBoundary& handlers_;
    QGridLayout* grid_;
};

}  // namespace quavix
