// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>

#include <QtTest>
#include <QtWidgets>
#include <gtest/gtest.h>

#include "support/simulated_desktop.h"
#include "ui/dialogs/save_load_form.h"
#include "ui/main_window/main_form.h"

namespace quavix::test {

/// A song file of two rows.
inline constexpr const char* TwoRowSong =
    "Quavix by Dastrel-204 file format\r\nMUSICLISTSTART\r\nQuarter C4 E4 -\r\nHalf G4 - Dot\r\n";

/// Sends the repetition of a key that is held down.
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

    /// Returns the control of this name; raises std::logic_error if there is none.
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
    /// Clicks at this time, or at the end of the speaker's tone that sounds then.
    void ClickAt(double ms, const char* button) {
        Time.At(ms, [this, button] { Click(button); });
    }
    /// Returns the cells of a row of the list, between commas.
    std::string Row(std::int32_t row) {
        const MusicLine line = App.List.Line(row);
        return line.Length + "," + line.Note1 + "," + line.Note2 + "," + line.Mod;
    }
    /// Drops a file on the main window, which has to accept it.
    void Drop(const char* fileName) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(fileName)});
        QDragEnterEvent enter({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&Form, &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&Form, &drop);
        QApplication::processEvents();
    }
    /// Returns the text of a label after a key of a slider.
    QString TextAfter(const char* slider, Qt::Key key, const char* label) {
        QTest::keyClick(&Find<QSlider>(slider), key);
        return TextOf(label);
    }
    QString TextOf(const char* label) { return Find<QLabel>(label).text(); }

    SaveLoadForm SaveLoadWindow{Time};
    MainForm Form{App, SaveLoadWindow, [this] { Desktop.QueryUnload(); }};
};

}  // namespace quavix::test
