// SPDX-License-Identifier: MIT
// Several rows at once come and go as they would one by one.
#include <algorithm>
#include <random>

#include <gtest/gtest.h>

#include "music/music_list.h"
#include "playback/play_position.h"
#include "shell/runtime_error.h"
#include "simulation/simulated_files.h"
#include "simulation/simulated_time.h"
#include "songfile/song_format.h"
#include "support/selection.h"

namespace quavix {
namespace {

std::string StateOf(const MusicList& list) {
    std::string text = std::to_string(list.SelectedItem()) + "/" + std::to_string(list.SelectedCount());
    for (std::int32_t row = 1; row <= list.Count(); ++row) {
        text += list.IsSelected(row) ? " >" : " ";
        AppendLineText(text, list, row);
    }
    return text;
}

const MusicList::LineSource Rest = [](std::size_t) {
    return std::array<std::string_view, 4>{"Half", "", "", ""};
};

void Fill(MusicList& list, std::int32_t rows) {
    for (std::int32_t row = 1; row <= rows; ++row)
        list.Append("Quarter", std::to_string(row), "", "");
}

class Notes : public MusicListObserver {
  public:
    void BeforeReset() override { Text += "("; }
    void Reset() override { Text += ")"; }
    void SelectionChanged() override { Text += "s"; }
    std::string Text;
};

TEST(MusicListRows, AreTheSameAtOnceAsOneByOne) {
    std::mt19937 random(21);
    SimulatedTime time;
    SimulatedFiles disk;
    DebugLog log(disk, time, "log");
    for (int round = 0; round < 400; ++round) {
        MusicList atOnce;
        MusicList oneByOne;
        PlayPosition position(atOnce, log);
        const auto count = static_cast<std::int32_t>(random() % 20);
        for (MusicList* list : {&atOnce, &oneByOne})
            Fill(*list, count);
        for (int change = 0; change < 6; ++change) {
            const std::int32_t rowCount = atOnce.Count();
            std::vector<std::int32_t> selected;
            for (std::int32_t row = 1; row <= rowCount; ++row) {
                if (random() % 3 == 0)
                    selected.push_back(row);
            }
            const std::int32_t item =
                rowCount == 0
                    ? -1
                    : static_cast<std::int32_t>(random() % static_cast<std::uint32_t>(rowCount)) + 1;
            for (MusicList* list : {&atOnce, &oneByOne})
                test::SetSelection(*list, item, selected);
            EXPECT_EQ(atOnce.SelectedRows(), selected);
            position.SumBefore(rowCount + 1);
            std::vector<std::int32_t> rows;
            if (random() % 2 == 0) {
                for (std::int32_t row = 1; row <= rowCount + 5; ++row) {
                    const bool fits = row <= rowCount + static_cast<std::int32_t>(rows.size()) + 1;
                    if (fits && random() % 3 == 0)
                        rows.push_back(row);
                }
                atOnce.InsertRows(rows, [&](std::size_t index) {
                    return std::array<std::string_view, 4>{"Half", index % 2 == 0 ? "C4" : "D4", "", "Dot"};
                });
                for (std::size_t i = 0; i < rows.size(); ++i)
                    oneByOne.Insert(rows[i], {"Half", i % 2 == 0 ? "C4" : "D4", "", "Dot"});
            } else {
                for (std::int32_t row = 1; row <= rowCount; ++row) {
                    if (random() % 3 == 0)
                        rows.push_back(row);
                }
                atOnce.RemoveRows(rows);
                for (auto row = rows.rbegin(); row != rows.rend(); ++row)
                    oneByOne.Remove(*row);
            }
            ASSERT_EQ(StateOf(atOnce), StateOf(oneByOne));
            ASSERT_EQ(position.SumBefore(atOnce.Count() + 1),
                      PlayPosition(oneByOne, log).SumBefore(oneByOne.Count() + 1));
        }
    }
}

TEST(MusicListRows, AreAResetForObserversThatDoNotFollowThem) {
    MusicList list;
    Fill(list, 4);
    list.Select(2);
    Notes notes;
    list.AddObserver(notes);
    const std::vector<std::int32_t> rows = {1, 3};
    list.InsertRows(rows, Rest);
    EXPECT_EQ(notes.Text, "()");
    list.RemoveRows(rows);
    EXPECT_EQ(notes.Text, "()()");
    list.RemoveRows(std::vector<std::int32_t>{1, 2});
    EXPECT_EQ(notes.Text, "()()()s") << "the selected row went";
    list.RemoveRows({});
    list.InsertRows({}, Rest);
    EXPECT_EQ(notes.Text, "()()()s");
    list.RemoveObserver(notes);
}

TEST(MusicListRows, MustAscendWithinTheList) {
    MusicList list;
    Fill(list, 3);
    const std::string before = StateOf(list);
    for (const std::vector<std::int32_t>& rows : {std::vector<std::int32_t>{0}, {2, 2}, {3, 1}, {4}, {-1, 2}})
        EXPECT_THROW(list.RemoveRows(rows), RuntimeError);
    for (const std::vector<std::int32_t>& rows : {std::vector<std::int32_t>{0}, {2, 2}, {3, 1}, {5}, {1, 6}})
        EXPECT_THROW(list.InsertRows(rows, Rest), RuntimeError);
    EXPECT_EQ(StateOf(list), before);
}

}  // namespace
}  // namespace quavix
