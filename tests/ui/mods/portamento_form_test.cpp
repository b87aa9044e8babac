// SPDX-License-Identifier: MIT
#include "ui/mods/mod_forms.h"
#include "ui/ui_program.h"

namespace quavix {
namespace {

ModWindow& Open(test::UiProgram& p) {
    p.Find<QCheckBox>("UsePortaCheck").click();
    return p.Find<ModWindow>("PortamentoForm");
}

TEST(PortamentoForm, IsShownWhileItsModIsTickedAndUnticksItWhenClosed) {
    test::UiProgram p;
    ModWindow& form = Open(p);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(form.windowTitle(), "Tweeble Portamento Settings");
    EXPECT_TRUE(p.App.Fields.Mods.UsePorta.InUse);
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
    EXPECT_FALSE(p.Find<QCheckBox>("UsePortaCheck").isChecked());
    EXPECT_FALSE(p.App.Fields.Mods.UsePorta.InUse);
}

TEST(PortamentoForm, ItsTextsMatchExactly) {
    test::UiProgram p;
    ModWindow& form = Open(p);
    EXPECT_EQ(p.TextOf("lblPitchMultipleCaption").remove('&'), "Speed of pitch change");
    EXPECT_EQ(p.Find<QGroupBox>("SoundLengthFrame").title(), "Length of sound");
    EXPECT_EQ(p.Find<QRadioButton>("optSoundAlways").text().remove('&'), "Tweeble always produces sound");
    EXPECT_EQ(p.Find<QRadioButton>("optSoundStops").text().remove('&'),
              "Tweeble produces sound for roughly this many milliseconds:");
    const auto* note = form.findChild<QLabel*>("lblNote");
    EXPECT_EQ(note->text(),
              "In order for tweeble portamento it to work with things other than you just clicking notes on "
              "the keyboard, you MUST tick \"Mute PC speaker\" on the main window. Otherwise, the ordinary "
              "\"non-modified\" notes will be played over the top, blocking the portamento.");
    EXPECT_GE(note->height(), note->heightForWidth(note->width())) << "all of it can be read";
}

TEST(PortamentoForm, SlidersShowTheirValues) {
    test::UiProgram p;
    Open(p);
    EXPECT_EQ(p.TextOf("lblPitchMultiple"), "25%");
    EXPECT_EQ(p.TextOf("lblSoundLength"), "250");
    EXPECT_EQ(p.TextAfter("PitchMultipleSlider", Qt::Key_Right, "lblPitchMultiple"), "26%");
    EXPECT_EQ(p.TextAfter("PitchMultipleSlider", Qt::Key_End, "lblPitchMultiple"), "100%");
    EXPECT_EQ(p.TextAfter("SoundLengthSlider", Qt::Key_Home, "lblSoundLength"), "30");
    EXPECT_EQ(p.TextAfter("SoundLengthSlider", Qt::Key_End, "lblSoundLength"), "3000");
}

TEST(PortamentoForm, AClickedKeyGlidesForAsLongAsTheOptionSays) {
    test::UiProgram p;
    Open(p);
    p.App.Playing.PianoKeys.PianoKey_Click(21);
    p.Time.RunUntil(500);
    EXPECT_TRUE(p.Timeline.Text("speaker").ends_with("0.2550 speaker 440 Hz 30 ms\n"));
    p.Timeline.Clear();
    p.Find<QRadioButton>("optSoundAlways").click();
    p.Time.RunUntil(1000);
    EXPECT_TRUE(p.Timeline.Text("speaker").ends_with("0.9950 speaker 440 Hz 30 ms\n"));
    p.Find<QRadioButton>("optSoundStops").click();
    p.Timeline.Clear();
    p.Time.RunUntil(2000);
    EXPECT_EQ(p.Timeline.Text("speaker"), "");
}

}  // namespace
}  // namespace quavix
