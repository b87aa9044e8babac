// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <QDialog>

#include "music/main_fields.h"
#include "ports/speaker.h"
#include "shell/event_boundary.h"

namespace quavix {

namespace Ui {
class SpeakerForm;
}

/// Which speaker is in use and, where it is not the real one, why not and what to do about it; and a test
/// tone.
class SpeakerForm : public QDialog {
    Q_OBJECT

  public:
    explicit SpeakerForm(PlaybackView& view, Speaker& speaker, EventBoundary& handlers,
                         QWidget* parent = nullptr);
    ~SpeakerForm() override;

    /// Asks the speaker anew.
    void Refresh();

  Q_SIGNALS:
    /// The test tone has sounded, and may have shown a failing device.
    void Tested();

  private:
    void SpeakerTestButton_Click();
    void RemedyCopyButton_Click();

    PlaybackView& view_;
    Speaker& speaker_;
    EventBoundary& handlers_;
    std::unique_ptr<Ui::SpeakerForm> ui_;
};

}  // namespace quavix
