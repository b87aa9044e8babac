// SPDX-License-Identifier: MIT
#include "music/sound_settings.h"

namespace quavix {

SoundSettings SoundSettings::Of(const MainFields& fields) {
    return {fields.BPM,
            fields.AlternateTimeOfSong.value_or(fields.AlternateTime),
            fields.TimeSigSlider,
            fields.NoteSilenceRatioSlider,
            fields.PlayNote1Check,
            fields.PlayNote2Check};
}

void SoundSettings::Watch(const MainFields& fields, const std::function<void()>& changed) {
    const auto watch = [&changed](const auto& field) { field.Watch([changed](const auto&) { changed(); }); };
    watch(fields.BPM);
    fields.AlternateTimeText.Watch([&fields, changed](const auto&) {
        if (!fields.AlternateTimeIsAutomatic)
            changed();
    });
    watch(fields.TimeSigSlider);
    watch(fields.NoteSilenceRatioSlider);
    watch(fields.PlayNote1Check);
    watch(fields.PlayNote2Check);
}

}  // namespace quavix
