// SPDX-License-Identifier: MIT
#pragma once

#include "support/simulated_program.h"

namespace quavix::test {

/// A tone dispatcher and a playback engine on a program's fields and list, with the recorder in the place of
/// everything that they drive.
struct RecordedPlayback {
    explicit RecordedPlayback(SimulatedProgram& p) : RecordedPlayback(p, p.Outputs) {}
    RecordedPlayback(SimulatedProgram& p, BeatHook& beat)
        : Tones(p.App.Fields, {p.Speaker, p.Outputs, p.Outputs, p.Outputs, p.Outputs}, p.App.Code, p.App.Wait,
                p.Boxes, p.App.Log),
          Playback({p.App.Fields, p.App.List, p.App.Mods, p.App.Position, Tones, p.App.Code, p.Outputs,
                    p.Outputs, beat, p.Outputs, p.Time, p.App.Wait, p.Boxes, p.App.Log}) {}

    ToneDispatcher Tones;
    PlaybackEngine Playback;
};

}  // namespace quavix::test
