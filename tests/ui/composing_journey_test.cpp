// SPDX-License-Identifier: MIT
// A song from nothing until it is opened again: with the mouse alone, and with the keyboard alone.
#include "ui/ui_program.h"
#include "ui/widgets/piano_keyboard.h"

namespace quavix {
namespace {

const char* const MySong = "/songs/mine.QVX";

std::vector<std::string> Rows(test::UiProgram& p) {
    std::vector<std::string> rows;
    for (std::int32_t row = 1; row <= p.App.List.Count(); ++row)
        rows.push_back(p.Row(row));
    return rows;
}

const std::vector<std::string> Composed = {"1/8,C4,E4,", "Quarter,D4,,Dot", "1/8,G4,,"};

/// Plays the song once, and returns its sounds.
std::string Listen(test::UiProgram& p, const std::function<void()>& play, const std::function<void()>& stop) {
    const std::int64_t start = p.Time.PerformanceCounter();
    p.Timeline.Clear();
    p.App.Playing.PlaybackEngine.OnRangeEnd = stop;
    play();
    EXPECT_GT(p.Time.PerformanceCounter(), start);
    EXPECT_FALSE(p.App.Fields.State.MusicIsPlaying);
    // Without the moments, which depend on when it began.
    std::string heard;
    for (const QString& line : QString::fromStdString(p.Timeline.Text("speaker")).split('\n'))
        heard += line.section(' ', 1).toStdString() + '\n';
    return heard;
}

/// The program as it starts with the song on its command line.
struct Reopened : test::UiProgram {
    explicit Reopened(const test::UiProgram& before) : UiProgram("\"" + std::string(MySong) + "\"") {
        Disk.Put(MySong, before.Disk.Content(MySong));
        Start();
    }
};

/// A user who has a mouse and no keyboard.
struct Mouse {
    explicit Mouse(test::UiProgram& program) : p(program) {}

    void ClickKey(int key) {
        auto& piano = p.Find<PianoKeyboard>("PianoKey");
        const QRect place = piano.KeyRect(key);
        QTest::mouseClick(&piano, Qt::LeftButton, {}, QPoint(place.center().x(), place.bottom() - 6));
    }
    void ClickRow(int row) {
        auto& list = p.Find<QTableView>("MainList");
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                          list.visualRect(list.model()->index(row - 1, 1)).center());
    }
    void ChooseLength(int entry) {
        auto& lengths = p.Find<QComboBox>("NoteLengthCombo");
        // A popup passes over the release of the click that opened it, for as long as a double click takes.
        const int doubleClick = QApplication::doubleClickInterval();
        QApplication::setDoubleClickInterval(0);
        QTest::mouseClick(&lengths, Qt::LeftButton);
        QApplication::processEvents();
        QApplication::setDoubleClickInterval(doubleClick);
        auto* popup = lengths.view();
        QTest::mouseClick(popup->viewport(), Qt::LeftButton, {},
                          popup->visualRect(lengths.model()->index(entry, 0)).center());
    }
    void ChooseFromMenu(const char* menuName, const char* action) {
        auto& menu = p.Find<QMenu>(menuName);
        QMenuBar& bar = *p.Form.menuBar();
        QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(menu.menuAction()).center());
        ASSERT_TRUE(menu.isVisible());
        QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(&p.Find<QAction>(action)).center());
    }
    std::string ListenOnce() {
        return Listen(
            p, [this] { p.Click("PlayAllButton"); }, [this] { p.Click("StopPlayButton"); });
    }

    test::UiProgram& p;
};

/// A user who has a keyboard and no mouse.
struct Keyboard {
    explicit Keyboard(test::UiProgram& program) : p(program) {}

    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QWidget* focus = p.Form.focusWidget();
        QTest::keyClick(focus == nullptr ? &p.Form : focus, key, modifiers);
    }
    void PressTimes(int times, Qt::Key key) {
        for (int i = 0; i < times; ++i)
            Press(key);
    }
    void TabTo(const char* name) {
        const auto isThere = [&] {
            return p.Form.focusWidget() != nullptr && p.Form.focusWidget()->objectName() == name;
        };
        for (int i = 0; i < 80 && !isThere(); ++i)
            Press(Qt::Key_Tab);
        ASSERT_TRUE(isThere()) << name;
    }
    std::string ListenOnce() {
        TabTo("MainList");
        return Listen(
            p, [this] { Press(Qt::Key_Space); }, [this] { Press(Qt::Key_Escape); });
    }

    test::UiProgram& p;
};

TEST(ComposingInTheWindow, WorksByMouseAlone) {
    test::UiProgram p;
    Mouse mouse(p);
    mouse.ClickKey(12);
    mouse.ClickKey(17);
    mouse.ClickKey(19);
    mouse.ClickRow(2);
    p.Click("Command1");  // the F was wrong
    mouse.ChooseLength(2);
    mouse.ClickKey(14);  // before the G
    mouse.ClickRow(2);
    p.Click("ModDottedCheck");
    mouse.ClickRow(1);
    p.Click("NoteReplaceCheck");
    p.Click("AddNote2Option");
    mouse.ClickKey(16);
    EXPECT_EQ(Rows(p), Composed);
    const std::string heard = mouse.ListenOnce();

    p.Picker.AnswerNext(MySong);
    p.Click("SaveLoadButton");
    QTest::mouseClick(p.SaveLoadWindow.findChild<QPushButton*>("SaveButton"), Qt::LeftButton);
    mouse.ChooseFromMenu("FileMenu", "QuitAction");
    EXPECT_NE(p.Timeline.Text("process"), "");

    Reopened next(p);
    EXPECT_EQ(Rows(next), Composed);
    EXPECT_EQ(Mouse(next).ListenOnce(), heard);
}

TEST(ComposingInTheWindow, WorksByKeyboardAlone) {
    test::UiProgram p;
    Keyboard keyboard(p);
    keyboard.TabTo("PianoKey");
    keyboard.Press(Qt::Key_Space);  // C4
    keyboard.PressTimes(7, Qt::Key_Right);
    keyboard.PressTimes(2, Qt::Key_Space);  // G4, once too often
    keyboard.TabTo("MainList");
    keyboard.Press(Qt::Key_End);
    keyboard.Press(Qt::Key_Delete);
    keyboard.Press(Qt::Key_End);
    keyboard.TabTo("NoteLengthCombo");
    keyboard.Press(Qt::Key_Up);
    keyboard.TabTo("PianoKey");
    keyboard.PressTimes(5, Qt::Key_Left);
    keyboard.Press(Qt::Key_Space);  // D4 before the G
    keyboard.TabTo("MainList");
    keyboard.Press(Qt::Key_Up);
    keyboard.TabTo("ModDottedCheck");
    keyboard.Press(Qt::Key_Space);
    keyboard.TabTo("MainList");
    keyboard.Press(Qt::Key_Home);
    keyboard.TabTo("NoteReplaceCheck");
    keyboard.Press(Qt::Key_Space);
    keyboard.TabTo("AddNote1Option");
    keyboard.Press(Qt::Key_Right);
    keyboard.Press(Qt::Key_Space);
    keyboard.TabTo("PianoKey");
    keyboard.PressTimes(2, Qt::Key_Right);
    keyboard.Press(Qt::Key_Space);  // E4 as the first line's second note
    EXPECT_EQ(Rows(p), Composed);
    const std::string heard = keyboard.ListenOnce();

    p.Picker.AnswerNext(MySong);
    keyboard.Press(Qt::Key_S, Qt::ControlModifier);
    keyboard.Press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_NE(p.Timeline.Text("process"), "");

    Reopened next(p);
    EXPECT_EQ(Rows(next), Composed);
    EXPECT_EQ(Keyboard(next).ListenOnce(), heard);
}

}  // namespace
}  // namespace quavix
