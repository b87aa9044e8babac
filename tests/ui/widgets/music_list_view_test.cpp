// SPDX-License-Identifier: MIT
#include "ui/widgets/music_list_view.h"

#include <QAbstractItemModelTester>

#include "support/selection.h"
#include "ui/ui_program.h"

namespace quavix {
namespace {

MusicListView& ListOf(test::UiProgram& p) {
    return p.Find<MusicListView>("MainList");
}

QPoint MiddleOf(const QTableView& view, int row) {
    return view.visualRect(view.model()->index(row - 1, 1)).center();
}

void ClickRow(test::UiProgram& p, int row, Qt::KeyboardModifiers keys = {}) {
    QTest::mouseClick(ListOf(p).viewport(), Qt::LeftButton, keys, MiddleOf(ListOf(p), row));
}

std::vector<int> Highlighted(const QTableView& view) {
    std::vector<int> rows;
    for (const QModelIndex& index : view.selectionModel()->selectedRows())
        rows.push_back(index.row() + 1);
    std::sort(rows.begin(), rows.end());
    return rows;
}

using testing::ElementsAre;
using testing::IsEmpty;

TEST(MusicListView, AClickOnARowPlaysThatRowOnce) {
    test::UiProgram p;
    p.SetSong({"Quarter C4 - -", "Quarter E4 - -"});
    ClickRow(p, 2);
    EXPECT_EQ(p.Timeline.Text("speaker"), "0.0000 speaker 330 Hz 386 ms\n");
    EXPECT_EQ(p.App.List.SelectedItem(), 2);
    EXPECT_TRUE(p.App.List.IsSelected(2));
}

TEST(MusicListView, EnterPlaysTheHighlightedRow) {
    test::UiProgram p;
    p.SetSong({"Quarter C4 - -", "Quarter E4 - -"});
    ListOf(p).selectRow(1);
    EXPECT_EQ(p.Timeline.Text("speaker"), "");
    QTest::keyClick(&ListOf(p), Qt::Key_Return);
    EXPECT_EQ(p.Timeline.Text("speaker"), "0.0000 speaker 330 Hz 386 ms\n");
}

TEST(MusicListView, EnterHeldDownPlaysTheRowOnce) {
    test::UiProgram p;
    p.SetSong({"Quarter C4 - -", "Quarter E4 - -"});
    ListOf(p).selectRow(1);
    QTest::keyPress(&ListOf(p), Qt::Key_Return);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter})
        test::RepeatKey(ListOf(p), key);
    QTest::keyRelease(&ListOf(p), Qt::Key_Return);
    EXPECT_EQ(p.Timeline.Text("speaker"), "0.0000 speaker 330 Hz 386 ms\n");
    QTest::keyClick(&ListOf(p), Qt::Key_Return);
    EXPECT_NE(p.Timeline.Text("speaker").find("0.3860 speaker"), std::string::npos);
}

TEST(MusicListView, AClickThatExtendsTheSelectionPlaysNothing) {
    test::UiProgram p;
    p.SetSong({"Quarter C4 - -", "Quarter E4 - -", "Quarter G4 - -", "Quarter A4 - -"});
    ClickRow(p, 1);
    p.Timeline.Clear();
    ClickRow(p, 3, Qt::ControlModifier);
    EXPECT_THAT(Highlighted(ListOf(p)), ElementsAre(1, 3));
    ClickRow(p, 4, Qt::ShiftModifier);
    EXPECT_EQ(p.Timeline.Text("speaker"), "");
    EXPECT_TRUE(p.App.List.IsSelected(4));
    EXPECT_FALSE(p.App.List.IsSelected(2));
    EXPECT_EQ(p.App.List.SelectedItem(), 1) << "the first of those that are highlighted";
}

TEST(MusicListView, RowsThatStayHighlightedAfterOneIsDeselectedStillCount) {
    test::UiProgram p;
    p.SetSong({"Quarter C4 - -", "Quarter E4 - -", "Quarter G4 - -", "Quarter A4 - -"});
    ClickRow(p, 1);
    ClickRow(p, 3, Qt::ShiftModifier);
    ClickRow(p, 2, Qt::ControlModifier);
    EXPECT_THAT(Highlighted(ListOf(p)), ElementsAre(1, 3));
    p.Click("ClearNote1Button");
    EXPECT_EQ(p.Row(1) + p.Row(2) + p.Row(3), "Quarter,,,Quarter,E4,,Quarter,,,");
    ClickRow(p, 1, Qt::ControlModifier);
    p.Click("Command1");
    EXPECT_EQ(p.App.List.Count(), 3);
    EXPECT_EQ(p.Row(3), "Quarter,A4,,");
}

TEST(MusicListView, EraseWholeLineAndUnSelectLineApplyToAllHighlightedRows) {
    test::UiProgram p;
    p.SetSong({"Quarter C4 - -", "Quarter E4 - -", "Quarter G4 - -", "Quarter A4 - -"});
    ClickRow(p, 2);
    ClickRow(p, 3, Qt::ShiftModifier);
    p.Click("Command1");
    EXPECT_EQ(p.App.List.Count(), 2);
    EXPECT_THAT(Highlighted(ListOf(p)), ElementsAre(2));
    p.App.Editing.EditHistory.Undo();
    EXPECT_THAT(Highlighted(ListOf(p)), ElementsAre(2, 3));
    p.Click("UnselectButton");
    EXPECT_THAT(Highlighted(ListOf(p)), IsEmpty());
}

TEST(MusicListView, TheModifierBoxesAndThePositionFollowTheArrowKeysInSilence) {
    test::UiProgram p;
    p.SetSong({"Quarter C4 - Dot", "Quarter E4 - tri", "Quarter G4 - -"});
    ListOf(p).setFocus();
    const auto shown = [&] {
        return std::string(p.Find<QCheckBox>("ModDottedCheck").isChecked() ? "D" : "") +
               (p.Find<QCheckBox>("ModTripletCheck").isChecked() ? "T" : "") +
               p.TextOf("lblPlayPos").toStdString();
    };
    QTest::keyClick(&ListOf(p), Qt::Key_Home);
    EXPECT_EQ(shown(), "D01 ");
    QTest::keyClick(&ListOf(p), Qt::Key_Down);
    EXPECT_EQ(shown(), "T01 03/08");
    QTest::keyClick(&ListOf(p), Qt::Key_Up);
    EXPECT_EQ(shown(), "D01 ");
    EXPECT_EQ(p.Timeline.Text("speaker"), "");
    EXPECT_EQ(p.Row(2), "Quarter,E4,,tri");
    EXPECT_FALSE(p.App.Editing.EditHistory.CanUndo);
}

TEST(MusicListView, AClickThatTakesTheHighlightAwayShowsTheEndOfTheSong) {
    test::UiProgram p;
    p.SetSong({"Quarter C4 - -", "Quarter E4 - -"});
    ClickRow(p, 1);
    EXPECT_EQ(p.TextOf("lblPlayPos"), "01 ");
    QTest::mouseClick(ListOf(p).viewport(), Qt::LeftButton, {}, {10, ListOf(p).viewport()->height() - 5});
    EXPECT_EQ(p.TextOf("lblPlayPos"), "01 01/02");
}

TEST(MusicListView, AClickOnARowsNumberIsAClickOnTheRow) {
    test::UiProgram p;
    p.SetSong({"Quarter C4 - -", "Quarter E4 - Dot"});
    const QHeaderView& numbers = *ListOf(p).verticalHeader();
    const auto clickNumber = [&](int row, Qt::KeyboardModifiers keys = {}) {
        const int y = numbers.sectionViewportPosition(row - 1) + numbers.sectionSize(row - 1) / 2;
        QTest::mouseClick(numbers.viewport(), Qt::LeftButton, keys, {5, y});
    };
    clickNumber(2);
    EXPECT_THAT(Highlighted(ListOf(p)), ElementsAre(2));
    EXPECT_EQ(p.Timeline.Text("speaker"), "0.0000 speaker 330 Hz 579 ms\n");
    EXPECT_TRUE(p.Find<QCheckBox>("ModDottedCheck").isChecked());
    EXPECT_EQ(p.TextOf("lblPlayPos"), "01 01/04");
    p.Timeline.Clear();
    clickNumber(1, Qt::ControlModifier);
    EXPECT_THAT(Highlighted(ListOf(p)), ElementsAre(1, 2));
    EXPECT_EQ(p.Timeline.Text("speaker"), "");
}

TEST(MusicListView, ALineThatIsAppendedIsScrolledIntoView) {
    test::UiProgram p;
    p.App.Fields.Entry.NoteClickPlayCheck = false;
    for (int note = 0; note < 100; ++note)
        p.App.Playing.PianoKeys.PianoKey_Click(12);
    EXPECT_TRUE(ListOf(p).viewport()->rect().contains(MiddleOf(ListOf(p), 100)));
    p.App.List.Select(1);
    for (int note = 0; note < 100; ++note)
        p.App.Playing.PianoKeys.PianoKey_Click(12);
    EXPECT_TRUE(ListOf(p).viewport()->rect().contains(MiddleOf(ListOf(p), 100)));
    EXPECT_TRUE(ListOf(p).viewport()->rect().contains(MiddleOf(ListOf(p), 101)));
}

TEST(MusicListView, AClickOnEmptySpaceTakesTheHighlightAwayButNotTheSelectedItem) {
    test::UiProgram p;
    p.SetSong({"Quarter C4 - -", "Quarter E4 - -"});
    ClickRow(p, 2);
    QTest::mouseClick(ListOf(p).viewport(), Qt::LeftButton, {}, {10, ListOf(p).viewport()->height() - 5});
    EXPECT_THAT(Highlighted(ListOf(p)), IsEmpty());
    EXPECT_FALSE(p.App.List.IsSelected(2));
    EXPECT_EQ(p.App.List.SelectedItem(), 2);
}

TEST(MusicListView, ShowsTheSelectionMadeByTheProgram) {
    test::UiProgram p;
    p.SetSong({"Quarter C4 - -", "Quarter E4 - -", "Quarter G4 - -"});
    p.App.List.Select(3);
    EXPECT_THAT(Highlighted(ListOf(p)), ElementsAre(3));
    test::SetSelection(p.App.List, 1, {1, 2});
    EXPECT_THAT(Highlighted(ListOf(p)), ElementsAre(1, 2));
    p.App.List.UnselectAll();
    EXPECT_THAT(Highlighted(ListOf(p)), IsEmpty());
    EXPECT_EQ(p.App.List.SelectedItem(), 1);
    EXPECT_EQ(p.Timeline.Text("speaker"), "");
}

TEST(MusicListView, TheSelectionStaysWithItsRowWhenRowsComeAndGo) {
    test::UiProgram p;
    p.SetSong({"Quarter C4 - -", "Quarter E4 - -", "Quarter G4 - -"});
    ClickRow(p, 2);
    p.App.List.Insert(1, {"Half", "A4", "", ""});
    EXPECT_THAT(Highlighted(ListOf(p)), ElementsAre(3));
    EXPECT_TRUE(p.App.List.IsSelected(3));
    p.App.List.Remove(1);
    EXPECT_THAT(Highlighted(ListOf(p)), ElementsAre(2));
    p.App.List.Remove(2);
    EXPECT_THAT(Highlighted(ListOf(p)), IsEmpty());
    EXPECT_EQ(p.App.List.SelectedItem(), -1);
    p.App.List.Clear();
    EXPECT_EQ(ListOf(p).model()->rowCount(), 0);
}

/// Notes selections that are written to the list while a row is on its way out of it.
struct RemovalWatcher : MusicListObserver {
    void BeforeRowsRemoved(std::span<const std::int32_t>) override { Removing = true; }
    void RowsRemoved(std::span<const std::int32_t>) override { Removing = false; }
    void SelectionChanged() override { WrittenMeanwhile = WrittenMeanwhile || Removing; }
    bool Removing = false;
    bool WrittenMeanwhile = false;
};

TEST(MusicListView, WritesNothingToTheListWhileARowIsRemoved) {
    test::UiProgram p;
    p.SetSong({"Quarter C4 - -", "Quarter E4 - -", "Quarter G4 - -"});
    ClickRow(p, 2);
    MusicList& list = p.App.List;
    RemovalWatcher watcher;
    list.AddObserver(watcher);
    list.Remove(2);
    list.RemoveObserver(watcher);
    EXPECT_FALSE(watcher.WrittenMeanwhile);
    EXPECT_EQ(list.SelectedCount(), 0);
}

TEST(MusicListView, RowsOfAResetAndTheirSelectionAreShown) {
    test::UiProgram p;
    p.SetSong({"Quarter C4 - -"});
    {
        const MusicListReset reset(p.App.List);
        p.App.List.Insert(1, {"Half", "A4", "B4", "Dot"});
        p.App.List.Select(2);
    }
    EXPECT_EQ(ListOf(p).model()->rowCount(), 2);
    EXPECT_THAT(Highlighted(ListOf(p)), ElementsAre(2));
    EXPECT_EQ(ListOf(p).model()->index(0, 3).data().toString(), "Dot");
}

TEST(MusicListView, ThePlayedRowIsHighlightedAndInView) {
    test::UiProgram p;
    p.SetSong({});
    for (int row = 1; row <= 500; ++row)
        p.App.List.Insert(row, {"Quarter", "C4", "", ""});
    p.App.List.Select(400);
    p.App.List.EnsureVisible(400);
    EXPECT_TRUE(ListOf(p).viewport()->rect().contains(MiddleOf(ListOf(p), 400)));
    EXPECT_FALSE(ListOf(p).viewport()->rect().contains(MiddleOf(ListOf(p), 1)));
    p.ClickAt(410, "StopPlayButton");
    p.Click("PlayAllButton");
    EXPECT_THAT(Highlighted(ListOf(p)), ElementsAre(1));
    EXPECT_TRUE(ListOf(p).viewport()->rect().contains(MiddleOf(ListOf(p), 1)));
}

TEST(MusicListModel, KeepsTheRulesOfItemModels) {
    test::UiProgram p;
    p.SetSong({"Quarter C4 - -", "1/8 C4 D4 Tri"});
    MusicListModel model(p.App.List);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    p.App.List.Insert(3, {"Half", "A4", "", ""});
    p.App.List.SetText(1, Cell::Note1, "F#5");
    p.App.List.Remove(2);
    EXPECT_EQ(model.rowCount(), 2);
    EXPECT_EQ(model.index(0, 1).data().toString(), "F#5");
    EXPECT_EQ(model.headerData(0, Qt::Horizontal, Qt::DisplayRole).toString(), "Length");
    EXPECT_EQ(model.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), "Note 1");
    EXPECT_EQ(model.headerData(2, Qt::Horizontal, Qt::DisplayRole).toString(), "Note 2");
    EXPECT_EQ(model.headerData(3, Qt::Horizontal, Qt::DisplayRole).toString(), "Mod");
}

TEST(MusicListView, AVeryLongListScrollsAndSelectsToItsEnd) {
    constexpr std::int32_t Rows = 1'000'000;
    test::UiProgram p;
    {
        const MusicListReset reset(p.App.List);
        for (std::int32_t row = 0; row < Rows; ++row)
            p.App.List.Append("1/16", "C4", "", "");
    }
    p.App.List.Select(Rows);
    p.App.List.EnsureVisible(Rows);
    EXPECT_TRUE(ListOf(p).viewport()->rect().contains(MiddleOf(ListOf(p), Rows)));
    QTest::keyClick(&ListOf(p), Qt::Key_Home);
    EXPECT_EQ(p.App.List.SelectedItem(), 1);
    EXPECT_TRUE(ListOf(p).viewport()->rect().contains(MiddleOf(ListOf(p), 1)));
}

TEST(MusicListView, ShowsSeveralRowsThatGoAtOnceAndComeBack) {
    for (const std::vector<std::int32_t>& rows : {std::vector<std::int32_t>{2, 3}, {1, 3}, {1, 2, 3, 4}}) {
        test::UiProgram p;
        p.SetSong({"Quarter C4 - -", "Quarter E4 - -", "Quarter G4 - -", "Quarter A4 - -"});
        const QAbstractItemModelTester tester(ListOf(p).model());
        const std::vector<int> highlighted(rows.begin(), rows.end());
        test::SetSelection(p.App.List, rows.back(), rows);
        p.App.Editing.LineClipboard.EraseLines();
        EXPECT_EQ(ListOf(p).model()->rowCount(), p.App.List.Count());
        EXPECT_EQ(Highlighted(ListOf(p)).size(), p.App.List.Count() > 1 ? 1U : 0U);
        p.App.Editing.EditHistory.Undo();
        EXPECT_EQ(ListOf(p).model()->rowCount(), 4);
        EXPECT_EQ(Highlighted(ListOf(p)), highlighted);
        EXPECT_EQ(p.App.List.SelectedRows(), rows);
        EXPECT_EQ(p.App.List.SelectedItem(), rows.back());
        p.App.Editing.LineClipboard.DuplicateLines();
        EXPECT_EQ(Highlighted(ListOf(p)).size(), rows.size());
        EXPECT_EQ(Highlighted(ListOf(p)).front(), rows.back() + 1);
    }
}

}  // namespace
}  // namespace quavix
