// SPDX-License-Identifier: MIT
#include "playback/pitch_glide.h"

#include <gtest/gtest.h>

#include "support/simulated_program.h"

namespace quavix {
namespace {

class PitchGlideTest : public testing::Test {
  protected:
    PitchGlideTest() {
        P.App.Fields.Mods.UsePorta.Ticked = true;
        Glide.PitchMultipleSlider = 5000;
    }

    /// A note as the dispatcher makes it, `ms` after the start.
    void NoteAt(double ms, std::int32_t frequency) {
        P.Time.RunUntil(ms);
        P.App.Outputs.PitchGlide.Sound(Tone::OfFrequency(frequency, 0));
    }
    /// Runs to this time and returns the chunks of tone since the last time, "start:frequency " each. Expects
    /// that each lasts 30 ms.
    std::string ChunksUntil(double ms) {
        P.Time.RunUntil(ms);
        std::string chunks;
        std::istringstream lines(P.Timeline.Text("speaker"));
        for (std::string line; std::getline(lines, line);) {
            EXPECT_TRUE(line.ends_with(" Hz 30 ms")) << line;
            chunks += fmt::format("{}:{} ", std::lround(std::stod(line) * 1000),
                                  std::stoi(line.substr(line.find("speaker ") + 8)));
        }
        P.Timeline.Clear();
        return chunks;
    }
    void SoundAlways() {
        Glide.optSoundStops = false;
        Glide.optSoundAlways = true;
    }

    test::SimulatedProgram P;
    PortamentoFields& Glide = P.App.Outputs.PitchGlide.Fields;
};

TEST_F(PitchGlideTest, EachChunkCoversAShareOfTheDistanceAndFollowsWithoutAGap) {
    SoundAlways();
    NoteAt(0, 440);
    NoteAt(20, 880);  // in the middle of the first chunk
    EXPECT_EQ(ChunksUntil(150), "15:440 45:440 75:660 105:770 135:825 165:852 ")
        << "852.5 is rounded to the even number";
}

TEST_F(PitchGlideTest, TheFirstNoteStartsAtItsPitch) {
    NoteAt(100, 880);
    EXPECT_EQ(ChunksUntil(160), "115:880 145:880 175:880 ");
}

TEST_F(PitchGlideTest, EachGlideStartsWhereTheLastOneStopped) {
    Glide.SoundLengthSlider = 40;
    NoteAt(0, 400);
    NoteAt(1000, 800);
    NoteAt(2000, 100);
    EXPECT_EQ(ChunksUntil(3000), "15:400 45:400 1015:400 1045:600 2015:700 2045:400 ");
}

TEST_F(PitchGlideTest, ADistanceOfExactlyFiveHertzFreezesThePitch) {
    SoundAlways();
    NoteAt(0, 440);
    NoteAt(20, 445);
    EXPECT_EQ(ChunksUntil(150), "15:440 45:440 75:440 105:440 135:440 165:440 ");
    NoteAt(170, 450);
    EXPECT_EQ(ChunksUntil(250), "195:440 225:445 255:445 ") << "five short again";
}

TEST_F(PitchGlideTest, AtFiveHertzAboveTheTargetTheGlideGoesOn) {
    SoundAlways();
    Glide.PitchMultipleSlider = 10000;
    NoteAt(0, 445);
    NoteAt(20, 440);
    EXPECT_EQ(ChunksUntil(100), "15:445 45:445 75:440 105:440 ");
}

TEST_F(PitchGlideTest, TheSoundStopsTheSlidersTimeAfterTheLastNote) {
    Glide.SoundLengthSlider = 100;
    NoteAt(0, 440);
    EXPECT_EQ(ChunksUntil(1000), "15:440 45:440 75:440 105:440 ");
    NoteAt(1000, 440);
    NoteAt(1080, 440);  // restarts the countdown, to 1180
    EXPECT_EQ(ChunksUntil(2000), "1015:440 1045:440 1075:440 1105:440 1135:440 1165:440 1195:440 ");
}

TEST_F(PitchGlideTest, MovingTheSliderCountsTheNewTimeFromThatMoment) {
    Glide.SoundLengthSlider = 100;
    NoteAt(0, 440);
    P.Time.RunUntil(60);
    Glide.SoundLengthSlider = 40;
    EXPECT_EQ(ChunksUntil(1000), "15:440 45:440 75:440 105:440 135:440 ")
        << "the slider moved at the end of a chunk, at 75";
    Glide.SoundLengthSlider = 30;
    EXPECT_EQ(ChunksUntil(2000), "") << "moved in silence, it starts nothing";
}

TEST_F(PitchGlideTest, WithAlwaysSoundingItGoesOnUntilTheOptionIsChanged) {
    SoundAlways();
    NoteAt(0, 440);
    EXPECT_TRUE(ChunksUntil(5000).ends_with("4965:440 4995:440 "));
    Glide.optSoundAlways = false;
    Glide.optSoundStops = true;
    EXPECT_EQ(ChunksUntil(6000), "");
}

TEST_F(PitchGlideTest, ChoosingAlwaysSoundingDuringTheRunOutSoundsOn) {
    Glide.SoundLengthSlider = 100;
    NoteAt(0, 440);
    P.Time.RunUntil(50);
    SoundAlways();
    EXPECT_TRUE(ChunksUntil(500).ends_with("435:440 465:440 495:440 "));
}

TEST_F(PitchGlideTest, AlwaysSoundingIsSilentBeforeTheFirstNote) {
    SoundAlways();
    EXPECT_EQ(ChunksUntil(1000), "");
}

TEST_F(PitchGlideTest, UntickingSilencesItAndTickingAgainSoundsAsTheOptionSays) {
    SoundAlways();
    NoteAt(0, 440);
    P.Time.RunUntil(100);
    P.App.Fields.Mods.UsePorta.Ticked = false;
    EXPECT_FALSE(P.App.Fields.Mods.UsePorta.InUse);
    ChunksUntil(100);
    EXPECT_EQ(ChunksUntil(1000), "");
    P.App.Fields.Mods.UsePorta.Ticked = true;
    EXPECT_EQ(ChunksUntil(1050), "1015:440 1045:440 ");
    P.App.Fields.Mods.UsePorta.Ticked = false;
    Glide.optSoundAlways = false;
    Glide.optSoundStops = true;
    P.App.Fields.Mods.UsePorta.Ticked = true;
    EXPECT_EQ(ChunksUntil(2000), "");
}

TEST_F(PitchGlideTest, TheSlidersShowTheirValues) {
    test::SimulatedProgram fresh;
    const PortamentoFields& fields = fresh.App.Outputs.PitchGlide.Fields;
    EXPECT_EQ(fields.lblPitchMultiple.Get(), "25%");
    EXPECT_EQ(fields.lblSoundLength.Get(), "250");
    EXPECT_TRUE(fields.optSoundStops);
    Glide.PitchMultipleSlider = 1234;
    Glide.SoundLengthSlider = 3000;
    EXPECT_EQ(Glide.lblPitchMultiple.Get(), "12.34%");
    EXPECT_EQ(Glide.lblSoundLength.Get(), "3000");
}

TEST_F(PitchGlideTest, NotesGlideOnlyWhileItIsTicked) {
    P.App.Log.Enable();
    std::string note = "A4";
    P.App.Outputs.ToneDispatcher.UniBeep(note, 100);
    EXPECT_EQ(ChunksUntil(30), "15:440 45:440 ");
    P.App.Fields.Mods.UsePorta.Ticked = false;
    P.App.Outputs.ToneDispatcher.UniBeep(note, 100);
    EXPECT_EQ(P.Timeline.Text("speaker"), "0.0750 speaker 440 Hz 100 ms\n");
    EXPECT_NE(P.LogText().find("UsePortaCheck clicked - UsePortamento -> FALSE\n"), std::string::npos);
}

}  // namespace
}  // namespace quavix
