// SPDX-License-Identifier: MIT
#include "ui/ui_program.h"

namespace quavix {
namespace {

void Type(QLineEdit& field, const char* text) {
    field.setFocus();
    field.selectAll();
    QTest::keyClicks(&field, text);
}

QColor BackgroundOf(const QLineEdit& field) {
    return field.palette().color(QPalette::Base);
}

TEST(TimingPanel, ATypedTempoIsTheTempo) {
    test::UiProgram p;
    Type(p.Find<QLineEdit>("BPMText"), "200");
    EXPECT_EQ(p.App.Fields.Song.BPM, 200);
}

TEST(TimingPanel, ATempoOutsideItsRangeIsMarkedOrangeAndIgnored) {
    test::UiProgram p;
    auto& field = p.Find<QLineEdit>("BPMText");
    const QColor ordinary = BackgroundOf(field);
    Type(field, "700");
    EXPECT_EQ(BackgroundOf(field), QColor(255, 128, 0));
    EXPECT_EQ(field.palette().color(QPalette::Text), QColor(Qt::black));
    EXPECT_EQ(field.text(), "700");
    EXPECT_EQ(p.App.Fields.Song.BPM, 70);  // typed on the way there
    Type(field, "600");
    EXPECT_EQ(BackgroundOf(field), ordinary);
    EXPECT_EQ(p.App.Fields.Song.BPM, 600);
}

TEST(TimingPanel, TextThatIsNoNumberRevertsToTheTempo) {
    test::UiProgram p;
    auto& field = p.Find<QLineEdit>("BPMText");
    Type(field, "a");
    EXPECT_EQ(field.text(), "140");
    QApplication::clipboard()->setText("abc");
    field.selectAll();
    field.paste();
    EXPECT_EQ(field.text(), "140");
    EXPECT_EQ(p.App.Fields.Song.BPM, 140);
}

TEST(TimingPanel, TheArrowsStepTheTempoByFiveWithinItsRange) {
    test::UiProgram p;
    auto& field = p.Find<QLineEdit>("BPMText");
    p.Click("BPMUpDownUp");
    EXPECT_EQ(field.text(), "145");
    p.Click("BPMUpDownDown");
    p.Click("BPMUpDownDown");
    EXPECT_EQ(p.App.Fields.Song.BPM, 135);
    Type(field, "42");
    QTest::keyClick(&field, Qt::Key_Down);
    EXPECT_EQ(field.text(), "40");
    Type(field, "598");
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_EQ(field.text(), "600");
}

TEST(TimingPanel, TheAlternateTimeIsCheckedTheSameWay) {
    test::UiProgram p;
    auto& field = p.Find<QLineEdit>("AlternateTimeText");
    Type(field, "14");
    EXPECT_EQ(BackgroundOf(field), QColor(255, 128, 0));
    EXPECT_EQ(p.App.Fields.Song.AlternateTime, 20);
    Type(field, "15");
    EXPECT_EQ(BackgroundOf(field), BackgroundOf(p.Find<QLineEdit>("BPMText")));
    EXPECT_EQ(p.App.Fields.Song.AlternateTime, 15);
}

TEST(TimingPanel, SlidersShowTheirNumbers) {
    test::UiProgram p;
    EXPECT_EQ(p.TextOf("lblTimeSig"), "4");
    EXPECT_EQ(p.TextOf("NoteSilenceRatioLabel"), "90%");
    EXPECT_EQ(p.TextAfter("TimeSigSlider", Qt::Key_Left, "lblTimeSig"), "3");
    EXPECT_EQ(p.App.Fields.Song.BeatsPerBar, 3);
    EXPECT_EQ(p.TextAfter("NoteSilenceRatioSlider", Qt::Key_Home, "NoteSilenceRatioLabel"), "00%");
    EXPECT_EQ(p.TextAfter("NoteSilenceRatioSlider", Qt::Key_End, "NoteSilenceRatioLabel"), "100%");
    EXPECT_EQ(p.TextAfter("TimeSigSlider", Qt::Key_End, "lblTimeSig"), "16");
}

TEST(TimingPanel, TheMetronomesButtonStaysDownWhileItClicks) {
    test::UiProgram p;
    auto& button = p.Find<QPushButton>("MetronomeButton");
    EXPECT_EQ(button.text(), "Metronome");
    EXPECT_EQ(button.toolTip(), "Turn the metronome on or off, so you can hear the tempo (BPM) of the song");
    bool down = false;
    p.Time.At(400, [&] { down = button.isChecked(); });
    p.ClickAt(500, "MetronomeButton");
    p.Click("MetronomeButton");
    EXPECT_TRUE(down);
    EXPECT_FALSE(button.isChecked());
    EXPECT_EQ(p.Timeline.Text("speaker"), "0.0000 speaker 1000 Hz 20 ms\n0.4400 speaker 500 Hz 20 ms\n");
}

TEST(TimingPanel, WhileMusicPlaysTheMetronomeIsOff) {
    test::UiProgram p;
    p.SetSong({"Quarter C4 - -"});
    auto& button = p.Find<QPushButton>("MetronomeButton");
    bool usable = true;
    p.ClickAt(100, "PlayAllButton");
    p.Time.At(800, [&] { usable = button.isEnabled() || button.isChecked(); });
    p.ClickAt(900, "StopPlayButton");
    p.Click("MetronomeButton");
    EXPECT_FALSE(usable);
    EXPECT_TRUE(button.isEnabled());
    EXPECT_FALSE(button.isChecked());
    EXPECT_EQ(p.Timeline.Text("speaker 1000"), "0.0000 speaker 1000 Hz 20 ms\n");
    EXPECT_EQ(p.Timeline.Text("speaker 500"), "");
}

TEST(TimingPanel, ControlsFollowWhatTheProgramSets) {
    test::UiProgram p;
    p.App.Fields.Song.BPM.Type("99");
    p.App.Fields.Song.BeatsPerBar.Set(7);
    p.App.Fields.Song.PlayNote2Check = false;
    EXPECT_EQ(p.Find<QLineEdit>("BPMText").text(), "99");
    EXPECT_EQ(p.Find<QSlider>("TimeSigSlider").value(), 7);
    EXPECT_EQ(p.TextOf("lblTimeSig"), "7");
    EXPECT_FALSE(p.Find<QCheckBox>("PlayNote2Check").isChecked());
}

/// Writes into a field as assistive technology does, without a key.
void WriteAssisted(QLineEdit& field, const char* text) {
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&field);
    ASSERT_NE(interface, nullptr);
    ASSERT_NE(interface->editableTextInterface(), nullptr);
    interface->editableTextInterface()->deleteText(0, static_cast<int>(field.text().size()));
    interface->editableTextInterface()->insertText(0, text);
}

TEST(TimingPanel, TextFromAssistiveTechnologyIsCheckedAndUsed) {
    test::UiProgram p;
    auto& field = p.Find<QLineEdit>("BPMText");
    WriteAssisted(field, "200");
    EXPECT_EQ(p.App.Fields.Song.BPM, 200);
    WriteAssisted(field, "601");
    EXPECT_EQ(p.App.Fields.Song.BPM, 200);
    EXPECT_EQ(BackgroundOf(field), QColor(255, 128, 0));
    WriteAssisted(field, "quick");
    EXPECT_EQ(field.text(), "200");
    auto& octave = p.Find<QLineEdit>("KeyboardOctaveText");
    QAccessible::queryAccessibleInterface(&octave)->setText(QAccessible::Value, "6");
    EXPECT_EQ(p.TextOf("OctLabel1"), "6");
}

TEST(KeyboardPanel, AnImpossibleOctaveIsMarkedOrangeWithoutAMessage) {
    test::UiProgram p;
    auto& field = p.Find<QLineEdit>("KeyboardOctaveText");
    const QColor ordinary = BackgroundOf(field);
    Type(field, "300");
    EXPECT_TRUE(p.Boxes.Shown().empty());
    EXPECT_EQ(BackgroundOf(field), QColor(255, 128, 0));
    EXPECT_EQ(p.TextOf("OctLabel1"), "30");  // typed on the way there
    p.Click("KeyboardOctaveUpDownDown");
    EXPECT_EQ(field.text(), "29");
    EXPECT_EQ(BackgroundOf(field), ordinary);
}

}  // namespace
}  // namespace quavix
