// SPDX-License-Identifier: MIT
#pragma once

#include "midi/held_note_cycler.h"
#include "midi/midi_file_playback.h"
#include "midi/midi_input.h"
#include "playback/beat.h"
#include "playback/circuit_bent.h"
#include "playback/metronome.h"
#include "playback/piano_keys.h"
#include "playback/playback_engine.h"
#include "playback/synchro_play.h"

namespace quavix {

struct CommonParts;
struct Outputs;
struct SongEditing;

/// The parts of a program that play on its outputs.
struct Playing {
    Playing(CommonParts& common, SongEditing& editing, Outputs& outputs);

    quavix::HeldNoteCycler HeldNoteCycler;
    quavix::MidiInput MidiInput;
    quavix::MidiFilePlayback MidiFilePlayback;
    quavix::Beat Beat;
    quavix::Metronome Metronome;
    quavix::CircuitBent CircuitBent;
    quavix::SynchroPlay SynchroPlay;
    quavix::PianoKeys PianoKeys;
    quavix::PlaybackEngine PlaybackEngine;
};

}  // namespace quavix
