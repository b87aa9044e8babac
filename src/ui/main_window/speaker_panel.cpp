// SPDX-License-Identifier: MIT
#include "music/main_fields.h"
#include "playback/tone_dispatcher.h"
#include "ports/speaker.h"
#include "ui/dialogs/speaker_form.h"
#include "ui/main_window/panels.h"
#include "ui/widgets/binding.h"
#include "ui_speaker_panel.h"

namespace quavix {
namespace {

class SpeakerPanel : public QWidget {
  public:
    SpeakerPanel(OutputOptions& output, ProgramState& state, PlaybackView& view, ToneDispatcher& tones,
                 Speaker& speaker, EventBoundary& handlers, QWidget* parent)
        : QWidget(parent), view_(view), speaker_(speaker), handlers_(handlers) {
        ui_.setupUi(this);
        ShowIn(this, state.MusicIsPlaying, [this](bool) { Refresh(); });
        // Refreshed after each tone, because a speaker may fail at any tone.
        ShowIn(this, view_.BeepTextLabelVisible, [this](bool visible) {
            if (!visible)
                Refresh();
        });
        BindCheck(ui_.MuteTweebleCheck, output.MuteTweebleCheck, handlers_,
                  [&tones] { tones.MuteTweebleCheck_Click(); });
        BindButton(ui_.SpeakerDetailsButton, handlers_, [this] { SpeakerDetailsButton_Click(); });
    }

  protected:
    void resizeEvent(QResizeEvent* event) override {
        QWidget::resizeEvent(event);
        Refresh();
    }

  private:
    /// Queries the speaker's status again, because a device may have failed.
    void Refresh() {
        const SpeakerStatus status = speaker_.Status();
        QString text = tr("Speaker: %1").arg(QString::fromStdString(status.InUse));
        if (!status.Reason.empty())
            text += QString::fromUtf8(" – ") + QString::fromStdString(status.Reason);
        QLabel& label = *ui_.SpeakerLabel;
        if (text == label.toolTip() && shownWidth_ == label.width())
            return;
        shownWidth_ = label.width();
        label.setText(label.fontMetrics().elidedText(text, Qt::ElideRight, label.width()));
        label.setToolTip(text);
        label.setAccessibleName(text);
    }

    void SpeakerDetailsButton_Click() {
        if (form_ == nullptr) {
            form_ = new SpeakerForm(view_, speaker_, handlers_, this);
            connect(form_, &SpeakerForm::Tested, this, &SpeakerPanel::Refresh);
        }
        Refresh();
        form_->Refresh();
        form_->show();
        form_->raise();
        form_->activateWindow();
    }

    PlaybackView& view_;
    Speaker& speaker_;
    EventBoundary& handlers_;
    Ui::SpeakerPanel ui_;
    SpeakerForm* form_ = nullptr;
    int shownWidth_ = -1;
};

}  // namespace

QWidget* MakeSpeakerPanel(OutputOptions& output, ProgramState& state, PlaybackView& view,
                          ToneDispatcher& tones, Speaker& speaker, EventBoundary& handlers, QWidget* parent) {
    return new SpeakerPanel(output, state, view, tones, speaker, handlers, parent);
}

}  // namespace quavix
