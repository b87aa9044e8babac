// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>

#include "playback/motor_mod_module.h"
#include "shell/event_boundary.h"

namespace quavix {

/// The choice of the motor's serial port. Opening the list searches for ports again.
class PortCombo : public QComboBox {
    Q_OBJECT

  public:
    PortCombo(MotorModModule& motor, EventBoundary& handlers, QWidget* parent = nullptr);

    void showPopup() override;

  private:
    void ShowPorts();

    MotorModModule& motor_;
    EventBoundary& handlers_;
};

}  // namespace quavix
