// SPDX-License-Identifier: MIT
#include "fmod/fmod_tone_generator.h"

#include <gtest/gtest.h>

#include "shell/runtime_error.h"
#include "support/simulated_program.h"

namespace quavix {
namespace {

class ToneGeneratorTest : public testing::Test {
  protected:
    ToneGeneratorTest() { P.StartSound(); }

    test::SimulatedProgram P;
    MainFields& Fields = P.App.Fields;
    FmodToneGenerator& Generator = P.App.Outputs.SoundMods.Generator;
};

TEST_F(ToneGeneratorTest, ABeepSetsThePitchAndUnpausesForItsDuration) {
    Generator.FMODBeep(440, 100, false, false);
    EXPECT_EQ(P.Timeline.Text(),
              "0.0000 fmod FMOD_Channel_SetFrequency(channel1, 5277.888)\n"
              "0.0000 fmod FMOD_Channel_SetPaused(channel1, 0)\n"
              "0.1000 fmod FMOD_Channel_SetPaused(channel1, 1)\n");
}

TEST_F(ToneGeneratorTest, WithNoStopItKeepsSounding) {
    Generator.FMODBeep(262, 50, true, false);
    EXPECT_EQ(P.Timeline.Text("fmod FMOD_Channel_SetPaused"),
              "0.0000 fmod FMOD_Channel_SetPaused(channel1, 0)\n");
    EXPECT_EQ(P.Time.Now(), 50 * SimulatedTime::CountsPerMs);
}

TEST_F(ToneGeneratorTest, WithNoWaitItReturnsAtOnce) {
    Generator.FMODBeep(262, 50, true, true);
    Generator.FMODBeep(262, 50, false, true);
    EXPECT_EQ(P.Time.Now(), 0);
    EXPECT_EQ(P.Timeline.Text("fmod FMOD_Channel_SetPaused"),
              "0.0000 fmod FMOD_Channel_SetPaused(channel1, 0)\n"
              "0.0000 fmod FMOD_Channel_SetPaused(channel1, 0)\n"
              "0.0000 fmod FMOD_Channel_SetPaused(channel1, 1)\n");
}

TEST_F(ToneGeneratorTest, LogsWhatItDoes) {
    P.App.Log.Enable();
    Generator.FMODBeep(440, 62.5, true, false);
    Generator.FMODBeep(440, 100, false, true);
    EXPECT_EQ(P.LogText(),
              "    FMODBeep(FREQUENCY:440, DURATION: 62.5, NOSTOP:TRUE) - START\n"
              "    MsgWaitObj 62\n"
              "    FMODBeep() - END\n\n"
              "    FMODBeep(FREQUENCY:440, DURATION: 100, NOSTOP:FALSE) - START\n"
              "    FMODBeep() - END\n\n");
}

TEST_F(ToneGeneratorTest, HandlersRunWhileItSounds) {
    P.Time.At(30, [this] { Fields.Mods.UseFMOD.Ticked = false; });
    Fields.Mods.UseFMOD.Ticked = true;
    P.Timeline.Clear();
    Generator.FMODBeep(440, 100, false, false);
    EXPECT_EQ(P.Timeline.Text("fmod FMOD_Channel_SetPaused"),
              "0.0000 fmod FMOD_Channel_SetPaused(channel1, 0)\n"
              "0.0300 fmod FMOD_Channel_SetPaused(channel1, 1)\n"
              "0.1000 fmod FMOD_Channel_SetPaused(channel1, 1)\n");
}

TEST_F(ToneGeneratorTest, ADurationBelow0DoesNotWait) {
    Generator.FMODBeep(440, -5, false, false);
    EXPECT_EQ(P.Time.Now(), 0);
    EXPECT_THROW(Generator.FMODBeep(440, 3e9, false, false), RuntimeError);
}

TEST_F(ToneGeneratorTest, ADurationOutside32BitsSoundsNothing) {
    EXPECT_THROW(Generator.FMODBeep(440, 3e9, false, false), RuntimeError);
    EXPECT_EQ(P.Timeline.Text("fmod FMOD_Channel_SetPaused"), "");
}

TEST_F(ToneGeneratorTest, AfterAFailureTheToneGoesOn) {
    P.Library.Fail("FMOD_Channel_SetFrequency", 11);
    Generator.FMODBeep(440, 100, false, false);
    ASSERT_EQ(P.Boxes.Shown().size(), 1u);
    EXPECT_EQ(P.Boxes.Shown()[0].Text,
              "FMOD error! (11) The specified channel has been reused to play another sound. ");
    EXPECT_EQ(P.Timeline.Text("fmod FMOD_Channel_SetPaused"),
              "0.0000 fmod FMOD_Channel_SetPaused(channel1, 0)\n"
              "0.1000 fmod FMOD_Channel_SetPaused(channel1, 1)\n");
}

TEST_F(ToneGeneratorTest, StopPausesOnlyWhileFmodIsInUse) {
    Generator.FMODBeepStop();
    EXPECT_EQ(P.Timeline.Text(), "");
    Fields.Mods.UseFMOD.InUse = true;
    Generator.FMODBeepStop();
    EXPECT_EQ(P.Timeline.Text(), "0.0000 fmod FMOD_Channel_SetPaused(channel1, 1)\n");
}

TEST_F(ToneGeneratorTest, StopAlsoStopsTheMotor) {
    Fields.Mods.UseMotor.Ticked = true;
    Generator.FMODBeepStop();
    EXPECT_EQ(P.Timeline.Text("serial #"), "0.0000 serial #0p1470\\r\n");
}

TEST_F(ToneGeneratorTest, EachWaveformHasItsRate) {
    for (const auto& [type, rate] : {std::pair(0, "4000"), {1, "8000"}, {3, "4000"}, {5, "4000"}}) {
        P.Timeline.Clear();
        Generator.ChangeDSPType(type);
        EXPECT_EQ(P.Timeline.Text(), fmt::format("0.0000 fmod FMOD_DSP_SetParameter(unit1, 1, {})\n"
                                                 "0.0000 fmod FMOD_Channel_SetVolume(channel1, 0.18)\n"
                                                 "0.0000 fmod FMOD_DSP_SetParameter(unit1, 0, {})\n",
                                                 rate, type));
        EXPECT_EQ(Generator.DSPType, type);
    }
}

}  // namespace
}  // namespace quavix
