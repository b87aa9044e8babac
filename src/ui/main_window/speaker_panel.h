// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <QWidget>

#include "ui/main_window/window_parts.h"

namespace quavix {

namespace Ui {
class SpeakerPanel;
}
class SpeakerForm;

/// One line that says which speaker is in use, and the way to the window that says more.
class SpeakerPanel : public QWidget {
    Q_OBJECT

  public:
    explicit SpeakerPanel(const WindowParts& parts, QWidget* parent = nullptr);
    ~SpeakerPanel() override;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    /// Asks the speaker anew: a device may have failed meanwhile.
    void Refresh();
    void SpeakerDetailsButton_Click();

    WindowParts parts_;
    std::unique_ptr<Ui::SpeakerPanel> ui_;
    SpeakerForm* form_ = nullptr;
    int shownWidth_ = -1;
};

}  // namespace quavix
