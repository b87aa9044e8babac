// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <QComboBox>

#include "shell/event_boundary.h"
#include "shell/watched.h"

namespace quavix {

/// A choice among devices that come and go: they are searched for each time the list is opened.
class DeviceCombo : public QComboBox {
    Q_OBJECT

  public:
    explicit DeviceCombo(QWidget* parent = nullptr) : QComboBox(parent) {}

    /// Shows the devices and the chosen entry. Opening the list runs `search`, and the user's choice, also of
    /// what is chosen already, `clicked`. The values must outlive the combo's use.
    void Bind(const Watched<std::vector<std::string>>& devices, const Watched<std::int32_t>& chosen,
              EventBoundary& handlers, std::function<void()> search,
              std::function<void(std::int32_t)> clicked);

    void showPopup() override;

  private:
    std::function<void()> beforePopup_;
};

}  // namespace quavix
