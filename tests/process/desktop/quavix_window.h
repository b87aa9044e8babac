// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "accessible.h"
#include "desktop_session.h"
#include "quavix_process.h"

namespace quavix::test {

/// The program's windows, operated from another process as a screen reader does.
///
/// Every function waits for its object. If none appears, it throws std::runtime_error with a list of what
/// there is.
class QuavixWindow {
  public:
    QuavixWindow(const DesktopSession& session, QuavixProcess& process)
        : bus_(session.AccessibilityBus()), process_(process) {}

    /// The window of this title. The main window's has more behind MainTitle.
    Accessible Window(const QString& title);
    Accessible Main() { return Window(MainTitle); }
    bool HasWindow(const QString& title);

    /// A control that shows in a window, by its role and its name. An empty role is any.
    Accessible Find(const QString& role, const QString& name, const QString& window = MainTitle);
    /// The control that a label belongs to.
    Accessible FindLabelled(const QString& label, const QString& window = MainTitle);
    /// Everything that shows in a window, without the cells of tables.
    std::vector<Accessible> Everything(const QString& window = MainTitle);

    /// Presses a button as soon as it can be pressed.
    void Press(const QString& button, const QString& window = MainTitle);
    /// Chooses an item of the main window's menus.
    void Choose(const QString& menuItem);
    /// Returns the label whose name begins with "what: ".
    Accessible FindReading(const QString& what, const QString& window = MainTitle);
    QString Title() { return Main().Name(); }
    /// Answers a message box, and returns its text.
    QString Answer(const QString& title, const QString& button);
    /// Gives a file dialog a file name.
    void GiveFileName(const QString& dialog, const QString& fileName, const QString& button);

    /// Presses a key of the piano, and waits for the line that it adds.
    void PressKey(const QString& key);
    /// A row of the list of music as it is read out, counted from 1; empty where there is none.
    QString Row(int row);

    /// Waits for the condition. False: it never holds.
    bool WaitUntil(const std::function<bool()>& condition) { return process_.WaitUntil(condition); }

    /// Beginning of the main window's title.
    static constexpr const char* MainTitle = "Quavix (v";

  private:
    std::optional<Accessible> Application();
    std::optional<Accessible> FindWindow(const QString& title);
    std::string Description();

    QDBusConnection bus_;
    QuavixProcess& process_;
};

}  // namespace quavix::test
