// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>

#include "music/main_fields.h"

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

    static SoundSettings Of(const MainFields& fields);

    /// Calls `changed` after each change of one of them, for as long as the fields live.
    static void Watch(const MainFields& fields, const std::function<void()>& changed);

    friend bool operator==(const SoundSettings&, const SoundSettings&) = default;
};

}  // namespace quavix
