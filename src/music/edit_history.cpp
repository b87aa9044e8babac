// SPDX-License-Identifier: MIT
#include "music/edit_history.h"

#include <utility>

#include "music/selection.h"
#include "shell/scoped.h"

namespace quavix {
namespace {

std::string Caption(const char* command, const EditStep* step) {
    return step == nullptr ? command : std::string(command) + " " + step->Name;
}

}  // namespace

EditHistory::EditHistory(SongFields& song, MusicList& list)
    : song_(song), list_(list), settings_(PresentSettings()) {
    list_.AddObserver(*this);
    for (const Setting* setting :
         {&song_.BPM, &song_.AlternateTime, &song_.BeatsPerBar, &song_.NoteSilenceRatio})
        setting->State().Watch([this](const SettingState&) { SettingsChanged(); });
    for (const Watched<bool>* box : {&song_.PlayNote1Check, &song_.PlayNote2Check})
        box->Watch([this](bool) { SettingsChanged(); });
    StartOver();
}

EditHistory::~EditHistory() {
    list_.RemoveObserver(*this);
}

EditHistory::SoundSettings EditHistory::PresentSettings() const {
    return {song_.BPM.OfSong(),         song_.AlternateTime.OfSong(),
            song_.BeatsPerBar.OfSong(), song_.NoteSilenceRatio.OfSong(),
            song_.PlayNote1Check,       song_.PlayNote2Check};
}

void EditHistory::SettingsChanged() {
    const SoundSettings before = std::exchange(settings_, PresentSettings());
    if (settings_ == before)
        return;
    Changes = Changes + 1;
    ShowState();
}

void EditHistory::Undo() {
    if (depth_ == 0 && applied_ > 0)
        Restore(steps_[--applied_], true);
}

void EditHistory::Redo() {
    if (depth_ == 0 && applied_ < steps_.size())
        Restore(steps_[applied_++], false);
}

/// Applies a step, or undoes it if `back`.
void EditHistory::Restore(const EditStep& step, bool back) {
    {
        const ScopedFlag restoring(restoring_);
        step.Apply(list_, texts_, back);
    }
    looseStep_ = false;
    const bool onlyMods = step.ChangesOnlyMods();
    if (HasRealSelection(list_))
        list_.EnsureVisible(list_.SelectedItem());
    else if (step.Changes.front().Rows.front() <= list_.Count())
        list_.EnsureVisible(step.Changes.front().Rows.front());
    ShowState();
    if (OnRestored)
        OnRestored(onlyMods);
}

void EditHistory::StartOver() {
    steps_.clear();
    texts_.Clear();
    applied_ = 0;
    size_ = 0;
    firstState_ = ++lastState_;
    open_.Changes.clear();
    open_.SelectionBefore = ListSelection::Of(list_);
    MarkSaved();
}

void EditHistory::MarkSaved() {
    looseStep_ = false;  // so that Undo() can return to this state
    savedState_ = State();
    song_.AlternateTime.Keep();  // the file contains the time in use
    savedSettings_ = PresentSettings();
    ShowState();
}

void EditHistory::MarkUnsaved() {
    savedState_.reset();
    ShowState();
}

void EditHistory::BeginGesture(std::string name) {
    if (depth_++ > 0)
        return;
    looseStep_ = false;
    open_ = {.Name = std::move(name), .SelectionBefore = ListSelection::Of(list_)};
}

void EditHistory::EndGesture() {
    if (--depth_ == 0 && !open_.Changes.empty())
        Push(std::exchange(open_, {}));
}

void EditHistory::BeforeChange() {
    if (!restoring_ && depth_ == 0)
        open_ = {.Name = "Change", .SelectionBefore = ListSelection::Of(list_)};
}

/// Counts a change. Outside a gesture, makes it a step, or joins it to the step before.
void EditHistory::Changed() {
    Changes = Changes + 1;
    if (restoring_ || depth_ > 0)
        return;
    if (looseStep_) {
        JoinLooseStep(std::exchange(open_, {}));
    } else {
        looseStep_ = true;
        Push(std::exchange(open_, {}));
    }
}

void EditHistory::JoinLooseStep(EditStep change) {
    EditStep& step = steps_.back();
    const std::size_t size = change.CountSize();
    step.Size += size;
    size_ += size;
    for (EditChange& part : change.Changes)
        step.Add(std::move(part));
    step.SelectionAfter = ListSelection::Of(list_);
    step.State = ++lastState_;
    if (step.Changes.empty()) {
        looseStep_ = false;
        --applied_;
        ForgetRedo();
    }
    ForgetOldest();
    ShowState();
}

void EditHistory::Push(EditStep step) {
    ForgetRedo();
    step.SelectionAfter = ListSelection::Of(list_);
    step.State = ++lastState_;
    step.Size = step.CountSize();
    size_ += step.Size;
    steps_.push_back(std::move(step));
    ++applied_;
    ForgetOldest();
    ShowState();
}

void EditHistory::ForgetRedo() {
    while (steps_.size() > applied_) {
        size_ -= steps_.back().Size;
        steps_.pop_back();
    }
}

void EditHistory::ForgetOldest() {
    while (size_ > HighestSize && steps_.size() > 1) {
        size_ -= steps_.front().Size;
        firstState_ = steps_.front().State;
        steps_.pop_front();
        --applied_;
    }
}

void EditHistory::RowsInserted(std::span<const std::int32_t> rows) {
    if (!restoring_)
        open_.Add(RowsChange(EditChange::Kind::Inserted, rows));
    Changed();
}

void EditHistory::BeforeRowsRemoved(std::span<const std::int32_t> rows) {
    BeforeChange();
    if (!restoring_)
        open_.Add(RowsChange(EditChange::Kind::Removed, rows));
}

void EditHistory::Reset() {
    StartOver();
    Changes = Changes + 1;
}

void EditHistory::BeforeCellChanged(std::int32_t row, Cell cell) {
    BeforeChange();
    if (!restoring_)
        cellBefore_ = texts_.IdOf(list_.Text(row, cell));
}

void EditHistory::CellChanged(std::int32_t row, Cell cell) {
    if (!restoring_) {
        open_.Add({.What = EditChange::Kind::CellWritten,
                   .Rows = {row},
                   .Written = cell,
                   .Before = {cellBefore_},
                   .After = texts_.IdOf(list_.Text(row, cell))});
    }
    Changed();
}

EditChange EditHistory::RowsChange(EditChange::Kind kind, std::span<const std::int32_t> rows) {
    EditChange change{.What = kind, .Rows = {rows.begin(), rows.end()}};
    change.Lines.reserve(rows.size());
    for (const std::int32_t row : rows) {
        change.Lines.push_back(
            {texts_.IdOf(list_.Text(row, Cell::Length)), texts_.IdOf(list_.Text(row, Cell::Note1)),
             texts_.IdOf(list_.Text(row, Cell::Note2)), texts_.IdOf(list_.Text(row, Cell::Mod))});
    }
    return change;
}

std::uint64_t EditHistory::State() const {
    return applied_ == 0 ? firstState_ : steps_[applied_ - 1].State;
}

void EditHistory::ShowState() {
    const EditStep* undo = applied_ == 0 ? nullptr : &steps_[applied_ - 1];
    const EditStep* redo = applied_ == steps_.size() ? nullptr : &steps_[applied_];
    CanUndo = undo != nullptr;
    CanRedo = redo != nullptr;
    UndoText = Caption("Undo", undo);
    RedoText = Caption("Redo", redo);
    Modified = savedState_ != State() || savedSettings_ != PresentSettings();
}

}  // namespace quavix
