// SPDX-License-Identifier: MIT
#pragma once

#include "ports/playback_parts.h"
#include "ports/tone_outputs.h"

namespace quavix {

/// Stands where an output or a playback part is not available. Its switch can't be set then, so that no tone
/// ever comes here; only what playback calls in every case does, and has nothing to do.
class AbsentOutputs : public MidiNotes {
  public:
    std::int32_t NoteToMIDI(std::int32_t, std::int32_t) override { return 0; }
    void MIDINoteOn(std::int32_t) override {}
    void MIDINoteOff(std::int32_t, std::int32_t) override {}
};

}  // namespace quavix
