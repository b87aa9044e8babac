// SPDX-License-Identifier: MIT
#include <array>

#include "ui/ui_program.h"
#include "ui/widgets/piano_keyboard.h"

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

TEST(NoteEntryPanel, GreysOutDependentOptions) {
    test::UiProgram p;
    const auto enabled = [&](const char* name) { return p.Find<QWidget>(name).isEnabled(); };
    EXPECT_FALSE(enabled("NoteLengthReplaceCheck"));
    p.Click("NoteReplaceCheck");
    EXPECT_TRUE(enabled("NoteLengthReplaceCheck"));
    p.Click("NoteClickAddCheck");
    constexpr std::array Dependent{"AddNote1Option", "AddNote2Option", "NoteReplaceCheck",
                                   "NoteLengthReplaceCheck"};
    for (const char* name : Dependent)
        EXPECT_FALSE(enabled(name)) << name;
    PressKey(p, 12);
    EXPECT_EQ(p.App.List.Count(), 0);
    p.Click("NoteClickAddCheck");
    for (const char* name : Dependent)
        EXPECT_TRUE(enabled(name)) << name;
    EXPECT_NE(p.Timeline.Text("speaker"), "");
}

TEST(NoteEntryPanel, ASongMayLeaveBothOptionsOfTheNoteClear) {
    test::UiProgram p;
    p.Disk.Put("/songs/neither.QVX",
               "Quavix by Dastrel-204 file format\r\nAddNote1 0\r\nAddNote2 0\r\nMUSICLISTSTART\r\n");
    p.App.Storage.SongDocument.LoadFile("/songs/neither.QVX");
    const auto shown = [&] {
        return std::pair(p.Find<QRadioButton>("AddNote1Option").isChecked(),
                         p.Find<QRadioButton>("AddNote2Option").isChecked());
    };
    EXPECT_EQ(shown(), std::pair(false, false));
    p.Click("AddNote2Option");
    EXPECT_EQ(shown(), std::pair(false, true));
    EXPECT_TRUE(p.App.Fields.Entry.AddNote2Option);
    p.Click("AddNote1Option");
    EXPECT_EQ(shown(), std::pair(true, false));
    p.App.Fields.Entry.AddNote2Option = true;
    EXPECT_EQ(shown(), std::pair(false, true));
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
