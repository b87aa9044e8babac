// SPDX-License-Identifier: MIT
#include "ui/main_window/speaker_panel.h"

#include "ui/dialogs/speaker_form.h"
#include "ui/widgets/binding.h"
#include "ui_speaker_panel.h"

namespace quavix {

SpeakerPanel::SpeakerPanel(OutputOptions& output, ProgramState& state, PlaybackView& view,
                           ToneDispatcher& tones, Speaker& speaker, EventBoundary& handlers, QWidget* parent)
    : QWidget(parent),
      output_(output),
      state_(state),
      view_(view),
      tones_(tones),
      speaker_(speaker),
      handlers_(handlers),
      ui_(std::make_unique<Ui::SpeakerPanel>()) {
    ui_->setupUi(this);
    ShowIn(this, state_.MusicIsPlaying, [this](bool) { Refresh(); });
    // Refreshed after each tone, because a speaker may fail at any tone.
    ShowIn(this, view_.BeepTextLabelVisible, [this](bool visible) {
        if (!visible)
            Refresh();
    });
    BindCheck(ui_->MuteTweebleCheck, output_.MuteTweebleCheck, handlers_,
              [this] { tones_.MuteTweebleCheck_Click(); });
    BindButton(ui_->SpeakerDetailsButton, handlers_, [this] { SpeakerDetailsButton_Click(); });
}

SpeakerPanel::~SpeakerPanel() = default;

void SpeakerPanel::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Refresh();
}

void SpeakerPanel::Refresh() {
    const SpeakerStatus status = speaker_.Status();
    QString text = tr("Speaker: %1").arg(QString::fromStdString(status.InUse));
    if (!status.Reason.empty())
        text += QString::fromUtf8(" – ") + QString::fromStdString(status.Reason);
    if (text == ui_->SpeakerLabel->toolTip() && shownWidth_ == ui_->SpeakerLabel->width())
        return;
    shownWidth_ = ui_->SpeakerLabel->width();
    const QLabel& label = *ui_->SpeakerLabel;
    ui_->SpeakerLabel->setText(label.fontMetrics().elidedText(text, Qt::ElideRight, label.width()));
    ui_->SpeakerLabel->setToolTip(text);
    ui_->SpeakerLabel->setAccessibleName(text);
}

void SpeakerPanel::SpeakerDetailsButton_Click() {
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

}  // namespace quavix
