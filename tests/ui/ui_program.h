// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>

#include <QtTest>
#include <QtWidgets>

#include "support/simulated_desktop.h"
#include "ui/dialogs/save_load_form.h"
#include "ui/main_window/main_form.h"

namespace quavix::test {

/// A song file of two rows.
inline constexpr const char* TwoRowSong =
    "Quavix by Dastrel-204 file format\r\nMUSICLISTSTART\r\nQuarter C4 E4 -\r\nHalf G4 - Dot\r\n";

/// The repetition of a key that is held down.
inline void RepeatKey(QWidget& widget, Qt::Key key) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, {}, true);
    QApplication::sendEvent(&widget, &press);
}

/// The program on simulated ports behind its real main window.
struct UiProgram : SimulatedDesktop {
    explicit UiProgram(const std::string& commandLine = {}) : SimulatedDesktop(commandLine) {
        Form.show();
        Form.activateWindow();
        QApplication::processEvents();
    }

    /// A control by its name; there must be one.
    template <typename Control>
    Control& Find(const char* name) {
        auto* control = Form.findChild<Control*>(name);
        if (control == nullptr)
            throw std::logic_error(std::string("no control ") + name);
        return *control;
    }

    void Click(const char* button) {
        auto& control = Find<QAbstractButton>(button);
        // A check box takes clicks on its indicator and its text.
        QTest::mouseClick(&control, Qt::LeftButton, {}, {8, control.height() / 2});
    }
    /// The click comes in at this time; the middle of a tone on the speaker doesn't let it in.
    void ClickAt(double ms, const char* button) {
        Time.At(ms, [this, button] { Click(button); });
    }
    /// What stands in a row of the list.
    std::string Row(std::int32_t row) {
        const MusicLine line = App.List.Line(row);
        return line.Length + "," + line.Note1 + "," + line.Note2 + "," + line.Mod;
    }
    QString TextOf(const char* label) { return Find<QLabel>(label).text(); }

    SaveLoadForm SaveLoadWindow{Time};
    MainForm Form{App, SaveLoadWindow, [this] { Desktop.QueryUnload(); }};
};

}  // namespace quavix::test
