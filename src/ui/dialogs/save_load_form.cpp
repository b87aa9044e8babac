// SPDX-License-Identifier: MIT
#include "ui/dialogs/save_load_form.h"

#include <QCoreApplication>
#include <QWindow>

#include "ui/widgets/binding.h"
#include "ui_save_load_form.h"

namespace quavix {

SaveLoadForm::SaveLoadForm(Clock& time, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::SaveLoadForm>()), time_(time) {
    ui_->setupUi(this);
    ShowHideInfoText(false);
}

SaveLoadForm::~SaveLoadForm() = default;

void SaveLoadForm::Serve(SaveLoad& choice, EventBoundary& handlers) {
    BindButton(ui_->SaveButton, handlers, [&choice] { choice.SaveButton_Click(); });
    BindButton(ui_->LoadButton, handlers, [&choice] { choice.LoadButton_Click(); });
    BindButton(ui_->CancelButton, handlers, [&choice] { choice.CancelButton_Click(); });
}

void SaveLoadForm::OpenAbove(QWidget& window) {
    setWindowModality(Qt::NonModal);
    winId();  // creates the system's window, which is then put above another
    windowHandle()->setTransientParent(window.windowHandle());
    ui_->SaveButton->setFocus();
    show();
    raise();
    activateWindow();
}

void SaveLoadForm::ShowHideInfoText(bool show) {
    loading_ = show;
    ui_->lblInfoText->setVisible(show);
    ui_->LoadingProgress->setVisible(show);
    ui_->LoadingCancelButton->setVisible(show);
    ui_->SaveButton->setVisible(!show);
    ui_->LoadButton->setVisible(!show);
    ui_->CancelButton->setVisible(!show);
    if (!show) {
        if (std::exchange(shownForLoading_, false))
            hide();
        adjustSize();
        return;
    }
    cancelled_ = false;
    ui_->LoadingProgress->setValue(0);
    startTicks_ = time_.TickCount();
    eventTicks_ = startTicks_;
    adjustSize();
}

void SaveLoadForm::SetInfoText(const std::string& text) {
    ui_->lblInfoText->setText(QString::fromStdString(text).replace("\r\n", "\n"));
    adjustSize();
    if (isVisible())
        repaint();
}

bool SaveLoadForm::Progress(double ratio) {
    constexpr int Percent = 100;
    constexpr std::uint32_t ShowAfterMs = 500;
    constexpr std::uint32_t EventsEveryMs = 30;
    const std::uint32_t now = time_.TickCount();
    if (!isVisible() && now - startTicks_ < ShowAfterMs)
        return true;
    ui_->LoadingProgress->setValue(static_cast<int>(ratio * Percent));
    if (!isVisible()) {
        shownForLoading_ = true;
        setWindowModality(Qt::ApplicationModal);
        show();
    } else if (now - eventTicks_ < EventsEveryMs) {
        return !cancelled_;
    }
    QCoreApplication::processEvents();
    eventTicks_ = time_.TickCount();
    return !cancelled_;
}

void SaveLoadForm::reject() {
    if (loading_)
        cancelled_ = true;
    else
        ui_->CancelButton->click();
}

}  // namespace quavix
