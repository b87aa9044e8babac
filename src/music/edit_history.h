// SPDX-License-Identifier: MIT
#pragma once

#include <array>
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
#include "music/text_pool.h"

namespace quavix {

/// The undo history of the song. A step holds the changes of one gesture to the list's texts, and the
/// selection before and after it; a gesture that changes no text makes no step. Changes outside any gesture
/// join a step named "Change" until the next gesture. A reset of the list (a song loaded, everything cleared)
/// empties the history.
///
/// Stores changes only, as numbers of texts: about 20 bytes for an inserted or removed row. When the steps
/// exceed HighestSize rows together, the oldest are dropped; the newest always stays.
class EditHistory : private MusicListObserver {
  public:
    static constexpr std::size_t HighestSize = 4'000'000;

    /// Watches the fields during their whole lifetime, and must live as long; must not outlive the list.
    EditHistory(SongFields& song, MusicList& list);
    ~EditHistory() override;

    // State of undo and redo, with the captions of the commands ("Undo Erase line").
    Watched<bool> CanUndo;
    Watched<bool> CanRedo;
    Watched<std::string> UndoText{"Undo"};
    Watched<std::string> RedoText{"Redo"};
    /// True if the list or the sound settings differ from those of the last save or load. Undoing back to it,
    /// or restoring a value, makes the song unmodified again.
    Watched<bool> Modified;
    /// Number of changes of the list and of the sound settings so far. Watchers run during the change, and
    /// must not change the song.
    Watched<std::uint64_t> Changes;

    /// Undoes or redoes a step: restores rows and selection, and scrolls the selected line into view. Does
    /// nothing if there is no such step, or inside a gesture.
    void Undo();
    void Redo();

    /// Forgets all steps; the present song counts as saved.
    void StartOver();
    /// Records that the present song has been saved.
    void MarkSaved();
    /// Records that the present song is in no file (a recovered song). Only MarkSaved() changes that.
    void MarkUnsaved();

    /// Called after Undo() or Redo(). `onlyMods` is true if only Mod cells changed.
    std::function<void(bool onlyMods)> OnRestored;

  private:
    friend class EditGesture;

    /// The song's settings that are heard, or seen in its bars: changing one changes the song. Excluded are
    /// the entry options, the notes played by a click on a line, and an alternate time that held notes have
    /// set.
    using SoundSettings = std::array<std::int32_t, 6>;

    void BeforeRowsInserted(std::span<const std::int32_t>) override { BeforeChange(); }
    void RowsInserted(std::span<const std::int32_t> rows) override;
    void BeforeRowsRemoved(std::span<const std::int32_t> rows) override;
    void RowsRemoved(std::span<const std::int32_t>) override { Changed(); }
    void Reset() override;
    void BeforeCellChanged(std::int32_t row, Cell cell) override;
    void CellChanged(std::int32_t row, Cell cell) override;

    SoundSettings PresentSettings() const;
    void SettingsChanged();
    void BeginGesture(std::string name);
    void EndGesture();
    void BeforeChange();
    void Changed();
    EditChange RowsChange(EditChange::Kind kind, std::span<const std::int32_t> rows);
    void JoinLooseStep(EditStep change);
    void Push(EditStep step);
    void ForgetRedo();
    void ForgetOldest();
    void Restore(const EditStep& step, bool back);
    std::uint64_t State() const;
    void ShowState();

    SongFields& song_;
    MusicList& list_;
    TextPool texts_;
    std::deque<EditStep> steps_;
    std::size_t applied_ = 0;  // number of done steps; the others can be redone
    std::size_t size_ = 0;
    std::uint64_t lastState_ = 0;
    std::uint64_t firstState_ = 0;  // before the oldest step
    std::optional<std::uint64_t> savedState_;
    SoundSettings settings_;
    SoundSettings savedSettings_{};
    int depth_ = 0;
    bool restoring_ = false;
    bool looseStep_ = false;  // changes outside a gesture join the last step
    EditStep open_;           // the gesture or change in progress
    TextPool::Id cellBefore_ = 0;
};

/// Makes all changes during its lifetime one step, whose name follows the word "Undo" ("Erase line"). Inside
/// another gesture it is part of that one. Must not be held across a wait.
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
