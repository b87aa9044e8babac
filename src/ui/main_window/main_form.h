// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <QMainWindow>

#include "songfile/save_load.h"
#include "ui/main_window/window_parts.h"

class QScrollArea;

namespace quavix {

namespace Ui {
class MainForm;
}

/// The main window: panels of controls, put together. It decides nothing; closing it asks the program to end.
class MainForm : public QMainWindow, private SaveLoadView {
    Q_OBJECT

  public:
    explicit MainForm(const WindowParts& parts, QWidget* parent = nullptr);
    ~MainForm() override;

  protected:
    void closeEvent(QCloseEvent* event) override;
    /// Space plays and stops, Escape stops, where no control wants them for itself.
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    // SaveLoadView
    void ShowSaveLoadForm(bool show) override;
    void EnableMainForm(bool enable) override { setEnabled(enable); }
    void BringMainFormToFront() override;

    void FitScreen();
    void AddPanels();
    void AddSaveLoadButton();
    void AddDebugLogNotice();
    void ConnectSaveLoadForm();
    void ShowTitle();
    void LoadDropped(const std::string& fileName);

    WindowParts parts_;
    std::unique_ptr<Ui::MainForm> ui_;
    SaveLoad saveLoad_;
    QString title_;
};

}  // namespace quavix
