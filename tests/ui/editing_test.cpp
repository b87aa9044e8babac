// SPDX-License-Identifier: MIT
#include "ui/piano_keyboard.h"
#include "ui/ui_program.h"

namespace quavix {
namespace {

void PressKey(test::UiProgram& p, int key) {
    p.Find<PianoKeyboard>("PianoKey").ClickKey(key);
}

TEST(NoteEntryPanel, EntersNotesAsTheOptionsSay) {
    test::UiProgram p;
    p.Click("ModDottedCheck");
    auto& lengths = p.Find<QComboBox>("NoteLengthCombo");
    EXPECT_EQ(lengths.currentText(), "1/8");
    lengths.setFocus();
    QTest::keyClick(&lengths, Qt::Key_Up);
    EXPECT_EQ(lengths.currentText(), "1/4 (Quarter)");
    PressKey(p, 12);
    EXPECT_EQ(p.Row(1), "Quarter,C4,,Dot");

    p.Find<QTableView>("MainList").selectRow(0);
    p.Click("AddNote2Option");
    p.Click("NoteReplaceCheck");
    PressKey(p, 16);
    EXPECT_EQ(p.Row(1), "Quarter,C4,E4,Dot");
    EXPECT_EQ(p.App.List.Count(), 1);
}

TEST(NoteEntryPanel, GreysOutWhatDependsOnAnotherOption) {
    test::UiProgram p;
    const auto enabled = [&](const char* name) { return p.Find<QWidget>(name).isEnabled(); };
    EXPECT_FALSE(enabled("NoteLengthReplaceCheck"));
    p.Click("NoteReplaceCheck");
    EXPECT_TRUE(enabled("NoteLengthReplaceCheck"));
    p.Click("NoteClickAddCheck");
    for (const char* name :
         {"AddNote1Option", "AddNote2Option", "NoteReplaceCheck", "NoteLengthReplaceCheck"})
        EXPECT_FALSE(enabled(name)) << name;
    PressKey(p, 12);
    EXPECT_EQ(p.App.List.Count(), 0);
    EXPECT_NE(p.Timeline.Text("speaker"), "");
}

TEST(NoteEntryPanel, DottedAndTripletExcludeEachOther) {
    test::UiProgram p;
    p.SetSong({"Quarter C4 - Tri"});
    p.App.List.Select(1);
    p.Click("ModTripletCheck");
    p.Click("ModDottedCheck");
    EXPECT_TRUE(p.Find<QCheckBox>("ModDottedCheck").isChecked());
    EXPECT_FALSE(p.Find<QCheckBox>("ModTripletCheck").isChecked());
    EXPECT_EQ(p.Row(1), "Quarter,C4,,Dot");
}

TEST(NoteEntryPanel, HasItsWordsAsTheyShouldBe) {
    test::UiProgram p;
    EXPECT_EQ(p.Find<QGroupBox>("NoteClickFrame").title(), "When key is clicked,");
    EXPECT_EQ(p.Find<QGroupBox>("AddingNoteFrame").title(), "Adding note");
    const std::pair<const char*, const char*> captions[] = {
        {"NoteClickPlayCheck", "Play note"},
        {"NoteClickAddCheck", "Add note to list of music"},
        {"AddNote1Option", "Add as Note 1"},
        {"AddNote2Option", "Add as Note 2"},
        {"NoteReplaceCheck", "Replace instead of insert"},
        {"NoteLengthReplaceCheck", "Replace Length too"},
        {"ModDottedCheck", "Dotted"},
        {"ModTripletCheck", "Triplet"},
        {"ClearNote1Button", "Clear Note &1"},
        {"ClearNote2Button", "Clear Note &2"},
        {"Command1", "Erase whole line"},
        {"SilentLineButton", "&Blank line"},
        {"UnselectButton", "&Un-select line"},
        {"SaveLoadButton", "&SAVE / LOAD"},
    };
    for (const auto& [name, caption] : captions)
        EXPECT_EQ(p.Find<QAbstractButton>(name).text(), caption);
    QStringList lengths;
    for (int i = 0; i < p.Find<QComboBox>("NoteLengthCombo").count(); ++i)
        lengths += p.Find<QComboBox>("NoteLengthCombo").itemText(i);
    EXPECT_EQ(lengths, (QStringList{"1 (Whole)", "1/2 (Half)", "1/4 (Quarter)", "1/8", "1/16"}));
}

TEST(EditingPanel, ButtonsChangeTheSelectedLine) {
    test::UiProgram p;
    p.SetSong({"Quarter C4 E4 -", "Half D4 F4 -", "1/8 G4 - -"});
    p.App.List.Select(2);
    p.Click("ClearNote1Button");
    EXPECT_EQ(p.Row(2), "Half,,F4,");
    p.Click("ClearNote2Button");
    EXPECT_EQ(p.Row(2), "Half,,,");
    p.Click("Command1");
    EXPECT_EQ(p.Row(2), "1/8,G4,,");
    EXPECT_TRUE(p.App.List.IsSelected(2));
    p.Click("SilentLineButton");
    EXPECT_EQ(p.Row(2), "1/8,,,");
    p.Click("UnselectButton");
    EXPECT_EQ(p.App.List.SelectedCount(), 0);
    p.Click("Command1");
    EXPECT_EQ(p.App.List.Count(), 3);
}

TEST(MusicListModel, ReadsARowAsAPersonWould) {
    test::UiProgram p;
    p.SetSong({"Quarter C4 E4 Dot", "1/8 C#4 - -", "Half - - Tri"});
    const QAbstractItemModel& model = *p.Find<QTableView>("MainList").model();
    const auto read = [&](int row) { return model.index(row, 0).data(Qt::AccessibleTextRole).toString(); };
    EXPECT_EQ(read(0), "Quarter, C4 and E4, dotted");
    EXPECT_EQ(read(1), "1/8, C sharp 4");
    EXPECT_EQ(read(2), "Half, silent, triplet");
}

}  // namespace
}  // namespace quavix
