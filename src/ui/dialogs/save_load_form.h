// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <QDialog>

#include "ports/clock.h"
#include "shell/event_boundary.h"
#include "songfile/loading_view.h"
#include "songfile/save_load.h"

namespace quavix {

namespace Ui {
class SaveLoadForm;
}

/// The choice between saving and loading a song, and the progress of a load. Opened for the choice, it stays
/// until it is hidden; during a load without the choice, it appears after half a second.
class SaveLoadForm : public QDialog, public LoadingView {
    Q_OBJECT

  public:
    explicit SaveLoadForm(Clock& time, QWidget* parent = nullptr);
    ~SaveLoadForm() override;

    /// Passes the clicks of the choice on. `choice` must outlive the use of the form.
    void Serve(SaveLoad& choice, EventBoundary& handlers);

    /// Shows the choice above a window, and returns at once.
    void OpenAbove(QWidget& window);

    // LoadingView
    void ShowHideInfoText(bool show) override;
    void SetInfoText(const std::string& text) override;
    bool Progress(double ratio) override;

    /// Cancels the choice, or stops the load; for Escape and closing the window.
    void reject() override;

  private:
    std::unique_ptr<Ui::SaveLoadForm> ui_;
    Clock& time_;
    bool loading_ = false;
    bool shownForLoading_ = false;
    bool cancelled_ = false;
    std::uint32_t startTicks_ = 0;
    std::uint32_t eventTicks_ = 0;
};

}  // namespace quavix
