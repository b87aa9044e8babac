// SPDX-License-Identifier: MIT
#include "music/edit_step.h"

#include <algorithm>

namespace quavix {
namespace {

void InsertLines(MusicList& list, const EditChange& change, const TextPool& texts) {
    list.InsertRows(change.Rows, [&](std::size_t index) {
        const EditChange::Line& line = change.Lines[index];
        return std::array{texts.Text(line[0]), texts.Text(line[1]), texts.Text(line[2]), texts.Text(line[3])};
    });
}

/// Makes the change, or undoes it if `back`.
void ApplyChange(MusicList& list, const EditChange& change, const TextPool& texts, bool back) {
    if (change.What == EditChange::Kind::CellWritten) {
        for (std::size_t i = 0; i < change.Rows.size(); ++i)
            list.SetText(change.Rows[i], change.Written, texts.Text(back ? change.Before[i] : change.After));
    } else if ((change.What == EditChange::Kind::Inserted) != back) {
        InsertLines(list, change, texts);
    } else {
        list.RemoveRows(change.Rows);
    }
}

}  // namespace

ListSelection ListSelection::Of(const MusicList& list) {
    return {.Item = list.SelectedItem(), .Rows = list.SelectedRuns()};
}

void EditStep::Apply(MusicList& list, const TextPool& texts, bool back) const {
    for (std::size_t i = 0; i < Changes.size(); ++i)
        ApplyChange(list, Changes[back ? Changes.size() - 1 - i : i], texts, back);
    const ListSelection& selection = back ? SelectionBefore : SelectionAfter;
    list.SetSelectedRuns(selection.Item, selection.Rows);
}

void EditStep::Add(EditChange change) {
    if (Changes.empty() || Changes.back().What != change.What) {
        Changes.push_back(std::move(change));
        return;
    }
    EditChange& last = Changes.back();
    const bool isBehind = change.Rows.front() > last.Rows.back();
    const bool isCell = change.What == EditChange::Kind::CellWritten && last.Written == change.Written;
    if (isCell && last.Rows == change.Rows) {
        last.After = change.After;
        const auto isAsBefore = [&last](TextPool::Id before) { return before == last.After; };
        if (std::all_of(last.Before.begin(), last.Before.end(), isAsBefore))
            Changes.pop_back();
    } else if (isBehind && isCell && last.After == change.After) {
        last.Rows.insert(last.Rows.end(), change.Rows.begin(), change.Rows.end());
        last.Before.insert(last.Before.end(), change.Before.begin(), change.Before.end());
    } else if (isBehind && change.What == EditChange::Kind::Inserted) {
        last.Rows.insert(last.Rows.end(), change.Rows.begin(), change.Rows.end());
        last.Lines.insert(last.Lines.end(), change.Lines.begin(), change.Lines.end());
    } else {
        Changes.push_back(std::move(change));
    }
}

bool EditStep::ChangesOnlyMods() const {
    return std::all_of(Changes.begin(), Changes.end(), [](const EditChange& change) {
        return change.What == EditChange::Kind::CellWritten && change.Written == Cell::Mod;
    });
}

std::size_t EditStep::CountSize() const {
    std::size_t size = SelectionBefore.Rows.Runs().size() + SelectionAfter.Rows.Runs().size();
    for (const EditChange& change : Changes)
        size += change.Rows.size();
    return size;
}

}  // namespace quavix
