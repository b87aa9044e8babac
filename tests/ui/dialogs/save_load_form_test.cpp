// SPDX-License-Identifier: MIT
#include "ui/dialogs/save_load_form.h"

#include "ui/ui_program.h"

namespace quavix {
namespace {

struct Loading {
    Loading() { Form.ShowHideInfoText(true); }
    SimulatedTime Time;
    SaveLoadForm Form{Time};
};

TEST(SaveLoadForm, ShowsNothingWithinTheFirstHalfSecond) {
    Loading loading;
    loading.Time.Block(499);
    EXPECT_TRUE(loading.Form.Progress(0.9));
    EXPECT_FALSE(loading.Form.isVisible());
}

TEST(SaveLoadForm, ShowsTheTextAndHowFarALongLoadIsUntilItEnds) {
    Loading loading;
    loading.Form.SetInfoText("Loading...");
    loading.Time.Block(500);
    EXPECT_TRUE(loading.Form.Progress(0.25));
    EXPECT_TRUE(loading.Form.isVisible());
    EXPECT_EQ(loading.Form.findChild<QLabel*>("lblInfoText")->text(), "Loading...");
    EXPECT_EQ(loading.Form.findChild<QProgressBar*>("LoadingProgress")->value(), 25);
    loading.Form.ShowHideInfoText(false);
    EXPECT_FALSE(loading.Form.isVisible());
}

TEST(SaveLoadForm, CancelAndEscapeStopTheLoadAndTheNextOneStartsAnew) {
    Loading loading;
    loading.Time.Block(500);
    EXPECT_TRUE(loading.Form.Progress(0.1));
    QTest::mouseClick(loading.Form.findChild<QPushButton*>("LoadingCancelButton"), Qt::LeftButton);
    EXPECT_FALSE(loading.Form.Progress(0.2));
    loading.Form.ShowHideInfoText(true);
    EXPECT_TRUE(loading.Form.Progress(0.3));
    QTest::keyClick(&loading.Form, Qt::Key_Escape);
    EXPECT_FALSE(loading.Form.Progress(0.4));
    loading.Form.ShowHideInfoText(false);
}

void ClickIn(SaveLoadForm& form, const char* button) {
    auto* control = form.findChild<QPushButton*>(button);
    ASSERT_TRUE(control != nullptr && control->isVisible()) << button;
    QTest::mouseClick(control, Qt::LeftButton);
}

TEST(SaveLoadForm, AsksWhatToDoWhileTheMainWindowIsDisabled) {
    test::UiProgram p;
    p.Click("SaveLoadButton");
    EXPECT_TRUE(p.SaveLoadWindow.isVisible());
    EXPECT_FALSE(p.SaveLoadWindow.isModal());
    EXPECT_EQ(p.SaveLoadWindow.windowTitle(), "Save / Load");
    EXPECT_FALSE(p.Form.isEnabled());
    EXPECT_FALSE(p.SaveLoadWindow.findChild<QLabel*>("lblInfoText")->isVisible());
    QStringList captions;
    for (const auto* button : p.SaveLoadWindow.findChildren<QPushButton*>()) {
        if (button->isVisible())
            captions += button->text();
    }
    EXPECT_EQ(captions, (QStringList{"Save", "Load", "Cancel"}));
    ClickIn(p.SaveLoadWindow, "CancelButton");
    EXPECT_FALSE(p.SaveLoadWindow.isVisible());
    EXPECT_TRUE(p.Form.isEnabled());
    EXPECT_EQ(p.Timeline.Text("dialog"), "");
}

TEST(SaveLoadForm, EscapeIsCancel) {
    test::UiProgram p;
    p.Click("SaveLoadButton");
    QTest::keyClick(&p.SaveLoadWindow, Qt::Key_Escape);
    EXPECT_FALSE(p.SaveLoadWindow.isVisible());
    EXPECT_TRUE(p.Form.isEnabled());
    p.Click("SaveLoadButton");
    p.SaveLoadWindow.close();
    EXPECT_TRUE(p.Form.isEnabled());
}

TEST(SaveLoadForm, SavesAndLoadsAndGivesTheMainWindowBack) {
    test::UiProgram p;
    p.SetSong({"Quarter C4 E4 -", "Half G4 - Dot"});
    p.Picker.AnswerNext("/songs/new.QVX");
    p.Click("SaveLoadButton");
    ClickIn(p.SaveLoadWindow, "SaveButton");
    EXPECT_TRUE(p.Form.isEnabled());
    EXPECT_FALSE(p.SaveLoadWindow.isVisible());
    p.App.List.Clear();
    p.Picker.AnswerNext("/songs/new.QVX");
    p.Click("SaveLoadButton");
    ClickIn(p.SaveLoadWindow, "LoadButton");
    EXPECT_TRUE(p.Form.isEnabled());
    EXPECT_FALSE(p.SaveLoadWindow.isVisible());
    ASSERT_EQ(p.App.List.Count(), 2);
    EXPECT_EQ(p.Row(2), "Half,G4,,Dot");
}

TEST(SaveLoadForm, ClosesWhenTheFileDialogIsCancelled) {
    for (const char* button : {"SaveButton", "LoadButton"}) {
        test::UiProgram p;
        p.Picker.AnswerNext("");
        p.Click("SaveLoadButton");
        ClickIn(p.SaveLoadWindow, button);
        EXPECT_TRUE(p.Form.isEnabled()) << button;
        EXPECT_FALSE(p.SaveLoadWindow.isVisible()) << button;
    }
}

TEST(SaveLoadForm, HasItsButtonsAgainAfterALoad) {
    Loading loading;
    loading.Form.SetInfoText("Loading byte-by-byte...\r\n(May be slow)");
    loading.Form.ShowHideInfoText(false);
    QWidget above;
    above.show();
    loading.Form.OpenAbove(above);
    EXPECT_TRUE(loading.Form.findChild<QPushButton*>("SaveButton")->isVisible());
    EXPECT_FALSE(loading.Form.findChild<QLabel*>("lblInfoText")->isVisible());
    loading.Form.ShowHideInfoText(true);
    EXPECT_FALSE(loading.Form.findChild<QPushButton*>("LoadButton")->isVisible());
    EXPECT_TRUE(loading.Form.findChild<QLabel*>("lblInfoText")->isVisible());
    loading.Form.ShowHideInfoText(false);
    EXPECT_TRUE(loading.Form.isVisible());  // it was opened for the choice, and stays
}

TEST(MainForm, LoadsASongThatIsDroppedOnIt) {
    test::UiProgram p;
    p.Disk.Put("/songs/dropped.QVX", test::TwoRowSong);
    p.Drop("/songs/dropped.QVX");
    EXPECT_EQ(p.App.List.Count(), 2);
    EXPECT_TRUE(p.Form.windowTitle().endsWith(" BETA) - dropped.QVX")) << p.Form.windowTitle().toStdString();
}

TEST(MainForm, RefusesADropThatIsNotAFile) {
    test::UiProgram p;
    QMimeData link;
    link.setUrls({QUrl("https://quavix.example/song.QVX")});
    QDragEnterEvent enter({50, 50}, Qt::CopyAction, &link, Qt::LeftButton, {});
    QApplication::sendEvent(&p.Form, &enter);
    EXPECT_FALSE(enter.isAccepted());
}

TEST(SaveLoadForm, GetsTheFocusBackWhenClosingIsCancelled) {
    test::UiProgram p;
    p.SetSong({"Quarter C4 - -"});
    p.App.List.SetText(1, Cell::Note1, "D4");
    p.Click("SaveLoadButton");
    p.Form.activateWindow();
    QApplication::processEvents();
    ASSERT_EQ(QApplication::activeWindow(), &p.Form);  // which takes no input
    p.Boxes.AnswerNext(BoxAnswer::Cancel);
    EXPECT_FALSE(p.Form.close());
    QApplication::processEvents();
    EXPECT_EQ(QApplication::activeWindow(), &p.SaveLoadWindow);
    ClickIn(p.SaveLoadWindow, "CancelButton");
    EXPECT_TRUE(p.Form.isEnabled());
}

TEST(SaveLoadForm, ALoadShowsThePositionOfItsSong) {
    test::UiProgram p;
    p.Disk.Put("/songs/a.QVX", test::TwoRowSong);
    p.Picker.AnswerNext("/songs/a.QVX");
    p.Click("SaveLoadButton");
    ClickIn(p.SaveLoadWindow, "LoadButton");
    EXPECT_EQ(p.TextOf("lblPlayBar"), "002");
}

}  // namespace
}  // namespace quavix
