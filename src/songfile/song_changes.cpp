// SPDX-License-Identifier: MIT
#include "songfile/song_changes.h"

namespace quavix {

SongChanges::SongChanges(MainFields& fields, MusicList& list) : list_(list) {
    list.AddObserver(*this);
    const auto watch = [this](auto& setting) { setting.Watch([this](const auto&) { Changed(); }); };
    watch(fields.BPM);
    watch(fields.TimeSigSlider);
    watch(fields.NoteSilenceRatioSlider);
    watch(fields.AlternateTimeText);
    watch(fields.PlayNote1Check);
    watch(fields.PlayNote2Check);
}

void SongChanges::Changed() {
    Count = Count + 1;
}

}  // namespace quavix
