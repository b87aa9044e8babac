// SPDX-License-Identifier: MIT
#include "music/music_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "music/selection.h"
#include "shell/runtime_error.h"
#include "support/selection.h"

namespace quavix {
namespace {

/// Notes down what it hears, checking that the row count fits the moment.
class Listener : public MusicListObserver {
  public:
    explicit Listener(MusicList& list) : list_(list) { list_.AddObserver(*this); }
    ~Listener() override { list_.RemoveObserver(*this); }

    void BeforeRowsInserted(std::span<const std::int32_t> rows) override { Note("before insert", rows[0]); }
    void RowsInserted(std::span<const std::int32_t> rows) override { Note("inserted", rows[0]); }
    void BeforeRowsRemoved(std::span<const std::int32_t> rows) override { Note("before remove", rows[0]); }
    void RowsRemoved(std::span<const std::int32_t> rows) override { Note("removed", rows[0]); }
    void BeforeReset() override { Note("before reset", 0); }
    void Reset() override { Note("reset", 0); }
    void CellChanged(std::int32_t row, Cell cell) override { Note(cell == Cell::Mod ? "mod" : "cell", row); }
    void SelectionChanged() override { Note("selection", list_.SelectedItem()); }
    void EnsureVisible(std::int32_t row) override { Note("visible", row); }

    std::vector<std::string> Heard;

  private:
    void Note(const char* what, std::int32_t row) {
        Heard.push_back(fmt::format("{} {} of {}", what, row, list_.Count()));
    }

    MusicList& list_;
};

void FillWithC(MusicList& list, int rows) {
    for (int i = 1; i <= rows; ++i)
        list.Insert(list.Count() + 1, {"Half", fmt::format("C{}", i), "", ""});
}

TEST(MusicList, AnEmptyListHasNoSelectionAndNoRows) {
    const MusicList list;
    EXPECT_EQ(GetSelectedIndex(list), -1);
    EXPECT_FALSE(DoesIndexExist(list, 1));
    EXPECT_FALSE(DoesIndexExist(list, 0));
    EXPECT_FALSE(HasRealSelection(list));
    EXPECT_FALSE(SelectedLineModContains(list, ""));
}

TEST(MusicList, RowsStartAtOne) {
    MusicList list;
    FillWithC(list, 2);
    EXPECT_FALSE(DoesIndexExist(list, 0));
    EXPECT_TRUE(DoesIndexExist(list, 1));
    EXPECT_TRUE(DoesIndexExist(list, 2));
    EXPECT_FALSE(DoesIndexExist(list, 3));
    EXPECT_EQ(list.Text(1, Cell::Note1), "C1");
    EXPECT_EQ(list.Line(2), (MusicLine{"Half", "C2", "", ""}));
}

TEST(MusicList, ARowThatIsNotThereIsAnError) {
    MusicList list;
    FillWithC(list, 1);
    for (const std::int32_t row : {-1, 0, 2}) {
        EXPECT_THROW(list.Text(row, Cell::Mod), RuntimeError);
        EXPECT_THROW(list.SetText(row, Cell::Mod, ""), RuntimeError);
        EXPECT_THROW(list.Remove(row), RuntimeError);
        EXPECT_THROW(list.Select(row), RuntimeError);
        EXPECT_THROW(list.EnsureVisible(row), RuntimeError);
    }
    EXPECT_THROW(list.Insert(0, {}), RuntimeError);
    EXPECT_THROW(list.Insert(3, {}), RuntimeError);
}

TEST(MusicList, InsertingAndRemovingMovesLaterRowsAndTheSelectionWithThem) {
    MusicList list;
    FillWithC(list, 3);
    list.Select(2);
    list.Insert(2, {"1/8", "A4", "", ""});
    EXPECT_EQ(list.SelectedItem(), 3);
    EXPECT_TRUE(list.IsSelected(3));
    EXPECT_FALSE(list.IsSelected(2));
    EXPECT_EQ(list.Text(3, Cell::Note1), "C2");
    list.Remove(1);
    EXPECT_EQ(list.SelectedItem(), 2);
    list.Remove(3);
    EXPECT_EQ(list.SelectedItem(), 2);
    list.Remove(2);
    EXPECT_EQ(list.SelectedItem(), -1);
    EXPECT_EQ(list.Count(), 1);
}

TEST(MusicList, SelectingARowClearsTheOthers) {
    MusicList list;
    FillWithC(list, 3);
    test::SetSelection(list, 2, {1, 2, 3});
    list.Select(3);
    EXPECT_FALSE(list.IsSelected(1));
    EXPECT_FALSE(list.IsSelected(2));
    EXPECT_TRUE(list.IsSelected(3));
    EXPECT_EQ(list.SelectedItem(), 3);
}

TEST(MusicList, AnItemWhoseFlagIsClearIsNoRealSelection) {
    MusicList list;
    FillWithC(list, 3);
    list.Select(3);
    EXPECT_TRUE(HasRealSelection(list));
    list.UnselectAll();
    EXPECT_EQ(GetSelectedIndex(list), 3);
    EXPECT_FALSE(HasRealSelection(list));
    SetSelectedLineMod(list, "Dot");
    EXPECT_EQ(list.Text(3, Cell::Mod), "") << "editing does nothing without a real selection";
}

TEST(MusicList, TheSelectedLinesModIsSearchedInAnyLetterCase) {
    MusicList list;
    FillWithC(list, 1);
    list.Select(1);
    SetSelectedLineMod(list, "Dot");
    EXPECT_TRUE(SelectedLineModContains(list, "dot"));
    EXPECT_TRUE(SelectedLineModContains(list, "OT"));
    EXPECT_FALSE(SelectedLineModContains(list, "tri"));
}

TEST(MusicList, ObserversHearEachChangeBeforeAndAfter) {
    MusicList list;
    Listener listener(list);
    list.Insert(1, {"Half", "", "", ""});
    list.SetText(1, Cell::Mod, "Dot");
    list.SetText(1, Cell::Mod, "Dot");
    list.Select(1);
    list.Select(1);
    list.EnsureVisible(1);
    list.UnselectAll();
    list.UnselectAll();
    list.Remove(1);
    list.Clear();
    EXPECT_THAT(
        listener.Heard,
        testing::ElementsAre("before insert 1 of 0", "inserted 1 of 1", "mod 1 of 1", "selection 1 of 1",
                             "visible 1 of 1", "selection 1 of 1", "before remove 1 of 1", "removed 1 of 0",
                             "selection -1 of 0", "before reset 0 of 0", "reset 0 of 0"));
}

TEST(MusicList, InAResetObserversHearOnlyItsEnd) {
    MusicList list;
    Listener listener(list);
    {
        const MusicListReset reset(list);
        FillWithC(list, 100);
        list.Clear();
        FillWithC(list, 3);
    }
    EXPECT_THAT(listener.Heard, testing::ElementsAre("before reset 0 of 0", "reset 0 of 3"));
}

TEST(MusicList, TextsSurviveWhateverIsAddedAfterThem) {
    MusicList list;
    FillWithC(list, 1);
    const std::string_view first = list.Text(1, Cell::Note1);
    FillWithC(list, 5000);
    EXPECT_EQ(first, "C1");
    EXPECT_EQ(list.Text(5001, Cell::Note1), "C5000");
}

TEST(MusicList, SelectionSetFromOutsideMustNameRowsThatExist) {
    MusicList list;
    FillWithC(list, 2);
    EXPECT_THROW(test::SetSelection(list, 3, {}), RuntimeError);
    EXPECT_THROW(test::SetSelection(list, 1, {0}), RuntimeError);
    test::SetSelection(list, -1, {2, 2, 1});
    EXPECT_TRUE(list.IsSelected(1));
    test::SetSelection(list, 1, {});
    EXPECT_FALSE(list.IsSelected(1));
    EXPECT_EQ(list.SelectedItem(), 1);
}

}  // namespace
}  // namespace quavix
