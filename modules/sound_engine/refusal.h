// SPDX-License-Identifier: MIT
#pragma once

#include "sound_engine/sound_engine.h"

namespace quavix::sound_engine {

/// Thrown where a call has to be refused; ends at the functions of the interface, which answer with it.
struct Refusal {
    SoundResult Result;
};

/// Refuses unless `holds`.
inline void Require(bool holds, SoundResult otherwise) {
    if (!holds)
        throw Refusal{otherwise};
}

}  // namespace quavix::sound_engine
