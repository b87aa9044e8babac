// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <QWidget>

#include "music/main_fields.h"
#include "playback/tone_dispatcher.h"
#include "ports/speaker.h"
#include "shell/event_boundary.h"

namespace quavix {

namespace Ui {
class SpeakerPanel;
}
class SpeakerForm;

/// A line that names the speaker in use, with a button for the window with details.
class SpeakerPanel : public QWidget {
    Q_OBJECT

  public:
    explicit SpeakerPanel(OutputOptions& output, ProgramState& state, PlaybackView& view,
                          ToneDispatcher& tones, Speaker& speaker, EventBoundary& handlers,
                          QWidget* parent = nullptr);
    ~SpeakerPanel() override;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    /// Queries the speaker's status again, because a device may have failed.
    void Refresh();
    void SpeakerDetailsButton_Click();

    OutputOptions& output_;
    ProgramState& state_;
    PlaybackView& view_;
    ToneDispatcher& tones_;
    Speaker& speaker_;
    EventBoundary& handlers_;
    std::unique_ptr<Ui::SpeakerPanel> ui_;
    SpeakerForm* form_ = nullptr;
    int shownWidth_ = -1;
};

}  // namespace quavix
