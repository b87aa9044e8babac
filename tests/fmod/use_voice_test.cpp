// SPDX-License-Identifier: MIT
#include "fmod/use_voice.h"

#include <gtest/gtest.h>

#include "support/simulated_program.h"

namespace quavix {
namespace {

class UseVoiceTest : public testing::Test {
  protected:
    void Tick() {
        P.App.Fields.Mods.UseVoice.Ticked = true;
        P.Timeline.Clear();
    }

    test::SimulatedProgram P;
    UseVoice& Controls = P.App.Outputs.SoundMods.UseVoice;
};

/// Returns the calls that set the four formants to a vowel.
std::string FormantCalls(const Vowel& vowel) {
    std::string calls;
    for (std::size_t i = 0; i < FormantCount; ++i) {
        const auto gain = static_cast<float>(((vowel[i].Volume - 40) / 60.0 * 100) / 100 * 3.5);
        calls += fmt::format("FMOD_DSP_SetParameter(unit{}, 0, {})\nFMOD_DSP_SetParameter(unit{}, 2, {})\n",
                             i + 1, vowel[i].Frequency, i + 1, gain);
    }
    return calls;
}

TEST_F(UseVoiceTest, TickingTheCheckBoxStartsTheVoiceSilently) {
    P.App.Fields.Output.VoiceVolSlider = 2500;
    P.App.Fields.Mods.UseVoice.Ticked = true;
    const std::string calls = P.SoundCalls();
    EXPECT_TRUE(calls.starts_with("FMOD_System_Create()\n"));
    const std::size_t start = calls.find("FMOD_Channel_SetPaused");
    EXPECT_EQ(calls.substr(start),
              "FMOD_Channel_SetPaused(channel1, 0)\n"
              "FMOD_Channel_SetPaused(channel2, 0)\n"
              "FMOD_DSP_SetParameter(unit6, 1, 100)\n"
              "FMOD_ChannelGroup_SetVolume(SawChannel1, 0.15)\n"
              "FMOD_ChannelGroup_SetVolume(NoiseChannel1, 0.02)\n"
              "FMOD_ChannelGroup_SetVolume(VoiceChannel1, 0.25)\n"
              "FMOD_DSP_SetParameter(unit5, 0, 6000)\n" +
                  FormantCalls(vowel::A) + "FMOD_ChannelGroup_SetVolume(VoiceChannel1, 0)\n");
    EXPECT_TRUE(Controls.VoiceInternalFormVisible);
}

TEST_F(UseVoiceTest, UntickingSilencesItAndTickingAgainUsesTheSameEngine) {
    Tick();
    P.App.Fields.Mods.UseVoice.Ticked = false;
    EXPECT_EQ(P.SoundCalls(), "FMOD_ChannelGroup_SetVolume(VoiceChannel1, 0)\n");
    EXPECT_FALSE(Controls.VoiceInternalFormVisible);
    P.Time.RunUntil(500);
    EXPECT_EQ(P.SoundCalls(), "") << "the formants rest";
    P.App.Fields.Mods.UseVoice.Ticked = true;
    const std::string calls = P.SoundCalls();
    EXPECT_TRUE(calls.starts_with("FMOD_Channel_SetPaused(channel1, 0)\n"));
    EXPECT_TRUE(Controls.VoiceInternalFormVisible);
}

TEST_F(UseVoiceTest, ItsVolumeIsAudibleFromTheStart) {
    EXPECT_GT(P.App.Fields.Output.VoiceVolSlider, 0);
    EXPECT_EQ(P.App.Fields.Output.VoiceVolSlider, parameter::VoiceVol.Default);
}

TEST_F(UseVoiceTest, SlidersChangeTheVoiceAtOnce) {
    Tick();
    Controls.SawVolSlider = 5000;
    Controls.NoiseVolSlider = 2500;
    P.App.Fields.Output.VoiceVolSlider = 7500;
    Controls.CutoffFreqSlider = 3000;
    Controls.FormantDSPFreqSlider[2] = 2000;
    Controls.FormantDSPVolSlider[3] = 100;
    EXPECT_EQ(P.SoundCalls(),
              "FMOD_ChannelGroup_SetVolume(SawChannel1, 0.5)\n"
              "FMOD_ChannelGroup_SetVolume(NoiseChannel1, 0.25)\n"
              "FMOD_ChannelGroup_SetVolume(VoiceChannel1, 0.75)\n"
              "FMOD_DSP_SetParameter(unit5, 0, 3000)\n"
              "FMOD_DSP_SetParameter(unit3, 0, 2000)\n"
              "FMOD_DSP_SetParameter(unit3, 2, 2.9166667)\n"
              "FMOD_DSP_SetParameter(unit4, 0, 3355)\n"
              "FMOD_DSP_SetParameter(unit4, 2, 3.5)\n");
}

TEST_F(UseVoiceTest, TimbreAndRandomMovementAreHeardFromTheNextTick) {
    Tick();
    Controls.FormantTimbreSlider = 100;
    Controls.FormantRandomFreqSlider = 0;
    EXPECT_EQ(P.SoundCalls(), "");
    P.Time.RunUntil(50);
    EXPECT_EQ(P.Timeline.Text("fmod FMOD_DSP_SetParameter(unit1, 0"),
              "0.0500 fmod FMOD_DSP_SetParameter(unit1, 0, 1298)\n");
}

TEST_F(UseVoiceTest, SlidersMovedBeforehandTakeEffectAtTheStart) {
    Controls.SawVolSlider = 4000;
    Controls.FormantDSPFreqSlider[0] = 700;
    Controls.CutoffFreqSlider = 5000;
    Controls.FormantTimbreSlider = -100;
    EXPECT_EQ(P.SoundCalls(), "") << "there is no voice yet";
    P.App.Fields.Mods.UseVoice.Ticked = true;
    const std::string calls = P.SoundCalls();
    EXPECT_NE(calls.find("FMOD_ChannelGroup_SetVolume(SawChannel1, 0.4)\n"), std::string::npos);
    EXPECT_NE(calls.find("FMOD_DSP_SetParameter(unit5, 0, 5000)\n"), std::string::npos);
    EXPECT_NE(calls.find("FMOD_DSP_SetParameter(unit1, 0, 630)\n"), std::string::npos);
}

TEST_F(UseVoiceTest, VowelButtonsSetAllFormantsAndTheSlidersFollow) {
    Tick();
    for (const Vowel& vowel : {vowel::E, vowel::I, vowel::O, vowel::U, vowel::A}) {
        Controls.SpeechButton_Click(vowel);
        EXPECT_EQ(P.SoundCalls(), FormantCalls(vowel));
        for (std::size_t i = 0; i < FormantCount; ++i) {
            EXPECT_EQ(Controls.FormantDSPFreqSlider[i], vowel[i].Frequency);
            EXPECT_EQ(Controls.FormantDSPVolSlider[i], vowel[i].Volume);
        }
    }
    EXPECT_EQ(Controls.FormantDSPFreqSlider[1], 1675);
    EXPECT_EQ(Controls.FormantDSPVolSlider[1], 100);
}

TEST_F(UseVoiceTest, TheTimbreShiftsVowelsButNotTheirSliders) {
    Tick();
    Controls.FormantTimbreSlider = 100;
    Controls.SpeechButton_Click(vowel::U);
    EXPECT_NE(P.SoundCalls().find("FMOD_DSP_SetParameter(unit2, 0, 2222)\n"), std::string::npos);
    EXPECT_EQ(Controls.FormantDSPFreqSlider[1], 2020);
}

TEST_F(UseVoiceTest, TheVowelsHaveTheseFormants) {
    const auto text = [](const Vowel& vowel) {
        std::string formants;
        for (const Formant& formant : vowel)
            formants += fmt::format("{} {}, ", formant.Frequency, formant.Volume);
        return formants;
    };
    EXPECT_EQ(text(vowel::A), "1180 92, 1675 100, 2558 90, 3355 60, ");
    EXPECT_EQ(text(vowel::E), "814 98, 1934 100, 2623 96, 3829 65, ");
    EXPECT_EQ(text(vowel::I), "426 65, 2537 94, 2989 80, 4001 70, ");
    EXPECT_EQ(text(vowel::O), "900 88, 1158 88, 2258 87, 3355 60, ");
    EXPECT_EQ(text(vowel::U), "512 55, 2020 90, 2429 90, 3742 70, ");
}

TEST_F(UseVoiceTest, ValuesStandBesideTheSlidersWithTheirUnits) {
    EXPECT_EQ(Controls.lblSawVol.Get(), "15.0 %");
    EXPECT_EQ(Controls.lblNoiseVol.Get(), "2.0 %");
    EXPECT_EQ(Controls.lblCutoffFreq.Get(), "6000 Hz");
    EXPECT_EQ(Controls.lblFormantTimbre.Get(), "0.0 %");
    EXPECT_EQ(Controls.lblFormantDSPFreq[3].Get(), "3355 Hz");
    EXPECT_EQ(Controls.lblFormantDSPVol[3].Get(), "60");
    P.App.Fields.Output.VoiceVolSlider = 1250;
    EXPECT_EQ(Controls.lblVoiceVol.Get(), "12.5 %");
    Controls.FormantTimbreSlider = 55;
    EXPECT_EQ(Controls.lblFormantTimbre.Get(), "+5.5 %");
    Controls.FormantTimbreSlider = -200;
    EXPECT_EQ(Controls.lblFormantTimbre.Get(), "-20.0 %");
    Controls.FormantRandomFreqSlider = 30;
    EXPECT_EQ(Controls.lblFormantRandomFreq.Get(), "± 30 Hz");
}

TEST_F(UseVoiceTest, InASongTheVoiceFollowsNote2AndIsSilentAfterwards) {
    P.SetSong({"1/8 C4 A4 -", "1/8 C4 - -"});
    P.App.Fields.Output.VoiceVolSlider = 2500;
    Tick();
    P.Time.At(300, [this] { P.App.Playing.PlaybackEngine.StopPlayButton_Click(); });
    P.App.Playing.PlaybackEngine.PlayAllButton_Click();
    EXPECT_EQ(P.Timeline.Text("fmod FMOD_ChannelGroup_SetVolume"),
              "0.0000 fmod FMOD_ChannelGroup_SetVolume(VoiceChannel1, 0.25)\n"
              "0.2250 fmod FMOD_ChannelGroup_SetVolume(VoiceChannel1, 0)\n"
              "0.4220 fmod FMOD_ChannelGroup_SetVolume(VoiceChannel1, 0)\n");
    EXPECT_EQ(P.Timeline.Text("fmod FMOD_DSP_SetParameter(unit6"),
              "0.0000 fmod FMOD_DSP_SetParameter(unit6, 1, 119)\n");
}

TEST_F(UseVoiceTest, OnAMachineWithoutSoundTickingItShowsOneMessage) {
    P.Library.Fail("FMOD_System_Init", 61);
    for (const char* function : {"FMOD_System_CreateDSPByType", "FMOD_System_PlayDSP",
                                 "FMOD_System_CreateChannelGroup", "FMOD_DSP_SetParameter"})
        P.Library.Fail(function, 78);
    P.App.Fields.Mods.UseVoice.Ticked = true;
    ASSERT_EQ(P.Boxes.Shown().size(), 1u);
    EXPECT_EQ(
        P.Boxes.Shown()[0].Text,
        "FMOD error! (61) Error initializing output device. \n"
        "FMOD error! (78) This command failed because System::init or System::setDriver was not called. ");
    EXPECT_TRUE(Controls.VoiceInternalFormVisible);
}

}  // namespace
}  // namespace quavix
