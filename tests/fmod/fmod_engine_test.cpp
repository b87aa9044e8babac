// SPDX-License-Identifier: MIT
#include "fmod/fmod_engine.h"

#include <gtest/gtest.h>

#include "shell/runtime_error.h"
#include "support/simulated_program.h"

namespace quavix {
namespace {

class FmodEngineTest : public testing::Test {
  protected:
    FmodEngineTest() { P.Disk.Put("/program/FMODex.dll", "a library"); }

    void StartUp() {
        P.App.Outputs.SoundMods.CheckAvailability("/program");
        P.App.Outputs.SoundMods.StartEngine();
    }

    test::SimulatedProgram P;
};

TEST_F(FmodEngineTest, StartsInTheLibrarysOrderWithASilentSquareWave) {
    StartUp();
    EXPECT_EQ(P.Timeline.Text(),
              "0.0000 fmod load /program/FMODex.dll\n"
              "0.0000 fmod FMOD_System_Create()\n"
              "0.0000 fmod FMOD_System_GetVersion(system1)\n"
              "0.0000 fmod FMOD_System_SetDSPBufferSize(system1, 16, 256)\n"
              "0.0000 fmod FMOD_System_Init(system1, 2, 0, null)\n"
              "0.0000 fmod FMOD_System_GetDSPBufferSize(system1)\n"
              "0.0000 fmod FMOD_System_GetSoftwareFormat(system1)\n"
              "0.0000 fmod FMOD_System_CreateDSPByType(system1, 2)\n"
              "0.0000 fmod FMOD_System_PlayDSP(system1, -2, unit1, 1, null)\n"
              "0.0000 fmod FMOD_DSP_SetParameter(unit1, 1, 8000)\n"
              "0.0000 fmod FMOD_Channel_SetVolume(channel1, 0.18)\n"
              "0.0000 fmod FMOD_DSP_SetParameter(unit1, 0, 1)\n");
    EXPECT_TRUE(P.Boxes.Shown().empty());
}

TEST_F(FmodEngineTest, TheLibraryBeingThereEnablesBothCheckBoxes) {
    EXPECT_FALSE(P.App.Fields.Mods.UseFMOD.Enabled);
    EXPECT_FALSE(P.App.Fields.Mods.UseVoice.Enabled);
    StartUp();
    EXPECT_TRUE(P.App.Fields.Mods.UseFMOD.Enabled);
    EXPECT_TRUE(P.App.Fields.Mods.UseVoice.Enabled);
    EXPECT_TRUE(P.App.Outputs.SoundMods.FmodAvailable);
}

TEST_F(FmodEngineTest, WithoutTheLibraryNothingIsStartedAndNothingIsSaid) {
    P.Disk.Delete("/program/FMODex.dll");
    P.App.Log.Enable();
    StartUp();
    EXPECT_EQ(P.Timeline.Text(), "");
    EXPECT_FALSE(P.App.Fields.Mods.UseFMOD.Enabled);
    EXPECT_FALSE(P.App.Fields.Mods.UseVoice.Enabled);
    EXPECT_EQ(P.LogText(),
              "FileExists(\"/program/FMODex.dll\") = FALSE\n"
              "FMOD can NOT be used ('fmodex.dll' not seen)\n");
    P.App.Outputs.SoundMods.Engine.Stop();
    EXPECT_EQ(P.Timeline.Text(), "");
}

TEST_F(FmodEngineTest, ALibraryThatCannotBeLoadedIsReportedAndNotUsed) {
    P.Library.LoadError = "it lacks FMOD_System_Init";
    P.App.Log.Enable();
    StartUp();
    EXPECT_EQ(P.Timeline.Text("fmod"), "0.0000 fmod load /program/FMODex.dll\n");
    EXPECT_FALSE(P.App.Fields.Mods.UseFMOD.Enabled);
    EXPECT_FALSE(P.App.Fields.Mods.UseVoice.Enabled);
    EXPECT_EQ(P.BoxTexts(),
              std::vector<std::string>{"FMODex.dll can't be loaded:\nit lacks FMOD_System_Init.\n\n"
                                       "The program goes on without FMOD and without the voice."});
    EXPECT_NE(P.LogText().find("FMOD can NOT be used ('fmodex.dll' can't be loaded: it lacks "
                               "FMOD_System_Init)\n"),
              std::string::npos);
}

TEST_F(FmodEngineTest, LogsTheBufferLength) {
    P.App.Log.Enable();
    StartUp();
    EXPECT_EQ(P.LogText(),
              "FileExists(\"/program/FMODex.dll\") = TRUE\n"
              "FMOD can be used ('fmodex.dll' seen)\n"
              "    GetFMODBufferLength() - START\n"
              "    Number of samples in each buffer is 16\n"
              "    Number of buffers is 256\n"
              "    Total number of samples in buffers is 4096\n"
              "    Sample rate is 44100\n"
              "    Buffer length in milliseconds is 93\n"
              "    GetFMODBufferLength() - END\n\n");
}

TEST_F(FmodEngineTest, TheBufferLengthIsRoundedToWholeMilliseconds) {
    StartUp();
    EXPECT_EQ(P.App.Outputs.SoundMods.Engine.GetFMODBufferLength(), 93);  // 92.88
    P.Library.Rate = 48000;
    EXPECT_EQ(P.App.Outputs.SoundMods.Engine.GetFMODBufferLength(), 85);  // 85.33
    P.Library.Rate = 8000;
    P.Library.BufferLength = 20;
    P.Library.BufferCount = 1;
    EXPECT_EQ(P.App.Outputs.SoundMods.Engine.GetFMODBufferLength(), 2) << "2.5 goes to the even one";
}

TEST_F(FmodEngineTest, BuffersBeyond32BitsAreAnOverflow) {
    P.Library.BufferLength = 65536;
    P.Library.BufferCount = 32768;
    try {
        P.App.Outputs.SoundMods.Engine.GetFMODBufferLength();
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), RuntimeError::Overflow);
    }
}

TEST_F(FmodEngineTest, AnotherVersionIsReportedAndStillUsed) {
    P.Library.Version = 0x40622;
    StartUp();
    ASSERT_EQ(P.Boxes.Shown().size(), 1u);
    EXPECT_EQ(P.Boxes.Shown()[0].Text,
              "Error!  You are using an old Version of FMOD 40622. This program requires 40621");
    EXPECT_EQ(P.Boxes.Shown()[0].Title, "Quavix");
    EXPECT_EQ(P.Boxes.Shown()[0].Icon, BoxIcon::None);
    EXPECT_NE(P.Timeline.Text("fmod FMOD_System_PlayDSP"), "");
    EXPECT_TRUE(P.App.Fields.Mods.UseFMOD.Enabled);
}

TEST_F(FmodEngineTest, TheVersionIsShownInHexadecimalDigits) {
    P.Library.Version = 0xABCDEF;
    StartUp();
    EXPECT_EQ(P.BoxTexts()[0],
              "Error!  You are using an old Version of FMOD ABCDEF. This program requires 40621");
}

TEST_F(FmodEngineTest, AFailedCallIsReportedAndTheRemainingCallsAreMade) {
    P.Library.Fail("FMOD_System_Init", 61);
    P.Library.Fail("FMOD_System_GetSoftwareFormat", 78);
    P.Library.Fail("FMOD_System_CreateDSPByType", 78);
    StartUp();
    EXPECT_EQ(P.BoxTexts(),
              (std::vector<std::string>{
                  "FMOD error! (61) Error initializing output device. ",
                  "FMOD error! (78) This command failed because System::init or System::setDriver "
                  "was not called. ",
                  "FMOD error! (78) This command failed because System::init or System::setDriver "
                  "was not called. ",
              }));
    EXPECT_EQ(P.Timeline.Text("fmod FMOD_System_PlayDSP"),
              "0.0000 fmod FMOD_System_PlayDSP(system1, -2, null, 1, null)\n");
    EXPECT_EQ(P.Timeline.Text("fmod FMOD_DSP_SetParameter(null, 0"),
              "0.0000 fmod FMOD_DSP_SetParameter(null, 0, 1)\n");
}

TEST_F(FmodEngineTest, StopClosesAndReleasesIt) {
    StartUp();
    P.Timeline.Clear();
    P.App.Log.Enable();
    P.App.Outputs.SoundMods.Engine.Stop();
    EXPECT_EQ(P.Timeline.Text(),
              "0.0000 fmod FMOD_System_Close(system1)\n0.0000 fmod FMOD_System_Release(system1)\n");
    EXPECT_EQ(P.LogText(), "Closing and releasing FMOD system 'System'\n");
}

TEST_F(FmodEngineTest, StopReportsFailedCalls) {
    StartUp();
    P.Library.Fail("FMOD_System_Close", 36);
    P.App.Outputs.SoundMods.Engine.Stop();
    EXPECT_EQ(P.BoxTexts(), std::vector<std::string>{"FMOD error! (36) An invalid object handle was used. "});
    EXPECT_NE(P.Timeline.Text("fmod FMOD_System_Release"), "");
}

}  // namespace
}  // namespace quavix
