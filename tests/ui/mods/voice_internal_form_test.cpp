// SPDX-License-Identifier: MIT
#include <map>
#include <set>

#include "ui/mods/mod_forms.h"
#include "ui/ui_program.h"

namespace quavix {
namespace {

struct VoiceProgram : test::UiProgram {
    VoiceProgram() {
        Disk.Put("/program/FMODex.dll", "a library");
        App.Outputs.SoundMods.CheckAvailability("/program");
        Click("UseVoiceCheck");
        Timeline.Clear();
    }
    ModWindow& Controls() { return *Form.findChild<ModWindow*>("VoiceInternalForm"); }
};

TEST(VoiceInternalForm, IsShownWhileTheVoiceIsInUse) {
    VoiceProgram p;
    EXPECT_TRUE(p.Controls().isVisible());
    p.Click("UseVoiceCheck");
    EXPECT_FALSE(p.Controls().isVisible());
    EXPECT_EQ(p.Timeline.Text(), "0.0000 fmod FMOD_ChannelGroup_SetVolume(VoiceChannel1, 0)\n");
    p.Click("UseVoiceCheck");
    p.Controls().close();
    EXPECT_FALSE(p.App.Fields.Mods.UseVoice.Ticked);
    EXPECT_FALSE(p.Controls().isVisible());
}

TEST(VoiceInternalForm, SlidersMoveTheVoiceAndTheNumbersBesideThem) {
    VoiceProgram p;
    p.Find<QSlider>("VoiceVolSlider").setValue(5000);
    p.Find<QSlider>("SawVolSlider").setValue(4000);
    p.Find<QSlider>("NoiseVolSlider").setValue(300);
    p.Find<QSlider>("CutoffFreqSlider").setValue(2500);
    p.Find<QSlider>("FormantTimbreSlider").setValue(50);
    p.Find<QSlider>("FormantRandomFreqSlider").setValue(0);
    p.Find<QSlider>("FormantDSPFreqSlider3").setValue(4000);
    p.Find<QSlider>("FormantDSPVolSlider0").setValue(100);
    EXPECT_EQ(p.Timeline.Text(),
              "0.0000 fmod FMOD_ChannelGroup_SetVolume(VoiceChannel1, 0.5)\n"
              "0.0000 fmod FMOD_ChannelGroup_SetVolume(SawChannel1, 0.4)\n"
              "0.0000 fmod FMOD_ChannelGroup_SetVolume(NoiseChannel1, 0.03)\n"
              "0.0000 fmod FMOD_DSP_SetParameter(unit5, 0, 2500)\n"
              "0.0000 fmod FMOD_DSP_SetParameter(unit4, 0, 4200)\n"
              "0.0000 fmod FMOD_DSP_SetParameter(unit4, 2, 1.1666666)\n"
              "0.0000 fmod FMOD_DSP_SetParameter(unit1, 0, 1239)\n"
              "0.0000 fmod FMOD_DSP_SetParameter(unit1, 2, 3.5)\n");
    QStringList texts;
    for (const char* label : {"lblVoiceVol", "lblSawVol", "lblNoiseVol", "lblCutoffFreq", "lblFormantTimbre",
                              "lblFormantRandomFreq", "lblFormantDSPFreq3", "lblFormantDSPVol0"})
        texts += p.TextOf(label);
    EXPECT_EQ(texts,
              (QStringList{"50.0 %", "40.0 %", "3.0 %", "2500 Hz", "+5.0 %", "± 0 Hz", "4000 Hz", "100"}));
    p.Time.RunUntil(50);
    EXPECT_EQ(p.Timeline.Text("fmod FMOD_DSP_SetParameter(unit4, 0, 4200"),
              "0.0000 fmod FMOD_DSP_SetParameter(unit4, 0, 4200)\n"
              "0.0500 fmod FMOD_DSP_SetParameter(unit4, 0, 4200)\n");
}

TEST(VoiceInternalForm, NumbersAreReadOutWithTheirOwnUnits) {
    VoiceProgram p;
    p.Find<QSlider>("VoiceVolSlider").setValue(5000);
    EXPECT_EQ(p.Find<QLabel>("lblVoiceVol").accessibleName(), "Volume of the voice: 50.0 %");
    EXPECT_EQ(p.Find<QLabel>("lblFormantDSPFreq0").accessibleName(), "Frequency of formant 1: 1180 Hz");
    EXPECT_EQ(p.Find<QLabel>("lblFormantDSPVol0").accessibleName(), "Volume of formant 1: 92");
}

TEST(VoiceInternalForm, VowelButtonsMoveTheSliders) {
    VoiceProgram p;
    const std::map<const char*, std::vector<int>> vowels = {
        {"SpeechEButton", {814, 98, 1934, 100, 2623, 96, 3829, 65}},
        {"SpeechIButton", {426, 65, 2537, 94, 2989, 80, 4001, 70}},
        {"SpeechOButton", {900, 88, 1158, 88, 2258, 87, 3355, 60}},
        {"SpeechUButton", {512, 55, 2020, 90, 2429, 90, 3742, 70}},
        {"SpeechAButton", {1180, 92, 1675, 100, 2558, 90, 3355, 60}},
    };
    for (const auto& [button, values] : vowels) {
        p.Find<QAbstractButton>(button).click();
        std::vector<int> shown;
        for (const char* index : {"0", "1", "2", "3"}) {
            shown.push_back(p.Find<QSlider>((std::string("FormantDSPFreqSlider") + index).c_str()).value());
            shown.push_back(p.Find<QSlider>((std::string("FormantDSPVolSlider") + index).c_str()).value());
        }
        EXPECT_EQ(shown, values) << button;
    }
}

TEST(VoiceInternalForm, SlidersHaveTheirStartValues) {
    VoiceProgram p;
    for (const auto& [slider, range] : {std::pair("VoiceVolSlider", parameter::VoiceVol),
                                        {"SawVolSlider", parameter::SawVol},
                                        {"NoiseVolSlider", parameter::NoiseVol},
                                        {"CutoffFreqSlider", parameter::CutoffFreq},
                                        {"FormantTimbreSlider", parameter::FormantTimbre},
                                        {"FormantRandomFreqSlider", parameter::FormantRandomFreq}}) {
        EXPECT_EQ(p.Find<QSlider>(slider).value(), range.Default) << slider;
        EXPECT_EQ(p.Find<QSlider>(slider).minimum(), range.Lowest) << slider;
        EXPECT_EQ(p.Find<QSlider>(slider).maximum(), range.Highest) << slider;
    }
    EXPECT_EQ(p.Find<QSlider>("FormantDSPFreqSlider0").value(), 1180);
}

TEST(VoiceInternalForm, NoTwoControlsShareAnAccelerator) {
    VoiceProgram p;
    std::set<QString> keys;
    for (auto* widget : p.Controls().findChildren<QWidget*>()) {
        QString text;
        if (const auto* button = qobject_cast<QAbstractButton*>(widget))
            text = button->text();
        else if (const auto* label = qobject_cast<QLabel*>(widget); label && label->buddy())
            text = label->text();
        const QString key = QKeySequence::mnemonic(text).toString();
        EXPECT_TRUE(key.isEmpty() || keys.insert(key).second)
            << key.toStdString() << " of " << widget->objectName().toStdString();
    }
    EXPECT_GE(keys.size(), 10u);
}

}  // namespace
}  // namespace quavix
