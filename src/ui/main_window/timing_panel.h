// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <QGroupBox>

#include "ui/main_window/window_parts.h"

namespace quavix {

namespace Ui {
class TimingPanel;
}

/// The settings of time: tempo, time signature, note/silence ratio, alternate time.
class TimingPanel : public QGroupBox {
    Q_OBJECT

  public:
    explicit TimingPanel(const WindowParts& parts, QWidget* parent = nullptr);
    ~TimingPanel() override;

  private:
    WindowParts parts_;
    std::unique_ptr<Ui::TimingPanel> ui_;
};

}  // namespace quavix
