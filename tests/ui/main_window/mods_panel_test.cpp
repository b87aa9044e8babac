// SPDX-License-Identifier: MIT
#include "ui/texts.h"
#include "ui/ui_program.h"

namespace quavix {
namespace {

TEST(ModsPanel, EachCheckBoxSwitchesItsMod) {
    test::UiProgram p;
    for (const text::Mod* mod : text::Mods) {
        const auto& check = p.Find<QCheckBox>(mod->CheckName);
        EXPECT_EQ(check.text(), mod->Caption);
        EXPECT_EQ(check.toolTip(), mod->ToolTip);
        for (const bool enabled : {false, true}) {
            (p.App.Fields.Mods.*mod->Switch).Enabled = enabled;
            EXPECT_EQ(check.isEnabled(), enabled) << mod->CheckName;
        }
    }
}

TEST(ModsPanel, TheMotorsOctaveAndPortAreChosenBelowItsCheckBox) {
    test::UiProgram p;
    EXPECT_EQ(p.TextOf("lblMotorOct"), "Motor Octave");
    EXPECT_EQ(p.TextOf("lblMotorOctValue"), "3");
    auto& slider = p.Find<QSlider>("MotorOctSlider");
    EXPECT_EQ(slider.minimum(), 0);
    EXPECT_EQ(slider.maximum(), 6);
    slider.setValue(5);
    EXPECT_EQ(p.App.Fields.Output.MotorOct, 5);
    EXPECT_EQ(p.TextOf("lblMotorOctValue"), "5");

    p.Comm.Present = {"ttyUSB0", "ttyUSB1"};
    auto& ports = p.Find<QComboBox>("cmbMotorPort");
    EXPECT_EQ(ports.count(), 0);
    ports.showPopup();
    EXPECT_EQ(ports.count(), 2);
    EXPECT_EQ(ports.currentText(), "ttyUSB0");
    ports.hidePopup();
    QTest::keyClick(&ports, Qt::Key_Down);
    EXPECT_EQ(p.App.Outputs.MotorModModule.PortName.Get(), "ttyUSB1");
    auto& check = p.Find<QCheckBox>("UseMotorCheck");
    check.click();
    EXPECT_TRUE(check.isChecked());
    EXPECT_EQ(p.Timeline.Text("serial"), "0.0000 serial open ttyUSB1\n");
    p.Comm.Pull();
    EXPECT_FALSE(check.isChecked());
    EXPECT_EQ(ports.currentText(), "ttyUSB0");
}

TEST(ModsPanel, WithoutASerialPortTheMotorIsGreyUntilOneIsFound) {
    test::UiProgram p;
    p.Comm.Present = {};
    p.App.Outputs.MotorModModule.CheckForPort();
    EXPECT_FALSE(p.Find<QCheckBox>("UseMotorCheck").isEnabled());
    auto& ports = p.Find<QComboBox>("cmbMotorPort");
    EXPECT_TRUE(ports.isEnabled());
    p.Comm.Present = {"ttyACM0"};
    ports.showPopup();
    EXPECT_TRUE(p.Find<QCheckBox>("UseMotorCheck").isEnabled());
}

TEST(ModsPanel, EveryQuestionMarkExplainsItsMod) {
    test::UiProgram p;
    for (const text::Mod* mod : text::Mods) {
        std::string button = mod->CheckName;
        button.replace(button.size() - 5, 5, "HButton");
        // A click by the mouse would miss what has to be scrolled to.
        p.Find<QAbstractButton>(button.c_str()).click();
        EXPECT_EQ(p.Boxes.Shown().back().Title, mod->HelpTitle);
        EXPECT_EQ(p.Boxes.Shown().back().Text, mod->HelpText);
        EXPECT_EQ(p.Boxes.Shown().back().Icon, BoxIcon::Information);
    }
    EXPECT_EQ(p.Boxes.Shown().size(), std::size(text::Mods));
}

TEST(ModsPanel, HelpTextsMatchExactly) {
    EXPECT_STREQ(text::UseVoice.HelpText,
                 "Makes the program use a voice system for 'singing' one of the note columns.\n"
                 "This uses FMOD (See the question-mark button above this one).");
    EXPECT_STREQ(
        text::UseCircuitBent.HelpText,
        "All this does is make the program create random 'beep' sounds by quickly playing random notes."
        "\r\n\r\nRemember that if you're using MIDI output, a very large number of notes will be sent out "
        "through here too!\r\nSo please make sure the volume of your external MIDI device is not set too "
        "high.");
    EXPECT_STREQ(text::UseCircuitBent.HelpTitle, "Acting as if circuit-bent");
    EXPECT_STREQ(text::UseCircuitBent.Caption, "Act as if circuit-bent");
    EXPECT_STREQ(text::UseCircuitBent.ToolTip, "Plays fast random notes all the time. Yeah, it's a waste.");
    EXPECT_STREQ(text::UseBeat.HelpTitle, "Playing a beat sound");
    EXPECT_STREQ(text::UseBeat.ToolTip, "Make a beat-like sound on quarter-notes or half-notes");
    EXPECT_STREQ(text::UseBeat.Caption, "Play a beat sound");
    EXPECT_STREQ(
        text::UseBeat.HelpText,
        "This makes the tweeble play a kind of 'beat' sound on every beat (or on every other beat, if you "
        "don't want it to sound so crazy at fast tempos). It sounds like a kind of techno beat, which I "
        "suppose is what you'd expect from something as electronic as the system speaker. ;P");
    EXPECT_STREQ(text::UsePorta.Caption, "Tweeble portamento");
    EXPECT_STREQ(text::UsePorta.ToolTip,
                 "Make the PC speaker gradually fade from one note to the next (clicked keys only)");
    EXPECT_STREQ(text::UseMotor.ToolTip,
                 "Just in case you happen to have a spare microcontroller and motor speed controller lying "
                 "around ;P");
    EXPECT_STREQ(text::UseMIDIOut.HelpTitle, "Using MIDI Output");
    EXPECT_STREQ(text::UseMIDIIn.HelpTitle, "Using MIDI Input");
    EXPECT_STREQ(text::UseMIDIFile.HelpTitle, "Playing a MIDI file");
}

}  // namespace
}  // namespace quavix
