// SPDX-License-Identifier: MIT
#include "music/song_changes.h"

#include <utility>

namespace quavix {

SoundSettings SoundSettings::Of(const MainFields& fields) {
    return {fields.BPM.OfSong(),         fields.AlternateTime.OfSong(),
            fields.BeatsPerBar.OfSong(), fields.NoteSilenceRatio.OfSong(),
            fields.PlayNote1Check,       fields.PlayNote2Check};
}

void SoundSettings::Watch(const MainFields& fields, const std::function<void()>& changed) {
    for (const Setting* setting :
         {&fields.BPM, &fields.AlternateTime, &fields.BeatsPerBar, &fields.NoteSilenceRatio}) {
        setting->State().Watch([changed, before = setting->OfSong()](const SettingState& now) mutable {
            if (std::exchange(before, now.OfSong) != now.OfSong)
                changed();
        });
    }
    for (const Watched<bool>* box : {&fields.PlayNote1Check, &fields.PlayNote2Check})
        box->Watch([changed](bool) { changed(); });
}

SongChanges::SongChanges(MainFields& fields, MusicList& list) : list_(list) {
    list.AddObserver(*this);
    SoundSettings::Watch(fields, [this] { Changed(); });
}

void SongChanges::Changed() {
    Count = Count + 1;
}

}  // namespace quavix
