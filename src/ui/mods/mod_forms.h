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
struct OutputOptions;

// The windows of the mods. Each function fills one with its controls. What they are bound to must outlive
// their use.

/// The waveform of the sound card's tones, and the never-silent option.
void SetUpFMODOptionsForm(ModWindow& form, SoundMods& sound, EventBoundary& handlers);

/// The sliders and the vowel buttons of the voice.
void SetUpVoiceInternalForm(ModWindow& form, OutputOptions& output, SoundMods& sound,
                            EventBoundary& handlers);

/// The MIDI device for output, with its channel and instrument.
void SetUpMIDIOutForm(ModWindow& form, MidiOutput& midi, EventBoundary& handlers);

/// The MIDI device for input, and the notes held on it.
void SetUpMIDIInForm(ModWindow& form, MidiInput& midi, EventBoundary& handlers);

/// The window of MIDI file playback: the file, the playback controls, and the held notes.
void SetUpMIDIFileForm(ModWindow& form, MidiFilePlayback& playback, EventBoundary& handlers);

/// The common part of the windows whose notes go through the cycler: the channels to listen to, the grid of
/// held notes, and the playing options. The caption of AutoTimeCheck names `cycleMs` and its half.
QWidget* MakeHeldNotesPanel(UsingForm& form, int cycleMs, EventBoundary& handlers, QWidget* parent);

/// The speed of the tweeble portamento's glides, and its duration.
void SetUpPortamentoForm(ModWindow& form, PitchGlide& glide, EventBoundary& handlers);

/// The choice of the beats that the beat sound plays on.
void SetUpBeatForm(ModWindow& form, Beat& beat, EventBoundary& handlers);

/// The window of the synchronized start: the time, the place in the music, and the wait button.
void SetUpSynchroForm(ModWindow& form, SynchroPlay& synchro, EventBoundary& handlers);

}  // namespace quavix
