// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>

#include "music/main_fields.h"
#include "music/music_list.h"
#include "shell/watched.h"

namespace quavix {

/// The song's settings that are heard, or seen in its bars: changing one changes the song. Excluded are the
/// entry options, the notes played by a click on a line, and an alternate time that held notes have set.
struct SoundSettings {
    std::int32_t BPM = 0;
    std::int32_t AlternateTime = 0;
    std::int32_t BeatsPerBar = 0;
    std::int32_t NoteSilenceRatio = 0;
    bool PlayNote1 = false;
    bool PlayNote2 = false;

    static SoundSettings Of(const SongFields& song);

    /// Calls `changed` after each change of a sound setting, during the whole lifetime of the fields.
    static void Watch(const SongFields& song, const std::function<void()>& changed);

    friend bool operator==(const SoundSettings&, const SoundSettings&) = default;
};

/// Counts the changes of the song: of its lines, and of the settings of its sound. The selection and the
/// entry options are not part of the song.
///
/// The fields and the list must outlive it, and the fields must not change after its end.
class SongChanges : private MusicListObserver {
  public:
    SongChanges(const SongFields& song, MusicList& list);
    ~SongChanges() override { list_.RemoveObserver(*this); }
    SongChanges(const SongChanges&) = delete;
    SongChanges& operator=(const SongChanges&) = delete;

    /// Increases with every change. Watchers run during the change, and must not change the song.
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
