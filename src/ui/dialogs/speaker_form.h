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

/// The window about the speaker: the one in use and, if it is not the real one, the reason and a remedy; with
/// a test tone.
class SpeakerForm : public QDialog {
    Q_OBJECT

  public:
    explicit SpeakerForm(PlaybackView& view, Speaker& speaker, EventBoundary& handlers,
                         QWidget* parent = nullptr);
    ~SpeakerForm() override;

    /// Queries the speaker's status again.
    void Refresh();

  Q_SIGNALS:
    /// Emitted after the test tone, which may have revealed a failed device.
    void Tested();

  private:
    void SpeakerTestButton_Click();

    Speaker& speaker_;
    std::unique_ptr<Ui::SpeakerForm> ui_;
};

}  // namespace quavix
