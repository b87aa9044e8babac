// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "support/simulated_program.h"

namespace quavix {
namespace {

TEST(PlaybackJourney, PlayAllPlaysLineAfterLineAndStartsOverUntilStopIsClicked) {
    test::SimulatedProgram p;
    p.App.Fields.Song.BPM.Set(120);
    p.SetSong({"Quarter C4 - -", "Quarter E4 - -", "Half A4 - -"});
    p.Time.At(2600, [&] { p.App.Playing.PlaybackEngine.StopPlayButton_Click(); });
    p.App.Playing.PlaybackEngine.PlayAllButton_Click();
    EXPECT_EQ(p.Timeline.Text("speaker"),
              "0.0000 speaker 262 Hz 450 ms\n"
              "0.5100 speaker 330 Hz 440 ms\n"
              "1.0100 speaker 440 Hz 890 ms\n"
              "2.0050 speaker 262 Hz 445 ms\n"
              "2.5100 speaker 330 Hz 440 ms\n");
}

}  // namespace
}  // namespace quavix
