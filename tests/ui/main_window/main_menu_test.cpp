// SPDX-License-Identifier: MIT
#include "ui/main_window/main_menu.h"

#include "shell/program_info.h"
#include "ui/ui_program.h"
#include "ui/widgets/piano_keyboard.h"

namespace quavix {
namespace {

QAction& ActionOf(test::UiProgram& p, const char* name) {
    return p.Find<QAction>(name);
}

void Choose(test::UiProgram& p, const char* action) {
    ActionOf(p, action).trigger();
}

TEST(MainMenu, UndoAndRedoNameTheirStep) {
    test::UiProgram p;
    EXPECT_FALSE(ActionOf(p, "UndoAction").isEnabled());
    p.SetSong({"Quarter C4 - -", "Quarter E4 - -"});
    p.App.List.Select(1);
    p.Click("Command1");
    EXPECT_TRUE(ActionOf(p, "UndoAction").isEnabled());
    EXPECT_GT(ActionOf(p, "UndoAction").text().size(), 6);  // more than "&Undo"
    Choose(p, "UndoAction");
    EXPECT_EQ(p.App.List.Count(), 2);
    EXPECT_FALSE(ActionOf(p, "UndoAction").isEnabled());
    EXPECT_TRUE(ActionOf(p, "RedoAction").isEnabled());
    Choose(p, "RedoAction");
    EXPECT_EQ(p.App.List.Count(), 1);
}

TEST(MainMenu, LinesGoThroughTheClipboardByTheirKeys) {
    test::UiProgram p;
    p.SetSong({"Quarter C4 E4 Dot", "Half G4 - -"});
    auto& list = p.Find<QTableView>("MainList");
    list.setFocus();
    list.selectRow(0);
    QTest::keyClick(&list, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(p.Clipboard.Text().substr(0, 17), "Quarter C4 E4 Dot");
    QTest::keyClick(&list, Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(p.App.List.Count(), 3);
    QTest::keyClick(&list, Qt::Key_Delete);
    EXPECT_EQ(p.App.List.Count(), 2);
    list.clearSelection();
    QTest::keyClick(&list, Qt::Key_V, Qt::ControlModifier);
    ASSERT_EQ(p.App.List.Count(), 3);
    EXPECT_EQ(p.Row(3), "Quarter,C4,E4,Dot");
}

TEST(MainMenu, MenuShortcutsGoToTheFieldThatHasTheFocus) {
    test::UiProgram p;
    p.SetSong({"Quarter C4 - -"});
    p.App.List.Select(1);
    auto& field = p.Find<QLineEdit>("BPMText");
    field.setFocus();
    field.setCursorPosition(0);
    QTest::keyClick(&field, Qt::Key_Delete);
    EXPECT_EQ(field.text(), "40");
    EXPECT_EQ(p.App.List.Count(), 1);
}

TEST(MainMenu, PastingOtherTextShowsAMessage) {
    test::UiProgram p;
    p.Clipboard.Put("Dear Quavix,\nthank you!");
    Choose(p, "PasteAction");
    EXPECT_EQ(p.App.List.Count(), 0);
    ASSERT_EQ(p.Boxes.Shown().size(), 1u);
    EXPECT_EQ(p.Boxes.Shown()[0].Title, "Paste");
}

TEST(MainMenu, NewAndOpenAskBeforeUnsavedWorkIsLost) {
    test::UiProgram p;
    p.Disk.Put("/songs/a.QVX", test::TwoRowSong);
    p.Find<PianoKeyboard>("PianoKey").ClickKey(12);
    for (const char* action : {"NewAction", "OpenAction"}) {
        p.Boxes.AnswerNext(BoxAnswer::Cancel);
        Choose(p, action);
        EXPECT_EQ(p.App.List.Count(), 1) << action;
    }
    p.Boxes.AnswerNext(BoxAnswer::No);
    p.Picker.AnswerNext("/songs/a.QVX");
    Choose(p, "OpenAction");
    EXPECT_EQ(p.App.List.Count(), 2);
    Choose(p, "NewAction");  // nothing unsaved, no question
    EXPECT_EQ(p.App.List.Count(), 0);
    EXPECT_EQ(p.Boxes.Shown().size(), 3u);
}

TEST(MainMenu, SavesUnderTheSongsNameWithoutAsking) {
    test::UiProgram p;
    p.Disk.Put("/songs/a.QVX", test::TwoRowSong);
    p.Picker.AnswerNext("/songs/a.QVX");
    Choose(p, "OpenAction");
    const QString title = QString("Quavix (v%1 BETA)").arg(program::VersionText);
    EXPECT_EQ(p.Form.windowTitle(), title + " - a.QVX");
    p.Find<PianoKeyboard>("PianoKey").ClickKey(12);
    EXPECT_EQ(p.Form.windowTitle(), title + " - a.QVX *");
    Choose(p, "SaveAction");
    EXPECT_EQ(p.Form.windowTitle(), title + " - a.QVX");
    EXPECT_TRUE(p.Boxes.Shown().empty());
    p.Picker.AnswerNext("/songs/b.QVX");
    Choose(p, "SaveAsAction");
    EXPECT_EQ(p.Form.windowTitle(), title + " - b.QVX");
    EXPECT_TRUE(p.Disk.Has("/songs/b.QVX"));
}

TEST(MainMenu, ClosingTheWindowAsksAndStaysWhereTheUserCancels) {
    test::UiProgram p;
    p.Find<PianoKeyboard>("PianoKey").ClickKey(12);
    p.Boxes.AnswerNext(BoxAnswer::Cancel);
    EXPECT_FALSE(p.Form.close());
    EXPECT_TRUE(p.Form.isVisible());
    EXPECT_EQ(p.Timeline.Text("process"), "");
    p.Boxes.AnswerNext(BoxAnswer::No);
    EXPECT_TRUE(p.Form.close());
    EXPECT_NE(p.Timeline.Text("process"), "");
}

TEST(MainMenu, PlayItemsAreEnabledAsTheButtonsAre) {
    test::UiProgram p;
    p.SetSong({"Half C4 - -"});
    EXPECT_FALSE(ActionOf(p, "StopAction").isEnabled());
    p.Click("MuteTweebleCheck");
    bool looked = false;
    p.Time.At(100, [&] {
        looked = true;
        EXPECT_FALSE(ActionOf(p, "PlayAllAction").isEnabled());
        Choose(p, "StopAction");
    });
    Choose(p, "PlayAllAction");
    EXPECT_TRUE(looked);
    EXPECT_TRUE(ActionOf(p, "PlayAllAction").isEnabled());
}

TEST(MainForm, SpacePlaysAndEscapeStopsIfTheFocusedControlIgnoresThem) {
    test::UiProgram p;
    p.SetSong({"Half C4 - -"});
    p.Click("MuteTweebleCheck");
    auto& list = p.Find<QTableView>("MainList");
    list.setFocus();
    bool played = false;
    p.Time.At(100, [&] {
        played = p.App.Fields.State.MusicIsPlaying;
        QTest::keyClick(&list, Qt::Key_Escape);
        EXPECT_FALSE(p.App.Fields.State.MusicIsPlaying);
    });
    QTest::keyClick(&list, Qt::Key_Space);
    EXPECT_TRUE(played);
}

TEST(MainMenu, TheManualIsShownOrReportedAsMissing) {
    test::UiProgram p;
    p.Disk.Put("/program/info.txt", "HOW TO USE IT");
    Choose(p, "ManualAction");
    auto* manual = p.Form.findChild<QDialog*>("ManualForm");
    ASSERT_NE(manual, nullptr);
    EXPECT_TRUE(manual->isVisible());
    EXPECT_EQ(manual->findChild<QPlainTextEdit*>("ManualText")->toPlainText(), "HOW TO USE IT");

    test::UiProgram without;
    Choose(without, "ManualAction");
    ASSERT_EQ(without.Boxes.Shown().size(), 1u);
    EXPECT_EQ(without.Boxes.Shown()[0].Title, "Can't open the manual!");
}

TEST(MainMenu, CommandsForSelectedLinesAreEnabledOnlyWithASelection) {
    test::UiProgram p;
    const auto enabled = [&] {
        std::string text;
        for (const char* name : {"CutAction", "CopyAction", "PasteAction", "DuplicateAction", "EraseAction"})
            text += ActionOf(p, name).isEnabled() ? "1" : "0";
        return text;
    };
    EXPECT_EQ(enabled(), "00100");
    p.SetSong({"Quarter C4 - -"});
    p.App.List.Select(1);
    EXPECT_EQ(enabled(), "11111");
    p.Click("UnselectButton");
    EXPECT_EQ(enabled(), "00100");
    p.App.List.Select(1);
    Choose(p, "EraseAction");
    EXPECT_EQ(enabled(), "00100");
}

TEST(MainMenu, KeysHeldDownPlayAndStopOnce) {
    test::UiProgram p;
    for (const char* name : {"PlayAllAction", "PlayFromLineAction", "StopAction"})
        EXPECT_FALSE(ActionOf(p, name).autoRepeat()) << name;
}

}  // namespace
}  // namespace quavix
