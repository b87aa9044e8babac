// SPDX-License-Identifier: MIT
#include "ui/piano_keyboard.h"
#include "ui/ui_program.h"

namespace quavix {
namespace {

const char* const Song = "/songs/mine.QVX";

void ClickKey(test::UiProgram& p, int key) {
    auto& piano = p.Find<PianoKeyboard>("PianoKey");
    const QRect place = piano.KeyRect(key);
    QTest::mouseClick(&piano, Qt::LeftButton, {}, QPoint(place.center().x(), place.bottom() - 6));
}

void ClickRow(test::UiProgram& p, int row) {
    auto& list = p.Find<QTableView>("MainList");
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualRect(list.model()->index(row - 1, 1)).center());
}

std::vector<std::string> Rows(test::UiProgram& p) {
    std::vector<std::string> rows;
    for (std::int32_t row = 1; row <= p.App.List.Count(); ++row)
        rows.push_back(p.Row(row));
    return rows;
}

/// What is heard of the song, once through.
std::string Listen(test::UiProgram& p) {
    const std::int64_t start = p.Time.PerformanceCounter();
    p.Timeline.Clear();
    p.App.Playback.OnRangeEnd = [&] { p.App.Fields.MusicIsPlaying = false; };
    p.Click("PlayAllButton");
    EXPECT_GT(p.Time.PerformanceCounter(), start);
    // Without the moments, which depend on when it began.
    std::string heard;
    for (const QString& line : QString::fromStdString(p.Timeline.Text("speaker")).split('\n'))
        heard += line.section(' ', 1).toStdString() + '\n';
    return heard;
}

/// Opens the song in a program that starts anew, as the command line does.
void OpenAnew(test::UiProgram& next, test::UiProgram& before) {
    std::error_code error;
    const auto file = before.Disk.OpenForInput(Song, error);
    ASSERT_TRUE(file);
    std::string content(file->Size(), '\0');
    file->Read(content, error);
    next.Disk.Put(Song, content);
    EXPECT_TRUE(next.App.Document.LoadFile(Song));
}

const std::vector<std::string> Composed = {"1/8,C4,E4,", "Quarter,D4,,Dot", "1/8,G4,,"};

TEST(Composing, WorksByMouseAlone) {
    test::UiProgram p;
    ClickKey(p, 12);
    ClickKey(p, 17);
    ClickKey(p, 19);
    ClickRow(p, 2);
    p.Click("Command1");  // the F was wrong
    auto& lengths = p.Find<QComboBox>("NoteLengthCombo");
    lengths.showPopup();
    auto* popup = lengths.view();
    QTest::mouseClick(popup->viewport(), Qt::LeftButton, {},
                      popup->visualRect(lengths.model()->index(2, 0)).center());
    ClickKey(p, 14);  // before the G
    ClickRow(p, 2);
    p.Click("ModDottedCheck");
    ClickRow(p, 1);
    p.Click("NoteReplaceCheck");
    p.Click("AddNote2Option");
    ClickKey(p, 16);
    EXPECT_EQ(Rows(p), Composed);
    const std::string heard = Listen(p);

    p.Picker.AnswerNext(Song);
    p.Click("SaveLoadButton");
    QTest::mouseClick(p.SaveLoadWindow.findChild<QPushButton*>("SaveButton"), Qt::LeftButton);
    EXPECT_TRUE(p.Form.close());

    test::UiProgram next;
    OpenAnew(next, p);
    EXPECT_EQ(Rows(next), Composed);
    EXPECT_EQ(Listen(next), heard);
}

TEST(Composing, WorksByKeyboardAlone) {
    test::UiProgram p;
    const auto press = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(p.Form.focusWidget(), key, modifiers);
    };
    const auto tabTo = [&](const char* name) {
        for (int i = 0; i < 80 && p.Form.focusWidget()->objectName() != name; ++i)
            press(Qt::Key_Tab);
        ASSERT_EQ(p.Form.focusWidget()->objectName(), name);
    };
    p.Find<QWidget>("NoteClickPlayCheck").setFocus();
    tabTo("PianoKey");
    press(Qt::Key_Space);  // C4
    tabTo("NoteLengthCombo");
    press(Qt::Key_Up);
    tabTo("ModDottedCheck");
    press(Qt::Key_Space);
    tabTo("PianoKey");
    press(Qt::Key_Right);
    press(Qt::Key_Right);
    press(Qt::Key_Space);  // D4
    tabTo("NoteLengthCombo");
    press(Qt::Key_Down);
    tabTo("ModDottedCheck");
    press(Qt::Key_Space);
    tabTo("PianoKey");
    for (int i = 0; i < 5; ++i)
        press(Qt::Key_Right);
    press(Qt::Key_Space);  // G4
    press(Qt::Key_Space);  // once too often
    press(Qt::Key_Z, Qt::ControlModifier);
    tabTo("MainList");
    press(Qt::Key_Home);
    tabTo("NoteReplaceCheck");
    press(Qt::Key_Space);
    tabTo("AddNote1Option");
    press(Qt::Key_Right);
    press(Qt::Key_Space);
    tabTo("PianoKey");
    for (int i = 0; i < 3; ++i)
        press(Qt::Key_Left);
    press(Qt::Key_Space);  // E4 as the first line's second note
    EXPECT_EQ(Rows(p), Composed);
    const std::string heard = Listen(p);

    p.Picker.AnswerNext(Song);
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(p.Form.close());

    test::UiProgram next;
    OpenAnew(next, p);
    EXPECT_EQ(Rows(next), Composed);
    EXPECT_EQ(Listen(next), heard);
}

}  // namespace
}  // namespace quavix
