// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "support/simulated_program.h"

namespace quavix::test {

/// A tone dispatcher and a playback engine on a program's parts. The portamento's tones and the starts of
/// lines are recorded instead.
struct RecordedPlayback {
    explicit RecordedPlayback(SimulatedProgram& p)
        : RecordedPlayback(p, [this, &p] {
              p.Timeline.Record(p.Time.Now(), "line");
              if (OnLine)
                  OnLine();
          }) {}
    RecordedPlayback(SimulatedProgram& p, std::function<void()> lineStarts)
        : Glide(p),
          Tones(p.App.Fields.Mods, p.App.Fields.Output,
                {p.Speaker, p.App.Outputs.MotorModModule, p.App.Outputs.SoundMods.Generator,
                 p.App.Outputs.MidiOutput, Glide},
                p.App.Outputs.ToneCode, p.App.Wait, p.Boxes, p.App.Log),
          Playback({p.App.Fields.Song, p.App.Fields.Mods, p.App.Fields.Output, p.App.Fields.State,
                    p.App.Fields.View, p.App.List, p.App.Editing.DottedTripletBoxes,
                    p.App.Editing.PositionDisplay, Tones, p.App.Outputs.ToneCode,
                    p.App.Outputs.SoundMods.Generator, p.App.Outputs.SoundMods.Singer, std::move(lineStarts),
                    p.App.Playing.SynchroPlay, p.Time, p.App.Wait, p.Boxes, p.App.Log}) {}

    struct RecordedGlide : ToneOutput {
        explicit RecordedGlide(SimulatedProgram& program) : P(program) {}
        void Sound(const Tone& tone) override {
            P.Timeline.Record(P.Time.Now(), fmt::format("portamento {} Hz", tone.WholeFrequency()));
        }
        SimulatedProgram& P;
    };

    RecordedGlide Glide;
    ToneDispatcher Tones;
    PlaybackEngine Playback;
    /// Runs at the start of every line.
    std::function<void()> OnLine;
};

}  // namespace quavix::test
