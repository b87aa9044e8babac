// SPDX-License-Identifier: MIT
#include "ui/dialogs/speaker_form.h"

#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>

#include "playback/test_tone.h"
#include "ui/widgets/binding.h"
#include "ui_speaker_form.h"

namespace quavix {

SpeakerForm::SpeakerForm(const WindowParts& parts, QWidget* parent)
    : QDialog(parent), parts_(parts), ui_(std::make_unique<Ui::SpeakerForm>()) {
    ui_->setupUi(this);
    ui_->RemedyText->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    BindEnabled(ui_->SpeakerTestButton, parts_.Fields.PlayAllButtonEnabled);
    BindButton(ui_->SpeakerTestButton, parts_.Handlers, [this] { SpeakerTestButton_Click(); });
    BindButton(ui_->RemedyCopyButton, parts_.Handlers, [this] { RemedyCopyButton_Click(); });
    BindButton(ui_->SpeakerCloseButton, parts_.Handlers, [this] { hide(); });
    Refresh();
}

SpeakerForm::~SpeakerForm() = default;

void SpeakerForm::Refresh() {
    const SpeakerStatus status = parts_.PcSpeaker.Status();
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
    TestSpeaker(parts_.PcSpeaker);
    Refresh();
    Q_EMIT Tested();
}

void SpeakerForm::RemedyCopyButton_Click() {
    QGuiApplication::clipboard()->setText(ui_->RemedyText->toPlainText());
}

}  // namespace quavix
