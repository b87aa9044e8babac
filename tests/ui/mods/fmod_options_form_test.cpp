// SPDX-License-Identifier: MIT
#include "ui/mods/mod_forms.h"
#include "ui/ui_program.h"

namespace quavix {
namespace {

struct FmodProgram : test::UiProgram {
    FmodProgram() { StartSound(); }
    ModWindow& Options() { return *Form.findChild<ModWindow*>("FMODOptionsForm"); }
};

TEST(FMODOptionsForm, TheCheckBoxIsGreyWithoutTheLibrary) {
    test::UiProgram without;
    EXPECT_FALSE(without.Find<QCheckBox>("UseFMODCheck").isEnabled());
    EXPECT_FALSE(without.Find<QCheckBox>("UseVoiceCheck").isEnabled());
    FmodProgram with;
    EXPECT_TRUE(with.Find<QCheckBox>("UseFMODCheck").isEnabled());
    EXPECT_TRUE(with.Find<QCheckBox>("UseVoiceCheck").isEnabled());
}

TEST(FMODOptionsForm, IsCreatedWhenFmodIsTickedAndShownWhileItIsTicked) {
    FmodProgram p;
    EXPECT_EQ(p.Form.findChild<ModWindow*>("FMODOptionsForm"), nullptr);
    p.Click("UseFMODCheck");
    EXPECT_TRUE(p.Options().isVisible());
    EXPECT_FALSE(p.Options().isModal());
    p.Click("UseFMODCheck");
    EXPECT_FALSE(p.Options().isVisible());
    EXPECT_EQ(p.Timeline.Text(), "0.0000 fmod FMOD_Channel_SetPaused(channel1, 1)\n");
}

TEST(FMODOptionsForm, ClosingItSwitchesFmodOff) {
    FmodProgram p;
    p.Click("UseFMODCheck");
    p.Options().close();
    EXPECT_FALSE(p.App.Fields.Mods.UseFMOD.InUse);
    EXPECT_FALSE(p.Find<QCheckBox>("UseFMODCheck").isChecked());
    EXPECT_FALSE(p.Options().isVisible());
}

TEST(FMODOptionsForm, StartsWithTheSquareWaveAndItsButtonsChooseOthers) {
    FmodProgram p;
    p.Click("UseFMODCheck");
    EXPECT_TRUE(p.Find<QRadioButton>("optSquare").isChecked());
    for (const auto& [button, type] :
         {std::pair("optTriangle", 3), {"optSine", 0}, {"optNoise", 5}, {"optSquare", 1}}) {
        p.Timeline.Clear();
        p.Find<QRadioButton>(button).click();
        EXPECT_EQ(p.Timeline.Text("fmod FMOD_DSP_SetParameter(unit1, 0"),
                  "0.0000 fmod FMOD_DSP_SetParameter(unit1, 0, " + std::to_string(type) + ")\n");
        EXPECT_TRUE(p.Find<QRadioButton>(button).isChecked());
    }
}

TEST(FMODOptionsForm, NeverSilentMovesTheRatioOnTheMainWindowAndBack) {
    FmodProgram p;
    p.Click("UseFMODCheck");
    p.Find<QCheckBox>("NeverSilentCheck").click();
    EXPECT_TRUE(p.App.Fields.Output.DoNotShutUpFMOD);
    EXPECT_EQ(p.Find<QSlider>("NoteSilenceRatioSlider").value(), 100);
    EXPECT_EQ(p.TextOf("NoteSilenceRatioLabel"), "100%");
    p.Find<QCheckBox>("NeverSilentCheck").click();
    EXPECT_EQ(p.Find<QSlider>("NoteSilenceRatioSlider").value(), 90);
    p.Find<QCheckBox>("NeverSilentCheck").click();
    QTest::keyClick(&p.Find<QSlider>("NoteSilenceRatioSlider"), Qt::Key_Left);
    p.Find<QCheckBox>("NeverSilentCheck").click();
    EXPECT_EQ(p.Find<QSlider>("NoteSilenceRatioSlider").value(), 99);
}

TEST(FMODOptionsForm, AKeyOfThePianoSoundsOnTheSoundCard) {
    FmodProgram p;
    p.Click("UseFMODCheck");
    p.Timeline.Clear();
    p.Find<QWidget>("PianoKey").setFocus();
    QTest::keyClick(&p.Find<QWidget>("PianoKey"), Qt::Key_Space);
    EXPECT_EQ(p.Timeline.Text("speaker"), "");
    EXPECT_NE(p.Timeline.Text("fmod FMOD_Channel_SetFrequency"), "");
}

}  // namespace
}  // namespace quavix
