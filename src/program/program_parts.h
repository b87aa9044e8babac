// SPDX-License-Identifier: MIT
#pragma once

#include "fmod/sound_mods.h"
#include "midi/control_installer.h"
#include "midi/held_note_cycler.h"
#include "midi/midi_file_playback.h"
#include "midi/midi_input.h"
#include "midi/midi_output.h"
#include "music/dotted_triplet_boxes.h"
#include "music/edit_history.h"
#include "music/list_editing.h"
#include "music/main_fields.h"
#include "music/music_list.h"
#include "music/note_entry.h"
#include "playback/beat.h"
#include "playback/circuit_bent.h"
#include "playback/metronome.h"
#include "playback/motor_mod_module.h"
#include "playback/piano_keys.h"
#include "playback/pitch_glide.h"
#include "playback/playback_engine.h"
#include "playback/position_display.h"
#include "playback/synchro_play.h"
#include "playback/tone_code.h"
#include "playback/tone_dispatcher.h"
#include "program/program_ports.h"
#include "shell/debug_log.h"
#include "shell/event_boundary.h"
#include "shell/waiting.h"
#include "songfile/line_clipboard.h"
#include "songfile/song_document.h"
#include "songfile/song_reader.h"
#include "songfile/song_writer.h"

namespace quavix {

/// The parts of a program that all other groups use.
struct CommonParts {
    explicit CommonParts(const ProgramPorts& ports);

    ProgramPorts Ports;
    MainFields Fields;
    MusicList List;
    DebugLog Log;
    EventBoundary Handlers;
    Waiting Wait;
};

/// The parts of a program that change the song, and show the position of a change.
struct SongEditing {
    explicit SongEditing(CommonParts& common);

    quavix::EditHistory EditHistory;
    quavix::DottedTripletBoxes DottedTripletBoxes;
    quavix::PositionDisplay PositionDisplay;
    quavix::NoteEntry NoteEntry;
    quavix::ListEditing ListEditing;
    quavix::LineClipboard LineClipboard;

    /// Shows the position of the selected line, unless the playing music uses the labels.
    void ShowPositionOfEdit();

  private:
    const ProgramState& state_;
};

/// The parts of a program that sound tones.
struct Outputs {
    explicit Outputs(CommonParts& common);

    quavix::ToneCode ToneCode;
    quavix::PitchGlide PitchGlide;
    quavix::MotorModModule MotorModModule;
    quavix::SoundMods SoundMods;
    quavix::ControlInstaller ControlInstaller;
    quavix::MidiOutput MidiOutput;
    quavix::ToneDispatcher ToneDispatcher;
};

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

/// The parts of a program that load and save songs.
struct SongStorage {
    SongStorage(CommonParts& common, SongEditing& editing, Playing& playing);

    quavix::SongReader SongReader;
    quavix::SongWriter SongWriter;
    quavix::SongDocument SongDocument;
};

/// All parts of a program, on any implementation of the ports.
struct ProgramParts {
    /// The ports must outlive the parts.
    explicit ProgramParts(const ProgramPorts& ports);

    CommonParts Common;
    SongEditing Editing;
    quavix::Outputs Outputs;
    quavix::Playing Playing;
    SongStorage Storage;
};

}  // namespace quavix
