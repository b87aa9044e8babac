// SPDX-License-Identifier: MIT
#include <cmath>

#include "ui/ui_program.h"

namespace quavix {
namespace {

QPalette DarkPalette() {
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(45, 45, 48));
    palette.setColor(QPalette::Base, QColor(30, 30, 32));
    palette.setColor(QPalette::AlternateBase, QColor(38, 38, 40));
    palette.setColor(QPalette::Button, QColor(60, 60, 64));
    palette.setColor(QPalette::ToolTipBase, QColor(45, 45, 48));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText,
                            QPalette::BrightText})
        palette.setColor(role, QColor(230, 230, 230));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(140, 140, 140));
    palette.setColor(QPalette::Highlight, QColor(42, 130, 218));
    return palette;
}

double Luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double Contrast(const QColor& a, const QColor& b) {
    const double first = Luminance(a);
    const double second = Luminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

/// Puts the system's own colours back at its end.
class WithPalette {
  public:
    explicit WithPalette(const QPalette& palette) : before_(QApplication::palette()) {
        QApplication::setPalette(palette);
    }
    ~WithPalette() { QApplication::setPalette(before_); }

  private:
    QPalette before_;
};

void ExpectReadable(test::UiProgram& p) {
    for (const auto* label : p.Form.findChildren<QLabel*>()) {
        if (!label->isVisible() || !label->isEnabled())
            continue;
        const QPalette& palette = label->palette();
        EXPECT_GE(Contrast(palette.color(QPalette::WindowText), palette.color(QPalette::Window)), 4.5)
            << label->objectName().toStdString();
    }
}

/// The grid of held notes in both of its colours.
void HoldMidiNotes(test::UiProgram& p) {
    p.Disk.Put("/windows/system32/midiio32.ocx", "module");
    p.MidiIn.Devices = {"Keyboard"};
    p.App.Fields.Mods.UseMIDIIn.Ticked = true;
    p.MidiIn.ArriveAt(1, {{0x90, 60, 64}, {0x90, 64, 64}});
    p.Time.RunUntil(2);
    EXPECT_EQ(p.TextOf("lblOnNotes1"), "E5");
}

TEST(Appearance, EveryLabelCanBeReadInTheLightAndTheDarkPalette) {
    test::UiProgram light;
    HoldMidiNotes(light);
    ExpectReadable(light);
    const WithPalette dark(DarkPalette());
    test::UiProgram p;
    HoldMidiNotes(p);
    ExpectReadable(p);
    p.App.Fields.Song.BPM.Type("5");
    const QPalette field = p.Find<QLineEdit>("BPMText").palette();
    EXPECT_GE(Contrast(field.color(QPalette::Text), field.color(QPalette::Base)), 4.5);
}

TEST(Appearance, NothingIsCutOffAtTheSmallestSize) {
    test::UiProgram p;
    p.Form.resize(p.Form.minimumSizeHint());
    QApplication::processEvents();
    for (const auto* button : p.Form.findChildren<QAbstractButton*>()) {
        if (!button->isVisible() || button->text().isEmpty())
            continue;
        EXPECT_GE(button->width(), button->minimumSizeHint().width()) << button->objectName().toStdString();
    }
}

TEST(Appearance, AtTwiceItsSizeOn1366By768EveryControlIsScrolledToWhereItIsReached) {
    test::UiProgram p;
    const QSize room(1366 / 2, 768 / 2 - 32);
    p.Form.resize(room);
    QApplication::processEvents();
    EXPECT_EQ(p.Form.size(), room);
    const QWidget* first = p.Form.focusWidget();
    QSet<QString> reached;
    do {
        QTest::keyClick(p.Form.focusWidget(), Qt::Key_Tab);
        QApplication::processEvents();
        const QWidget* control = p.Form.focusWidget();
        const std::string name = control->objectName().toStdString();
        const QRect seen = control->visibleRegion().boundingRect();
        // The list may be larger than the room for it.
        EXPECT_TRUE(control->inherits("QAbstractItemView") ? !seen.isEmpty() : seen == control->rect())
            << name;
        reached.insert(control->objectName());
    } while (p.Form.focusWidget() != first && reached.size() < 100);
    for (const char* name : {"NoteLengthCombo", "AlternateTimeText", "UnselectButton", "SaveLoadButton",
                             "PlayNote2Check", "PianoKey", "KeyboardOctaveText"})
        EXPECT_TRUE(reached.contains(name)) << name;
}

TEST(Appearance, AFullScreenOf1366By768ShowsEverythingWithoutScrolling) {
    test::UiProgram p;
    p.Form.resize(1366, 768 - 64);  // the title of the window and a panel of the desktop
    QApplication::processEvents();
    EXPECT_EQ(p.Form.size(), QSize(1366, 704));
    for (const char* name : {"settingsScroll", "modsScroll", "upperScroll"})
        EXPECT_EQ(p.Find<QScrollArea>(name).verticalScrollBar()->maximum(), 0) << name;
    EXPECT_EQ(p.Find<QScrollArea>("upperScroll").horizontalScrollBar()->maximum(), 0);
    EXPECT_GE(p.Find<QWidget>("MainList").height(), 300);
}

}  // namespace
}  // namespace quavix
