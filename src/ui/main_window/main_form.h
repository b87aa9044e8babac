// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>

#include <QMainWindow>

#include "program/program.h"
#include "songfile/save_load.h"

namespace quavix {

class SaveLoadForm;

namespace Ui {
class MainForm;
}

/// The main window: assembles the panels of controls. It has no logic; closing it asks the program to end.
class MainForm : public QMainWindow, private SaveLoadView {
    Q_OBJECT

  public:
    /// `closeProgram` is called when the user wants to end the program. All must outlive the window.
    MainForm(Program& program, SaveLoadForm& saveLoadForm, std::function<void()> closeProgram,
             QWidget* parent = nullptr);
    ~MainForm() override;

  protected:
    void closeEvent(QCloseEvent* event) override;
    /// Space plays and stops, Escape stops, unless a control uses the key.
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    // SaveLoadView
    void ShowSaveLoadForm(bool show) override;
    void EnableMainForm(bool enable) override { setEnabled(enable); }
    void BringMainFormToFront() override;

    void FitScreen();
    void AddModWindows();
    void AddPanels();
    void AddSaveLoadButton();
    void ShowTitle();
    void LoadDropped(const std::string& fileName);

    Program& program_;
    SaveLoadForm& saveLoadForm_;
    std::function<void()> closeProgram_;
    std::unique_ptr<Ui::MainForm> ui_;
    SaveLoad saveLoad_;
    QString title_;
};

}  // namespace quavix
