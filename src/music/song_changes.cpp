// SPDX-License-Identifier: MIT
#include "music/song_changes.h"

#include <utility>

namespace quavix {

SoundSettings SoundSettings::Of(const SongFields& song) {
    return {song.BPM.OfSong(),         song.AlternateTime.OfSong(),
            song.BeatsPerBar.OfSong(), song.NoteSilenceRatio.OfSong(),
            song.PlayNote1Check,       song.PlayNote2Check};
}

void SoundSettings::Watch(const SongFields& song, const std::function<void()>& changed) {
    for (const Setting* setting :
         {&song.BPM, &song.AlternateTime, &song.BeatsPerBar, &song.NoteSilenceRatio}) {
        setting->State().Watch([changed, before = setting->OfSong()](const SettingState& now) mutable {
            if (std::exchange(before, now.OfSong) != now.OfSong)
                changed();
        });
    }
    for (const Watched<bool>* box : {&song.PlayNote1Check, &song.PlayNote2Check})
        box->Watch([changed](bool) { changed(); });
}

SongChanges::SongChanges(const SongFields& song, MusicList& list) : list_(list) {
    list.AddObserver(*this);
    SoundSettings::Watch(song, [this] { Changed(); });
}

void SongChanges::Changed() {
    Count = Count + 1;
}

}  // namespace quavix
