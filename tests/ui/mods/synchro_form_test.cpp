// SPDX-License-Identifier: MIT
#include "ui/mods/mod_forms.h"
#include "ui/ui_program.h"

namespace quavix {
namespace {

struct SynchroProgram : test::UiProgram {
    SynchroProgram() {
        SetSong({"Quarter C4 - -"});
        Find<QCheckBox>("UseSynchroCheck").click();
    }
    void Type(const char* box, const char* text) {
        auto& edit = Find<QLineEdit>(box);
        edit.selectAll();
        QTest::keyClicks(&edit, text);
    }
    ModWindow& Window() { return Find<ModWindow>("SynchroForm"); }
};

TEST(SynchroForm, IsCreatedAndShownWhenItsModIsTicked) {
    test::UiProgram p;
    EXPECT_EQ(p.Form.findChild<ModWindow*>("SynchroForm"), nullptr);
    p.Find<QCheckBox>("UseSynchroCheck").click();
    auto& window = p.Find<ModWindow>("SynchroForm");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.windowTitle(), "Synchronized Play Settings");
    p.Find<QCheckBox>("UseSynchroCheck").click();
    EXPECT_FALSE(window.isVisible());
}

TEST(SynchroForm, ItsTextsMatchExactly) {
    SynchroProgram p;
    EXPECT_EQ(p.Find<QGroupBox>("fraTime").title(), "Time to start playing at");
    EXPECT_EQ(p.TextOf("lblHour"), "Hour:");
    EXPECT_EQ(p.TextOf("lblMinute"), "Minute:");
    EXPECT_EQ(p.TextOf("lblSecond"), "Second:");
    EXPECT_EQ(p.TextOf("lblCurrentTimeCaption"), "Current time:");
    EXPECT_EQ(p.Find<QGroupBox>("fraPosition").title(), "Position from which to start playing");
    EXPECT_EQ(p.Find<QRadioButton>("optStart").text(), "Start of music list");
    EXPECT_EQ(p.Find<QRadioButton>("optCurrent").text(), "Currently-selected line in music list");
    EXPECT_EQ(p.Find<QCheckBox>("chkStartInDelay").text(),
              "FMOD is being used elsewhere (start playing in delay)");
    EXPECT_EQ(p.TextOf("lblTimeInstruction"),
              "Please set the time at which you'd like the instances to start playing.");
    EXPECT_EQ(
        p.TextOf("lblDelayInstruction"),
        "Please check this box if another Quavix is going to play using FMOD to create the beep. FMOD has "
        "a slight delay, and if you tick this box, then this computer will start playing fractionally in "
        "delay too. The idea is that it should stay in sync with the instance which is using FMOD. (Not "
        "guaranteed to work, though, especially when multiple instances of QVX are running on a single "
        "computer which has no hyperthreading...)");
    EXPECT_EQ(p.TextOf("lblWaiting"), "Currently NOT waiting");
    EXPECT_EQ(p.Find<QPushButton>("btnWait").text(), "Start waiting");
    EXPECT_EQ(p.TextOf("lblCurrentTime"), "12:00:00");
    EXPECT_EQ(p.Find<QLineEdit>("txtHour").text(), "12");
    EXPECT_EQ(p.Find<QLineEdit>("txtMinute").text(), "1");
    EXPECT_EQ(p.Find<QLineEdit>("txtSecond").text(), "0");
    EXPECT_TRUE(p.Find<QRadioButton>("optStart").isChecked());
}

TEST(SynchroForm, WaitsForTheTypedTimeAndPlaysFromTheChosenLine) {
    SynchroProgram p;
    p.SetSong({"Quarter C4 - -", "Quarter D4 - -"});
    p.App.List.Select(2);
    p.Type("txtMinute", "0");
    p.Type("txtSecond", "5");
    p.Click("optCurrent");
    QString waiting;
    QColor colour;
    p.Time.At(5'100, [&] {
        waiting = p.TextOf("lblWaiting");
        colour = p.Find<QLabel>("lblWaiting").palette().color(QPalette::Window);
        EXPECT_FALSE(p.Find<QPushButton>("btnWait").isEnabled());
        EXPECT_FALSE(p.Find<QLineEdit>("txtHour").isEnabled());
        p.Click("StopPlayButton");
    });
    p.Click("btnWait");
    EXPECT_EQ(p.Timeline.Text("speaker"), "5.0000 speaker 294 Hz 386 ms\n");
    EXPECT_EQ(waiting, "Playing");
    EXPECT_EQ(colour, QColor(255, 255, 0));
    EXPECT_EQ(p.TextOf("lblWaiting"), "Currently NOT waiting");
    EXPECT_TRUE(p.Find<QPushButton>("btnWait").isEnabled());
    EXPECT_TRUE(p.Find<QLineEdit>("txtHour").isEnabled());
}

TEST(SynchroForm, StopWaitingStops) {
    SynchroProgram p;
    p.Time.At(2'000, [&] {
        EXPECT_EQ(p.Find<QPushButton>("btnWait").text(), "Stop waiting");
        EXPECT_EQ(p.Find<QLabel>("lblWaiting").palette().color(QPalette::Window), QColor(255, 0, 0));
        p.Click("btnWait");
    });
    p.Click("btnWait");
    EXPECT_EQ(p.Time.Now(), 2 * SimulatedTime::CountsPerSecond);
    EXPECT_EQ(p.Find<QPushButton>("btnWait").text(), "Start waiting");
    EXPECT_EQ(p.Timeline.Text("speaker"), "");
}

TEST(SynchroForm, ClosingItDuringTheWaitUnticksItsModAndEndsTheWait) {
    SynchroProgram p;
    p.Time.At(2'000, [&] { p.Window().close(); });
    p.Click("btnWait");
    EXPECT_EQ(p.Time.Now(), 2 * SimulatedTime::CountsPerSecond);
    EXPECT_FALSE(p.Find<QCheckBox>("UseSynchroCheck").isChecked());
    EXPECT_FALSE(p.Window().isVisible());
}

TEST(SynchroForm, TheMainWindowClosedInTheMiddleEndsTheProgramWithoutATone) {
    SynchroProgram p;
    p.Time.At(2'000, [&] { p.Form.close(); });
    p.Click("btnWait");
    EXPECT_EQ(p.Time.Now(), 2 * SimulatedTime::CountsPerSecond);
    EXPECT_EQ(p.Timeline.Text("process"), "2.0000 process ends\n");
    EXPECT_EQ(p.Timeline.Text("speaker"), "");
}

TEST(SynchroForm, AcceptsOnlyATimeOfDay) {
    SynchroProgram p;
    p.Type("txtHour", "7x9");
    EXPECT_EQ(p.Find<QLineEdit>("txtHour").text(), "79");
    EXPECT_EQ(p.Find<QLineEdit>("txtHour").palette().color(QPalette::Base), QColor(255, 128, 0));
    p.Click("btnWait");
    ASSERT_EQ(p.Boxes.Shown().size(), 1u);
    EXPECT_EQ(p.TextOf("lblWaiting"), "Currently NOT waiting");
}

TEST(SynchroForm, EnterHeldDownStartsWaitingOnce) {
    SynchroProgram p;
    std::string shown;
    p.Time.At(100, [&] { test::RepeatKey(p.Window(), Qt::Key_Enter); });
    p.Time.At(200, [&] {
        shown = p.App.Playing.SynchroPlay.lblWaiting;
        p.Click("btnWait");
    });
    QTest::keyClick(&p.Window(), Qt::Key_Enter);
    EXPECT_EQ(shown, "Currently waiting");
}

}  // namespace
}  // namespace quavix
