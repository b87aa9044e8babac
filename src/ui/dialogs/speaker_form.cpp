// SPDX-License-Identifier: MIT
#include "ui/dialogs/speaker_form.h"

#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>

#include "ui/widgets/binding.h"
#include "ui_speaker_form.h"

namespace quavix {

SpeakerForm::SpeakerForm(PlaybackView& view, Speaker& speaker, EventBoundary& handlers, QWidget* parent)
    : QDialog(parent), speaker_(speaker), ui_(std::make_unique<Ui::SpeakerForm>()) {
    ui_->setupUi(this);
    ui_->RemedyText->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    BindEnabled(ui_->SpeakerTestButton, view.PlayAllButtonEnabled);
    BindButton(ui_->SpeakerTestButton, handlers, [this] { SpeakerTestButton_Click(); });
    BindButton(ui_->RemedyCopyButton, handlers,
               [this] { QGuiApplication::clipboard()->setText(ui_->RemedyText->toPlainText()); });
    BindButton(ui_->SpeakerCloseButton, handlers, [this] { hide(); });
    Refresh();
}

SpeakerForm::~SpeakerForm() = default;

void SpeakerForm::Refresh() {
    const SpeakerStatus status = speaker_.Status();
    ShowReading(ui_->lblInUse, tr("Speaker in use"), QString::fromStdString(status.InUse));
    ShowReading(ui_->lblReason, tr("Why it is not the PC speaker"), QString::fromStdString(status.Reason));
    ui_->RemedyText->setPlainText(QString::fromStdString(status.Remedy));
    const bool hasReason = !status.Reason.empty();
    ui_->lblReasonCaption->setVisible(hasReason);
    ui_->lblReason->setVisible(hasReason);
    const bool hasRemedy = !status.Remedy.empty();
    ui_->lblRemedyCaption->setVisible(hasRemedy);
    ui_->RemedyText->setVisible(hasRemedy);
    ui_->RemedyCopyButton->setVisible(hasRemedy);
    if (!hasRemedy)
        resize(width(), layout()->totalHeightForWidth(width()));
}

void SpeakerForm::SpeakerTestButton_Click() {
    constexpr std::int32_t ConcertPitchHz = 440;
    constexpr std::int32_t DurationMs = 300;
    speaker_.Beep(ConcertPitchHz, DurationMs);
    Refresh();
    Q_EMIT Tested();
}

}  // namespace quavix
