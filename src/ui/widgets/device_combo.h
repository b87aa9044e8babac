// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <QComboBox>

#include "shell/event_boundary.h"
#include "shell/watched.h"

namespace quavix {

/// A choice of changing devices: opening the list searches for them. Bind() has to be called before.
class DeviceCombo : public QComboBox {
    Q_OBJECT

  public:
    explicit DeviceCombo(QWidget* parent = nullptr) : QComboBox(parent) { setPlaceholderText(tr("(none)")); }

    /// Shows devices, none of them as chosen.
    void Show(const std::vector<std::string>& devices);

    /// Opening the list runs `search`; a choice by the user, even of the chosen entry, runs `clicked`.
    void Bind(EventBoundary& handlers, std::function<void()> search,
              std::function<void(std::int32_t)> clicked);

    /// Same, and shows the devices and the chosen entry. The values must outlive the combo's use.
    void Bind(const Watched<std::vector<std::string>>& devices, const Watched<std::int32_t>& chosen,
              EventBoundary& handlers, std::function<void()> search,
              std::function<void(std::int32_t)> clicked);

    void showPopup() override;

  private:
    std::function<void()> beforePopup_;
};

}  // namespace quavix
