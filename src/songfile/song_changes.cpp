// SPDX-License-Identifier: MIT
#include "songfile/song_changes.h"

#include "music/sound_settings.h"

namespace quavix {

SongChanges::SongChanges(MainFields& fields, MusicList& list) : list_(list) {
    list.AddObserver(*this);
    SoundSettings::Watch(fields, [this] { Changed(); });
}

void SongChanges::Changed() {
    Count = Count + 1;
}

}  // namespace quavix
