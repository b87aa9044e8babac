// SPDX-License-Identifier: MIT
#pragma once

#include "ui/mods/mod_window.h"

namespace quavix {

class Beat;
class MidiFilePlayback;
class MidiInput;
class MidiOutput;
class PitchGlide;
class SoundMods;
class SynchroPlay;
class UsingForm;
struct ModFields;
struct OutputOptions;

// The windows of the mods. Each function makes one, owned by `owner`. What the window is bound to must
// outlive its use.

/// The waveform of the sound card's tones, and the never-silent option.
ModWindow* MakeFMODOptionsForm(ModFields& mods, SoundMods& sound, EventBoundary& handlers, QWidget* owner);

/// The sliders and the vowel buttons of the voice.
ModWindow* MakeVoiceInternalForm(ModFields& mods, OutputOptions& output, SoundMods& sound,
                                 EventBoundary& handlers, QWidget* owner);

/// The MIDI device for output, with its channel and instrument.
ModWindow* MakeMIDIOutForm(ModFields& mods, MidiOutput& midi, EventBoundary& handlers, QWidget* owner);

/// The MIDI device for input, and the notes held on it.
ModWindow* MakeMIDIInForm(ModFields& mods, MidiInput& midi, EventBoundary& handlers, QWidget* owner);

/// The window of MIDI file playback: the file, the playback controls, and the held notes.
ModWindow* MakeMIDIFileForm(ModFields& mods, MidiFilePlayback& playback, EventBoundary& handlers,
                            QWidget* owner);

/// The common part of the windows whose notes go through the cycler: the channels to listen to, the grid of
/// held notes, and the playing options. The caption of AutoTimeCheck names `cycleMs` and its half.
QWidget* MakeHeldNotesPanel(UsingForm& form, int cycleMs, EventBoundary& handlers, QWidget* parent);

/// The speed of the tweeble portamento's glides, and its duration.
ModWindow* MakePortamentoForm(ModFields& mods, PitchGlide& glide, EventBoundary& handlers, QWidget* owner);

/// The choice of the beats that the beat sound plays on.
ModWindow* MakeBeatForm(ModFields& mods, Beat& beat, EventBoundary& handlers, QWidget* owner);

/// The window of the synchronized start: the time, the place in the music, and the wait button.
ModWindow* MakeSynchroForm(ModFields& mods, SynchroPlay& synchro, EventBoundary& handlers, QWidget* owner);

}  // namespace quavix
