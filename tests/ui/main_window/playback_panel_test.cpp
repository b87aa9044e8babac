// SPDX-License-Identifier: MIT
#include "ui/ui_program.h"

namespace quavix {
namespace {

TEST(PlaybackPanel, PlayAllPlaysUntilStopIsClicked) {
    test::UiProgram p;
    p.App.Fields.Song.BPM.Type("120");
    p.SetSong({"Quarter C4 - -", "Quarter E4 - -"});
    p.ClickAt(1200, "StopPlayButton");
    p.Click("PlayAllButton");
    EXPECT_EQ(p.Timeline.Text("speaker"),
              "0.0000 speaker 262 Hz 450 ms\n"
              "0.5100 speaker 330 Hz 440 ms\n"
              "1.0100 speaker 262 Hz 440 ms\n");
}

TEST(PlaybackPanel, PlayFromSelectedLineStartsWithTheLineHighlighted) {
    test::UiProgram p;
    p.SetSong({"Quarter C4 - -", "Quarter E4 - -", "Quarter G4 - -"});
    auto& list = p.Find<QTableView>("MainList");
    list.selectRow(1);
    p.ClickAt(100, "StopPlayButton");
    p.Click("PlayFromLineButton");
    EXPECT_EQ(p.Timeline.Text("speaker"), "0.0000 speaker 330 Hz 386 ms\n");
}

TEST(PlaybackPanel, OnlyStopIsEnabledWhileTheMusicPlays) {
    test::UiProgram p;
    p.SetSong({"Quarter C4 - -"});
    const auto enabled = [&](const char* name) { return p.Find<QWidget>(name).isEnabled(); };
    EXPECT_TRUE(enabled("PlayAllButton"));
    EXPECT_FALSE(enabled("StopPlayButton"));
    bool looked = false;
    p.Time.At(420, [&] {
        looked = true;
        EXPECT_FALSE(enabled("PlayAllButton"));
        EXPECT_FALSE(enabled("PlayFromLineButton"));
        EXPECT_FALSE(enabled("NoUpdateCheck"));
        EXPECT_TRUE(enabled("StopPlayButton"));
        p.Click("StopPlayButton");
    });
    p.Click("PlayAllButton");
    EXPECT_TRUE(looked);
    EXPECT_TRUE(enabled("PlayAllButton"));
    EXPECT_TRUE(enabled("PlayFromLineButton"));
    EXPECT_TRUE(enabled("NoUpdateCheck"));
    EXPECT_FALSE(enabled("StopPlayButton"));
}

TEST(PlaybackPanel, TheKeyboardFocusWaitsOnTheStopButtonWhileTheMusicPlays) {
    test::UiProgram p;
    p.SetSong({"Quarter C4 - -"});
    auto& playAll = p.Find<QAbstractButton>("PlayAllButton");
    playAll.setFocus();
    p.Time.At(420, [&] {
        EXPECT_EQ(p.Form.focusWidget(), &p.Find<QWidget>("StopPlayButton"));
        QTest::keyClick(p.Form.focusWidget(), Qt::Key_Space);
    });
    QTest::keyClick(&playAll, Qt::Key_Space);
    EXPECT_EQ(p.Form.focusWidget(), &playAll);
}

TEST(PlaybackPanel, BeepIsShownWhileAToneSoundsAndMovesNothing) {
    test::UiProgram p;
    p.SetSong({"Half C4 - -"});
    p.Click("MuteTweebleCheck");              // handlers run in the middle of a muted tone
    p.Form.resize(p.Form.minimumSizeHint());  // where there is no room to spare
    QApplication::processEvents();
    auto& label = p.Find<QLabel>("BeepTextLabel");
    const QRect stopPlace = p.Find<QWidget>("StopPlayButton").geometry();
    const QRect listPlace = p.Find<QWidget>("MainList").geometry();
    EXPECT_FALSE(label.isVisible());
    std::string seen;
    p.Time.At(100, [&] {
        seen += label.isVisible() ? "lit " : "dark ";
        QApplication::processEvents();
        EXPECT_EQ(p.Find<QWidget>("StopPlayButton").geometry(), stopPlace);
        EXPECT_EQ(p.Find<QWidget>("MainList").geometry(), listPlace);
    });
    p.Time.At(800, [&] {
        seen += label.isVisible() ? "lit" : "dark";
        p.Click("StopPlayButton");
    });
    p.Click("PlayAllButton");
    EXPECT_EQ(seen, "lit dark");
    EXPECT_EQ(label.text(), "BEEP");
}

TEST(PlaybackPanel, AnErrorInPlaybackIsShownAndThePlayButtonsWorkAgain) {
    test::UiProgram p;
    p.SetSong({"Quarter C4 - -"});
    p.App.Fields.Song.BPM.Set(0);
    p.Click("PlayAllButton");
    ASSERT_EQ(p.Boxes.Shown().size(), 1u);
    EXPECT_EQ(p.Boxes.Shown()[0].Text.substr(0, 15), "Run-time error ");
    EXPECT_TRUE(p.Find<QWidget>("PlayAllButton").isEnabled());
}

}  // namespace
}  // namespace quavix
