// SPDX-License-Identifier: MIT
#include "playback/piano_keys.h"

#include <sstream>

#include <gtest/gtest.h>

#include "music/piano_layout.h"
#include "shell/runtime_error.h"
#include "support/simulated_program.h"

namespace quavix::test {
namespace {

struct PianoKeysTest : testing::Test, SimulatedProgram {
    std::string Labels() const {
        std::string text;
        for (std::int32_t group = 0; group < 3; ++group)
            text += App.Playing.PianoKeys.OctLabel(group) + " ";
        return text;
    }
    /// Returns the lines of the log that contain this text.
    std::string LogLinesWith(const char* text) const {
        std::string found;
        std::istringstream lines(LogText());
        for (std::string line; std::getline(lines, line);) {
            if (line.find(text) != std::string::npos)
                found += line + "\n";
        }
        return found;
    }
    std::string KeysSounding() const {
        std::string keys;
        for (std::int32_t index = 0; index < PianoKeyCount; ++index)
            keys += App.Playing.PianoKeys.IsSounding(index) ? std::to_string(index) + " " : "";
        return keys;
    }
};

TEST_F(PianoKeysTest, EachGroupEntersItsOctave) {
    for (const std::int32_t key : {9, 21, 33})
        App.Playing.PianoKeys.PianoKey_Click(key);
    EXPECT_EQ(SongText(), "1/8 A3 - -\n1/8 A4 - -\n1/8 A5 - -\n");
}

TEST_F(PianoKeysTest, AClickSoundsTheNoteThenEntersItAndLogsBoth) {
    App.Log.Enable();
    App.Playing.PianoKeys.PianoKey_Click(0);
    EXPECT_EQ(LogLinesWith(" - "),
              "    PianoKey clicked - START\n"
              "        UniBeep(NOTESTRING:\"C3\", DURATION:50, NOTEISFREQUENCY:FALSE, "
              "SPECIFICCONTINUOUS:FALSE, SPECIFICSTOP:TRUE, FMODNOWAIT:FALSE) - START\n"
              "        PC Speaker Beep 131, 50 - BEFORE\n"
              "        PC Speaker Beep - AFTER\n"
              "        UniBeep() - END\n"
              "        AddNote(0, 3, 3 (1/8)) - START\n"
              "        GetSelectedIndex(MainList) returned -1 - inserting at end of list.\n"
              "        It's not meant to be silent - setting text for NOTE1.\n"
              "        AddNote() - END\n"
              "        WorkOutPlayPos(0) - START\n"
              "        WorkOutPlayPos() - END\n"
              "    PianoKey clicked - END\n");
    EXPECT_EQ(Timeline.Text("speaker"), "0.0000 speaker 131 Hz 50 ms\n");
}

TEST_F(PianoKeysTest, TheGroupsHaveTheirNamesInTheLog) {
    App.Fields.Entry.NoteClickPlayCheck = false;
    App.Fields.Entry.NoteClickAddCheck = false;
    App.Log.Enable();
    for (const std::int32_t key : {0, 11, 12, 23, 24, 35})
        App.Playing.PianoKeys.PianoKey_Click(key);
    EXPECT_EQ(LogLinesWith("ndex"),
              "    Index is 0 (orange region)\n    Index:0, CurrentOctave:3\n"
              "    Index is 11 (orange region)\n    Index:11, CurrentOctave:3\n"
              "    Index is 12 (blue region)\n    Index:0, CurrentOctave:4\n"
              "    Index is 23 (blue region)\n    Index:11, CurrentOctave:4\n"
              "    Index is 24 (green region)\n    Index:0, CurrentOctave:5\n"
              "    Index is 35 (green region)\n    Index:11, CurrentOctave:5\n");
    EXPECT_EQ(Timeline.Text("speaker"), "");
    EXPECT_EQ(SongText(), "");
}

TEST_F(PianoKeysTest, TheOptionsDecideWhetherItSoundsAndWhetherItIsEntered) {
    App.Fields.Entry.NoteClickAddCheck = false;
    App.Playing.PianoKeys.PianoKey_Click(21);
    EXPECT_EQ(Timeline.Text("speaker"), "0.0000 speaker 440 Hz 50 ms\n");
    EXPECT_EQ(SongText(), "");
    App.Fields.Entry.NoteClickAddCheck = true;
    App.Fields.Entry.NoteClickPlayCheck = false;
    App.Playing.PianoKeys.PianoKey_Click(21);
    EXPECT_EQ(Timeline.Text("speaker"), "0.0000 speaker 440 Hz 50 ms\n");
    EXPECT_EQ(SongText(), "1/8 A4 - -\n");
}

TEST_F(PianoKeysTest, AClickedKeyGlidesWherePortamentoIsOn) {
    App.Fields.Mods.UsePorta.Ticked = true;
    App.Playing.PianoKeys.PianoKey_Click(21);
    EXPECT_EQ(Timeline.Text("speaker"), "") << "it doesn't hold the thread";
    Time.RunUntil(20);
    EXPECT_EQ(Timeline.Text("speaker"), "0.0150 speaker 440 Hz 30 ms\n");
}

TEST_F(PianoKeysTest, AClickedKeyStopsAGeneratorThatIsNeverSilentOtherwise) {
    App.Fields.Mods.UseFMOD.InUse = true;
    App.Fields.Output.DoNotShutUpFMOD = true;
    App.Playing.PianoKeys.PianoKey_Click(21);
    EXPECT_EQ(Timeline.Text("fmod FMOD_Channel_SetPaused"),
              "0.0000 fmod FMOD_Channel_SetPaused(null, 0)\n0.0500 fmod FMOD_Channel_SetPaused(null, 1)\n");
    Timeline.Clear();
    std::string note = "A4";
    App.Outputs.ToneDispatcher.UniBeep(note, 50);
    EXPECT_EQ(Timeline.Text("fmod FMOD_Channel_SetPaused"), "0.0500 fmod FMOD_Channel_SetPaused(null, 0)\n");
}

TEST_F(PianoKeysTest, OptionsChangedWhileTheToneSoundsCount) {
    App.Fields.Output.MutePCSpeaker = true;
    Time.At(20, [this] { App.Fields.Entry.NoteClickAddCheck = false; });
    App.Playing.PianoKeys.PianoKey_Click(21);
    EXPECT_EQ(SongText(), "");
}

TEST_F(PianoKeysTest, ComposingFromNothingAppendsNoteAfterNote) {
    App.Fields.Entry.NoteLengthCombo = 2;
    App.Fields.Entry.ModDottedCheck = true;
    App.Playing.PianoKeys.PianoKey_Click(12);
    App.Playing.PianoKeys.PianoKey_Click(16);
    EXPECT_EQ(SongText(), "Quarter C4 - Dot\nQuarter E4 - Dot\n");
    EXPECT_EQ(App.List.SelectedItem(), -1);
}

TEST_F(PianoKeysTest, ThePositionGoesWithTheSelectedLineOrTheEndOfTheSong) {
    SetSong({"Whole C4 - -", "Whole D4 - -"});
    App.Fields.Entry.NoteLengthCombo = 0;
    App.Playing.PianoKeys.PianoKey_Click(12);
    EXPECT_EQ(App.Editing.PositionDisplay.lblPlayBar.Get(), "004");
    App.List.Select(1);
    App.Playing.PianoKeys.PianoKey_Click(12);
    EXPECT_EQ(App.Editing.PositionDisplay.lblPlayBar.Get(), "002") << "of the line behind the new one";
}

TEST_F(PianoKeysTest, AnImpossibleOctaveIsAnOverflowBeforeAnythingIsEntered) {
    App.Log.Enable();
    App.Fields.Entry.KeyboardOctave.Set(0);
    try {
        App.Playing.PianoKeys.PianoKey_Click(3);
        FAIL() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), RuntimeError::Overflow);
    }
    EXPECT_EQ(SongText(), "");
    EXPECT_EQ(Timeline.Text("speaker"), "");
    EXPECT_EQ(LogText(),
              "    PianoKey clicked - START\n    Index is 3 (orange region)\n    PianoKey clicked - END\n\n");
    EXPECT_EQ(App.Log.LogIndent(), 0);
    App.Playing.PianoKeys.PianoKey_Click(12);
    EXPECT_EQ(SongText(), "1/8 C0 - -\n");
    App.Fields.Entry.KeyboardOctave.Set(255);
    EXPECT_THROW(App.Playing.PianoKeys.PianoKey_Click(24), RuntimeError);
    EXPECT_THROW(App.Playing.PianoKeys.PianoKey_Click(36), RuntimeError);
    EXPECT_THROW(App.Playing.PianoKeys.PianoKey_Click(-1), RuntimeError);
}

TEST_F(PianoKeysTest, TheTenthOctaveIsEnteredWithTwoDigitsAndSoundsAsOctave0) {
    App.Fields.Entry.KeyboardOctave.Set(9);
    App.Playing.PianoKeys.PianoKey_Click(24);
    EXPECT_EQ(SongText(), "1/8 C10 - -\n");
    EXPECT_EQ(Timeline.Text("speaker"), "0.0000 speaker 16 Hz 50 ms\n");
}

TEST_F(PianoKeysTest, CtrlWithTheArrowsMovesTheOctaveFrom2To9) {
    for (int i = 0; i < 9; ++i)
        App.Playing.PianoKeys.PianoKey_KeyDown(0, PianoKeys::UpArrow, PianoKeys::CtrlOnly);
    EXPECT_EQ(App.Fields.Entry.KeyboardOctave, 9);
    EXPECT_EQ(App.Fields.Entry.KeyboardOctave.Text(), "9");
    EXPECT_EQ(Labels(), "8 9 10 ");
    App.Playing.PianoKeys.PianoKey_KeyDown(35, PianoKeys::DownArrow, PianoKeys::CtrlOnly);
    EXPECT_EQ(Labels(), "7 8 9 ");
    for (int i = 0; i < 9; ++i)
        App.Playing.PianoKeys.PianoKey_KeyDown(0, PianoKeys::DownArrow, PianoKeys::CtrlOnly);
    EXPECT_EQ(App.Fields.Entry.KeyboardOctave, 2);
    EXPECT_EQ(App.Fields.Entry.KeyboardOctave.Text(), "2");
    EXPECT_EQ(Labels(), "1 2 3 ");
}

TEST_F(PianoKeysTest, OtherKeysAndOtherShiftStatesDoNothing) {
    for (const std::int32_t shift : {0, 1, 3, 4, 6})
        App.Playing.PianoKeys.PianoKey_KeyDown(0, PianoKeys::UpArrow, shift);
    for (const std::int32_t key : {37, 39, 32, 0})
        App.Playing.PianoKeys.PianoKey_KeyDown(0, key, PianoKeys::CtrlOnly);
    EXPECT_EQ(App.Fields.Entry.KeyboardOctave, 4);
    App.Fields.Entry.KeyboardOctave.Type("");
    App.Playing.PianoKeys.PianoKey_KeyDown(0, 39, PianoKeys::CtrlOnly);
    EXPECT_EQ(App.Fields.Entry.KeyboardOctave.Text(), "");
}

TEST_F(PianoKeysTest, AnOctaveThatWasTypedAboveTheRangeOnlyComesDown) {
    App.Fields.Entry.KeyboardOctave.Type("12");
    App.Playing.PianoKeys.PianoKey_KeyDown(0, PianoKeys::UpArrow, PianoKeys::CtrlOnly);
    EXPECT_EQ(App.Fields.Entry.KeyboardOctave, 12);
    App.Playing.PianoKeys.PianoKey_KeyDown(0, PianoKeys::DownArrow, PianoKeys::CtrlOnly);
    EXPECT_EQ(App.Fields.Entry.KeyboardOctave, 11);
}

TEST_F(PianoKeysTest, TheOctaveLabelsFollowEveryChange) {
    EXPECT_EQ(Labels(), "3 4 5 ");
    App.Fields.Entry.KeyboardOctave.Type("12");
    EXPECT_EQ(Labels(), "11 12 13 ");
    App.Fields.Entry.KeyboardOctave.Type("1");
    EXPECT_EQ(Labels(), "1 2 3 ");
    Disk.Put("song", "Quavix by Dastrel-204 file format\r\nKeyboardOctave 7\r\nMUSICLISTSTART\r\n");
    App.Storage.SongReader.ActuallyLoadMusic("song");
    EXPECT_EQ(Labels(), "6 7 8 ");
    App.Fields.Entry.KeyboardOctave.Set(0);
    EXPECT_EQ(Labels(), "-1 0 1 ");
}

TEST_F(PianoKeysTest, WhileMusicPlaysTheKeysOfTheSoundingLineShow) {
    SetSong({"Quarter C4 E5 -", "Quarter A4 - -", "Quarter - - -", "Quarter - B3 -", "Quarter C9 H4 -"});
    App.Fields.Song.BPM.Set(60);
    App.Fields.Song.PlayNote1Check = true;
    std::string seen;
    App.Fields.View.NotesSounding.Watch([&](const SoundingNotes&) { seen += KeysSounding() + "|"; });
    App.Playing.PlaybackEngine.OnRangeEnd = [this] { App.Playing.PlaybackEngine.StopPlayButton_Click(); };
    App.Playing.PlaybackEngine.PlayAllButton_Click();
    // Two notes show together although they sound in turn; C9 has no key, and H4 is no note.
    EXPECT_EQ(seen, "12 28 ||21 ||11 ||||");
    EXPECT_EQ(App.Fields.View.NotesSounding.Get(), SoundingNotes());
}

TEST_F(PianoKeysTest, TheKeysThatSoundMoveWithTheOctave) {
    App.Fields.View.NotesSounding = SoundingNotes{.Note1 = "C4", .Note2 = "C10"};
    EXPECT_EQ(KeysSounding(), "12 ");
    App.Fields.Entry.KeyboardOctave.Set(5);
    EXPECT_EQ(KeysSounding(), "0 ");
    App.Fields.Entry.KeyboardOctave.Set(6);
    EXPECT_EQ(KeysSounding(), "");
    App.Fields.Entry.KeyboardOctave.Set(1);
    EXPECT_EQ(KeysSounding(), "0 ") << "only the last digit of an octave counts";
}

TEST_F(PianoKeysTest, AKeyIsSpokenWithItsNote) {
    EXPECT_EQ(SpokenKeyName(13, 4), "C sharp 4");
    EXPECT_EQ(SpokenKeyName(11, 4), "B 3");
    EXPECT_EQ(SpokenKeyName(24, 4), "C 5");
}

TEST_F(PianoKeysTest, QuickClicksAreEnteredInTheirOrderWhenTheSpeakerIsMuted) {
    App.Fields.Output.MutePCSpeaker = true;
    App.Log.Enable();
    Time.At(10, [this] { App.Playing.PianoKeys.PianoKey_Click(14); });
    Time.At(20, [this] { App.Playing.PianoKeys.PianoKey_Click(16); });
    Time.At(70, [this] { App.Playing.PianoKeys.PianoKey_Click(17); });
    App.Playing.PianoKeys.PianoKey_Click(12);
    EXPECT_EQ(SongText(), "1/8 C4 - -\n1/8 D4 - -\n1/8 E4 - -\n1/8 F4 - -\n");
    EXPECT_EQ(Time.Now(), 200 * SimulatedTime::CountsPerMs) << "one tone after the other";
    EXPECT_EQ(LogText().find("        PianoKey clicked"), std::string::npos) << "none inside another";
    EXPECT_EQ(App.Log.LogIndent(), 0);
}

TEST_F(PianoKeysTest, AWaitingClickIsTheKeyThatWasClicked) {
    App.Fields.Output.MutePCSpeaker = true;
    Time.At(10, [this] { App.Playing.PianoKeys.PianoKey_Click(12); });
    Time.At(20,
            [this] { App.Playing.PianoKeys.PianoKey_KeyDown(12, PianoKeys::UpArrow, PianoKeys::CtrlOnly); });
    Time.At(30, [this] { App.Playing.PianoKeys.PianoKey_Click(12); });
    App.Playing.PianoKeys.PianoKey_Click(12);
    EXPECT_EQ(SongText(), "1/8 C4 - -\n1/8 C4 - -\n1/8 C5 - -\n");
}

TEST_F(PianoKeysTest, AnErrorOfOneClickLeavesTheOtherClicks) {
    App.Fields.Output.MutePCSpeaker = true;
    App.Fields.Entry.KeyboardOctave.Set(0);
    Time.At(10, [this] { App.Playing.PianoKeys.PianoKey_Click(0); });  // an octave below 0
    Time.At(20, [this] { App.Playing.PianoKeys.PianoKey_Click(14); });
    EXPECT_THROW(App.Playing.PianoKeys.PianoKey_Click(12), RuntimeError);
    EXPECT_EQ(SongText(), "1/8 C0 - -\n1/8 D0 - -\n");
    App.Playing.PianoKeys.PianoKey_Click(16);
    EXPECT_EQ(App.List.Count(), 3);
}

}  // namespace
}  // namespace quavix::test
