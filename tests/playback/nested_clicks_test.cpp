// SPDX-License-Identifier: MIT
// Clicks that start playback in the middle of playback.
#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "playback/playback_engine.h"
#include "support/recorded_playback.h"

namespace quavix {
namespace {

/// Long tones that let handlers run, and which rows sound.
class ClicksDuringATone : public testing::Test {
  protected:
    ClicksDuringATone() {
        Fields.Song.NoteSilenceRatio.Set(50);
        Fields.Song.BPM.Set(40);  // a whole note takes 6 s, and sounds for half of it
        Fields.Output.MutePCSpeaker = true;
        P.SetSong({"Whole C4 - -", "Whole E4 - -", "Whole G4 - -"});
        P.App.Log.Enable();
        Recorded.OnLine = [this] {
            Rows.push_back(P.App.List.SelectedItem());
            Deepest = std::max<int>(Deepest, P.App.Log.LogIndent());
        };
    }
    void ClickAt(double ms, std::int32_t row) {
        P.Time.At(ms, [this, row] {
            P.App.Handlers.Run("MainList_ItemClick", [&] { Playback.MainList_ItemClick(row); });
        });
    }
    void ExpectStopped() {
        EXPECT_FALSE(Fields.State.MusicIsPlaying);
        EXPECT_TRUE(Fields.View.PlayAllButtonEnabled);
        EXPECT_TRUE(Fields.View.PianoKeysEnabled);
        EXPECT_FALSE(Fields.View.StopPlayButtonEnabled);
        EXPECT_EQ(Fields.View.NotesSounding.Get(), SoundingNotes());
        EXPECT_EQ(P.App.Log.LogIndent(), 0);
        EXPECT_FALSE(P.App.Outputs.ToneDispatcher.IsSounding());
    }

    test::SimulatedProgram P;
    MainFields& Fields = P.App.Fields;
    test::RecordedPlayback Recorded{P};
    PlaybackEngine& Playback = Recorded.Playback;
    std::vector<int> Rows;
    /// Blocks of the log around the start of a line.
    int Deepest = 0;
};

TEST_F(ClicksDuringATone, AFewSoundAtOnce) {
    for (const int ms : {100, 200, 300})
        ClickAt(ms, 2);
    std::string starts;
    Recorded.OnLine = [&] { starts += fmt::format("{} ", P.Time.Now() / SimulatedTime::CountsPerMs); };
    Playback.MainList_ItemClick(1);
    EXPECT_EQ(starts, "0 100 200 300 ");
    ExpectStopped();
}

TEST_F(ClicksDuringATone, ThousandsSoundInTheirOrderAndNestNoDeeperThanAFew) {
    constexpr int Clicks = 2000;
    std::vector<int> expected{1};
    for (int i = 0; i < Clicks; ++i) {
        expected.push_back(i % 3 + 1);
        ClickAt(1 + i, expected.back());
    }
    Playback.MainList_ItemClick(1);
    EXPECT_EQ(Rows, expected);
    EXPECT_LT(Deepest, 30);
    ExpectStopped();
}

TEST_F(ClicksDuringATone, OnceTooManyLinesSoundTheNextOneStartsAtTheEndOfTheLast) {
    constexpr int Clicks = 10;
    for (int i = 0; i < Clicks; ++i)
        ClickAt(100 * (i + 1), 2);
    std::vector<std::int64_t> starts;
    Recorded.OnLine = [&] { starts.push_back(P.Time.Now() / SimulatedTime::CountsPerMs); };
    Playback.MainList_ItemClick(1);
    ASSERT_EQ(starts.size(), Clicks + 1U);
    EXPECT_EQ(starts[7], 700);
    EXPECT_EQ(starts[8], starts[7] + 3000);
    EXPECT_EQ(starts[9], starts[8] + 3000);
    EXPECT_EQ(starts[10], starts[9] + 3000);
}

TEST_F(ClicksDuringATone, StopIsMeantForThoseThatWaitToo) {
    for (int i = 1; i <= 100; ++i)
        ClickAt(i, 2);
    P.Time.At(200, [this] { Playback.StopPlayButton_Click(); });
    Playback.MainList_ItemClick(1);
    EXPECT_LT(Rows.size(), 20U);
    EXPECT_LT(P.Time.Now(), 3200 * SimulatedTime::CountsPerMs) << "the sounding tones end";
    ExpectStopped();
    Rows.clear();
    Playback.MainList_ItemClick(3);
    EXPECT_EQ(Rows, std::vector{3});
}

TEST_F(ClicksDuringATone, TheyEndPlayAllHoweverDeepItIs) {
    for (int i = 1; i < 20; ++i) {
        ClickAt(10 * i, 2);
        P.Time.At(10 * i + 5, [this] { Playback.PlayAllButton_Click(); });
    }
    ClickAt(300, 3);
    Playback.MainList_ItemClick(1);
    EXPECT_EQ(std::count(Rows.begin(), Rows.end(), 2), 19);
    EXPECT_EQ(Rows.back(), 3);
    EXPECT_LT(Deepest, 30);
    ExpectStopped();
}

TEST_F(ClicksDuringATone, AnErrorIsShownOnceAndEndsThoseThatWait) {
    for (int i = 1; i <= 100; ++i)
        ClickAt(i, 2);
    P.Time.At(200, [this] { Fields.Song.BPM.Set(0); });
    Playback.MainList_ItemClick(1);
    EXPECT_EQ(P.Boxes.Shown().size(), 1U);
    ExpectStopped();
    Fields.Song.BPM.Set(40);
    Rows.clear();
    Playback.MainList_ItemClick(3);
    EXPECT_EQ(Rows, std::vector{3});
}

TEST_F(ClicksDuringATone, RowsThatAreGoneByThenStaySilent) {
    for (int i = 1; i <= 100; ++i)
        ClickAt(i, 3);
    P.Time.At(200, [this] { P.App.List.Remove(3); });
    Playback.MainList_ItemClick(1);
    EXPECT_TRUE(P.Boxes.Shown().empty());
    ExpectStopped();
}

TEST_F(ClicksDuringATone, ANewSongIsNotPlayedForThoseThatWaitForTheOldOne) {
    P.Disk.Put("/song", "MUSICLISTSTART\r\nWhole C4 - -\r\nWhole E4 - -\r\n");
    P.Boxes.AnswerNext(BoxAnswer::Yes);
    for (int i = 1; i <= 100; ++i)
        P.Time.At(i, [this] { P.App.Playing.PlaybackEngine.MainList_ItemClick(2); });
    P.Time.At(200, [this] { P.App.Storage.SongDocument.LoadFile("/song"); });
    P.App.Playing.PlaybackEngine.MainList_ItemClick(1);
    EXPECT_EQ(P.App.List.Count(), 2);
    EXPECT_LT(P.Time.Now(), 4800 * SimulatedTime::CountsPerMs);
}

}  // namespace
}  // namespace quavix
