// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>

#include "music/main_fields.h"
#include "music/music_list.h"
#include "shell/watched.h"

namespace quavix {

/// The settings of a song that are heard, or seen in its bars: what changes one of them changes the song. How
/// notes are entered, and what a click on a line plays, is no part of it, nor is an alternate time that held
/// notes have set.
struct SoundSettings {
    std::int32_t BPM = 0;
    std::int32_t AlternateTime = 0;
    std::int32_t BeatsPerBar = 0;
    std::int32_t NoteSilenceRatio = 0;
    bool PlayNote1 = false;
    bool PlayNote2 = false;

    static SoundSettings Of(const SongFields& song);

    /// Calls `changed` after each change of one of them, for as long as they live.
    static void Watch(const SongFields& song, const std::function<void()>& changed);

    friend bool operator==(const SoundSettings&, const SoundSettings&) = default;
};

/// Notices every change of the song: of its lines, and of the settings that say how it sounds. What is
/// selected, and how notes are entered, is no part of the song.
///
/// The fields and the list must outlive it; the fields must not change afterwards.
class SongChanges : private MusicListObserver {
  public:
    SongChanges(const SongFields& song, MusicList& list);
    ~SongChanges() override { list_.RemoveObserver(*this); }
    SongChanges(const SongChanges&) = delete;
    SongChanges& operator=(const SongChanges&) = delete;

    /// Grows with every change. Watchers are told in the middle of it: they must not change the song.
    Watched<std::uint64_t> Count;

  private:
    void RowInserted(std::int32_t) override { Changed(); }
    void RowRemoved(std::int32_t) override { Changed(); }
    void Reset() override { Changed(); }
    void CellChanged(std::int32_t, Cell) override { Changed(); }
    void Changed();

    MusicList& list_;
};

}  // namespace quavix
