// SPDX-License-Identifier: MIT
#include "midi/midi_file_playback.h"

#include <gmock/gmock.h>

#include "midi/midi_file_program.h"

namespace quavix::test {
namespace {

using testing::ElementsAre;

constexpr const char* PlayedTwoNotes =
    "0.0020 speaker 523 Hz 15 ms\n"
    "0.0170 speaker 523 Hz 15 ms\n"
    "0.0320 speaker 659 Hz 15 ms\n"
    "0.0470 speaker 659 Hz 15 ms\n";

TEST(MidiFilePlayback, HeldNotesArePulsedInSteps) {
    MidiFileProgram p;
    p.Open(TwoNotes);
    p.PlayAt(0);
    EXPECT_EQ(p.TonesUntil(500), PlayedTwoNotes);
    EXPECT_FALSE(p.Form.IsPlaying());
}

TEST(MidiFilePlayback, AChordIsCycledThroughInShorterPulses) {
    MidiFileProgram p;
    p.Open(MidiSong({{0, NoteOnOf(67)}, {0, NoteOnOf(60)}, {0, NoteOnOf(64)}, {40, NoteOffOf(60)}}));
    p.PlayAt(0);
    EXPECT_EQ(p.TonesUntil(41),
              "0.0020 speaker 523 Hz 10 ms\n"
              "0.0120 speaker 659 Hz 10 ms\n"
              "0.0220 speaker 784 Hz 10 ms\n"
              "0.0320 speaker 523 Hz 10 ms\n");
}

TEST(MidiFilePlayback, PlayingDoesNothingWithoutAFile) {
    MidiFileProgram p;
    EXPECT_FALSE(p.Form.frmPlaybackEnabled);
    p.PlayAt(0);
    p.StopAt(10);
    EXPECT_EQ(p.TonesUntil(100), "");
    EXPECT_EQ(p.Position(), "100.00% 00:00.00");
    p.Open(TwoNotes);
    EXPECT_TRUE(p.Form.frmPlaybackEnabled);
}

TEST(MidiFilePlayback, PressingPlayAtTheEndStartsAgainFromTheBeginning) {
    MidiFileProgram p;
    p.Open(TwoNotes);
    p.PlayAt(0);
    p.TonesUntil(100);
    EXPECT_EQ(p.Position(), "100.00% 00:00.06");
    p.PlayAt(1000);
    EXPECT_EQ(p.TonesUntil(1050),
              "1.0150 speaker 523 Hz 15 ms\n"
              "1.0300 speaker 659 Hz 15 ms\n"
              "1.0450 speaker 659 Hz 15 ms\n")
        << "the timer has kept the interval that the automatic time has set";
}

TEST(MidiFilePlayback, StoppingAndPlayingAgainResumesFromTheSameEvent) {
    MidiFileProgram p;
    p.Open(MidiSong({{0, NoteOnOf(60)}, {30, NoteOffOf(60)}, {30, NoteOnOf(64)}, {90, NoteOffOf(64)}}));
    p.PlayAt(0);
    p.StopAt(50);
    p.TonesUntil(500);
    EXPECT_EQ(p.Position(), "60.00% 00:00.09") << "the event that comes next";
    p.PlayAt(1000);
    // Resumed at that event's time: it is due at once.
    EXPECT_EQ(p.TonesUntil(1100), "");
    EXPECT_EQ(p.Position(), "100.00% 00:00.09");
}

TEST(MidiFilePlayback, ANoteHeldWhileStoppedSoundsOnWhenResumed) {
    MidiFileProgram p;
    p.Open(MidiSong({{0, NoteOnOf(60)}, {40, NoteOnOf(64)}, {40, NoteOffOf(60)}, {300, NoteOffOf(64)}}));
    p.PlayAt(0);
    p.StopAt(20);
    p.TonesUntil(100);
    EXPECT_TRUE(p.Form.GetMIDINoteIsOn(60));
    p.PlayAt(200);
    EXPECT_EQ(p.TonesUntil(240), "0.2150 speaker 659 Hz 15 ms\n0.2300 speaker 659 Hz 15 ms\n");
}

TEST(MidiFilePlayback, StoppingTakesOneMoreStepOfTheCycle) {
    MidiFileProgram p;
    p.Open(MidiSong({{0, NoteOnOf(60)}, {1000, NoteOffOf(60)}}));
    p.PlayAt(0);
    p.StopAt(10);
    EXPECT_EQ(p.TonesUntil(500), "0.0020 speaker 523 Hz 15 ms\n0.0170 speaker 523 Hz 15 ms\n")
        << "the click came in the middle of a tone";
    EXPECT_FALSE(p.Form.IsPlaying());
}

TEST(MidiFilePlayback, NotesOnUntickedChannelsNeverSound) {
    MidiFileProgram p;
    p.Open(MidiSong({{0, NoteOnOf(60, 9)}, {0, NoteOnOf(64, 1)}, {20, NoteOffOf(64, 1)}}));
    p.Form.ListenChannelCheck[9] = false;
    p.PlayAt(0);
    EXPECT_EQ(p.TonesUntil(100), "0.0020 speaker 659 Hz 15 ms\n0.0170 speaker 659 Hz 15 ms\n");
}

TEST(MidiFilePlayback, UntickingAChannelMidNoteSilencesEverythingHeld) {
    MidiFileProgram p;
    p.Open(MidiSong({{0, NoteOnOf(60)}, {0, NoteOnOf(64, 1)}, {500, NoteOffOf(60)}}));
    p.PlayAt(0);
    p.Time.At(40, [&] { p.Form.ListenChannelCheck[5] = false; });
    p.TonesUntil(60);
    EXPECT_EQ(p.TonesUntil(400), "");
    EXPECT_TRUE(p.Form.IsPlaying());
}

TEST(MidiFilePlayback, WithTheOnlyOnceBoxAHeldChordIsPlayedOnce) {
    MidiFileProgram p;
    p.Open(MidiSong({{0, NoteOnOf(60)}, {0, NoteOnOf(64)}, {500, NoteOffOf(60)}}));
    p.Form.OnlyOnceCheck = true;
    p.PlayAt(0);
    EXPECT_EQ(p.TonesUntil(400), "0.0020 speaker 523 Hz 15 ms\n0.0170 speaker 659 Hz 15 ms\n");
}

TEST(MidiFilePlayback, NotesOutsideTheKeyboardAreIgnored) {
    MidiFileProgram p;
    p.Open(MidiSong({{0, {0x90, 0x85, 96}},
                     {0, {0xA0, 60, 96}},
                     {0, {0xB0, 60, 96}},
                     {0, {0xC0, 60}},
                     {0, {0xE0, 60, 96}},
                     {0, {0xFF, 1, 2, 60, 60}},
                     {0, {0xF0, 2, 60, 0xF7}},
                     {100, NoteOffOf(60)}}));
    p.PlayAt(0);
    EXPECT_EQ(p.TonesUntil(90), "");
    EXPECT_TRUE(p.Form.IsPlaying());
    EXPECT_TRUE(p.Boxes.Shown().empty());
}

TEST(MidiFilePlayback, ANoteOnOfVelocity0ReleasesItsNote) {
    MidiFileProgram p;
    p.Open(MidiSong({{0, NoteOnOf(60)}, {10, {0x90, 60, 0}}, {500, NoteOffOf(60)}}));
    p.PlayAt(0);
    EXPECT_EQ(p.TonesUntil(400), "0.0020 speaker 523 Hz 15 ms\n");
}

TEST(MidiFilePlayback, WithLoopThePositionShows100PercentAndPlaybackRestarts) {
    MidiFileProgram p;
    p.Open(TwoNotes);
    p.Form.chkLoop = true;
    std::vector<std::string> positions;
    p.Form.lblPosPercent.Watch([&](const std::string& text) { positions.push_back(text); });
    p.PlayAt(0);
    EXPECT_EQ(p.TonesUntil(100),
              std::string(PlayedTwoNotes) + "0.0770 speaker 523 Hz 15 ms\n0.0920 speaker 659 Hz 15 ms\n");
    EXPECT_THAT(positions, ElementsAre("20.00%", "60.00%", "100.00%", "0.00%", "20.00%", "60.00%"));
    EXPECT_TRUE(p.Form.IsPlaying());
    p.Form.chkLoop = false;
    p.TonesUntil(1000);
    EXPECT_FALSE(p.Form.IsPlaying());
    EXPECT_EQ(p.Position(), "100.00% 00:00.06");
}

TEST(MidiFilePlayback, AFileOfLengthZeroLoopsAndTheProgramStaysUsable) {
    MidiFileProgram p;
    p.Open(MidiSong({{0, NoteOnOf(60)}, {0, NoteOffOf(60)}}));
    p.Form.chkLoop = true;
    p.PlayAt(0);
    EXPECT_EQ(p.TonesUntil(1000), "");
    EXPECT_TRUE(p.Form.IsPlaying());
}

TEST(MidiFilePlayback, ANoteWithoutAnEndIsReleasedWhenTheFileStartsAgain) {
    MidiFileProgram p;
    p.Open(MidiSong({{0, NoteOnOf(60)}, {30, NoteOffOf(60)}, {30, NoteOnOf(64)}, {40, NoteOffOf(1)}}));
    p.Form.chkLoop = true;
    p.PlayAt(0);
    p.TonesUntil(64);
    EXPECT_FALSE(p.Form.GetMIDINoteIsOn(64));
}

TEST(MidiFilePlayback, RewindingWhilePlayingPlaysFromTheBeginning) {
    MidiFileProgram p;
    p.Open(TwoNotes);
    p.PlayAt(0);
    p.Time.At(40, [&] { p.Form.cmdRewind_Click(); });
    p.TonesUntil(62);
    EXPECT_TRUE(p.Form.IsPlaying());
    EXPECT_EQ(p.TonesUntil(100), "0.0770 speaker 523 Hz 15 ms\n0.0920 speaker 659 Hz 15 ms\n");
}

TEST(MidiFilePlayback, RewindingWhileStoppedStaysStopped) {
    MidiFileProgram p;
    p.Open(TwoNotes);
    p.PlayAt(0);
    p.StopAt(40);
    p.Time.At(100, [&] { p.Form.cmdRewind_Click(); });
    p.Time.RunUntil(200);
    EXPECT_FALSE(p.Form.IsPlaying());
    EXPECT_EQ(p.Position(), "0.00% 00:00.00");
    EXPECT_EQ(p.Form.sldPosition, 0);
}

TEST(MidiFilePlayback, MovingTheSliderStopsPlaybackAtThatShareOfTheEvents) {
    MidiFileProgram p;
    p.Open(TwoNotes);
    p.PlayAt(0);
    p.Time.At(10, [&] { p.Form.sldPosition_Change(400); });
    p.TonesUntil(100);
    EXPECT_FALSE(p.Form.IsPlaying());
    EXPECT_EQ(p.Position(), "40.00% 00:00.03");
    EXPECT_EQ(p.Form.sldPosition, 400);
    p.PlayAt(1000);
    EXPECT_EQ(p.TonesUntil(1100), "1.0150 speaker 659 Hz 15 ms\n");
}

TEST(MidiFilePlayback, TheSliderStaysWhereTheUserHasItBetweenTwoEvents) {
    MidiFileProgram p;
    p.Open(TwoNotes);
    p.Form.sldPosition_Change(333);
    EXPECT_EQ(p.Form.sldPosition, 333);
    EXPECT_EQ(p.Position(), "40.00% 00:00.03");
    p.Form.sldPosition_Change(1000);
    EXPECT_EQ(p.Position(), "100.00% 00:00.06");
}

TEST(MidiFilePlayback, WithoutAFileTheSliderDoesNothing) {
    MidiFileProgram p;
    p.Form.sldPosition_Change(500);
    EXPECT_EQ(p.Form.sldPosition, 0);
    EXPECT_EQ(p.TonesUntil(100), "");
}

TEST(MidiFilePlayback, ThePositionFollowsInPercentMinutesAndSeconds) {
    MidiFileProgram p;
    p.Open(MidiSong({{0, NoteOnOf(60)}, {65250, NoteOffOf(60)}, {3'600'000, NoteOnOf(64)}}));
    p.Form.SaveCPUCheck = true;
    p.PlayAt(0);
    p.Time.RunUntil(60'000);
    EXPECT_EQ(p.Position(), "25.00% 01:05.25");
    EXPECT_EQ(p.Form.sldPosition, 250);
    p.Time.RunUntil(66'000);
    EXPECT_EQ(p.Position(), "50.00% 60:00.00");
}

TEST(MidiFilePlayback, TimesBeyond32BitsCanBePlayedFrom) {
    MidiFileProgram p;
    Bytes track;
    for (int i = 0; i < 20; ++i)
        track = track + test::VarLen(0x0FFFFFFF) + NoteOffOf(1);
    track = track + test::VarLen(0) + NoteOnOf(60) + test::VarLen(20) + NoteOffOf(60);
    const Bytes file = test::Header(0, 1, 500) + test::Track(track);
    p.Open({file.begin(), file.end()});
    p.Form.sldPosition_Change(870);
    p.PlayAt(0);
    EXPECT_EQ(p.TonesUntil(100), "0.0020 speaker 523 Hz 15 ms\n0.0170 speaker 523 Hz 15 ms\n");
    EXPECT_EQ(p.Position(), "100.00% 89478:29.12");
}

TEST(MidiFilePlayback, ThePulsesGoToTheOutputThatIsInUse) {
    MidiFileProgram p;
    p.Open(TwoNotes);
    p.OpenMidiOut();
    p.PlayAt(0);
    EXPECT_EQ(p.TonesUntil(100, "midi out"),
              "0.0020 midi out 90 3C 60\n"
              "0.0170 midi out 80 3C 00\n"
              "0.0170 midi out 90 3C 60\n"
              "0.0320 midi out 80 3C 00\n"
              "0.0320 midi out 90 40 60\n"
              "0.0470 midi out 80 40 00\n"
              "0.0470 midi out 90 40 60\n"
              "0.0620 midi out 80 40 00\n");
}

TEST(MidiFilePlayback, StoppingInTheMiddleOfAToneStaysStopped) {
    MidiFileProgram p;
    p.Open(MidiSong({{0, NoteOnOf(60)}, {1000, NoteOffOf(60)}}));
    p.App.Fields.Output.MutePCSpeaker = true;  // such a tone lets handlers run
    p.PlayAt(0);
    p.StopAt(8);
    p.Time.RunUntil(500);
    EXPECT_FALSE(p.Form.IsPlaying());
    EXPECT_FALSE(p.App.Fields.View.BeepTextLabelVisible);
    EXPECT_EQ(p.Form.lblHeldCount.Get(), " (1)");
}

// The last note has no end, so the last step sounds, and in its wait the user is quicker than the program.
TEST(MidiFilePlayback, AClickDuringTheLastToneComesBeforeTheLoop) {
    const auto played = [](const std::function<void(MidiFileProgram&)>& press) {
        MidiFileProgram p;
        p.Open(MidiSong({{0, NoteOnOf(60)}, {28, {0xC0, 1}}}));
        p.Form.chkLoop = true;
        p.App.Fields.Output.MutePCSpeaker = true;
        p.PlayAt(0);
        p.Time.At(40, [&] { press(p); });
        p.Time.RunUntil(70);
        return p.Form.IsPlaying();
    };
    EXPECT_TRUE(played([](MidiFileProgram&) {}));
    EXPECT_FALSE(played([](MidiFileProgram& p) { p.Form.cmdStop_Click(); }));
    EXPECT_FALSE(played([](MidiFileProgram& p) { p.App.Fields.Mods.UseMIDIFile.Ticked = false; }));
    EXPECT_FALSE(played([](MidiFileProgram& p) { p.Form.sldPosition_Change(0); }));
    EXPECT_FALSE(played([](MidiFileProgram& p) { p.Open(TwoNotes); }));
}

TEST(MidiFilePlayback, AfterTheProgramIsClosedNoMoreTonesArePlayed) {
    MidiFileProgram p;
    p.Open(MidiSong({{0, NoteOnOf(60)}, {1000, NoteOffOf(60)}}));
    p.PlayAt(0);
    p.Time.At(40, [&] { p.App.Fields.State.ShuttingDown = true; });
    p.TonesUntil(60);
    EXPECT_EQ(p.TonesUntil(500), "");
}

}  // namespace
}  // namespace quavix::test
