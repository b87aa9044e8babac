// SPDX-License-Identifier: MIT
#include "ui/widgets/piano_keyboard.h"

#include "ui/ui_program.h"

namespace quavix {
namespace {

using testing::ElementsAre;

PianoKeyboard& PianoOf(test::UiProgram& p) {
    return p.Find<PianoKeyboard>("PianoKey");
}

/// Near the front edge, where no black key is.
QPoint FrontOf(const PianoKeyboard& piano, int key) {
    const QRect place = piano.KeyRect(key);
    return {place.center().x(), place.bottom() - 6};
}

std::vector<std::string> Notes(test::UiProgram& p) {
    std::vector<std::string> notes;
    for (std::int32_t row = 1; row <= p.App.List.Count(); ++row)
        notes.push_back(p.App.List.Line(row).Note1);
    return notes;
}

TEST(PianoPlan, FindsEveryKeyWhereItIsDrawn) {
    const PianoPlan plan(QRectF(0, 0, 840, 150));
    for (int key = 0; key < PianoPlan::Keys; ++key) {
        const QRectF place = plan.KeyRect(key);
        EXPECT_EQ(plan.KeyAt({place.center().x(), place.bottom() - 3}), key);
    }
    EXPECT_EQ(plan.KeyAt({-5, 20}), -1);
    EXPECT_EQ(plan.KeyAt({20, 200}), -1);
}

TEST(PianoPlan, GivesTheWhiteKeysTheirLetters) {
    QString captions;
    for (int key = 0; key < PianoPlan::Keys; ++key)
        captions += PianoPlan::Caption(key);
    EXPECT_EQ(captions, "CDEFGABCDEFGABCDEFGAB");
}

TEST(PianoKeyboard, AClickedKeyBeepsAndIsEntered) {
    test::UiProgram p;
    QTest::mouseClick(&PianoOf(p), Qt::LeftButton, {}, FrontOf(PianoOf(p), 21));
    EXPECT_EQ(p.Timeline.Text("speaker"), "0.0000 speaker 440 Hz 50 ms\n");
    EXPECT_THAT(Notes(p), ElementsAre("A4"));
}

TEST(PianoKeyboard, BlackKeysLieOnTopOfWhiteOnes) {
    test::UiProgram p;
    const QRect cSharp = PianoOf(p).KeyRect(13);
    QTest::mouseClick(&PianoOf(p), Qt::LeftButton, {}, cSharp.center());
    EXPECT_THAT(Notes(p), ElementsAre("C#4"));
}

TEST(PianoKeyboard, AKeyIsDownFromThePressToTheRelease) {
    test::UiProgram p;
    PianoKeyboard& piano = PianoOf(p);
    const QImage before = piano.grab().toImage();
    QTest::mousePress(&piano, Qt::LeftButton, {}, FrontOf(piano, 16));
    EXPECT_TRUE(piano.IsPressed(16));
    EXPECT_NE(piano.grab().toImage(), before);
    QTest::mouseRelease(&piano, Qt::LeftButton, {}, FrontOf(piano, 16));
    EXPECT_FALSE(piano.IsPressed(16));
}

TEST(PianoKeyboard, ArrowKeysMoveBetweenKeysAndSpacePresses) {
    test::UiProgram p;
    PianoKeyboard& piano = PianoOf(p);
    piano.setFocus();
    EXPECT_EQ(piano.CurrentKey(), 12);
    for (const Qt::Key key :
         {Qt::Key_Space, Qt::Key_Right, Qt::Key_Right, Qt::Key_Space, Qt::Key_Left, Qt::Key_Up, Qt::Key_Space,
          Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Space, Qt::Key_End, Qt::Key_Right, Qt::Key_Space})
        QTest::keyClick(&piano, key);
    EXPECT_THAT(Notes(p), ElementsAre("C4", "D4", "C#5", "C#3", "B5"));
}

TEST(PianoKeyboard, ControlAndAnArrowMoveTheOctaves) {
    test::UiProgram p;
    PianoKeyboard& piano = PianoOf(p);
    QTest::keyClick(&piano, Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(p.Find<QLineEdit>("KeyboardOctaveText").text(), "5");
    EXPECT_EQ(p.TextOf("OctLabel0") + p.TextOf("OctLabel1") + p.TextOf("OctLabel2"), "456");
    EXPECT_EQ(piano.KeyName(13), "C sharp 5");
    for (int i = 0; i < 9; ++i)
        QTest::keyClick(&piano, Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(p.TextOf("OctLabel1"), "2");
    p.Click("KeyboardOctaveUpDownUp");
    EXPECT_EQ(p.TextOf("OctLabel1"), "3");
}

TEST(PianoKeyboard, EachFingerPressesAKey) {
    test::UiProgram p;
    PianoKeyboard& piano = PianoOf(p);
    const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
    QTest::touchEvent(&piano, screen.get())
        .press(0, FrontOf(piano, 12), &piano)
        .press(1, FrontOf(piano, 16), &piano);
    EXPECT_TRUE(piano.IsPressed(12) && piano.IsPressed(16));
    QTest::touchEvent(&piano, screen.get()).release(0, FrontOf(piano, 12), &piano).stationary(1);
    EXPECT_FALSE(piano.IsPressed(12));
    EXPECT_TRUE(piano.IsPressed(16));
    QTest::touchEvent(&piano, screen.get()).release(1, FrontOf(piano, 16), &piano);
    EXPECT_FALSE(piano.IsPressed(16));
    EXPECT_THAT(Notes(p), ElementsAre("C4", "E4"));
}

TEST(PianoKeyboard, ShowsWhichNotesSoundAndCantBePlayedWhileTheMusicPlays) {
    test::UiProgram p;
    p.SetSong({"Half C4 E5 -"});
    PianoKeyboard& piano = PianoOf(p);
    bool looked = false;
    p.Click("MuteTweebleCheck");  // handlers run in the middle of a muted tone
    p.Time.At(100, [&] {
        looked = true;
        EXPECT_TRUE(piano.IsSounding(12));
        EXPECT_TRUE(piano.IsSounding(28));
        EXPECT_FALSE(piano.isEnabled());
        QTest::mouseClick(&piano, Qt::LeftButton, {}, FrontOf(piano, 14));
        p.Click("StopPlayButton");
    });
    p.Click("PlayAllButton");
    EXPECT_TRUE(looked);
    EXPECT_FALSE(piano.IsSounding(12));
    EXPECT_TRUE(piano.isEnabled());
    EXPECT_EQ(p.App.List.Count(), 1);
}

TEST(PianoKeyboard, IsAGroupOfNamedButtonsToAssistiveTechnology) {
    test::UiProgram p;
    PianoKeyboard& piano = PianoOf(p);
    QAccessibleInterface* group = QAccessible::queryAccessibleInterface(&piano);
    ASSERT_NE(group, nullptr);
    ASSERT_EQ(group->childCount(), 36);
    EXPECT_EQ(group->role(), QAccessible::Grouping);
    EXPECT_EQ(group->text(QAccessible::Name), "Piano keyboard");
    QAccessibleInterface* key = group->child(13);
    ASSERT_NE(key, nullptr);
    EXPECT_EQ(key->text(QAccessible::Name), "C sharp 4");
    EXPECT_EQ(key->role(), QAccessible::Button);
    EXPECT_EQ(key->parent(), group);
    EXPECT_EQ(group->indexOfChild(key), 13);
    EXPECT_EQ(group->child(36), nullptr);
    ASSERT_NE(key->actionInterface(), nullptr);
    key->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_THAT(Notes(p), ElementsAre("C#4"));
    EXPECT_FALSE(key->state().pressed);
    piano.setFocus();
    EXPECT_EQ(group->focusChild(), key);
    p.App.Fields.View.PianoKeysEnabled = false;
    EXPECT_TRUE(key->state().disabled);
}

TEST(PianoKeyboard, HasTheExactTooltip) {
    test::UiProgram p;
    EXPECT_EQ(PianoOf(p).toolTip(),
              "Click any of these keys on this keyboard to hear the note / add it to the list of music "
              "(depending on the options on the left of this window)");
    EXPECT_EQ(p.Find<QLabel>("OctLabel1").toolTip(),
              "Says what octave (multiple of pitch) the notes will be made in when you click a key in the "
              "coloured group below");
}

}  // namespace
}  // namespace quavix
