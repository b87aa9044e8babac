// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <utility>

#include "music/edit_step.h"
#include "music/main_fields.h"
#include "music/music_list.h"
#include "music/song_changes.h"
#include "music/text_pool.h"

namespace quavix {

/// The steps by which the song came to be what it is, to be undone and redone. A step is what one gesture
/// changed in the list's texts, with the selection before and after it; a gesture that changes no text is
/// none. Changes outside any gesture gather in a step named "Change" until the next gesture. A reset of the
/// list (a song loaded, everything cleared) starts over.
///
/// Keeps only what changed, in numbers of texts: some 20 bytes for a row that came or went. The oldest steps
/// are forgotten where they hold more than HighestSize rows together; the newest is always kept.
class EditHistory : private MusicListObserver {
  public:
    static constexpr std::size_t HighestSize = 4'000'000;

    /// Watches the song's fields for as long as they live, and must live as long; must not outlive the list.
    EditHistory(SongFields& song, MusicList& list);
    ~EditHistory() override;
    EditHistory(const EditHistory&) = delete;
    EditHistory& operator=(const EditHistory&) = delete;

    // What can be undone and redone, with the commands' captions ("Undo Erase line").
    Watched<bool> CanUndo;
    Watched<bool> CanRedo;
    Watched<std::string> UndoText{"Undo"};
    Watched<std::string> RedoText{"Redo"};
    /// The list or the sound settings differ from those of the last save or load. Undoing back to it, or
    /// setting a value back, makes the song unmodified again.
    Watched<bool> Modified;

    /// Takes the last step back, or does it again: rows and selection are as they were, and the selected line
    /// is scrolled into view. Does nothing where there is no such step, and inside a gesture.
    void Undo();
    void Redo();

    /// Forgets all steps; the song as it is now counts as saved.
    void StartOver();
    /// The song as it is now has been saved.
    void MarkSaved();
    /// The song as it is now is in no file, and nothing but MarkSaved() changes that (a recovered song).
    void MarkUnsaved();

    /// Called after a step was taken back or done again. `onlyMods`: it changed nothing but Mod cells.
    std::function<void(bool onlyMods)> OnRestored;

  private:
    friend class EditGesture;

    void BeforeRowInserted(std::int32_t) override { BeforeChange(); }
    void RowInserted(std::int32_t row) override;
    void BeforeRowRemoved(std::int32_t row) override;
    void RowRemoved(std::int32_t) override { Changed(); }
    void BeforeRowsInserted(std::span<const std::int32_t>) override { BeforeChange(); }
    void RowsInserted(std::span<const std::int32_t> rows) override;
    void BeforeRowsRemoved(std::span<const std::int32_t> rows) override;
    void RowsRemoved(std::span<const std::int32_t>) override { Changed(); }
    void Reset() override;
    void BeforeCellChanged(std::int32_t row, Cell cell) override;
    void CellChanged(std::int32_t row, Cell cell) override;

    void BeginGesture(std::string name);
    void EndGesture();
    void BeforeChange();
    void Changed();
    EditChange RowsChange(EditChange::Kind kind, std::span<const std::int32_t> rows);
    void JoinLooseStep(EditStep change);
    void Push(EditStep step);
    void ForgetRedo();
    void ForgetOldest();
    void Restored(const EditStep& step);
    std::uint64_t State() const;
    void ShowState();

    SongFields& song_;
    MusicList& list_;
    TextPool texts_;
    std::deque<EditStep> steps_;
    std::size_t applied_ = 0;  // so many steps are done, the others can be redone
    std::size_t size_ = 0;
    std::uint64_t lastState_ = 0;
    std::uint64_t firstState_ = 0;  // before the oldest step
    std::optional<std::uint64_t> savedState_;
    SoundSettings savedSettings_;
    int depth_ = 0;
    bool restoring_ = false;
    bool looseStep_ = false;  // the last step is open for more changes outside a gesture
    EditStep open_;           // of the gesture, or the change, under way
    TextPool::Id cellBefore_ = 0;
};

/// Makes one step, named as after the word "Undo" ("Erase line"), of all changes while it lives. Inside
/// another gesture it belongs to that one. Must not be held across a wait.
class EditGesture {
  public:
    EditGesture(EditHistory& history, std::string name) : history_(history) {
        history_.BeginGesture(std::move(name));
    }
    ~EditGesture() { history_.EndGesture(); }
    EditGesture(const EditGesture&) = delete;
    EditGesture& operator=(const EditGesture&) = delete;

  private:
    EditHistory& history_;
};

}  // namespace quavix
