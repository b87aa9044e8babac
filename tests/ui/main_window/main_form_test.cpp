// SPDX-License-Identifier: MIT
#include "shell/program_info.h"
#include "ui/ui_program.h"

namespace quavix {
namespace {

TEST(MainForm, TitleSaysTheVersion) {
    test::UiProgram p;
    EXPECT_EQ(p.Form.windowTitle(), QString("Quavix (v%1 BETA)").arg(program::VersionText));
    EXPECT_FALSE(p.Form.windowIcon().pixmap(32).isNull());
}

TEST(MainForm, ClosingDuringPlaybackEndsTheProcessAtOnce) {
    test::UiProgram p;
    p.App.Log.Enable();
    p.SetSong({"Quarter C4 - -"});
    p.Time.At(410, [&] { p.Form.close(); });
    p.ClickAt(420, "StopPlayButton");  // only because the end is simulated
    p.Click("PlayAllButton");
    EXPECT_EQ(p.Timeline.Text("process"), "0.4100 process ends\n");
    const std::string log = p.LogText();
    const std::size_t request = log.find("[REQUEST TO CLOSE PROGRAM]");
    const std::size_t start = log.find("DoShutDownStuff() - START");
    const std::size_t end = log.find("DoShutDownStuff() - END");
    const std::size_t killing = log.find("KILLING PROCESS (should be last line in log)");
    EXPECT_LT(request, start);
    EXPECT_LT(start, end);
    EXPECT_LT(end, killing);
    EXPECT_NE(killing, std::string::npos);
}

TEST(MainForm, StaysOpenWhenTheProgramDoesNotEnd) {
    test::UiProgram p;
    int requests = 0;
    MainForm form(p.App, p.SaveLoadWindow, [&] { ++requests; });
    form.show();
    EXPECT_FALSE(form.close());
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(requests, 1);
}

TEST(MainForm, DebugLoggingIsAnnouncedOnlyWhileItIsOn) {
    test::UiProgram off;
    EXPECT_FALSE(off.Find<QLabel>("lblDebugLogging").isVisible());
    test::SimulatedProgram on;
    on.App.Log.Enable();
    MainForm form(on.App, off.SaveLoadWindow, [] {});
    form.show();
    auto* label = form.findChild<QLabel*>("lblDebugLogging");
    EXPECT_TRUE(label->isVisible());
    EXPECT_EQ(label->text(), "DEBUG LOGGING ENABLED");
}

TEST(MainForm, CheckBoxesSwitchTheirOptions) {
    test::UiProgram p;
    p.Click("MuteTweebleCheck");
    EXPECT_TRUE(p.App.Fields.Output.MutePCSpeaker);
    p.Click("MuteTweebleCheck");
    EXPECT_FALSE(p.App.Fields.Output.MutePCSpeaker);
    p.Click("PlayNote1Check");
    EXPECT_FALSE(p.App.Fields.Song.PlayNote1Check);
    p.Click("ClickPlayNote2Check");
    EXPECT_FALSE(p.App.Fields.Song.ClickPlayNote2Check);
    EXPECT_TRUE(p.App.Fields.Song.PlayNote2Check);
}

TEST(MainForm, DoNotUpdateStaysUntickedIfTheUserSaysNo) {
    test::UiProgram p;
    p.App.Fields.Mods.UseBeat.Ticked = true;
    p.Boxes.AnswerNext(BoxAnswer::No);
    p.Click("NoUpdateCheck");
    EXPECT_FALSE(p.Find<QCheckBox>("NoUpdateCheck").isChecked());
    EXPECT_FALSE(p.App.Editing.PositionDisplay.NoUpdateCheck);
    p.Boxes.AnswerNext(BoxAnswer::Yes);
    p.Click("NoUpdateCheck");
    EXPECT_TRUE(p.Find<QCheckBox>("NoUpdateCheck").isChecked());
    EXPECT_TRUE(p.App.Editing.PositionDisplay.NoUpdateCheck);
}

TEST(MainForm, TheQuestionMarkExplainsDoNotUpdate) {
    test::UiProgram p;
    p.Click("NoUpdateHButton");
    ASSERT_EQ(p.Boxes.Shown().size(), 1u);
    EXPECT_EQ(p.Boxes.Shown()[0].Title, "Info about not updating position indicators");
}

TEST(MainForm, PositionLabelsCountInLightTextOnGreenAndErrorsAreRed) {
    test::UiProgram p;
    p.SetSong({"Quarter C4 - -", "1/8 C4 - Tri"});
    const auto background = [&] { return p.Find<QLabel>("lblPlayPos").palette().color(QPalette::Window); };
    p.App.Editing.PositionDisplay.ShowPosition(1.25);
    EXPECT_EQ(p.TextOf("lblPlayBar"), "002");
    EXPECT_EQ(p.TextOf("lblPlayPos"), "01 01/04");
    EXPECT_EQ(p.TextOf("lblPlaySig"), "02.00");
    EXPECT_EQ(background(), QColor(0, 128, 0));
    EXPECT_EQ(p.Find<QLabel>("lblPlayBar").palette().color(QPalette::WindowText), QColor(Qt::white));
    p.App.Editing.PositionDisplay.ShowPosition(1.0 / 12);
    EXPECT_EQ(p.TextOf("lblPlayPos"), "01 (ERR)");
    EXPECT_EQ(background(), QColor(255, 0, 0));
    p.App.Editing.PositionDisplay.ShowPosition(0.25);
    EXPECT_EQ(background(), QColor(0, 128, 0));
}

TEST(MainForm, FitsASmallScreenAndGivesTheListWhatItGains) {
    test::UiProgram p;
    EXPECT_LE(p.Form.minimumSizeHint().width(), 1366);
    EXPECT_LE(p.Form.minimumSizeHint().height(), 700);
    p.Form.resize(1366, 740);
    QApplication::processEvents();
    const QSize before = p.Find<QWidget>("MainList").size();
    p.Form.resize(1666, 940);
    QApplication::processEvents();
    const QSize gain = p.Find<QWidget>("MainList").size() - before;
    EXPECT_EQ(gain.width(), 300);
    EXPECT_GE(gain.height(), 120);  // the keys grow too
}

}  // namespace
}  // namespace quavix
