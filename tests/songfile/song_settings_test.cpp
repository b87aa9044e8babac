// SPDX-License-Identifier: MIT
#include "songfile/song_settings.h"

#include <tuple>

#include <gtest/gtest.h>

#include "shell/runtime_error.h"
#include "songfile/song_files.h"

namespace quavix {
namespace {

using test::SongProgram;

/// Number of the run-time error that loading this settings line ends in, 0 without.
std::int32_t ErrorOf(const std::string& line) {
    SongProgram p;
    try {
        p.Load(line);
    } catch (const RuntimeError& error) {
        return error.Number();
    }
    return 0;
}

TEST(SongSettings, TakesKeysInAnyLetterCase) {
    for (const char* key : {"bpm", "BPM", "Bpm"}) {
        SongProgram p;
        p.Load(std::string(key) + " 150\r\n");
        EXPECT_EQ(p.App.Fields.Song.BPM, 150);
        EXPECT_EQ(p.App.Fields.Song.BPM.Text(), "150");
    }
}

TEST(SongSettings, ResetsTheBeatsPerBarAndNothingElseThatTheFileDoesNotName) {
    SongProgram p;
    p.App.Fields.Song.BeatsPerBar.Set(7);
    p.App.Fields.Song.BPM.Set(99);
    p.App.Fields.Entry.NoteLengthCombo = 1;
    p.App.Fields.Entry.NoteClickAddCheck = false;
    p.Load("");
    EXPECT_EQ(p.App.Fields.Song.BeatsPerBar, 4);
    EXPECT_EQ(p.App.Fields.Song.BeatsPerBar, 4);
    EXPECT_EQ(p.App.Fields.Song.BeatsPerBar.Text(), "4");
    EXPECT_EQ(p.App.Fields.Song.BPM, 99);
    EXPECT_EQ(p.App.Fields.Entry.NoteLengthCombo, 1);
    EXPECT_FALSE(p.App.Fields.Entry.NoteClickAddCheck);
}

TEST(SongSettings, TakesTheNearestPositionOfASlider) {
    const struct {
        const char* Value;
        std::int32_t BeatsPerBar;
        std::int32_t Ratio;
    } cases[] = {{"3", 3, 3},
                 {"0", 1, 0},
                 {"-5", 1, 0},
                 {"17", 16, 17},
                 {"101", 16, 100},
                 {"-2147483648", 1, 0},
                 {"2147483647", 16, 100},
                 {"abc", 1, 0}};
    for (const auto& expected : cases) {
        SongProgram p;
        p.Load(std::string("TimeSig ") + expected.Value + "\r\nNoteSilenceRatio " + expected.Value + "\r\n");
        EXPECT_EQ(p.App.Fields.Song.BeatsPerBar, expected.BeatsPerBar) << expected.Value;
        EXPECT_EQ(p.App.Fields.Song.BeatsPerBar, expected.BeatsPerBar) << expected.Value;
        EXPECT_EQ(p.App.Fields.Song.BeatsPerBar.Text(), std::to_string(expected.BeatsPerBar))
            << expected.Value;
        EXPECT_EQ(p.App.Fields.Song.NoteSilenceRatio, expected.Ratio) << expected.Value;
    }
}

TEST(SongSettings, ShowsTheRatioOfTheSong) {
    SongProgram p;
    p.Load("NoteSilenceRatio 5\r\n");
    EXPECT_EQ(p.App.Fields.Song.NoteSilenceRatio.Text(), "05%");
}

TEST(SongSettings, IgnoresANoteLengthThatTheListDoesNotHave) {
    for (const auto& [value, index] : {std::pair{"0", 0}, {"4", 4}, {"5", 3}, {"-1", 3}, {"2.5", 2}}) {
        SongProgram p;
        p.Load(std::string("NoteLength ") + value);
        EXPECT_EQ(p.App.Fields.Entry.NoteLengthCombo, index) << value;
    }
}

TEST(SongSettings, TakesATempoOutsideTheRangeAndMarksItsField) {
    for (const auto& [value, tempo] : {std::pair{"0", 0}, {"39", 39}, {"601", 601}, {"-7", -7}}) {
        SongProgram p;
        p.Load(std::string("BPM ") + value);
        EXPECT_EQ(p.App.Fields.Song.BPM, tempo);
        EXPECT_EQ(p.App.Fields.Song.BPM.Text(), value);
        EXPECT_EQ(p.App.Fields.Song.BPM.BackColor(), colour::Orange);
        p.Load("BPM 40");
        EXPECT_EQ(p.App.Fields.Song.BPM.BackColor(), colour::WindowBackground);
    }
}

TEST(SongSettings, ReadsATempoThatIsNoNumberAsZero) {
    SongProgram p;
    p.Load("BPM fast");
    EXPECT_EQ(p.App.Fields.Song.BPM, 0);
    EXPECT_EQ(p.App.Fields.Song.BPM.Text(), "0");
}

TEST(SongSettings, TakesAnAlternateTimeOutsideTheRangeAndMarksItsField) {
    SongProgram p;
    p.Load("AlternateTime 14");
    EXPECT_EQ(p.App.Fields.Song.AlternateTime, 14);
    EXPECT_EQ(p.App.Fields.Song.AlternateTime.Text(), "14");
    EXPECT_EQ(p.App.Fields.Song.AlternateTime.BackColor(), colour::Orange);
    p.Load("AlternateTime  2000 ");
    EXPECT_EQ(p.App.Fields.Song.AlternateTime, 2000);
    EXPECT_EQ(p.App.Fields.Song.AlternateTime.Text(), " 2000 ");
    EXPECT_EQ(p.App.Fields.Song.AlternateTime.BackColor(), colour::WindowBackground);
}

TEST(SongSettings, TakesEveryKeyboardOctaveAndShowsWhatTheFieldCanShow) {
    const struct {
        const char* Value;
        int Octave;
        const char* Text;
    } cases[] = {{"4", 4, "4"},  {"9", 9, "9"}, {"12", 12, "12"}, {"255", 255, "255"},
                 {"2", 2, "2"},  {"1", 1, "2"}, {"0", 0, "2"},    {"abc", 0, "2"},
                 {"5x", 5, "5"}, {"", 0, ""},   {"7.5", 8, "7.5"}};
    for (const auto& expected : cases) {
        SongProgram p;
        p.Load(std::string("KeyboardOctave ") + expected.Value);
        EXPECT_EQ(p.App.Fields.Entry.KeyboardOctave.Get(), expected.Octave) << expected.Value;
        EXPECT_EQ(p.App.Fields.Entry.KeyboardOctave.Text(), expected.Text) << expected.Value;
    }
}

TEST(SongSettings, NotifiesWatchersOfTheKeyboardOctave) {
    SongProgram p;
    int shown = -1;
    p.App.Fields.Entry.KeyboardOctave.State().Watch(
        [&](const SettingState& octave) { shown = octave.Value; });
    p.Load("KeyboardOctave 1");
    EXPECT_EQ(shown, 1);
}

TEST(SongSettings, TicksTheBoxesByNumber) {
    using Box = Watched<bool>& (*)(MainFields&);
    const std::pair<const char*, Box> boxes[] = {
        {"NoteClickPlay",
         [](MainFields& fields) -> Watched<bool>& { return fields.Entry.NoteClickPlayCheck; }},
        {"NoteClickAdd", [](MainFields& fields) -> Watched<bool>& { return fields.Entry.NoteClickAddCheck; }},
        {"NoteLengthReplace",
         [](MainFields& fields) -> Watched<bool>& { return fields.Entry.NoteLengthReplaceCheck; }},
        {"ClickPlayNote1",
         [](MainFields& fields) -> Watched<bool>& { return fields.Song.ClickPlayNote1Check; }},
        {"ClickPlayNote2",
         [](MainFields& fields) -> Watched<bool>& { return fields.Song.ClickPlayNote2Check; }},
        {"PlayNote1", [](MainFields& fields) -> Watched<bool>& { return fields.Song.PlayNote1Check; }},
        {"PlayNote2", [](MainFields& fields) -> Watched<bool>& { return fields.Song.PlayNote2Check; }},
    };
    for (const auto& [key, box] : boxes) {
        for (const auto& [value, ticked] :
             {std::pair{"1", true}, {"0", false}, {"-1", true}, {"2", true}, {"x", false}, {"0.4", false}}) {
            SongProgram p;
            box(p.App.Fields) = !ticked;
            p.Load(std::string(key) + " " + value);
            EXPECT_EQ(box(p.App.Fields).Get(), ticked) << key << " " << value;
        }
    }
}

TEST(SongSettings, LeavesTheReplaceBoxAsItWas) {
    SongProgram p;
    p.Load("NoteReplace 1");
    EXPECT_FALSE(p.App.Fields.Entry.NoteReplaceCheck);
    p.App.Fields.Entry.NoteReplaceCheck = true;
    p.Load("NoteReplace 0");
    EXPECT_TRUE(p.App.Fields.Entry.NoteReplaceCheck);
}

TEST(SongSettings, SelectsOneOfTheTwoOptions) {
    SongProgram p;
    const std::tuple<const char*, bool, bool> expected[] = {{"AddNote2 1", false, true},
                                                            {"AddNote1 1", true, false},
                                                            {"AddNote1 0", false, false},
                                                            {"AddNote1 1\nAddNote2 0", true, false}};
    for (const auto& [settings, first, second] : expected) {
        p.Load(settings);
        EXPECT_EQ(p.App.Fields.Entry.AddNote1Option, first) << settings;
        EXPECT_EQ(p.App.Fields.Entry.AddNote2Option, second) << settings;
    }
}

TEST(SongSettings, TakesTruthValuesForTheOptions) {
    for (const auto& [value, selected] : {std::pair{"True", true},
                                          {"tRUE", true},
                                          {"-1", true},
                                          {"3.5", true},
                                          {"False", false},
                                          {"FALSE", false},
                                          {"0.0", false},
                                          {" 1 ", true}}) {
        SongProgram p;
        p.App.Fields.Entry.AddNote2Option = !selected;
        p.Load(std::string("AddNote2 ") + value);
        EXPECT_EQ(p.App.Fields.Entry.AddNote2Option, selected) << value;
    }
    for (const char* value : {"yes", "", "1x", "Truely", "True "})
        EXPECT_EQ(ErrorOf(std::string("AddNote1 ") + value), RuntimeError::TypeMismatch) << value;
}

TEST(SongSettings, RaisesOverflowForNumbersThatASettingCannotHold) {
    for (const char* line :
         {"KeyboardOctave 256", "KeyboardOctave -1", "BPM 2147483648", "BPM -2147483649", "BPM 1e999",
          "TimeSig 2147483648", "NoteSilenceRatio 1e10", "NoteLength -1e10", "AlternateTime 32768",
          "AlternateTime -32769", "NoteClickPlay 32768", "NoteClickAdd 99999", "NoteLengthReplace 1e5",
          "ClickPlayNote1 32768", "ClickPlayNote2 -40000", "PlayNote1 32768", "PlayNote2 32767.5",
          "Revision 2147483648"})
        EXPECT_EQ(ErrorOf(line), RuntimeError::Overflow) << line;
}

TEST(SongSettings, IgnoresUnknownSettings) {
    SongProgram p;
    const std::string before = p.Saved();
    p.Load(
        std::string("Tempo 99\r\n//BPM 99\r\nBPM\r\nBPMx 99\r\n BPM 99\r\n\r\nBPM\t99\r\nAddNote11 0\r\n") +
        std::string(1000, 'b') + " 3\r\nbpm" + std::string(1, '\0') + " 3\r\n");
    EXPECT_EQ(p.Saved(), before);
}

TEST(SongSettings, LosesTheLastCharacterOfAKeyWithoutAValue) {
    SongProgram p;
    p.Load("BPM5\r\nnotelengthreplace1\r\nNoteClickAdd\r\n");
    EXPECT_EQ(p.App.Fields.Song.BPM, 0);
    EXPECT_FALSE(p.App.Fields.Entry.NoteLengthReplaceCheck);
    EXPECT_TRUE(p.App.Fields.Entry.NoteClickAddCheck);
}

TEST(SongSettings, TakesTheLastOfSeveralLines) {
    SongProgram p;
    p.Load("BPM 99\r\nBPM 101\r\n");
    EXPECT_EQ(p.App.Fields.Song.BPM, 101);
}

}  // namespace
}  // namespace quavix
