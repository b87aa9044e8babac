// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include <QObject>

#include "program/program.h"

class QAction;
class QDialog;
class QKeySequence;
class QMainWindow;
class QMenu;
class QTableView;

namespace quavix {

/// The menus of the main window.
class MainMenu : public QObject {
    Q_OBJECT

  public:
    /// Adds the menus to the window, which owns them. `closeProgram` is called when the user wants to leave.
    MainMenu(Program& program, std::function<void()> closeProgram, QMainWindow& window);

    /// Adds the editing commands to a list as its context menu.
    void ServeList(QTableView& list);

  private:
    void AddFileMenu();
    void AddEditMenu();
    void AddPlayMenu();
    void AddHelpMenu();
    QMenu* AddMenu(const char* name, const QString& title);
    QAction* Add(QMenu* menu, const char* name, const QString& caption, const QKeySequence& keys,
                 const QString& tip, std::function<void()> triggered);

    void Paste();
    void ShowManual();
    void ShowAbout();

    Program& program_;
    std::function<void()> closeProgram_;
    QMainWindow& window_;
    QDialog* manual_ = nullptr;
};

}  // namespace quavix
