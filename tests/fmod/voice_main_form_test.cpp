// SPDX-License-Identifier: MIT
#include "fmod/voice_main_form.h"

#include <deque>

#include <gtest/gtest.h>

#include "shell/runtime_error.h"
#include "support/simulated_program.h"

namespace quavix {
namespace {

class VoiceTest : public testing::Test {
  protected:
    void Load() {
        Singer.Load();
        P.Timeline.Clear();
    }

    test::SimulatedProgram P;
    VoiceMainForm& Singer = P.App.Outputs.SoundMods.Singer;
};

TEST_F(VoiceTest, IsPutTogetherInThisOrder) {
    Singer.Load();
    EXPECT_EQ(P.SoundCalls(),
              "FMOD_System_Create()\n"
              "FMOD_System_GetVersion(system1)\n"
              "FMOD_System_Create()\n"
              "FMOD_System_SetSoftwareChannels(system2, 16)\n"
              "FMOD_System_Init(system2, 16, 0, null)\n"
              "FMOD_System_GetMasterChannelGroup(system2)\n"
              "FMOD_System_CreateChannelGroup(system2, \"FinalChannel\")\n"
              "FMOD_ChannelGroup_AddGroup(master1, FinalChannel1)\n"
              // The formants.
              "FMOD_System_CreateDSPByType(system2, 10)\n"
              "FMOD_DSP_SetParameter(unit1, 1, 1)\n"
              "FMOD_System_CreateDSPByType(system2, 10)\n"
              "FMOD_DSP_SetParameter(unit2, 1, 1)\n"
              "FMOD_System_CreateDSPByType(system2, 10)\n"
              "FMOD_DSP_SetParameter(unit3, 1, 1)\n"
              "FMOD_System_CreateDSPByType(system2, 10)\n"
              "FMOD_DSP_SetParameter(unit4, 1, 1)\n"
              "FMOD_System_CreateChannelGroup(system2, \"VoiceChannel\")\n"
              "FMOD_ChannelGroup_AddDSP(VoiceChannel1, unit1)\n"
              "FMOD_ChannelGroup_AddDSP(VoiceChannel1, unit2)\n"
              "FMOD_ChannelGroup_AddDSP(VoiceChannel1, unit3)\n"
              "FMOD_ChannelGroup_AddDSP(VoiceChannel1, unit4)\n"
              "FMOD_ChannelGroup_AddGroup(FinalChannel1, VoiceChannel1)\n"
              // The cutoff filter before all of them.
              "FMOD_System_CreateDSPByType(system2, 3)\n"
              "FMOD_DSP_AddInput(unit1, unit5)\n"
              "FMOD_DSP_AddInput(unit2, unit5)\n"
              "FMOD_DSP_AddInput(unit3, unit5)\n"
              "FMOD_DSP_AddInput(unit4, unit5)\n"
              "FMOD_DSP_SetParameter(unit5, 0, 6000)\n"
              "FMOD_DSP_SetParameter(unit5, 1, 10)\n"
              "FMOD_DSP_SetBypass(unit5, 1)\n"
              "FMOD_ChannelGroup_AddDSP(VoiceChannel1, unit5)\n"
              // The sources.
              "FMOD_System_CreateChannelGroup(system2, \"SawChannel\")\n"
              "FMOD_System_CreateChannelGroup(system2, \"NoiseChannel\")\n"
              "FMOD_ChannelGroup_AddGroup(VoiceChannel1, SawChannel1)\n"
              "FMOD_ChannelGroup_AddGroup(VoiceChannel1, NoiseChannel1)\n"
              "FMOD_System_CreateDSPByType(system2, 2)\n"
              "FMOD_System_CreateDSPByType(system2, 2)\n"
              "FMOD_DSP_SetParameter(unit6, 1, 120)\n"
              "FMOD_System_PlayDSP(system2, -2, unit6, 1, null)\n"
              "FMOD_System_PlayDSP(system2, -2, unit7, 1, null)\n"
              "FMOD_Channel_SetChannelGroup(channel1, SawChannel1)\n"
              "FMOD_Channel_SetChannelGroup(channel2, NoiseChannel1)\n"
              "FMOD_ChannelGroup_SetVolume(SawChannel1, 0.15)\n"
              "FMOD_ChannelGroup_SetVolume(NoiseChannel1, 0.02)\n"
              "FMOD_DSP_SetParameter(unit6, 0, 3)\n"
              "FMOD_DSP_SetParameter(unit7, 0, 5)\n"
              "FMOD_ChannelGroup_SetVolume(VoiceChannel1, 0.1)\n"
              // The sibilance.
              "FMOD_System_CreateChannelGroup(system2, \"SybChannel\")\n"
              "FMOD_System_CreateDSPByType(system2, 10)\n"
              "FMOD_System_CreateDSPByType(system2, 10)\n"
              "FMOD_System_CreateDSPByType(system2, 10)\n"
              "FMOD_System_CreateDSPByType(system2, 10)\n"
              "FMOD_ChannelGroup_AddDSP(SybChannel1, unit8)\n"
              "FMOD_DSP_AddInput(unit9, unit8)\n"
              "FMOD_DSP_AddInput(unit10, unit9)\n"
              "FMOD_DSP_AddInput(unit11, unit10)\n"
              "FMOD_ChannelGroup_AddGroup(FinalChannel1, SybChannel1)\n"
              "FMOD_System_CreateDSPByType(system2, 2)\n"
              "FMOD_System_PlayDSP(system2, -2, unit12, 1, null)\n"
              "FMOD_Channel_SetChannelGroup(channel3, SybChannel1)\n"
              "FMOD_ChannelGroup_SetVolume(SybChannel1, 0.1)\n"
              "FMOD_DSP_SetParameter(unit12, 0, 4)\n");
    EXPECT_TRUE(P.Boxes.Shown().empty());
}

TEST_F(VoiceTest, IsPutTogetherOnce) {
    Load();
    Singer.Load();
    EXPECT_EQ(P.SoundCalls(), "");
}

TEST_F(VoiceTest, AnotherVersionIsReportedAndStillUsed) {
    P.Library.Version = 0x40620;
    Singer.Load();
    EXPECT_EQ(P.BoxTexts(),
              std::vector<std::string>{
                  "Error!  You are using an old version of FMOD 40620. This program requires 40621"});
    EXPECT_NE(P.Timeline.Text("fmod FMOD_System_Init"), "");
}

TEST_F(VoiceTest, AFailedCallIsReportedAndTheRemainingCallsAreMade) {
    P.App.Log.Enable();
    P.Library.Fail("FMOD_System_Init", 61);
    Singer.Load();
    EXPECT_EQ(P.BoxTexts(), std::vector<std::string>{"FMOD error! (61) Error initializing output device. "});
    EXPECT_EQ(P.LogText(), "ERRCHECK() found FMOD error 61 (Error initializing output device. )\n");
    EXPECT_EQ(P.Timeline.Lines().back(), "0.0000 fmod FMOD_DSP_SetParameter(unit12, 0, 4)");
}

TEST_F(VoiceTest, StartingUnpausesTheSourcesAt100Hz) {
    Load();
    Singer.StartSources();
    EXPECT_EQ(P.SoundCalls(),
              "FMOD_Channel_SetPaused(channel1, 0)\n"
              "FMOD_Channel_SetPaused(channel2, 0)\n"
              "FMOD_DSP_SetParameter(unit6, 1, 100)\n");
}

TEST_F(VoiceTest, ThePitchIsAWholeNumberOfHertz) {
    Load();
    Singer.ChangeBaseFreq(118.8);
    Singer.ChangeBaseFreq(70.5);
    EXPECT_EQ(P.SoundCalls(), "FMOD_DSP_SetParameter(unit6, 1, 119)\nFMOD_DSP_SetParameter(unit6, 1, 70)\n");
}

TEST_F(VoiceTest, VolumesAndCutoffGoWhereTheyBelong) {
    Load();
    Singer.ChangeSawVol(0.5);
    Singer.ChangeNoiseVol(0.25);
    Singer.ChangeVoiceVol(0.75);
    Singer.ChangeCutoffFreq(3000);
    EXPECT_EQ(P.SoundCalls(),
              "FMOD_ChannelGroup_SetVolume(SawChannel1, 0.5)\n"
              "FMOD_ChannelGroup_SetVolume(NoiseChannel1, 0.25)\n"
              "FMOD_ChannelGroup_SetVolume(VoiceChannel1, 0.75)\n"
              "FMOD_DSP_SetParameter(unit5, 0, 3000)\n");
}

TEST_F(VoiceTest, TheVolumeOfAFormantBecomesAGain) {
    Load();
    for (const auto& [volume, gain] : {std::pair(100, "3.5"), {40, "0"}, {70, "1.75"}, {28, "-0.7"}}) {
        Singer.ChangeFormantFreqVol(1, 1000, volume, false);
        EXPECT_EQ(P.SoundCalls(), fmt::format("FMOD_DSP_SetParameter(unit2, 0, 1000)\n"
                                              "FMOD_DSP_SetParameter(unit2, 2, {})\n",
                                              gain));
    }
}

TEST_F(VoiceTest, TheTimbreShiftsTheFrequencyOfAFormant) {
    Load();
    Singer.FormantTimbre = 100;
    Singer.ChangeFormantFreqVol(3, 1000, 100, true);
    Singer.ChangeFormantFreqVol(3, 1000, 100, false);
    EXPECT_EQ(P.SoundCalls(),
              "FMOD_DSP_SetParameter(unit4, 0, 1100)\nFMOD_DSP_SetParameter(unit4, 2, 3.5)\n"
              "FMOD_DSP_SetParameter(unit4, 0, 1000)\nFMOD_DSP_SetParameter(unit4, 2, 3.5)\n");
}

TEST_F(VoiceTest, OmittedValuesOfAFormantStay) {
    Load();
    Singer.ChangeFormantFreqVol(0, 500, 100, false);
    P.SoundCalls();
    Singer.ChangeFormantFreqVol(0, {}, 40, false);
    Singer.ChangeFormantFreqVol(0, 700, {}, false);
    EXPECT_EQ(P.SoundCalls(),
              "FMOD_DSP_SetParameter(unit1, 0, 500)\nFMOD_DSP_SetParameter(unit1, 2, 0)\n"
              "FMOD_DSP_SetParameter(unit1, 0, 700)\nFMOD_DSP_SetParameter(unit1, 2, 0)\n");
    EXPECT_EQ(Singer.FormantFreq(0), 700);
    EXPECT_EQ(Singer.FormantVol(0), 40);
}

TEST_F(VoiceTest, AFifthFormantIsOutOfBounds) {
    Load();
    try {
        Singer.ChangeFormantFreqVol(4, 500, 100, true);
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), RuntimeError::SubscriptOutOfRange);
    }
    EXPECT_EQ(P.SoundCalls(), "");
}

/// Random numbers from a list.
struct ListedNumbers : RandomNumbers {
    double Next() override {
        const double number = Numbers.front();
        Numbers.pop_front();
        return number;
    }
    std::deque<double> Numbers;
};

TEST_F(VoiceTest, TheFormantsMoveAtRandomEvery50Ms) {
    ListedNumbers random;
    random.Numbers = {0, 0.5, 0.75, 0.25};
    VoiceMainForm singer(
        {P.Library, P.App.Outputs.SoundMods.Errors, P.Time, random, P.App.Handlers, P.App.Log});
    singer.Load();
    singer.FormantTimbre = 100;
    singer.MaxRandomFormantFreq = 20;
    for (std::size_t i = 0; i < FormantCount; ++i)
        singer.ChangeFormantFreqVol(i, 1000.0 * static_cast<double>(i + 1), 80 + static_cast<int>(i), true);
    singer.StartSources();
    P.Timeline.Clear();
    P.Time.RunUntil(49);
    EXPECT_EQ(P.Timeline.Text(), "");
    P.Time.RunUntil(99);
    EXPECT_EQ(P.Timeline.Text(),
              "0.0500 fmod FMOD_DSP_SetParameter(unit1, 0, 1080)\n"
              "0.0500 fmod FMOD_DSP_SetParameter(unit1, 2, 80)\n"
              "0.0500 fmod FMOD_DSP_SetParameter(unit2, 0, 2200)\n"
              "0.0500 fmod FMOD_DSP_SetParameter(unit2, 2, 81)\n"
              "0.0500 fmod FMOD_DSP_SetParameter(unit3, 0, 3310)\n"
              "0.0500 fmod FMOD_DSP_SetParameter(unit3, 2, 82)\n"
              "0.0500 fmod FMOD_DSP_SetParameter(unit4, 0, 4390)\n"
              "0.0500 fmod FMOD_DSP_SetParameter(unit4, 2, 83)\n");
    EXPECT_EQ(singer.FormantFreq(0), 1000) << "what was set stays";
    EXPECT_EQ(singer.FormantVol(0), 80);
}

TEST_F(VoiceTest, WithoutRandomMovementTheFormantsStandStill) {
    Load();
    Singer.MaxRandomFormantFreq = 0;
    Singer.ChangeFormantFreqVol(0, 1180, 92, true);
    Singer.StartSources();
    P.SoundCalls();
    P.Time.RunUntil(100);
    EXPECT_EQ(P.Timeline.Text("fmod FMOD_DSP_SetParameter(unit1, 0"),
              "0.0500 fmod FMOD_DSP_SetParameter(unit1, 0, 1180)\n"
              "0.1000 fmod FMOD_DSP_SetParameter(unit1, 0, 1180)\n");
}

TEST_F(VoiceTest, FormantsThatCannotMoveAreReportedOnceAndNotTriedAgain) {
    Load();
    Singer.StartSources();
    P.SoundCalls();
    P.Library.Fail("FMOD_DSP_SetParameter", 36);
    // Time goes on while the message stands open.
    P.Boxes.WhileOpen([this] { P.Time.RunUntil(200); });
    P.Time.RunUntil(300);
    EXPECT_EQ(P.Boxes.Shown().size(), 1u);
    P.Boxes.WhileOpen(nullptr);
    P.Library.Fail("FMOD_DSP_SetParameter", 0);
    Singer.StartSources();
    P.Timeline.Clear();
    P.Time.RunUntil(360);
    EXPECT_NE(P.Timeline.Text("fmod FMOD_DSP_SetParameter(unit1, 0"), "");
}

TEST_F(VoiceTest, ShuttingDownClosesAndReleasesIt) {
    Load();
    Singer.StartSources();
    P.SoundCalls();
    P.App.Log.Enable();
    Singer.VoiceDoShutDownStuff();
    EXPECT_EQ(P.SoundCalls(), "FMOD_System_Close(system2)\nFMOD_System_Release(system2)\n");
    EXPECT_EQ(P.LogText(),
              "    VoiceMainForm.VoiceDoShutDownStuff() - START\n"
              "    Closing and releasing FMOD system 'VoiceSystem'\n"
              "    VoiceMainForm.VoiceDoShutDownStuff() - END\n\n");
    P.Time.RunUntil(200);
    EXPECT_EQ(P.SoundCalls(), "");
}

TEST_F(VoiceTest, ShuttingDownAVoiceThatNeverSangClosesNothing) {
    P.App.Log.Enable();
    Singer.VoiceDoShutDownStuff();
    EXPECT_EQ(P.SoundCalls(), "");
    EXPECT_EQ(P.LogText(),
              "    VoiceMainForm.VoiceDoShutDownStuff() - START\n"
              "    VoiceMainForm.VoiceDoShutDownStuff() - END\n\n");
}

}  // namespace
}  // namespace quavix
