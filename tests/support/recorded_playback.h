// SPDX-License-Identifier: MIT
#pragma once

#include "support/simulated_program.h"

namespace quavix::test {

/// A tone dispatcher and a playback engine on a program's parts, with the recorder in the place of MIDI, of
/// the portamento and, where no other is given, of the beat.
struct RecordedPlayback {
    explicit RecordedPlayback(SimulatedProgram& p) : RecordedPlayback(p, p.Outputs) {}
    RecordedPlayback(SimulatedProgram& p, BeatHook& beat)
        : Tones(p.App.Fields, {p.Speaker, p.App.Motor, p.App.Fmod.Generator, p.App.MidiOut, p.Outputs},
                p.App.Code, p.App.Wait, p.Boxes, p.App.Log),
          Playback({p.App.Fields, p.App.List, p.App.Mods, p.App.Position, Tones, p.App.Code,
                    p.App.Fmod.Generator, p.App.Fmod.Singer, beat, p.App.Synchro, p.Time, p.App.Wait, p.Boxes,
                    p.App.Log}) {}

    ToneDispatcher Tones;
    PlaybackEngine Playback;
};

}  // namespace quavix::test
